#include "snapshot/SnapshotRecordBuilder.h"

#include "snapshot/SnapshotUnitReader.h"

#include <KrFilter/Filter.h>

#include <QtCore/QVarLengthArray>

#include <algorithm>

namespace {

/// A parameter of this kind stores no units.
constexpr int UnitlessKind = 5;
/// From this write level on the display text may hide the value.
constexpr int MaskableWriteLevel = 6;
/// Most parameters have no more elements; their drafts need no memory of their own.
constexpr qsizetype FewElements = 4;

/// Equal texts share storage, here and with the container.
void share(QString &text, const QString &other)
{
    if (!text.isSharedWith(other) && text == other)
        text = other;
}

} // namespace

/// The way of one parameter into its record.
class SnapshotRecordBuilder::Draft {
public:
    Draft(SnapshotRecordBuilder &builder, ParameterInformation *information, eMasking masking);

    std::optional<SnapshotRecord> record();

private:
    /// What an element answers for all living spaces at once.
    struct Element {
        /// Nothing where each living space has its own.
        std::optional<SnapshotPool::Units> units {SnapshotPool::Units()};
        quint32 readLevel = 0;
        bool isMaskable = false;
        bool isAsked = false;
        bool isAccepted = false; ///< In the living space at hand.
        bool isRejected = false; ///< In some living space.
        bool isHeld = false;
    };

    bool isAccepted(eLivingSpace livingSpace, qsizetype position) const;
    void sortPositions();
    void take(eLivingSpace livingSpace);
    void hold(eLivingSpace livingSpace);
    SnapshotValue value(eLivingSpace livingSpace, qsizetype position);
    QString displayText(eLivingSpace livingSpace, quint16 number, const SnapshotValue &value,
        const Element &element) const;
    const Element &element(qsizetype position);
    void dropUnheld();
    void finishLayout();

    SnapshotRecordBuilder &m_builder;
    GuardedInformation m_information;
    SnapshotUnitReader m_units;
    eMasking m_masking;
    bool m_isRecord;
    QList<eLivingSpace> m_livingSpaces;
    QVarLengthArray<Element, FewElements> m_elements;
    /// Positions in the order of the parameter's element list; empty where that list is ascending.
    QList<qsizetype> m_definedOrder;
    qsizetype m_rejectedCount = 0;
    /// The builder's, whose memory serves one parameter after the other.
    SnapshotLayout &m_layout;
    QList<SnapshotValue> m_values;
    /// By position; empty for a simple parameter.
    QList<QString> m_elementNames;
};

SnapshotRecordBuilder::Draft::Draft(
    SnapshotRecordBuilder &builder, ParameterInformation *information, eMasking masking)
    : m_builder(builder)
    , m_information(information)
    , m_units(builder.m_pool, m_information)
    , m_masking(masking)
    , m_isRecord(information->isRecordParameter())
    , m_livingSpaces(information->livingSpaces())
    , m_layout(builder.m_layout)
{
    m_layout.livingSpaces.clear();
    // Shares the memory of the positions; clearing would give it one of its own.
    m_layout.elements = {};
    m_layout.tables.clear();
    m_layout.readLevels.clear();
    QList<quint16> &positions = m_layout.positions;
    positions = information->elementList();
    if (!std::is_sorted(positions.cbegin(), positions.cend()))
        sortPositions();
    if (!std::is_sorted(m_livingSpaces.cbegin(), m_livingSpaces.cend()))
        std::sort(m_livingSpaces.begin(), m_livingSpaces.end());
    m_elements.resize(positions.size());
    m_values.reserve(positions.size() * m_livingSpaces.size());
    if (m_isRecord)
        m_elementNames.resize(positions.size());
}

void SnapshotRecordBuilder::Draft::sortPositions()
{
    QList<quint16> &positions = m_layout.positions;
    const QList<quint16> defined = positions;
    std::sort(positions.begin(), positions.end());
    m_definedOrder.reserve(defined.size());
    for (const quint16 number : defined) {
        const auto found = std::lower_bound(positions.cbegin(), positions.cend(), number);
        m_definedOrder.append(found - positions.cbegin());
    }
}

std::optional<SnapshotRecord> SnapshotRecordBuilder::Draft::record()
{
    for (const eLivingSpace livingSpace : std::as_const(m_livingSpaces))
        take(livingSpace);
    if (!m_information || m_layout.tables.isEmpty())
        return std::nullopt;
    dropUnheld();
    finishLayout();
    m_values.squeeze();
    SnapshotRecord record;
    record.m_name =
        m_information.ask([](auto &information) { return information.name(); }).longText();
    record.m_elementNames = std::move(m_elementNames);
    record.m_layout = m_builder.m_pool.layout(m_layout);
    record.m_values = std::move(m_values);
    return record;
}

bool SnapshotRecordBuilder::Draft::isAccepted(eLivingSpace livingSpace, qsizetype position) const
{
    if (!m_builder.m_filter)
        return true;
    const quint16 number = m_layout.positions.at(position);
    return m_information.ask(
        [&](auto &information) { return m_builder.isAccepted(information, livingSpace, number); });
}

/// The values of a living space are asked for before it is clear that they are held: only the whole
/// living space tells whether an element is left. Elements are asked in the order in which they are
/// defined, as a filter that counts would notice.
void SnapshotRecordBuilder::Draft::take(eLivingSpace livingSpace)
{
    const qsizetype begin = m_values.size();
    m_values.resize(begin + m_elements.size());
    for (qsizetype k = 0; k < m_elements.size(); ++k) {
        const qsizetype i = m_definedOrder.isEmpty() ? k : m_definedOrder.at(k);
        const bool accepted = isAccepted(livingSpace, i);
        m_elements[i].isAccepted = accepted;
        if (accepted)
            m_values[begin + i] = value(livingSpace, i);
        if (accepted || m_elements[i].isRejected)
            continue;
        m_elements[i].isRejected = true;
        ++m_rejectedCount;
    }
    if (m_rejectedCount < m_elements.size())
        hold(livingSpace);
    else
        m_values.resize(begin);
}

void SnapshotRecordBuilder::Draft::hold(eLivingSpace livingSpace)
{
    m_layout.tables.append(livingSpace);
    for (Element &element : m_elements)
        element.isHeld = element.isHeld || element.isAccepted;
}

SnapshotValue SnapshotRecordBuilder::Draft::value(eLivingSpace livingSpace, qsizetype position)
{
    const quint16 number = m_layout.positions.at(position);
    const Element &known = element(position);
    SnapshotValue value;
    value.native = m_information.ask(
        [&](auto &information) { return information.nativeValueText(livingSpace, number, false); });
    value.undecorated = m_information.ask(
        [&](auto &information) { return information.valueText(livingSpace, number, false); });
    value.display = displayText(livingSpace, number, value, known);
    share(value.undecorated, value.native);
    share(value.display, value.undecorated);
    value.units = known.units ? *known.units : m_units.in(livingSpace, number);
    return value;
}

/// Unless something may hide the value, the value text leads to the display text: asking for the
/// display text would convert the native text once more.
QString SnapshotRecordBuilder::Draft::displayText(eLivingSpace livingSpace, quint16 number,
    const SnapshotValue &value, const Element &element) const
{
    return m_information.ask([&](auto &information) {
        return element.isMaskable
            ? information.displayValueText(livingSpace, number, false)
            : information.prepareValueText(value.undecorated, livingSpace, number, false, nullptr);
    });
}

const SnapshotRecordBuilder::Draft::Element &SnapshotRecordBuilder::Draft::element(
    qsizetype position)
{
    Element &element = m_elements[position];
    if (element.isAsked)
        return element;
    element.isAsked = true;
    const quint16 number = m_layout.positions.at(position);
    // Not asked where it plays no part: the parameter reports a level that is missing.
    element.isMaskable = m_masking == eMasking::ByWriteLevel
        && m_information.ask([&](auto &information) { return information.writeLevel(number); })
            >= MaskableWriteLevel;
    element.readLevel =
        m_information.ask([&](auto &information) { return information.readLevel(number); });
    if (m_information.ask([&](auto &information) { return information.kind(number); })
        != UnitlessKind)
        element.units = m_units.everywhere(number);
    if (m_isRecord) {
        m_elementNames[position] =
            m_information.ask([&](auto &information) { return information.elementName(number); })
                .longText();
    }
    return element;
}

/// A filter may leave one element of thousands: the others take no place.
void SnapshotRecordBuilder::Draft::dropUnheld()
{
    if (m_rejectedCount == 0)
        return;
    const qsizetype before = m_elements.size();
    QList<qsizetype> held;
    for (qsizetype i = 0; i < before; ++i) {
        if (m_elements[i].isHeld)
            held.append(i);
    }
    const auto keep = [&held](auto &list, qsizetype from, qsizetype to) {
        for (qsizetype i = 0; i < held.size(); ++i) {
            if (to + i != from + held.at(i))
                list[to + i] = std::move(list[from + held.at(i)]);
        }
    };
    keep(m_elements, 0, 0);
    keep(m_layout.positions, 0, 0);
    for (qsizetype i = 0; i < m_layout.tables.size(); ++i)
        keep(m_values, i * before, i * held.size());
    m_elements.resize(held.size());
    m_layout.positions.resize(held.size());
    m_values.resize(m_layout.tables.size() * held.size());
    if (m_isRecord) {
        keep(m_elementNames, 0, 0);
        m_elementNames.resize(held.size());
    }
}

void SnapshotRecordBuilder::Draft::finishLayout()
{
    for (const eLivingSpace livingSpace : std::as_const(m_livingSpaces)) {
        if (m_builder.m_livingSpaces.contains(livingSpace))
            m_layout.livingSpaces.append(livingSpace);
    }
    m_layout.readLevels.reserve(m_elements.size());
    for (const Element &element : m_elements)
        m_layout.readLevels.append(element.readLevel);
    if (m_rejectedCount == 0) {
        m_layout.elements = m_layout.positions;
        return;
    }
    for (qsizetype i = 0; i < m_elements.size(); ++i) {
        if (!m_elements[i].isRejected)
            m_layout.elements.append(m_layout.positions.at(i));
    }
}

SnapshotRecordBuilder::SnapshotRecordBuilder(
    const QSet<eLivingSpace> &livingSpaces, const Filter *filter)
    : m_livingSpaces(livingSpaces)
    , m_filter(filter)
{
}

std::optional<SnapshotRecord> SnapshotRecordBuilder::build(
    ParameterInformation *information, eMasking masking)
{
    return information ? Draft(*this, information, masking).record() : std::nullopt;
}

bool SnapshotRecordBuilder::isAccepted(
    const ParameterInformation &information, eLivingSpace livingSpace, quint16 element)
{
    m_filterElement.load(&information, livingSpace, element);
    return m_filter->testElement(m_filterElement);
}
