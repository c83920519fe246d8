#include <KrParameterInstance/ParameterValueSnapshot.h>

#include "snapshot/ParameterFilterElement.h"
#include "snapshot/ParameterValueSnapshotPrivate.h"
#include "snapshot/SnapshotComparison.h"
#include "snapshot/SnapshotJson.h"
#include "snapshot/SnapshotTextExport.h"

#include <KrParameterInstance/ParameterContainer.h>

ParameterValueSnapshot::ParameterValueSnapshot(ParameterContainer *container)
    : d(new ParameterValueSnapshotPrivate(container, this))
{
}

ParameterValueSnapshot::~ParameterValueSnapshot() = default;

QStringList ParameterValueSnapshot::filterPropertyNames()
{
    return ParameterFilterElement::propertyNames();
}

void ParameterValueSnapshot::apply(const Filter &filter)
{
    d->rebuild(&filter);
}

void ParameterValueSnapshot::applyNoFilter()
{
    d->rebuild(nullptr);
}

void ParameterValueSnapshot::disconnectFromSourceContainer()
{
    d->sourceContainer.clear();
}

ParameterContainer *ParameterValueSnapshot::sourceContainer() const
{
    return d->sourceContainer;
}

QList<ParameterCoordinate> ParameterValueSnapshot::parameterList()
{
    return d->records.keys();
}

QList<ParameterCoordinate> ParameterValueSnapshot::parameterListDifferent(
    ParameterValueSnapshot *other)
{
    return SnapshotComparison::differentCoordinates(
        d->records, other ? other->d->records : SnapshotRecords());
}

QList<quint16> ParameterValueSnapshot::elements(ParameterCoordinate coordinate) const
{
    const SnapshotRecord *record = d->record(coordinate);
    return record ? record->layout().elements : QList<quint16>();
}

QList<eLivingSpace> ParameterValueSnapshot::livingSpaces(ParameterCoordinate coordinate)
{
    const SnapshotRecord *record = d->record(coordinate);
    return record ? record->layout().livingSpaces : QList<eLivingSpace>();
}

QString ParameterValueSnapshot::parameterName(ParameterCoordinate coordinate)
{
    const SnapshotRecord *record = d->record(coordinate);
    return record ? record->name() : QString();
}

QString ParameterValueSnapshot::elementName(ParameterCoordinate coordinate, quint16 element) const
{
    const SnapshotRecord *record = d->record(coordinate);
    return record ? record->elementName(element) : QString();
}

quint32 ParameterValueSnapshot::elementReadLevel(
    ParameterCoordinate coordinate, quint16 element) const
{
    const SnapshotRecord *record = d->record(coordinate);
    return record ? record->elementReadLevel(element) : 0;
}

QString ParameterValueSnapshot::value(
    eLivingSpace livingSpace, ParameterCoordinate coordinate, quint16 element, bool withUnit)
{
    const SnapshotValue &value = d->value(livingSpace, coordinate, element);
    return withUnit ? value.displayWithUnit() : value.display;
}

QString ParameterValueSnapshot::valueNative(
    eLivingSpace livingSpace, ParameterCoordinate coordinate, quint16 element, bool withUnit)
{
    const SnapshotValue &value = d->value(livingSpace, coordinate, element);
    return withUnit ? value.nativeWithUnit() : value.native;
}

QString ParameterValueSnapshot::undecoratedValue(
    eLivingSpace livingSpace, ParameterCoordinate coordinate, quint16 element, bool withUnit)
{
    const SnapshotValue &value = d->value(livingSpace, coordinate, element);
    return withUnit ? value.undecoratedWithUnit() : value.undecorated;
}

QByteArray ParameterValueSnapshot::toJson() const
{
    return SnapshotJson::write({d->livingSpaceSet, d->records});
}

bool ParameterValueSnapshot::fromJson(const QByteArray &json, QString *problem)
{
    QString found;
    const bool isRead = d->readJson(json, found);
    if (problem)
        *problem = found;
    return isRead;
}

bool ParameterValueSnapshot::unite(ParameterValueSnapshot *other)
{
    return d->unite(other ? other->d : nullptr);
}

bool ParameterValueSnapshot::isSaveToTextFileEnabled() const
{
    return d->saveToTextFileEnabled;
}

void ParameterValueSnapshot::setSaveToTextFileEnabled(bool enabled)
{
    d->saveToTextFileEnabled = enabled;
}

bool ParameterValueSnapshot::saveToTextFile(
    QString fileName, QList<ParameterCoordinate> coordinates)
{
    return saveToTextFile(fileName, coordinates, d->livingSpaceSet.values());
}

bool ParameterValueSnapshot::saveToTextFile(
    QString fileName, QList<ParameterCoordinate> coordinates, QList<eLivingSpace> livingSpaces)
{
    if (!d->saveToTextFileEnabled)
        return false;
    return SnapshotTextExport::write(fileName, d->records, coordinates, livingSpaces);
}
