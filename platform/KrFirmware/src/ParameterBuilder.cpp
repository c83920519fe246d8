#include "ParameterBuilder.h"

#include "FindingText.h"

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QSet>

#include <algorithm>
#include <limits>

namespace {

constexpr QLatin1StringView NumberKey("number");
constexpr QLatin1StringView IdentifierKey("identifier");
constexpr QLatin1StringView VersionKey("version");
constexpr QLatin1StringView NameKey("name");
constexpr QLatin1StringView NameCommonTextKey("nameCommonText");
constexpr QLatin1StringView DescriptionKey("description");
constexpr QLatin1StringView TypeKey("type");
constexpr QLatin1StringView InstancesKey("instances");
constexpr QLatin1StringView GlobalKey("global");
constexpr QLatin1StringView PhysicalAxisKey("physicalAxis");
constexpr QLatin1StringView CoordinatesKey("coordinates");
constexpr QLatin1StringView AnchorsKey("anchors");
constexpr QLatin1StringView ElementCountKey("elementCount");
constexpr QLatin1StringView DefaultsKey("defaults");
constexpr QLatin1StringView ElementsKey("elements");

constexpr qsizetype MostElements = 16000;

bool needsEscaping(const QString &text)
{
    return std::any_of(
        text.cbegin(), text.cend(), [](QChar c) { return c == u'<' || c == u'>' || c == u'&'; });
}

} // namespace

quint32 ParameterBuilder::number(const JsonValue &parameter) const
{
    const JsonValue *value = m_reader.required(parameter, NumberKey);
    if (!value)
        return 0;
    return quint32(m_reader.wholeNumber(*value, 1, std::numeric_limits<quint32>::max()));
}

ParameterDefinition::Content ParameterBuilder::content(
    const JsonValue &parameter, quint32 number, eParameterOrigin origin) const
{
    m_reader.expectKeys(parameter,
        {NumberKey, IdentifierKey, VersionKey, NameKey, NameCommonTextKey, DescriptionKey, TypeKey,
            InstancesKey, GlobalKey, PhysicalAxisKey, CoordinatesKey, AnchorsKey, ElementCountKey,
            DefaultsKey, ElementsKey});
    Content content;
    readIdentity(content, parameter, number, origin);
    readKind(content, parameter, origin);
    readPlaces(content, parameter, origin);
    readElements(content, parameter);
    return content;
}

void ParameterBuilder::readIdentity(
    Content &content, const JsonValue &parameter, quint32 number, eParameterOrigin origin) const
{
    const QChar prefix = origin == eParameterOrigin::Firmware ? u'S' : u'P';
    content.identifier = prefix + QString::number(number);
    if (const JsonValue *identifier = parameter.member(IdentifierKey))
        content.identifier = m_reader.filledText(*identifier);
    content.version = 1;
    if (const JsonValue *version = parameter.member(VersionKey))
        content.version = m_reader.version(*version);
    if (const JsonValue *name = m_reader.required(parameter, NameKey))
        content.name = this->name(*name);
    if (const JsonValue *index = parameter.member(NameCommonTextKey))
        content.nameCommonTextIndex = m_reader.systemStringNumber(*index);
    if (const JsonValue *description = parameter.member(DescriptionKey))
        content.description = m_reader.multilingualText(*description);
}

void ParameterBuilder::readKind(
    Content &content, const JsonValue &parameter, eParameterOrigin origin) const
{
    if (const JsonValue *type = parameter.member(TypeKey))
        content.isRecord =
            isSecond(*type, QLatin1StringView("simple"), QLatin1StringView("record"));
    if (const JsonValue *instances = parameter.member(InstancesKey)) {
        content.isSingleInstance =
            !isSecond(*instances, QLatin1StringView("single"), QLatin1StringView("multi"));
        if (!content.isSingleInstance && origin == eParameterOrigin::Firmware)
            m_reader.findings().refuse(
                *instances, FindingText::tr("expected \"single\" for a system parameter"));
    }
    if (const JsonValue *global = parameter.member(GlobalKey))
        content.isGlobal = m_reader.boolean(*global);
    if (const JsonValue *physicalAxis = parameter.member(PhysicalAxisKey))
        content.isPhysicalAxis = m_reader.boolean(*physicalAxis);
}

void ParameterBuilder::readAnchors(
    Content &content, const JsonValue &anchors, eParameterOrigin origin) const
{
    content.anchors = m_reader.textList(anchors);
    if (origin == eParameterOrigin::Firmware)
        return;
    // A change of firmware deletes every parameter whose locator begins so.
    const auto isOfSystem = [](const QString &anchor) { return anchor.startsWith(u'S'); };
    if (std::any_of(content.anchors.cbegin(), content.anchors.cend(), isOfSystem))
        m_reader.findings().refuse(anchors,
            FindingText::tr("an anchor that begins with \"S\" is for system parameters only"));
}

void ParameterBuilder::readPlaces(
    Content &content, const JsonValue &parameter, eParameterOrigin origin) const
{
    if (const JsonValue *anchors = parameter.member(AnchorsKey))
        readAnchors(content, *anchors, origin);
    const JsonValue *coordinates = m_reader.required(parameter, CoordinatesKey);
    if (!coordinates)
        return;
    for (const JsonValue &entry : m_reader.list(*coordinates)) {
        const ParameterCoordinate coordinate(m_reader.text(entry));
        if (!coordinate.isValid())
            m_reader.findings().refuse(entry,
                FindingText::tr(
                    "expected a coordinate: a letter from A to Z and one to three digits"));
        if (content.defaultCoordinates.contains(coordinate))
            m_reader.findings().refuse(entry, FindingText::tr("is listed twice"));
        if (m_reader.findings().hasError())
            return;
        content.defaultCoordinates.append(coordinate);
    }
    if (content.defaultCoordinates.isEmpty() && content.isSingleInstance)
        m_reader.findings().refuse(*coordinates,
            FindingText::tr("expected at least one coordinate for a single-instance parameter"));
}

void ParameterBuilder::readElements(Content &content, const JsonValue &parameter) const
{
    const JsonValue *value = m_reader.required(parameter, ElementsKey);
    if (!value)
        return;
    const JsonValue::List &elements = m_reader.list(*value);
    const qsizetype most = content.isRecord ? MostElements : 1;
    if (elements.empty() || qsizetype(elements.size()) > most) {
        m_reader.findings().refuse(*value,
            content.isRecord
                ? FindingText::tr("expected 1 to %1 elements").arg(MostElements)
                : FindingText::tr("expected exactly one element for a simple parameter"));
        return;
    }
    if (!content.isRecord) {
        readSimple(content, parameter, elements.front());
        return;
    }
    for (const QLatin1StringView key : {ElementCountKey, DefaultsKey}) {
        if (const JsonValue *misplaced = parameter.member(key))
            m_reader.findings().refuse(
                *misplaced, FindingText::tr("is for simple parameters only"));
    }
    readRecord(content, elements);
}

void ParameterBuilder::readSimple(
    Content &content, const JsonValue &parameter, const JsonValue &element) const
{
    if (const JsonValue *count = parameter.member(ElementCountKey))
        content.elementCount = quint16(m_reader.wholeNumber(*count, 1, MostElements));

    const ElementSource source = m_profiles.resolved(element);
    source.refuseIdentity(m_reader.findings());
    const ElementBuilder::Built built = m_elements.built(source);
    ParameterDefinition::Element result;
    result.information = built.information;
    result.defaultValue = m_elements.defaultText(source, built);
    content.elements.append(result);

    const JsonValue *defaults = parameter.member(DefaultsKey);
    if (!defaults)
        return;
    const JsonValue::List &list = m_reader.list(*defaults);
    if (list.size() > content.elementCount) {
        m_reader.findings().refuse(*defaults,
            FindingText::tr("expected at most %1 defaults, as many as elements")
                .arg(content.elementCount));
        return;
    }
    for (const JsonValue &entry : list)
        content.defaultValues.append(m_elements.defaultText(entry, built));
}

void ParameterBuilder::readRecord(Content &content, const JsonValue::List &elements) const
{
    QSet<quint16> numbers;
    content.elements.reserve(qsizetype(elements.size()));
    for (const JsonValue &element : elements) {
        content.elements.append(recordElement(content, element, content.elements.size()));
        const quint16 number = content.elements.constLast().number;
        if (numbers.contains(number)) {
            const JsonValue *written = element.member(NumberKey);
            m_reader.findings().refuse(written ? *written : element,
                FindingText::tr("another element has the number %1").arg(number));
        }
        numbers.insert(number);
    }
}

ParameterDefinition::Element ParameterBuilder::recordElement(
    const Content &content, const JsonValue &element, qsizetype position) const
{
    const ElementSource source = m_profiles.resolved(element);
    const ElementBuilder::Built built = m_elements.built(source);
    ParameterDefinition::Element result;
    result.number = source.number()
        ? quint16(m_reader.wholeNumber(*source.number(), 0, ParameterAddress::LastElement))
        : quint16(position);
    result.name = source.name() ? name(*source.name()) : content.name;
    if (const JsonValue *index = source.nameCommonText())
        result.nameCommonTextIndex = m_reader.systemStringNumber(*index);
    result.version = source.version() ? m_reader.version(*source.version()) : content.version;
    result.information = built.information;
    result.defaultValue = m_elements.defaultText(source, built);
    return result;
}

ParameterText ParameterBuilder::name(const JsonValue &value) const
{
    const ParameterText text = m_reader.multilingualText(value);
    for (const QString &language : text.languages()) {
        if (needsEscaping(text.shortText(language)) || needsEscaping(text.longText(language)))
            m_reader.findings().warn(
                value, FindingText::tr("a name with '<', '>' or '&' may be taken for markup"));
    }
    return text;
}

bool ParameterBuilder::isSecond(
    const JsonValue &value, QLatin1StringView first, QLatin1StringView second) const
{
    const QString *text = value.toText();
    if (text && *text == second)
        return true;
    if (!text || *text != first)
        m_reader.findings().refuse(
            value, FindingText::tr("expected \"%1\" or \"%2\"").arg(first, second));
    return false;
}
