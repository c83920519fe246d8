#pragma once

#include "apps/online/ContainerValues.h"
#include "apps/online/OnlineOutcome.h"
#include "apps/online/DriveIntake.h"
#include "apps/online/DriveReader.h"
#include "apps/online/DriveWriter.h"
#include "apps/online/ElementWaits.h"
#include "apps/online/ReadSchedule.h"
#include "apps/online/ReviewRound.h"

#include <QtCore/QList>
#include <QtCore/QObject>

#include <chrono>
#include <vector>

class OnlineClock;
class ParameterContainer;
struct OnlineRules;

/// Keeps a container and a drive consistent: reads what is asked for, once or again and again, and
/// writes what changes in the container.
class OnlineCycle : public QObject {
    Q_OBJECT

public:
    using Ended = DriveIntake::Ended;
    using Came = DriveIntake::Came;

    /// **Owner** the caller of all; they outlive the cycle.
    OnlineCycle(ParameterContainer &container, RequestExchange &exchange, OnlineClock &clock,
        const OnlineRules &rules);

    bool isRunning() const { return m_map != nullptr; }
    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    /// Ends the run. **Emits** came for what did, disputed for what was to be read again, finished for every
    /// other value that is awaited: lost, for this reason; for one that is awaited both ways its read, then
    /// its write.
    void stop(const QString &reason);

    /// Whether the container has the value; a project may have fewer elements than the device.
    bool isInProject(const MappedValue &value) const { return m_values.holds(value); }
    QString nativeText(const MappedValue &value) const { return m_values.nativeText(value); }
    /// What functions made of values of the drive is still to be read.
    bool isReviewing() const { return m_reviews.isRunning(); }
    /// Nothing is being written, and what followed from the last write has been read.
    bool isAtRest() const
    {
        return m_writer.isIdle() && !isReviewing() && !m_reviews.mayHaveRunFunctions();
    }
    /// Positions in the map. **Emits** came or finished for each, later. Only while running.
    void read(const QList<qsizetype> &values);
    /// Writes what the container has, in the order of property 45. **Emits** finished for each, later.
    void write(const QList<qsizetype> &values);
    /// Likewise, of one value and without waiting for its turn.
    void writeNow(qsizetype value);

Q_SIGNALS:
    /// Values that were asked for once.
    void came(const std::vector<OnlineCycle::Came> &values);
    /// Values that were asked for once did not come, writes came to their end, cyclic reads failed for
    /// the first time, or what is asked for has no register.
    void finished(const QList<OnlineCycle::Ended> &ended);
    /// The container has something else than the drive: functions of the device change these values again
    /// whenever it gets what the drive has, or they were to be read again and did not come.
    void disputed(const QList<OnlineCycle::Ended> &ended);
    /// What functions made of values has been read, or was given up.
    void reviewed();

private:
    using eDirection = OnlineOutcome::eDirection;

    void onChangedHere(const ParameterAddress &address);
    void onChangedByFunction(const ParameterAddress &address);
    void onWritten(qsizetype value, const OnlineOutcome &outcome);
    void onLeftUnknown(qsizetype value);
    void onNeeded(const ParameterAddress &address, bool isNeeded);
    void onNeededOnce(const ParameterAddress &address);
    /// The container has something else than the drive: reads the value and believes it.
    void review(qsizetype value);
    /// Reads every value once no value is on its way to the drive: its functions may have changed any.
    void reviewAll();
    /// Where nothing is to be reviewed any more.
    void settle();
    ValuePlace placeOf(const ParameterAddress &address) const;
    void reportUnmapped(const ParameterAddress &address, eDirection direction);

    ParameterContainer &m_container;
    RequestExchange &m_exchange;
    ContainerValues m_values;
    ElementWaits m_waits;
    DriveReader m_reader;
    ReadSchedule m_schedule;
    DriveWriter m_writer;
    ReviewRound m_reviews;
    DriveIntake m_intake;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    /// Runs that began or ended.
    quint32 m_runs = 0;
};
