// Who sees and who writes the values of CoordinateInstanceSet, and what a change of state makes of it.

#include "instance/CoordinateInstanceSet.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

/// Silent: a missing property is reported to the one who asks for it, not at every change of state.
AccessRules::WriteFacts CoordinateInstanceSet::writeFacts(
    const ParameterInstanceData &record, quint16 element) const
{
    const ElementFacts &facts = m_properties.facts(element);
    return {
        .isReadOnly = m_container->isReadOnly(),
        .isRecordWritable = record.isWritable(element),
        .isOnline = m_container->isOnline(),
        .writeLevel = facts.writeLevel,
        .kind = facts.kind,
        .userLevel = System::information()->userAccessLevel(),
    };
}

/// Silent like writeFacts(). The firmware may be asked whether the value is hidden.
bool CoordinateInstanceSet::isShown(
    ParameterInstanceData &record, quint16 element, quint32 userLevel) const
{
    return isReadable(element, userLevel) && !record.isHidden(element);
}

bool CoordinateInstanceSet::isReadable(quint16 element, quint32 userLevel) const
{
    const ElementFacts &facts = m_properties.facts(element);
    return facts.has(eParameterProperty::ReadLevel)
        && AccessRules::isVisible(false, facts.readLevel, userLevel);
}

void CoordinateInstanceSet::onOnlineChanged(bool wasOnline)
{
    forEachValue([this, wasOnline](ParameterInstanceData *record, quint16 element) {
        AccessRules::WriteFacts facts = writeFacts(*record, element);
        const bool isNow = AccessRules::isWritable(facts);
        facts.isOnline = wasOnline;
        if (isNow != AccessRules::isWritable(facts))
            Q_EMIT writabilityChanged(address(record->livingSpace(), element));
    });
}

void CoordinateInstanceSet::onReadOnlyChanged(bool wasReadOnly)
{
    forEachValue([this, wasReadOnly](ParameterInstanceData *record, quint16 element) {
        AccessRules::WriteFacts facts = writeFacts(*record, element);
        const bool isNow = AccessRules::isWritable(facts);
        facts.isReadOnly = wasReadOnly;
        if (isNow != AccessRules::isWritable(facts))
            Q_EMIT writabilityChanged(address(record->livingSpace(), element));
    });
}

void CoordinateInstanceSet::onAccessLevelChanged(quint32 oldLevel, quint32 newLevel)
{
    forEachValue([this, oldLevel, newLevel](ParameterInstanceData *record, quint16 element) {
        const LifeGuard guard(this);
        const eLivingSpace livingSpace = record->livingSpace();
        AccessRules::WriteFacts facts = writeFacts(*record, element);
        facts.userLevel = newLevel;
        const bool isWritableNow = AccessRules::isWritable(facts);
        facts.userLevel = oldLevel;
        const bool isWritabilityChanged = isWritableNow != AccessRules::isWritable(facts);

        // What both levels read, or neither, needs no question whether it is hidden.
        const bool isVisibilityChanged =
            isReadable(element, newLevel) != isReadable(element, oldLevel)
            && !record->isHidden(element);
        if (!has(guard, element))
            return;
        if (isVisibilityChanged)
            emitVisibilityChanged(livingSpace, element);
        if (isWritabilityChanged && has(guard, element))
            Q_EMIT writabilityChanged(address(livingSpace, element));
    });
}

bool CoordinateInstanceSet::isHidden(eLivingSpace livingSpace, quint16 element) const
{
    ParameterInstanceData *found = record(livingSpace, element);
    return found && found->isHidden(element);
}

bool CoordinateInstanceSet::isVisible(eLivingSpace livingSpace, quint16 element) const
{
    const LifeGuard guard(this);
    if (!m_elements.contains(element) || isHidden(livingSpace, element) || !has(guard, element))
        return false;
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::ReadLevel);
    return facts
        && AccessRules::isVisible(
            false, facts->readLevel, System::information()->userAccessLevel());
}

bool CoordinateInstanceSet::isWritable(eLivingSpace livingSpace, quint16 element) const
{
    const ParameterInstanceData *found = record(livingSpace, element);
    if (m_container->isReadOnly() || !found || !found->isWritable(element))
        return false;
    const LifeGuard guard(this);
    AccessRules::WriteFacts facts {
        .isReadOnly = false,
        .isRecordWritable = true,
        .isOnline = m_container->isOnline(),
        .writeLevel = writeLevel(element),
        .kind = 0,
        .userLevel = System::information()->userAccessLevel(),
    };
    // The kind is asked for, and reported as missing, only where the level does not decide.
    if (!has(guard, element) || !AccessRules::isWritable(facts))
        return false;
    facts.kind = kind(element);
    return AccessRules::isWritable(facts);
}
