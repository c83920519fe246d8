#include "apps/desk/ValueWriter.h"

#include "apps/desk/SinkCapture.h"
#include "apps/desk/StoredValue.h"
#include "apps/desk/WriteCommand.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QScopedValueRollback>
#include <QtGui/QUndoStack>

ValueWriter::ValueWriter(ParameterContainer &container, QUndoStack &undoStack)
    : m_container(&container)
    , m_undoStack(&undoStack)
{
}

ValueWriter::Outcome ValueWriter::write(const ValuePlace &place, const QString &displayText)
{
    const QPointer<ParameterSetup> parameter =
        m_container ? m_container->parameterSetup(place.coordinate) : nullptr;
    if (!parameter)
        return {false, tr("Das Gerät hat den Parameter nicht mehr.")};
    const QString address = place.addressText(*parameter);
    if (!parameter->isWritable(place.livingSpace, place.element))
        return {false, tr("Parameter %1 ist jetzt nicht schreibbar.").arg(address)};
    const SinkCapture sink;
    const StoredValue before = StoredValue::of(*m_container, place);
    // Reports the refusal itself.
    if (!parameter->isValueTextAcceptable(place.livingSpace, place.element, displayText))
        return {false, sink.text()};
    if (parameter) {
        const QScopedValueRollback writing(m_isWriting, true);
        parameter->setValueText(place.livingSpace, place.element, displayText);
    }
    if (!m_container)
        return {true, sink.text()};
    const StoredValue after = StoredValue::of(*m_container, place);
    if (after != before && m_undoStack)
        m_undoStack->push(new WriteCommand(*this, place, address, before, after));
    Q_EMIT written(place);
    return {true, sink.text()};
}

void ValueWriter::restore(const ValuePlace &place, const StoredValue &value)
{
    if (!m_container)
        return;
    {
        const QScopedValueRollback writing(m_isWriting, true);
        value.storeIn(*m_container, place);
    }
    Q_EMIT written(place);
}
