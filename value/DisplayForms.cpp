#include "value/DisplayForms.h"

#include "value/AddressForm.h"
#include "value/AxisReference.h"
#include "value/BinaryForm.h"
#include "value/ChoiceForm.h"
#include "value/DecimalForm.h"
#include "value/HexadecimalForm.h"
#include "value/Ipv4Form.h"
#include "value/SuffixRule.h"
#include "value/TimeForm.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <array>

namespace {

using DisplayForms::Place;
using SuffixRule::eFormat;

/// A value and its data type, which is null where the type is unknown.
struct Value {
    const Place &place;
    const SimpleType *type;
};

ParameterTextMap choiceOf(const Place &place)
{
    const ParameterProperty property =
        place.information.elementProperty(place.element, eParameterProperty::ChoiceMap);
    const QVariant &value = property.asVariant();
    ParameterTextMap choice;
    if (value.isValid())
        QMetaType::convert(
            value.metaType(), value.constData(), QMetaType::fromType<ParameterTextMap>(), &choice);
    return choice;
}

ChoiceForm::EntryText entryTextAt(const Place &place)
{
    return [&place](const ParameterText &entry) {
        return place.isThere
            ? DisplayForms::choiceEntryText(entry, place.information, place.livingSpace)
            : entry.longText();
    };
}

QString showDecimal(const QString &valueText, const Value &value)
{
    const Place &place = value.place;
    const int behind = place.information.decimalPlacesBehind(place.element);
    if (!place.isThere)
        return valueText;
    const DecimalForm::Places places {
        behind, place.information.decimalPlacesSignificant(place.element)};
    if (!place.isThere)
        return valueText;
    return DecimalForm::show(
        valueText, value.type, places, place.unit, DecimalForm::systemDecimalPoint());
}

QString showChoice(const QString &valueText, const Value &value)
{
    return ChoiceForm::show(valueText, choiceOf(value.place), entryTextAt(value.place));
}

QString showHexadecimal(const QString &valueText, const Value &value)
{
    return HexadecimalForm::show(valueText, value.type);
}

QString showBinary(const QString &valueText, const Value &value)
{
    return BinaryForm::show(valueText, value.type);
}

QString showTime(const QString &valueText, const Value &)
{
    return TimeForm::show(valueText);
}

QString showIpv4(const QString &valueText, const Value &)
{
    return Ipv4Form::show(valueText);
}

QString showAddress(const QString &valueText, const Value &value)
{
    ParameterContainer *container = value.place.information.parameterContainer();
    const std::optional<ParameterAddress> address = AddressForm::addressOf(valueText);
    if (!container || !address)
        return valueText;
    const QPointer<ParameterInformation> named =
        container->parameterInformation(address->coordinate());
    if (!named)
        return valueText;
    const bool withElement =
        named->isRecordParameter() || named->elementCount() > 1 || address->element() != 0;
    // An axis in the address of a global parameter is shown: the text reads back as the same number.
    const bool isWithoutAxis = named->isGlobalParameter() && address->axis() == 0;
    return AddressForm::show(address->toText(isWithoutAxis, withElement), named->name().longText());
}

/// Decimal, hexadecimal and binary parameters take each other's texts by their suffix.
template <eFormat Requested>
std::optional<QString> readNumber(const QString &displayText, const Value &value)
{
    const SuffixRule::Number number = SuffixRule::apply(displayText, Requested);
    switch (number.format) {
    case eFormat::Decimal:
        break;
    case eFormat::Hexadecimal:
        return HexadecimalForm::read(number.text, value.type);
    case eFormat::Binary:
        return BinaryForm::read(number.text, value.type);
    }
    const bool isWhole = number.text.size() == displayText.size();
    return DecimalForm::read(isWhole ? displayText : number.text.toString(), value.place.unit,
        DecimalForm::systemDecimalPoint());
}

std::optional<QString> readChoice(const QString &displayText, const Value &value)
{
    if (std::optional<QString> number = ChoiceForm::readNumber(displayText))
        return number;
    return ChoiceForm::readText(displayText, choiceOf(value.place), entryTextAt(value.place));
}

std::optional<QString> readTime(const QString &displayText, const Value &)
{
    return TimeForm::read(displayText);
}

std::optional<QString> readIpv4(const QString &displayText, const Value &)
{
    return Ipv4Form::read(displayText);
}

std::optional<QString> readAddress(const QString &displayText, const Value &)
{
    return AddressForm::read(displayText);
}

/// Without functions: the text as it stands.
struct Form {
    QString (*show)(const QString &valueText, const Value &value) = nullptr;
    std::optional<QString> (*read)(const QString &displayText, const Value &value) = nullptr;
};

constexpr Form DecimalRow {showDecimal, readNumber<eFormat::Decimal>};
constexpr Form ChoiceRow {showChoice, readChoice};
constexpr Form HexadecimalRow {showHexadecimal, readNumber<eFormat::Hexadecimal>};
constexpr Form BinaryRow {showBinary, readNumber<eFormat::Binary>};
constexpr Form AsItStands {};
constexpr Form TimeRow {showTime, readTime};
constexpr Form Ipv4Row {showIpv4, readIpv4};
constexpr Form AddressRow {showAddress, readAddress};

constexpr std::array<Form, 12> FormsByKind {
    DecimalRow, // 0
    ChoiceRow, // 1
    ChoiceRow, // 2
    HexadecimalRow, // 3
    BinaryRow, // 4
    AsItStands, // 5
    AsItStands, // 6
    TimeRow, // 7
    AsItStands, // 8
    AsItStands, // 9
    Ipv4Row, // 10
    AddressRow, // 11
};

const Form &formOf(int kind)
{
    return kind >= 0 && size_t(kind) < FormsByKind.size() ? FormsByKind[size_t(kind)] : AsItStands;
}

const SimpleType *typeOf(quint8 datatype)
{
    return DatatypeProvider::instance()->simpleType(datatype);
}

bool isNumber(const SimpleType *type)
{
    return type
        && (type->kind() == SimpleType::SignedInteger || type->kind() == SimpleType::UnsignedInteger
            || type->kind() == SimpleType::FloatingPoint);
}

} // namespace

bool DisplayForms::isChoice(int kind)
{
    return formOf(kind).show == showChoice;
}

bool DisplayForms::showsNumbers(int kind, const SimpleType *type)
{
    const auto show = formOf(kind).show;
    return isNumber(type)
        && (show == showDecimal || show == showHexadecimal || show == showBinary || show == showTime
            || show == showIpv4);
}

bool DisplayForms::showsUnit(int kind)
{
    return formOf(kind).show == showDecimal;
}

bool DisplayForms::readsUnit(int kind)
{
    const auto show = formOf(kind).show;
    return show == showDecimal || show == showHexadecimal || show == showBinary;
}

QString DisplayForms::show(int kind, const QString &valueText, const Place &place)
{
    const Form &form = formOf(kind);
    if (!form.show)
        return valueText;
    const quint8 datatype = place.information.datatype(place.element);
    if (!place.isThere || datatype == DatatypeProvider::UnformattedId)
        return valueText;
    return form.show(valueText, {place, typeOf(datatype)});
}

std::optional<QString> DisplayForms::read(int kind, const QString &displayText, const Place &place)
{
    const Form &form = formOf(kind);
    if (!form.read)
        return displayText;
    const quint8 datatype = place.information.datatype(place.element);
    if (!place.isThere || datatype == DatatypeProvider::UnformattedId)
        return displayText;
    return form.read(displayText, {place, typeOf(datatype)});
}

QString DisplayForms::readDefault(int kind, const QString &text, const Place &place)
{
    if (formOf(kind).show != showDecimal)
        return text;
    return isNumber(typeOf(place.information.datatype(place.element))) ? text.trimmed() : text;
}

QString DisplayForms::choiceEntryText(
    const ParameterText &entry, const ParameterInformation &information, eLivingSpace livingSpace)
{
    const QString text = entry.longText();
    const std::optional<AxisReference> reference = AxisReference::parse(text);
    if (!reference)
        return text;
    return reference->resolve(information.parameterContainer(), livingSpace).value_or(text);
}

ParameterTextMap DisplayForms::choiceTexts(const Place &place)
{
    const ParameterTextMap choice = choiceOf(place);
    ParameterTextMap texts;
    for (const qint32 key : choice.keys()) {
        ParameterText entry = choice.text(key);
        if (!place.isThere)
            return texts;
        const QString shown = choiceEntryText(entry, place.information, place.livingSpace);
        // Only a placeholder shows another text than its own; it does so in every language.
        if (shown != entry.longText()) {
            for (const QString &language : entry.languages())
                entry.setText(language, shown, shown);
        }
        texts.insert(key, entry);
    }
    return texts;
}
