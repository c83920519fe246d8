#include "apps/online/FirstContact.h"

#include "apps/online/OnlineAnswer.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"

using std::chrono::milliseconds;

FirstContact::FirstContact(RequestExchange &exchange)
    : m_exchange(exchange)
{
    connect(&exchange, &RequestExchange::finished, this, &FirstContact::onFinished);
}

void FirstContact::ask(const RegisterMap &map)
{
    m_map = &map;
    m_requests.clear();
    for (const quint8 unit : map.units()) {
        m_requests.insert(
            m_exchange.read({unit, 0, RegisterMap::HeaderSize}, milliseconds(0)), unit);
    }
    if (!m_requests.isEmpty())
        return;
    // Nothing to agree on.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_map)
                Q_EMIT agreed();
        },
        Qt::QueuedConnection);
}

void FirstContact::stop()
{
    m_map = nullptr;
    m_requests.clear();
}

void FirstContact::onFinished(quint32 request, const OnlineAnswer &answer)
{
    const auto found = m_requests.constFind(request);
    if (found == m_requests.cend())
        return;
    const quint8 unit = *found;
    m_requests.erase(found);
    const bool isGood = answer.kind == OnlineAnswer::eKind::Good;
    if (isGood && answer.registers == m_map->header(unit)) {
        if (m_requests.isEmpty()) {
            stop();
            Q_EMIT agreed();
        }
        return;
    }
    stop();
    if (isGood)
        Q_EMIT disagreed(
            tr("der Antrieb ist ein anderes Gerät als das beschriebene (Einheit %1)").arg(unit));
    else if (answer.kind == OnlineAnswer::eKind::Refused)
        Q_EMIT refused(answer.reason);
    else
        Q_EMIT unanswered(answer.reason);
}
