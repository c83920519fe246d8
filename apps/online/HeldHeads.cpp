#include "apps/online/HeldHeads.h"

#include <algorithm>

void HeldHeads::hold(const Head &head, const QList<qsizetype> &others)
{
    drop(head.value);
    m_entries.append({head, others});
}

void HeldHeads::drop(qsizetype value)
{
    m_entries.removeIf([value](const Entry &entry) { return entry.head.value == value; });
}

QList<HeldHeads::Head> HeldHeads::arrived(qsizetype other, quint32 request)
{
    QList<Head> complete;
    for (Entry &entry : m_entries) {
        if (request >= entry.head.request)
            entry.others.removeOne(other);
        if (entry.others.isEmpty())
            complete.append(entry.head);
    }
    m_entries.removeIf([](const Entry &entry) { return entry.others.isEmpty(); });
    return complete;
}

bool HeldHeads::waitsFor(qsizetype other) const
{
    return std::any_of(m_entries.cbegin(), m_entries.cend(),
        [other](const Entry &entry) { return entry.others.contains(other); });
}
