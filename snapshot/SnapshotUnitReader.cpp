#include "snapshot/SnapshotUnitReader.h"

/// Where a unit stands: the property, and the accessor that answers for the parameter's first living
/// space.
struct SnapshotUnitReader::Place {
    eParameterProperty property;
    ParameterText (ParameterInformation::*unit)(quint16) const;
};

constexpr SnapshotUnitReader::Place SnapshotUnitReader::Scaled {
    eParameterProperty::ScaledMeasuringUnit, &ParameterInformation::scaledMeasuringUnit};
constexpr SnapshotUnitReader::Place SnapshotUnitReader::Native {
    eParameterProperty::NativeMeasuringUnit, &ParameterInformation::nativeMeasuringUnit};

SnapshotUnitReader::SnapshotUnitReader(SnapshotPool &pool, const GuardedInformation &information)
    : m_pool(pool)
    , m_information(information)
{
}

std::optional<SnapshotPool::Units> SnapshotUnitReader::everywhere(quint16 element)
{
    const UnitPair pair {unit(element, Scaled), unit(element, Native)};
    if (pair.scaled && pair.native)
        return m_pool.units(*pair.scaled, *pair.native);
    m_locators.insert(element, pair);
    return std::nullopt;
}

SnapshotPool::Units SnapshotUnitReader::in(eLivingSpace livingSpace, quint16 element) const
{
    const auto text = [&](const Unit &unit, const Place &place) {
        return unit ? *unit : localUnit(livingSpace, element, place);
    };
    const UnitPair pair = m_locators.value(element);
    const QString scaled = text(pair.scaled, Scaled);
    return m_pool.units(scaled, text(pair.native, Native));
}

/// Only a plain text can be a locator. Texts are the unit as they stand; the accessor knows, and
/// reports, what else there may be.
SnapshotUnitReader::Unit SnapshotUnitReader::unit(quint16 element, const Place &place) const
{
    const ParameterProperty property = m_information.ask(
        [&](auto &information) { return information.elementProperty(element, place.property); });
    const QVariant &value = property.asVariant();
    if (value.metaType() == QMetaType::fromType<ParameterText>())
        return static_cast<const ParameterText *>(value.constData())->longText();
    if (value.metaType() != QMetaType::fromType<QString>())
        return accessorUnit(element, place);
    QString text = value.toString();
    return text.startsWith(QLatin1Char('<')) ? Unit() : Unit(std::move(text));
}

QString SnapshotUnitReader::accessorUnit(quint16 element, const Place &place) const
{
    const ParameterText unit =
        m_information.ask([&](auto &information) { return (information.*place.unit)(element); });
    return unit.longText();
}

QString SnapshotUnitReader::localUnit(
    eLivingSpace livingSpace, quint16 element, const Place &place) const
{
    const ParameterText unit = m_information.ask([&](auto &information) {
        return information.measuringUnit(place.property, livingSpace, element);
    });
    return unit.longText();
}
