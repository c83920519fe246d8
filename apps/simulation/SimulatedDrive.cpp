#include "apps/simulation/SimulatedDrive.h"

#include "apps/host/DriveProject.h"
#include "apps/online/RegisterBytes.h"
#include "apps/host/ActionForm.h"
#include "apps/host/DeviceState.h"
#include "apps/simulation/WriteCheck.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QPointer>

#include <algorithm>

namespace {

constexpr bool BigEndian = true;
constexpr bool FromDevice = true;

/// **Unit** ticks.
constexpr quint64 MeasuringInterval = 5;
constexpr quint64 SelfTestEnd = 5;
constexpr quint64 StartUpEnd = 10;

int commandOf(const QByteArray &bytes)
{
    const bool isSmall = std::all_of(bytes.begin(), bytes.end() - 1, [](char c) { return c == 0; });
    return isSmall ? quint8(bytes.back()) : -1;
}

} // namespace

SimulatedDrive::SimulatedDrive(DriveProject &project)
    : m_project(project)
    , m_container(project.container())
    , m_map(m_container)
    , m_states(m_container)
{
    fillRegisters();
    findInhabitants();
    connect(&m_container, &ParameterProvider::parameterNativeValueChanged, this,
        &SimulatedDrive::onChanged);
}

QList<quint16> SimulatedDrive::read(const RegisterSpan &span) const
{
    const QList<quint16> registers = m_registers.value(span.unit);
    return span.end() <= registers.size() ? registers.sliced(span.first, span.count)
                                          : QList<quint16>();
}

SimulatedDrive::eVerdict SimulatedDrive::write(
    const RegisterSpan &span, const QList<quint16> &registers)
{
    const QByteArray bytes = RegisterBytes::flat(registers);
    QList<std::pair<MappedValue, QByteArray>> writes;
    int next = span.first;
    for (qsizetype i = m_map.firstAt(span.unit, span.first); next < span.end(); ++i) {
        if (i == m_map.values().size())
            return eVerdict::NoSuchValue;
        const MappedValue &value = m_map.values().at(i);
        if (value.span.unit != span.unit || value.span.first != next
            || value.span.end() > span.end())
            return eVerdict::NoSuchValue;
        const QByteArray part =
            RegisterBytes::valueAt(bytes, value.span.first - span.first, *value.type);
        if (const eVerdict verdict = judge(value, part); verdict != eVerdict::Done)
            return verdict;
        writes.append({value, part});
        next = value.span.end();
    }
    for (const auto &[value, part] : std::as_const(writes))
        take(value, part);
    return eVerdict::Done;
}

void SimulatedDrive::tick()
{
    ++m_ticks;
    startUp();
    for (DriveAction &action : m_actions)
        action.step();
    if (m_ticks % MeasuringInterval != 0)
        return;
    for (const MeasuredMotion &motion : m_motions) {
        const ValuePlace &place = motion.place();
        m_container.writeValueNative(place.livingSpace, place.coordinate, place.element,
            motion.textAt(m_ticks / MeasuringInterval));
    }
}

void SimulatedDrive::fillRegisters()
{
    for (const quint8 unit : m_map.units())
        m_registers.insert(unit, m_map.header(unit));
    for (const MappedValue &value : m_map.values()) {
        m_registers[value.span.unit].resize(value.span.end());
        store(value);
    }
}

void SimulatedDrive::findInhabitants()
{
    ParameterCoordinate last;
    bool isAction = false;
    for (const MappedValue &value : m_map.values()) {
        const ParameterCoordinate &coordinate = value.place.coordinate;
        const auto parameter = m_container.parameterInformation(coordinate);
        if (coordinate != last)
            isAction = ActionForm::isAction(*parameter);
        last = coordinate;
        if (isAction && value.place.element == 0)
            m_actions.emplace_back(m_container, m_states, coordinate, value.place.livingSpace);
        else if (!isAction && coordinate != DeviceState::coordinate()
            && MeasuredMotion::isMeasured(*parameter, value))
            m_motions.emplace_back(*parameter, value);
    }
}

void SimulatedDrive::store(const MappedValue &value)
{
    const QByteArray bytes = m_container.nativeValueBinary(value.address, BigEndian);
    const QList<quint16> registers = RegisterBytes::fromBytes(bytes, *value.type);
    QList<quint16> &unit = m_registers[value.span.unit];
    std::copy(registers.begin(), registers.end(), unit.begin() + value.span.first);
}

void SimulatedDrive::onChanged(const ParameterAddress &address)
{
    const qsizetype index = m_map.indexOf(address);
    if (index >= 0)
        store(m_map.values().at(index));
}

SimulatedDrive::eVerdict SimulatedDrive::judge(
    const MappedValue &value, const QByteArray &bytes) const
{
    if (value.isReadOnly)
        return eVerdict::ReadOnly;
    const auto parameter = m_container.parameterInformation(value.place.coordinate);
    if (!parameter || !WriteCheck::accepts(*parameter, value, bytes))
        return eVerdict::NotAccepted;
    const qsizetype action = actionAt(value.place);
    if (action >= 0 && !m_actions.at(std::size_t(action)).accepts(commandOf(bytes)))
        return eVerdict::WrongState;
    return eVerdict::Done;
}

void SimulatedDrive::take(const MappedValue &value, const QByteArray &bytes)
{
    const qsizetype action = actionAt(value.place);
    if (action >= 0)
        m_actions.at(std::size_t(action)).command(commandOf(bytes));
    else
        m_container.setNativeValueBinary(value.address, bytes, BigEndian, FromDevice);
}

void SimulatedDrive::startUp()
{
    if (m_ticks != SelfTestEnd && m_ticks != StartUpEnd)
        return;
    const int before =
        m_ticks == SelfTestEnd ? DeviceState::NotReady : DeviceState::SwitchOnDisabled;
    for (const int axis : m_project.firmware().axes())
        m_states.advance(eLivingSpace(axis), before, before + 1);
}

qsizetype SimulatedDrive::actionAt(const ValuePlace &place) const
{
    const auto found = std::find_if(m_actions.begin(), m_actions.end(),
        [&place](const DriveAction &action) { return action.isAt(place); });
    return found == m_actions.end() ? -1 : found - m_actions.begin();
}
