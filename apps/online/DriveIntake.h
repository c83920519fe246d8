#pragma once

#include "apps/online/BlockPlan.h"
#include "apps/online/HeldHeads.h"
#include "apps/online/OnlineOutcome.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <chrono>
#include <vector>

class ContainerValues;
class DriveWriter;
class ElementWaits;
class ReadSchedule;
class RegisterMap;
class ReviewRound;
struct OnlineAnswer;

/// Takes what a drive answers to reads into the container, in an order in which its listeners find what
/// belongs together.
class DriveIntake : public QObject {
    Q_OBJECT

public:
    /// What came to its end.
    struct Ended {
        /// Position in the map; -1 for what has no register.
        qsizetype value;
        OnlineOutcome outcome;
    };

    /// What came from the drive as it was asked for.
    struct Came {
        /// Position in the map.
        qsizetype value;
        /// Unchanged or Changed; Unmapped where the project has no such value.
        OnlineOutcome::eKind kind;
    };

    /// What was not told when a run ended.
    struct Rest {
        std::vector<Came> news;
        /// What was asked for once and did not come.
        QList<qsizetype> once;
    };

    /// **Owner** the caller of all; they outlive this.
    DriveIntake(ContainerValues &values, const DriveWriter &writer, ReadSchedule &schedule,
        ReviewRound &reviews, ElementWaits &waits);

    /// **Owner** the caller; the map outlives the run.
    void start(const RegisterMap &map);
    Rest stop();

    /// It is told of when it comes, and when it does not.
    void askOnce(const QList<qsizetype> &values);
    bool isAskedOnce(qsizetype value) const { return m_requests.at(std::size_t(value)).isOnce; }
    /// The container has something else than the drive: read until it comes.
    void askReview(qsizetype value);

    void onBlockRead(const BlockPlan::Block &block, const QByteArray &bytes, quint32 request);
    void onBlockFailed(const BlockPlan::Block &block, const OnlineAnswer &answer);
    static Ended ended(qsizetype value, const MappedValue &mapped, OnlineOutcome::eKind kind,
        const QString &reason = {});

Q_SIGNALS:
    /// Values that were asked for once.
    void came(const std::vector<DriveIntake::Came> &values);
    /// Values that were asked for once did not come, or cyclic reads failed for the first time.
    void failed(const QList<DriveIntake::Ended> &ended);
    /// What functions made of these values is not known. They are read again later.
    void reviewFailed(const QList<DriveIntake::Ended> &ended);
    /// Behind all of them.
    void blockTaken();

private:
    struct Failures {
        QList<Ended> news;
        /// What functions made of these is not known.
        QList<Ended> unreviewed;
        /// Who waits for one of the values.
        QList<ValuePlace> waiting;
    };

    /// Forgets who asked for the values that did not come.
    Failures fail(const BlockPlan::Block &block, const OnlineAnswer &answer);
    /// A value of the drive came. **Emits** nothing of its own. False where the run was ended, or this
    /// deleted; `guard` holds this.
    bool take(qsizetype value, const QByteArray &bytes, quint32 request,
        std::chrono::milliseconds now, const QPointer<QObject> &guard);
    /// Whether the value is held until the other elements of its record have been read.
    bool hold(
        const BlockPlan::Block &block, qsizetype value, const QByteArray &bytes, quint32 request);
    /// Takes what waited for the value alone. Likewise false.
    bool takeHeads(qsizetype value, quint32 request, const QPointer<QObject> &guard);

    struct Request {
        /// Asked for once, by whomever.
        bool isOnce = false;
        /// A function made something else of what the drive has, or somebody changed what is only read;
        /// what it reads now is believed.
        bool isReview = false;
        /// The cyclic read failed and was reported.
        bool hasFailed = false;
    };

    ContainerValues &m_values;
    const DriveWriter &m_writer;
    ReadSchedule &m_schedule;
    ReviewRound &m_reviews;
    ElementWaits &m_waits;
    /// Null while stopped.
    const RegisterMap *m_map = nullptr;
    /// By position.
    std::vector<Request> m_requests;
    HeldHeads m_heads;
    /// What came and is to be told when its block is done.
    std::vector<Came> m_news;
    /// Runs that began or ended.
    quint32 m_runs = 0;
};
