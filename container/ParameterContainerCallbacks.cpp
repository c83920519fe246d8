// What the firmware's functions ask of ParameterContainerPrivate.

#include "container/ParameterContainerPrivate.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

QString ParameterContainerPrivate::readForFirmware(CallbackProviderDelegate::eForm form,
    int livingSpace, quint16 coordinate, quint16 element, bool withUnit)
{
    const LifeGuard guard(this);
    const eLivingSpace resolved = resolveForFirmware(livingSpace);
    // A listener of the message that no axis is active may have ended the container.
    if (!guard)
        return {};
    const ParameterCoordinate at(coordinate);
    if (!online)
        notePending(resolved, at, element);
    switch (form) {
    case CallbackProviderDelegate::eForm::Display:
        return owner->readValue(resolved, at, element, withUnit);
    case CallbackProviderDelegate::eForm::Native:
        return owner->readValueNative(resolved, at, element, withUnit);
    case CallbackProviderDelegate::eForm::Undecorated:
        return owner->readUndecoratedValue(resolved, at, element, withUnit);
    }
    return {};
}

void ParameterContainerPrivate::notePending(
    eLivingSpace livingSpace, const ParameterCoordinate &coordinate, quint16 element)
{
    const CoordinateInstanceSet *set = find(coordinate);
    if (!set || !set->hasElementProperty(element, eParameterProperty::ElementName))
        return;
    const eLivingSpace key = InstanceTable::key(livingSpace, set->isGlobalParameter());
    if (!set->hasInstance(key))
        return;
    pendingNames.insert(QString::number(qint32(key)) + QLatin1Char(';')
        + QString::number(coordinate.toNumber()) + QLatin1Char(';') + QString::number(element));
}

void ParameterContainerPrivate::writeForFirmware(CallbackProviderDelegate::eForm form,
    int livingSpace, quint16 coordinate, quint16 element, const QString &text)
{
    const LifeGuard guard(this);
    const eLivingSpace resolved = resolveForFirmware(livingSpace);
    if (!guard)
        return;
    const ParameterCoordinate at(coordinate);
    switch (form) {
    case CallbackProviderDelegate::eForm::Display:
        owner->writeValue(resolved, at, element, text);
        return;
    case CallbackProviderDelegate::eForm::Native:
        owner->writeValueNative(resolved, at, element, text);
        return;
    case CallbackProviderDelegate::eForm::Undecorated:
        owner->writeUndecoratedValue(resolved, at, element, text);
        return;
    }
}

eLivingSpace ParameterContainerPrivate::resolveForFirmware(int livingSpace) const
{
    if (livingSpace >= 0)
        return eLivingSpace(livingSpace);
    // In 64 bits: the lowest number has no absolute value of its own size.
    const qint64 active = qint32(activeLivingSpace(eLivingSpace(livingSpace)));
    return eLivingSpace(qint32(std::min(std::abs(active), qint64(INT32_MAX))));
}

QVariant ParameterContainerPrivate::parameterProperty(
    quint16 coordinate, const QString &key, const QVariant &fallback) const
{
    const CoordinateInstanceSet *set = find(ParameterCoordinate(coordinate));
    if (!set)
        return fallback;
    if (key == QLatin1String("isGlobalParameter"))
        return set->isGlobalParameter();
    if (key == QLatin1String("isOnline"))
        return online;
    if (key == QLatin1String("isReadOnly"))
        return readOnly;
    if (key == QLatin1String("elementCount"))
        return uint(set->elementCount());
    if (key == QLatin1String("name"))
        return set->name().longText();
    return fallback;
}

QVariant ParameterContainerPrivate::elementProperty(
    quint16 coordinate, quint16 element, quint32 property) const
{
    const CoordinateInstanceSet *set = find(ParameterCoordinate(coordinate));
    return set ? set->elementProperty(element, eParameterProperty(property)).asVariant()
               : QVariant();
}

QVariant ParameterContainerPrivate::datatypeProperty(quint16 coordinate, const QString &key) const
{
    const CoordinateInstanceSet *set = find(ParameterCoordinate(coordinate));
    if (!set)
        return {};
    const quint32 id = set->elementProperty(0, eParameterProperty::Datatype).asUint32();
    const SimpleType *type = DatatypeProvider::instance()->simpleType(quint8(id));
    if (!type)
        return {};
    if (key == QLatin1String("kind"))
        return quint32(type->kind());
    if (key == QLatin1String("name"))
        return type->name();
    if (key == QLatin1String("shortName"))
        return type->shortName();
    if (key == QLatin1String("sizeInBytes"))
        return type->sizeInBytes();
    return {};
}

QString ParameterContainerPrivate::containerText(const QString &key) const
{
    if (key == QLatin1String("domain"))
        return domain;
    if (key == QLatin1String("parameterChangeTag"))
        return parameterChangeTag;
    if (key == QLatin1String("change")) {
        const std::optional<quint64> change = m_dispatchLimit.change();
        return change ? QString::number(*change) : QString();
    }
    return {};
}
