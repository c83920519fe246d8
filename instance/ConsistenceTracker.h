#pragma once

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QHash>
#include <QtCore/QList>

#include <functional>
#include <memory>

/// Remembers which elements a run of "all elements once" still awaits.
class ConsistenceTracker {
public:
    ConsistenceTracker();
    ~ConsistenceTracker();
    Q_DISABLE_COPY_MOVE(ConsistenceTracker)

    /// Starts a run, replacing an earlier one of the key. Returns the number of the run.
    quint32 start(eLivingSpace key, const QList<quint16> &elements);
    /// Ends the run of the key, if any.
    void cancel(eLivingSpace key);
    /// True exactly when this element was the last that was awaited.
    bool arrived(eLivingSpace key, quint16 element);
    /// Awaits no more what is not there any more. The keys whose run is complete by that, ascending.
    QList<eLivingSpace> forget(const std::function<bool(quint16)> &isThere);
    bool isRunning(eLivingSpace key) const;
    /// Whether this run was neither cancelled nor replaced; a run that is complete counts as current.
    bool isCurrent(eLivingSpace key, quint32 run) const;

private:
    struct Run;

    /// Null until the first run, as most parameters never have one. Key 0 for a global parameter.
    std::unique_ptr<QHash<eLivingSpace, std::shared_ptr<Run>>> m_runs;
    quint32 m_lastRun = 0;
};
