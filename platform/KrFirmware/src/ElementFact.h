#pragma once

#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QLatin1StringView>
#include <QtCore/QtGlobal>

#include <array>
#include <span>

/// How a property stands in the file and what it becomes in the definition.
enum class eFactForm {
    Number, ///< Whole number to uint.
    SignedNumber, ///< Whole number to int.
    Real, ///< Number to float.
    DataType, ///< Short name to the type's id as uint.
    Limit, ///< Number or text to native text.
    Choices, ///< Object to ParameterTextMap.
    Unit, ///< Text in languages to ParameterText, unit locator to QString.
    NumberList, ///< List of whole numbers to QVariantList of uint.
    TextOrNumber, ///< Text to QString, whole number to uint.
};

/// What an element has of a property that the description does not mention.
enum class eFactDefault { None, Zero, EmptyText };

/// One property of an element: where it stands in the file, its range and its default.
struct ElementFact {
    /// Key of the object that groups it; empty where it stands in the element itself.
    QLatin1StringView group;
    QLatin1StringView key;
    eParameterProperty property;
    eFactForm form;
    eFactDefault byDefault = eFactDefault::None;
    /// **Range** of whole numbers.
    qint64 least = 0;
    qint64 most = 0;
};

constexpr size_t ElementFactCount = 48;

/// Every property that a definition can hold, each once.
std::span<const ElementFact, ElementFactCount> elementFacts();
