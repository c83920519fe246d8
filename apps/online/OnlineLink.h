#pragma once

#include "apps/online/OnlineAnswer.h"
#include "apps/online/RegisterSpan.h"

#include <QtCore/QObject>

/// The line to one drive. Requests are named by tickets that are never used twice, so that an answer
/// which comes late or doubled is known as such.
class OnlineLink : public QObject {
    Q_OBJECT

public:
    ~OnlineLink() override;

    /// **Emits** opened or closed, at once or later.
    virtual void open() = 0;
    /// **Emits** nothing: who closes knows it.
    virtual void close() = 0;
    /// **Emits** answered, later. Only while open.
    virtual void read(quint32 ticket, const RegisterSpan &span) = 0;
    virtual void write(
        quint32 ticket, const RegisterSpan &span, const QList<quint16> &registers) = 0;
    /// Nobody waits for the answer any more; it may come nevertheless.
    virtual void forget(quint32 ticket) = 0;

Q_SIGNALS:
    void opened();
    /// The line could not be opened or broke.
    void closed(const QString &reason);
    void answered(quint32 ticket, const OnlineAnswer &answer);
    /// All answers that came together have been told, and what was asked for meanwhile is on its way to
    /// the drive: now there is time for what the answers say.
    void allAnswered();
};
