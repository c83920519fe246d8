#pragma once

#include "value/LifeGuard.h"

#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QString>

#include <optional>

class ParameterInformation;
class ParameterText;
class SimpleType;

/// The display form of every parameter kind: the one table from the kind to its printing and
/// parsing.
namespace DisplayForms {

/// The value whose text is converted. A form asks the information only for what it needs, because
/// every property that is missing is reported.
struct Place {
    const ParameterInformation &information;
    eLivingSpace livingSpace;
    quint16 element;
    /// Of the decimal form; empty where there is none or none is wanted.
    const QString &unit;
    /// False once a listener to a report, or a function of the firmware, has led to the end of the
    /// parameter; then it is asked no more.
    LifeGuard isThere {&information};
};

/// Whether values of the kind are numbers that stand for texts.
bool isChoice(int kind);

/// Whether the form shows texts of the type as a number. A text that is none would show as another
/// value, because forms count it as 0.
bool showsNumbers(int kind, const SimpleType *type);

/// Whether display texts of the kind end in the scaled unit; whether typed ones may.
bool showsUnit(int kind);
bool readsUnit(int kind);

/// Value text to display text. An unknown kind, one without form and the data type that is never
/// formatted: the value text as it stands.
QString show(int kind, const QString &valueText, const Place &place);

/// Display text to value text, unchanged in the same cases. **Refused** a text that is not of the
/// form: the result is empty.
std::optional<QString> read(int kind, const QString &displayText, const Place &place);

/// A definition's default, which is in no display form: "255" stays 255 for a hexadecimal parameter
/// and the point is "." in every locale. Outer blanks of a decimal number are dropped.
QString readDefault(int kind, const QString &text, const Place &place);

/// The entries of the element's choice, placeholders replaced; empty where it has none.
ParameterTextMap choiceTexts(const Place &place);

/// The text of a choice entry in the active language, a placeholder replaced by the display text of
/// the parameter that it names; one that cannot be resolved stays as it stands.
QString choiceEntryText(
    const ParameterText &entry, const ParameterInformation &information, eLivingSpace livingSpace);

} // namespace DisplayForms
