#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

struct MappedValue;

/// What became of one value on its way from or to the drive.
struct OnlineOutcome {
    Q_DECLARE_TR_FUNCTIONS(OnlineOutcome)

public:
    enum class eKind {
        Unchanged, ///< Read; the container had the same.
        Changed, ///< Read; the container has the drive's value now.
        Written,
        Altered, ///< Written; the drive keeps something else, and so does the container now.
        Refused,
        Lost,
        Unmapped, ///< No register carries the value, or the project has none such.
    };

    enum class eDirection { FromDrive, ToDrive };

    ValuePlace place;
    /// "2.B01", as users know it.
    QString address;
    eKind kind = eKind::Lost;
    /// Of a write, native texts: what was to be written, and what the drive has.
    QString sent;
    QString kept;
    /// For the user; of Refused, Lost and Unmapped.
    QString reason;
    /// It was to go to the drive; otherwise it was to come from there.
    bool isWrite = false;

    /// Of a value that came from the drive; Unmapped: the project has none such.
    static OnlineOutcome ofRead(const MappedValue &value, eKind kind);
    /// Of a value that was to go to the drive.
    static OnlineOutcome ofWrite(const MappedValue &value, eKind kind, const QString &reason,
        const QString &sent = {}, const QString &kept = {});

    bool isGood() const { return isGood(kind); }
    static bool isGood(eKind kind)
    {
        return kind == eKind::Unchanged || kind == eKind::Changed || kind == eKind::Written;
    }
    /// "altered", for programs.
    static QString key(eKind kind);
    /// One sentence for the user.
    QString toText() const;
};
