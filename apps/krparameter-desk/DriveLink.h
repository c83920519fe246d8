#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

struct OnlineOutcome;
struct ValuePlace;

/// Keeps the values of one container and its drive alike while they are connected. Implemented by who
/// knows a protocol; reads what the container asks for by its own signals.
class DriveLink : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// By which the user knows the drive; never empty while it is connected.
    virtual QString drive() const = 0;
    /// **Emits** reading and opened, or closed, at once or later.
    virtual void open() = 0;
    /// **Emits** closed, at once or later; also while it is still opening.
    virtual void close() = 0;
    /// The user wrote the value; it is stored already.
    virtual void write(const ValuePlace &place) = 0;

Q_SIGNALS:
    /// Connected; its values are being read. Told as often as that goes on; never by a link that reads
    /// none.
    void reading(qsizetype done, qsizetype total);
    /// Connected, and all values are read.
    void opened();
    /// An empty reason: as it was asked to.
    void closed(const QString &reason);
    /// What became of a value on its way from or to the drive.
    void reported(const OnlineOutcome &outcome);
};
