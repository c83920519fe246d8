#include "ElementBuilder.h"

#include "FindingText.h"
#include "Integer.h"
#include "NativeTextReader.h"
#include "RealText.h"
#include "ValueCheck.h"

#include <KrDatatype/SimpleType.h>
#include <KrMultilingual/ParameterTextMap.h>

#include <algorithm>

namespace {

size_t positionOf(eParameterProperty property)
{
    const auto facts = elementFacts();
    return size_t(std::find_if(facts.begin(), facts.end(), [property](const ElementFact &fact) {
        return fact.property == property;
    }) - facts.begin());
}

/// A value named by its place for an inherited entry, by its content for an own one.
void appendEntry(QString &signature, const ElementSource::Entry &entry)
{
    if (entry.isInherited)
        signature += QString::number(quintptr(entry.value));
    else if (entry.value)
        entry.value->appendSignature(signature);
    signature += u',';
}

bool isAscending(const QString &lower, const QString &upper, const SimpleType &type)
{
    if (type.kind() == SimpleType::FloatingPoint)
        return RealText::read(lower, type) <= RealText::read(upper, type);
    return Integer::fromText(lower) <= Integer::fromText(upper);
}

bool isString(const SimpleType &type)
{
    return type.kind() == SimpleType::CharacterString || type.kind() == SimpleType::ByteString;
}

/// The two parameter kinds whose values are keys of the choice map.
bool isChoice(const ElementInformation &information)
{
    const qint32 kind = information.property(eParameterProperty::ParameterKind).asInt32();
    return kind == 1 || kind == 2;
}

ValueBounds limitsOf(const ElementInformation &information)
{
    return {information.property(eParameterProperty::LowerLimitValue).asString(),
        information.property(eParameterProperty::UpperLimitValue).asString(), {}};
}

ParameterTextMap choicesOf(const ElementInformation &information)
{
    if (!isChoice(information))
        return {};
    return information.property(eParameterProperty::ChoiceMap)
        .asVariant()
        .value<ParameterTextMap>();
}

} // namespace

void ElementBuilder::checkProfile(const ElementSource &profile)
{
    const ElementSource::Entry &type = profile.fact(positionOf(eParameterProperty::Datatype));
    make(profile, type.value ? m_facts.dataType(*type.value) : nullptr);
    const JsonValue *defaultValue = profile.defaultValue().value;
    if (defaultValue && !defaultValue->toNumber() && !defaultValue->toText())
        m_reader.findings().refuse(*defaultValue, FindingText::tr("expected a number or a text"));
}

ElementBuilder::Built ElementBuilder::built(const ElementSource &source)
{
    const QString key = signature(source);
    const auto known = m_built.constFind(key);
    if (known != m_built.cend())
        return *known;
    return *m_built.insert(key, make(source, typeOf(source)));
}

QString ElementBuilder::defaultText(const ElementSource &source, const Built &built) const
{
    if (source.defaultValue().value)
        return defaultText(*source.defaultValue().value, built);
    return !built.type || isString(*built.type) ? QString() : QStringLiteral("0");
}

QString ElementBuilder::defaultText(const JsonValue &value, const Built &built) const
{
    if (!built.type)
        return {};
    const QString text = NativeTextReader::read(value, *built.type, m_reader);
    checkDefault(text, built, value);
    return text;
}

ElementBuilder::Built ElementBuilder::make(const ElementSource &source, const SimpleType *type)
{
    const Properties absent = properties(source.absent());
    const Properties settable = properties(source.settable());
    if (absent[size_t(eParameterProperty::Datatype)])
        m_reader.findings().refuse(
            *source.absent().value, FindingText::tr("the data type (16) must not be absent"));
    const auto information = std::make_shared<ElementInformation>();
    for (size_t position = 0; position < ElementFactCount; ++position) {
        const ElementFact &fact = elementFacts()[position];
        const ElementSource::Entry &entry = source.fact(position);
        const QVariant value =
            entry.value ? factValue(position, entry, type) : FactReader::defaultValue(fact);
        if (!absent[size_t(fact.property)])
            information->setProperty(fact.property, value);
        information->setPropertySettable(fact.property, settable[size_t(fact.property)]);
    }

    Built result {information, type, limitsOf(*information), choicesOf(*information)};
    checkLimits(source, result);
    return result;
}

const SimpleType *ElementBuilder::typeOf(const ElementSource &source) const
{
    const ElementSource::Entry &type = source.fact(positionOf(eParameterProperty::Datatype));
    if (type.value)
        return m_facts.dataType(*type.value);
    m_reader.findings().refuseMissing(source.object(), QStringLiteral("dataType"),
        FindingText::tr("is missing, in the element and in its profile"));
    return nullptr;
}

QVariant ElementBuilder::factValue(
    size_t position, const ElementSource::Entry &entry, const SimpleType *type)
{
    const ElementFact &fact = elementFacts()[position];
    if (entry.isInherited && fact.form != eFactForm::Limit) {
        const auto known = m_inherited.constFind(entry.value);
        if (known != m_inherited.cend())
            return *known;
        return *m_inherited.insert(entry.value, m_facts.value(fact, *entry.value, type));
    }
    const QVariant value = m_facts.value(fact, *entry.value, type);
    checkIndices(fact, value, *entry.value);
    return value;
}

void ElementBuilder::checkIndices(
    const ElementFact &fact, const QVariant &value, const JsonValue &at) const
{
    const bool isIndex = fact.group == QLatin1StringView("functions")
        || fact.group == QLatin1StringView("commonTexts");
    if (!isIndex)
        return;
    for (const quint16 index : ParameterProperty(value).asUint16List())
        m_tables.checkIndex(fact.property, index, at, m_reader.findings());
}

void ElementBuilder::checkDefault(
    const QString &text, const Built &built, const JsonValue &at) const
{
    const std::optional<Integer> number = Integer::fromText(text);
    const std::optional<qint32> key = number ? number->toInt32() : std::nullopt;
    const bool isChoice = built.choices.isEmpty() || (key && built.choices.contains(*key));
    if (!isChoice
        || ValueCheck::result(text, *built.type, built.limits) != eCheckResult::Acceptable)
        m_reader.findings().warn(
            at, FindingText::tr("the default lies outside of the limits or choices"));
}

void ElementBuilder::checkLimits(const ElementSource &source, const Built &built) const
{
    const ValueBounds &bounds = built.limits;
    if (!built.type || isString(*built.type) || bounds.lowerLimit.isEmpty()
        || bounds.upperLimit.isEmpty()
        || isAscending(bounds.lowerLimit, bounds.upperLimit, *built.type))
        return;
    m_reader.findings().refuse(*source.fact(positionOf(eParameterProperty::LowerLimitValue)).value,
        FindingText::tr("expected at most the upper limit %1").arg(bounds.upperLimit));
}

ElementBuilder::Properties ElementBuilder::properties(const ElementSource::Entry &list) const
{
    Properties result;
    if (!list.value)
        return result;
    for (const JsonValue &entry : m_reader.list(*list.value)) {
        const qint64 number = m_reader.wholeNumber(entry, 0, DefinitionPropertyEnd - 1);
        if (positionOf(eParameterProperty(number)) == ElementFactCount)
            m_reader.findings().refuse(
                entry, FindingText::tr("expected the number of an element property"));
        result.set(size_t(number));
    }
    return result;
}

QString ElementBuilder::signature(const ElementSource &source)
{
    QString result;
    for (size_t position = 0; position < ElementFactCount; ++position)
        appendEntry(result, source.fact(position));
    appendEntry(result, source.settable());
    appendEntry(result, source.absent());
    return result;
}
