#include "apps/host/BlockComparison.h"

#include "apps/host/Progress.h"
#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>
#include <charconv>
#include <numeric>

namespace {

constexpr QByteArrayView ElementCountKey("CE");
constexpr QByteArrayView ValuePrefix("V_");
constexpr QByteArrayView DefaultPrefix("DV_");
constexpr QByteArrayView PropertyPrefix("P_");
constexpr QByteArrayView PropertyTagPrefix("PC_");
/// Prefixes of the keys that name an axis and an element.
constexpr QByteArrayView ElementPrefixes[] = {ValuePrefix, "VC_", DefaultPrefix, "DVC_"};
constexpr quint16 GreatestElementCount = 16000;

struct NumberPair {
    quint16 first = 0;
    quint32 second = 0;
};

QByteArray pairText(quint32 first, quint32 second)
{
    return QByteArray::number(first) + '_' + QByteArray::number(second);
}

/// Reads "<number>_<number>" in the only spelling that a load takes: plain decimal digits without
/// leading zeros.
std::optional<NumberPair> pairOf(QByteArrayView text)
{
    NumberPair pair;
    const char *end = text.data() + text.size();
    const auto [middle, firstError] = std::from_chars(text.data(), end, pair.first);
    if (firstError != std::errc() || middle == end || *middle != '_')
        return std::nullopt;
    const auto [last, secondError] = std::from_chars(middle + 1, end, pair.second);
    if (secondError != std::errc() || last != end || pairText(pair.first, pair.second) != text)
        return std::nullopt;
    return pair;
}

/// 0 where the text is no element count. Plain digits only: a load takes no sign and no blanks.
quint16 elementCountOf(QByteArrayView text)
{
    quint16 count = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, count);
    return error == std::errc() && stop == end && count <= GreatestElementCount ? count
                                                                                : quint16(0);
}

QList<quint16> elementsOf(
    const LmIniParser::IniSection &section, const ParameterInformation &parameter)
{
    if (parameter.isRecordParameter())
        return parameter.elementList();
    const quint16 count = elementCountOf(section.read(ElementCountKey));
    QList<quint16> elements(count > 0 ? count : parameter.definedElementCount());
    std::iota(elements.begin(), elements.end(), quint16(0));
    return elements;
}

} // namespace

BlockComparison::BlockComparison(const QByteArray &block, ParameterContainer &container)
    : m_size(block.size())
    , m_container(container)
{
    m_parser.setIniText(block);
}

LoadReport BlockComparison::report(
    const std::optional<BlockManifest::Entry> &noted, Progress *progress)
{
    m_report = {};
    const QList<QByteArray> names = m_parser.allSectionNames();
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (progress && !progress->advance(i, names.size())) {
            m_report.wasCancelled = true;
            return m_report;
        }
        compareSection(names.at(i));
    }
    m_report.malformedLineCount = m_parser.malformedLineCount();
    m_report.firstMalformedLines = m_parser.firstMalformedLines();
    findMissingParameters();
    findCutSigns(noted);
    if (progress)
        progress->advance(names.size(), names.size());
    return m_report;
}

/// Overrides are loaded of elements that are there and of every property that a definition may hold, also
/// where this one lacks it. All elements of a simple parameter share the overrides of element 0.
bool BlockComparison::canBeOverridden(const Section &section, quint16 element, quint32 property)
{
    const bool isPlace =
        section.parameter.isRecordParameter() ? section.elementSet.contains(element) : element == 0;
    return isPlace && property < DefinitionPropertyEnd;
}

void BlockComparison::compareSection(const QByteArray &name)
{
    const ParameterCoordinate coordinate(QString::fromLatin1(name));
    const QPointer<ParameterInformation> parameter = m_container.parameterInformation(coordinate);
    if (!parameter) {
        m_isLastSectionIncomplete = false;
        m_report.sectionsSkipped.append(QString::fromLatin1(name));
        return;
    }
    if (m_found.contains(coordinate))
        m_report.sectionsRepeated.append(QString::fromLatin1(name));
    m_found.insert(coordinate);

    const LmIniParser::IniSection &keys = *m_parser.section(name);
    const QList<quint16> elements = elementsOf(keys, *parameter);
    const Section section {
        keys, name, *parameter, elements, QSet<quint16>(elements.begin(), elements.end())};
    const qsizetype emptied = m_report.valuesEmptied.size() + m_report.defaultsEmptied.size();
    const qsizetype notUnderstood = m_report.keysNotUnderstood.size();
    for (const eLivingSpace livingSpace : parameter->livingSpaces()) {
        for (const quint16 element : elements)
            compareValue(section, {coordinate, livingSpace, element});
    }
    compareKeys(section);
    // Keys of elements beyond the count show that "CE", which stands behind them, is gone.
    m_isLastSectionIncomplete =
        m_report.valuesEmptied.size() + m_report.defaultsEmptied.size() > emptied
        || m_report.keysNotUnderstood.size() > notUnderstood;
}

void BlockComparison::compareValue(const Section &section, const ValuePlace &place)
{
    const QByteArray numbers = pairText(quint32(place.livingSpace), place.element);
    if (section.keys.contains(ValuePrefix.toByteArray() + numbers))
        ++m_report.valuesRead;
    else
        m_report.valuesEmptied.append(addressOf(section, place));
    if (section.keys.contains(DefaultPrefix.toByteArray() + numbers))
        ++m_report.defaultsRead;
    else
        m_report.defaultsEmptied.append(addressOf(section, place));
}

/// With the element wherever the section has more than one: it may have more than the parameter has
/// before it is loaded.
QString BlockComparison::addressOf(const Section &section, const ValuePlace &place)
{
    const ParameterInformation &parameter = section.parameter;
    const quint8 axis = parameter.address(place.livingSpace, 0).axis();
    const bool withElement = parameter.isRecordParameter() || section.elements.size() > 1;
    return ParameterAddress(axis, place.coordinate, place.element)
        .toText(parameter.isGlobalParameter(), withElement);
}

void BlockComparison::compareKeys(const Section &section)
{
    for (qsizetype i = 0; i < section.keys.keyCount(); ++i) {
        const QByteArrayView key = section.keys.keyAt(i);
        if (!isUnderstood(section, key)) {
            m_report.keysNotUnderstood.append(
                QString::fromLatin1(section.name) + QLatin1Char('/') + QString::fromLatin1(key));
        }
    }
}

bool BlockComparison::isUnderstood(const Section &section, QByteArrayView key) const
{
    const ParameterInformation &parameter = section.parameter;
    if (key == ElementCountKey) {
        return !parameter.isRecordParameter() && elementCountOf(section.keys.read(key)) > 0;
    }
    if (key.startsWith(PropertyPrefix) || key.startsWith(PropertyTagPrefix)) {
        const QByteArrayView place = key.sliced(key.indexOf('_') + 1);
        const std::optional<NumberPair> pair = pairOf(place);
        return pair && canBeOverridden(section, pair->first, pair->second)
            && (key.startsWith(PropertyPrefix)
                || section.keys.contains(PropertyPrefix.toByteArray() + place.toByteArray()));
    }
    const auto prefix = std::find_if(std::begin(ElementPrefixes), std::end(ElementPrefixes),
        [key](QByteArrayView candidate) { return key.startsWith(candidate); });
    if (prefix == std::end(ElementPrefixes))
        return false;
    const std::optional<NumberPair> pair = pairOf(key.sliced(prefix->size()));
    return pair && pair->second <= ParameterAddress::LastElement
        && section.elementSet.contains(quint16(pair->second))
        && parameter.hasInstance(eLivingSpace(pair->first));
}

void BlockComparison::findMissingParameters()
{
    for (const ParameterCoordinate &coordinate : m_container.parameterList()) {
        if (!m_found.contains(coordinate))
            m_missing.append(coordinate);
    }
    std::sort(m_missing.begin(), m_missing.end());
    for (const ParameterCoordinate &coordinate : std::as_const(m_missing))
        m_report.parametersMissing.append(coordinate.toText());
}

void BlockComparison::findCutSigns(const std::optional<BlockManifest::Entry> &noted)
{
    const qsizetype sections = m_parser.allSectionNames().size();
    if (noted && m_size < noted->size)
        m_report.cutSigns.append(eCutSign::ShorterThanNoted);
    if (noted && sections < noted->sectionCount)
        m_report.cutSigns.append(eCutSign::FewerSectionsThanNoted);
    if (noted && m_size == noted->size && sections == noted->sectionCount)
        return;
    if (m_parser.endsWithoutLineEnd())
        m_report.cutSigns.append(eCutSign::NoLastLineEnd);
    if (m_isLastSectionIncomplete)
        m_report.cutSigns.append(eCutSign::LastSectionIncomplete);
    const bool isTailMissing = !m_missing.isEmpty()
        && std::all_of(m_found.begin(), m_found.end(),
            [this](const ParameterCoordinate &found) { return found < m_missing.first(); });
    if (isTailMissing)
        m_report.cutSigns.append(eCutSign::LastParametersMissing);
}
