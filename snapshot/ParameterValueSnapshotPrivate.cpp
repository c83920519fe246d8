#include "snapshot/ParameterValueSnapshotPrivate.h"

#include "snapshot/SnapshotJson.h"
#include "snapshot/SnapshotRecordBuilder.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterContainerHostInformation.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <map>
#include <utility>

namespace {

/// Living space 0, and what the host offers.
QSet<eLivingSpace> takenLivingSpaces(const ParameterContainer &container)
{
    QSet<eLivingSpace> result {eLivingSpace::Global};
    const ParameterContainerHostInformation *host = container.hostInformation();
    if (!host)
        return result;
    const QList<eLivingSpace> offered = host->livingSpaces();
    return result.unite(QSet<eLivingSpace>(offered.cbegin(), offered.cend()));
}

SnapshotRecordBuilder::eMasking maskingOf(const ParameterContainer &container)
{
    return container.isOnline() || container.isReadOnly()
        ? SnapshotRecordBuilder::eMasking::None
        : SnapshotRecordBuilder::eMasking::ByWriteLevel;
}

} // namespace

ParameterValueSnapshotPrivate::ParameterValueSnapshotPrivate(
    ParameterContainer *container, ParameterValueSnapshot *owner)
    : QObject(owner)
    , sourceContainer(container)
    , owner(owner)
{
}

ParameterValueSnapshotPrivate::~ParameterValueSnapshotPrivate() = default;

const SnapshotRecord *ParameterValueSnapshotPrivate::record(
    const ParameterCoordinate &coordinate) const
{
    const auto found = records.constFind(coordinate);
    return found == records.cend() ? nullptr : &*found;
}

const SnapshotValue &ParameterValueSnapshotPrivate::value(
    eLivingSpace livingSpace, const ParameterCoordinate &coordinate, quint16 element) const
{
    const SnapshotRecord *found = record(coordinate);
    return found ? found->value(livingSpace, element) : SnapshotValue::none();
}

/// Host, filter and firmware may do anything while they are asked, so that the container or this
/// snapshot may be gone afterwards.
void ParameterValueSnapshotPrivate::rebuild(const Filter *filter)
{
    records.clear();
    const QPointer<ParameterValueSnapshotPrivate> self(this);
    const QPointer<ParameterContainer> container(sourceContainer);
    if (!container)
        return;
    const QSet<eLivingSpace> taken = takenLivingSpaces(*container);
    if (self)
        livingSpaceSet = taken;
    if (!self || !container)
        return;
    const QList<ParameterCoordinate> coordinates = container->parameterList();
    SnapshotRecordBuilder builder(taken, filter);
    std::map<ParameterCoordinate, SnapshotRecord> built;
    for (const ParameterCoordinate &coordinate : coordinates) {
        if (!container)
            break;
        if (std::optional<SnapshotRecord> record =
                builder.build(container->parameterInformation(coordinate), maskingOf(*container)))
            built.emplace_hint(built.cend(), coordinate, std::move(*record));
    }
    if (self)
        records = SnapshotRecords(std::move(built));
}

bool ParameterValueSnapshotPrivate::readJson(const QByteArray &json, QString &problem)
{
    if (sourceContainer) {
        problem = ParameterValueSnapshot::tr("der Snapshot hängt noch an seinem Antrieb");
        return false;
    }
    std::optional<SnapshotJson::Content> content = SnapshotJson::read(json, problem);
    if (!content)
        return false;
    records = std::move(content->records);
    livingSpaceSet = std::move(content->livingSpaces);
    return true;
}

bool ParameterValueSnapshotPrivate::unite(const ParameterValueSnapshotPrivate *other)
{
    if (sourceContainer)
        return false;
    if (!other)
        return true;
    records.insert(other->records);
    livingSpaceSet.unite(other->livingSpaceSet);
    return true;
}
