#include "snapshot/SnapshotRecordBuilder.h"

#include <KrFilter/Filter.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QVarLengthArray>

#include <algorithm>

namespace {

/// A parameter of this kind stores no units.
constexpr int UnitlessKind = 5;
/// From this write level on the display text may hide the value.
constexpr int MaskableWriteLevel = 6;
/// Most parameters have no more elements; their drafts need no memory of their own.
constexpr qsizetype FewElements = 4;

/// Where a unit stands: the property, and the accessor that answers for the parameter's first living
/// space.
struct UnitPlace {
    eParameterProperty property;
    ParameterText (ParameterInformation::*unit)(quint16) const;
};

constexpr UnitPlace ScaledUnit {
    eParameterProperty::ScaledMeasuringUnit, &ParameterInformation::scaledMeasuringUnit};
constexpr UnitPlace NativeUnit {
    eParameterProperty::NativeMeasuringUnit, &ParameterInformation::nativeMeasuringUnit};

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
    Draft(SnapshotRecordBuilder &builder, ParameterInformation *information);

    std::optional<SnapshotRecord> record();

private:
    /// A locator has no text here: it is asked for in every living space.
    struct Unit {
        QString text;
        bool isLocator = false;
    };

    struct UnitPair {
        Unit scaled;
        Unit native;
    };

    /// What an element answers for all living spaces at once.
    struct Element {
        /// Of no meaning where one of the two is a locator.
        SnapshotPool::Units units;
        quint32 readLevel = 0;
        bool hasLocator = false;
        bool isMaskable = false;
        bool isAsked = false;
        bool isAccepted = false; ///< In the living space at hand.
        bool isRejected = false; ///< In some living space.
        bool isHeld = false;
    };

    /// The answer of the parameter; an empty one once it is gone.
    template <typename Question>
    auto ask(Question question) const
    {
        return m_information ? question(*m_information) : decltype(question(*m_information)) {};
    }

    bool isAccepted(eLivingSpace livingSpace, qsizetype position) const;
    void take(eLivingSpace livingSpace);
    void hold(eLivingSpace livingSpace);
    SnapshotValue value(eLivingSpace livingSpace, qsizetype position);
    QString displayText(eLivingSpace livingSpace, quint16 number, const SnapshotValue &value,
        const Element &element) const;
    const Element &element(qsizetype position);
    Unit unit(quint16 number, const UnitPlace &place) const;
    void askUnits(Element &element, qsizetype position);
    SnapshotPool::Units localUnits(eLivingSpace livingSpace, qsizetype position) const;
    QString localUnit(eLivingSpace livingSpace, quint16 number, const UnitPlace &place) const;
    QString accessorUnit(quint16 number, const UnitPlace &place) const;
    void dropUnheld();
    void finishLayout();

    SnapshotRecordBuilder &m_builder;
    QPointer<ParameterInformation> m_information;
    bool m_isRecord;
    QList<eLivingSpace> m_livingSpaces;
    QVarLengthArray<Element, FewElements> m_elements;
    /// By position; of elements with a locator.
    QHash<qsizetype, UnitPair> m_locators;
    qsizetype m_rejectedCount = 0;
    /// The builder's, whose memory serves one parameter after the other.
    SnapshotLayout &m_layout;
    QList<SnapshotValue> m_values;
    /// By position; empty for a simple parameter.
    QList<QString> m_elementNames;
};

SnapshotRecordBuilder::Draft::Draft(
    SnapshotRecordBuilder &builder, ParameterInformation *information)
    : m_builder(builder)
    , m_information(information)
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
        std::sort(positions.begin(), positions.end());
    if (!std::is_sorted(m_livingSpaces.cbegin(), m_livingSpaces.cend()))
        std::sort(m_livingSpaces.begin(), m_livingSpaces.end());
    m_elements.resize(positions.size());
    m_values.reserve(positions.size() * m_livingSpaces.size());
    if (m_isRecord)
        m_elementNames.resize(positions.size());
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
    record.m_name = m_information->name().longText();
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
    return ask(
        [&](auto &information) { return m_builder.isAccepted(information, livingSpace, number); });
}

/// The values of a living space are asked for before it is clear that they are held: only the whole
/// living space tells whether an element is left.
void SnapshotRecordBuilder::Draft::take(eLivingSpace livingSpace)
{
    const qsizetype begin = m_values.size();
    for (qsizetype i = 0; i < m_elements.size(); ++i) {
        const bool accepted = isAccepted(livingSpace, i);
        m_elements[i].isAccepted = accepted;
        m_values.append(accepted ? value(livingSpace, i) : SnapshotValue());
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
    value.native = ask(
        [&](auto &information) { return information.nativeValueText(livingSpace, number, false); });
    value.undecorated =
        ask([&](auto &information) { return information.valueText(livingSpace, number, false); });
    value.display = displayText(livingSpace, number, value, known);
    share(value.undecorated, value.native);
    share(value.display, value.undecorated);
    value.units = known.hasLocator ? localUnits(livingSpace, position) : known.units;
    return value;
}

/// Unless something may hide the value, the value text leads to the display text: asking for the
/// display text would convert the native text once more.
QString SnapshotRecordBuilder::Draft::displayText(eLivingSpace livingSpace, quint16 number,
    const SnapshotValue &value, const Element &element) const
{
    return ask([&](auto &information) {
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
    element.isMaskable = ask([&](auto &information) { return information.writeLevel(number); })
        >= MaskableWriteLevel;
    element.readLevel = ask([&](auto &information) { return information.readLevel(number); });
    if (ask([&](auto &information) { return information.kind(number); }) != UnitlessKind)
        askUnits(element, position);
    if (m_isRecord) {
        m_elementNames[position] =
            ask([&](auto &information) { return information.elementName(number); }).longText();
    }
    return element;
}

void SnapshotRecordBuilder::Draft::askUnits(Element &element, qsizetype position)
{
    const quint16 number = m_layout.positions.at(position);
    const UnitPair pair {unit(number, ScaledUnit), unit(number, NativeUnit)};
    element.hasLocator = pair.scaled.isLocator || pair.native.isLocator;
    if (element.hasLocator)
        m_locators.insert(position, pair);
    else
        element.units = m_builder.m_pool.units(pair.scaled.text, pair.native.text);
}

/// Only a plain text can be a locator. Texts are the unit as they stand; the accessor knows, and
/// reports, what else there may be.
SnapshotRecordBuilder::Draft::Unit SnapshotRecordBuilder::Draft::unit(
    quint16 number, const UnitPlace &place) const
{
    const ParameterProperty property =
        ask([&](auto &information) { return information.elementProperty(number, place.property); });
    const QVariant &value = property.asVariant();
    if (value.metaType() == QMetaType::fromType<ParameterText>())
        return {static_cast<const ParameterText *>(value.constData())->longText(), false};
    if (value.metaType() != QMetaType::fromType<QString>())
        return {accessorUnit(number, place), false};
    const QString text = value.toString();
    const bool isLocator = text.startsWith(QLatin1Char('<'));
    return {isLocator ? QString() : text, isLocator};
}

SnapshotPool::Units SnapshotRecordBuilder::Draft::localUnits(
    eLivingSpace livingSpace, qsizetype position) const
{
    const quint16 number = m_layout.positions.at(position);
    const auto text = [&](const Unit &unit, const UnitPlace &place) {
        return unit.isLocator ? localUnit(livingSpace, number, place) : unit.text;
    };
    const UnitPair pair = m_locators.value(position);
    const QString scaled = text(pair.scaled, ScaledUnit);
    return m_builder.m_pool.units(scaled, text(pair.native, NativeUnit));
}

QString SnapshotRecordBuilder::Draft::localUnit(
    eLivingSpace livingSpace, quint16 number, const UnitPlace &place) const
{
    const ParameterText unit = ask([&](auto &information) {
        return information.measuringUnit(place.property, livingSpace, number);
    });
    return unit.longText();
}

QString SnapshotRecordBuilder::Draft::accessorUnit(quint16 number, const UnitPlace &place) const
{
    const ParameterText unit =
        ask([&](auto &information) { return (information.*place.unit)(number); });
    return unit.longText();
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

std::optional<SnapshotRecord> SnapshotRecordBuilder::build(ParameterInformation *information)
{
    return information ? Draft(*this, information).record() : std::nullopt;
}

bool SnapshotRecordBuilder::isAccepted(
    const ParameterInformation &information, eLivingSpace livingSpace, quint16 element)
{
    m_filterElement.load(&information, livingSpace, element);
    return m_filter->testElement(m_filterElement);
}
