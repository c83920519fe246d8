#include "apps/krparameter-desk/ChangeRecorder.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <utility>

ChangeRecorder::ChangeRecorder(ParameterContainer &container)
    : m_container(&container)
{
    connect(&container, &ParameterContainer::parameterNativeValueChanged, this,
        &ChangeRecorder::onNativeValueChanged);
    connect(&container, &ParameterContainer::parameterAdded, this, &ChangeRecorder::forget);
    connect(&container, &ParameterContainer::parameterRemoved, this, &ChangeRecorder::forget);
    connect(
        &container, &ParameterContainer::parameterDefinitionChanged, this, &ChangeRecorder::forget);
}

void ChangeRecorder::start(const ValuePlace &place)
{
    m_places.clear();
    m_noted.clear();
    if (!m_container)
        return;
    if (m_known.isEmpty())
        readAll();
    // A change tag alone changes without a signal.
    m_known.insert(place, StoredValue::of(*m_container, place));
    m_isRecording = true;
    note(place);
}

QList<ValueChange> ChangeRecorder::finish()
{
    m_isRecording = false;
    QList<ValueChange> changes;
    for (const ValuePlace &place : std::as_const(m_places)) {
        const auto known = m_known.find(place);
        if (!m_container || known == m_known.end())
            continue;
        const StoredValue after = StoredValue::of(*m_container, place);
        if (after != *known)
            changes.append({place, std::exchange(*known, after), after});
    }
    m_places.clear();
    return changes;
}

/// While a write is recorded its places stay, and what they were.
void ChangeRecorder::forget()
{
    if (!m_isRecording)
        m_known.clear();
}

void ChangeRecorder::readAll()
{
    const QList<ValuePlace> places = ValuePlace::allOf(*m_container);
    m_known.reserve(places.size());
    for (const ValuePlace &place : places)
        m_known.insert(place, StoredValue::of(*m_container, place));
}

void ChangeRecorder::note(const ValuePlace &place)
{
    if (m_noted.contains(place))
        return;
    m_noted.insert(place);
    m_places.append(place);
}

void ChangeRecorder::onNativeValueChanged(const ParameterAddress &address)
{
    if (m_known.isEmpty())
        return;
    const auto parameter = m_container->parameterInformation(address.coordinate());
    if (!parameter)
        return;
    const ValuePlace place = ValuePlace::of(address, *parameter);
    if (m_isRecording)
        note(place);
    else
        m_known.insert(place, StoredValue::of(*m_container, place));
}
