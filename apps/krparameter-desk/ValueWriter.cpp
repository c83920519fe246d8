#include "apps/krparameter-desk/ValueWriter.h"

#include "apps/krparameter-desk/SinkCapture.h"
#include "apps/krparameter-desk/WriteCommand.h"
#include "apps/krparameter-desk/WriteObstacle.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QScopedValueRollback>
#include <QtGui/QUndoStack>

namespace {

/// Functions that answer each other for ever end here.
constexpr int GreatestRounds = 8;
/// Memory allocation of a value that nobody stores, a command for example.
constexpr int NoStorage = 1;

/// A command that was given is not taken back by giving the one before it: that would be one more, of
/// which nobody has asked whether the drive is ready for it.
bool isRestorable(ParameterContainer &container, const ValuePlace &place)
{
    const auto parameter = container.parameterInformation(place.coordinate);
    return parameter && parameter->memoryAllocation(place.element) != NoStorage;
}

} // namespace

ValueWriter::ValueWriter(ParameterContainer &container, QUndoStack &undoStack)
    : m_container(&container)
    , m_undoStack(&undoStack)
    , m_recorder(container)
{
}

void ValueWriter::setConnecting(bool isConnecting)
{
    if (m_isConnecting == isConnecting)
        return;
    m_isConnecting = isConnecting;
    Q_EMIT connectingChanged();
}

bool ValueWriter::isWritable(const ValuePlace &place) const
{
    const auto parameter =
        m_container ? m_container->parameterInformation(place.coordinate) : nullptr;
    return parameter && !m_isConnecting && parameter->isWritable(place.livingSpace, place.element);
}

QString ValueWriter::obstacle(const ValuePlace &place) const
{
    const auto parameter =
        m_container ? m_container->parameterInformation(place.coordinate) : nullptr;
    return parameter ? WriteObstacle::text(*parameter, place, m_isConnecting)
                     : tr("Das Gerät hat den Parameter nicht mehr.");
}

ValueWriter::Outcome ValueWriter::write(const ValuePlace &place, const QString &displayText)
{
    if (const QString reason = obstacle(place); !reason.isEmpty())
        return {false, reason};
    const QPointer<ParameterSetup> parameter = m_container->parameterSetup(place.coordinate);
    const QString address = place.addressText(*parameter);
    const SinkCapture sink;
    // Reports the refusal itself.
    if (!parameter->isValueTextAcceptable(place.livingSpace, place.element, displayText))
        return {false, sink.text()};
    QList<ValueChange> changes;
    if (parameter) {
        const QScopedValueRollback writing(m_isWriting, true);
        m_recorder.start(place);
        parameter->setValueText(place.livingSpace, place.element, displayText);
        changes = m_recorder.finish();
    }
    if (!m_container)
        return {true, sink.text()};
    changes.removeIf(
        [this](const ValueChange &change) { return !isRestorable(*m_container, change.place); });
    if (m_undoStack && isRestorable(*m_container, place) && !changes.isEmpty())
        m_undoStack->push(new WriteCommand(address, changes,
            [writer = QPointer(this)](const QList<ValueChange> &which, ValueChange::eState state) {
                return writer && writer->restore(which, state);
            }));
    Q_EMIT written(place);
    return {true, sink.text()};
}

bool ValueWriter::restore(const QList<ValueChange> &changes, ValueChange::eState state)
{
    if (!m_container || m_container->isReadOnly() || changes.isEmpty())
        return false;
    Targets targets;
    QList<ValuePlace> places;
    for (const ValueChange &change : changes) {
        targets.insert(change.place, change.at(state));
        places.append(change.place);
    }
    {
        const QScopedValueRollback writing(m_isWriting, true);
        m_recorder.start(places.constFirst());
        // A function may answer a restored value with a write; the second round puts that back.
        for (int round = 0; round < GreatestRounds && storeDifferent(places, targets); ++round) {
            for (const ValuePlace &place : m_recorder.places()) {
                if (targets.contains(place) || !m_container || !isRestorable(*m_container, place))
                    continue;
                targets.insert(place, m_recorder.before(place));
                places.append(place);
            }
        }
        m_recorder.finish();
    }
    for (const ValuePlace &place : std::as_const(places))
        Q_EMIT written(place);
    return true;
}

/// False where nothing differs any more.
bool ValueWriter::storeDifferent(const QList<ValuePlace> &places, const Targets &targets)
{
    bool isStored = false;
    for (const ValuePlace &place : places) {
        const StoredValue target = targets.value(place);
        if (!m_container || StoredValue::of(*m_container, place) == target)
            continue;
        target.storeIn(*m_container, place);
        isStored = true;
    }
    return isStored;
}
