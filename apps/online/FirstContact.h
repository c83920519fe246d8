#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>

class RegisterMap;
class RequestExchange;
struct OnlineAnswer;

/// Asks a drive what its units hold, before any value is believed.
class FirstContact : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller; the exchange outlives this.
    explicit FirstContact(RequestExchange &exchange);

    /// **Emits** one of the signals, later. **Owner** the caller; the map outlives the question.
    void ask(const RegisterMap &map);
    /// **Emits** nothing any more.
    void stop();

Q_SIGNALS:
    void agreed();
    /// It is another device.
    void disagreed(const QString &reason);
    /// It answers, but does not tell: it has no such registers, or is not ready yet.
    void refused(const QString &reason);
    void unanswered(const QString &reason);

private:
    void onFinished(quint32 request, const OnlineAnswer &answer);

    RequestExchange &m_exchange;
    const RegisterMap *m_map = nullptr;
    /// Request to unit.
    QHash<quint32, quint8> m_requests;
};
