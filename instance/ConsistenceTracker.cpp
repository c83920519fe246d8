#include "instance/ConsistenceTracker.h"

#include <algorithm>
#include <vector>

struct ConsistenceTracker::Run {
    quint32 number = 0;
    qsizetype awaited = 0;
    /// By element number; a bit each, so that an answer costs the same among any number of elements.
    std::vector<bool> isAwaited;
};

ConsistenceTracker::ConsistenceTracker() = default;
ConsistenceTracker::~ConsistenceTracker() = default;

quint32 ConsistenceTracker::start(eLivingSpace key, const QList<quint16> &elements)
{
    if (!m_runs)
        m_runs = std::make_unique<QHash<eLivingSpace, std::shared_ptr<Run>>>();
    auto run = std::make_shared<Run>();
    run->number = ++m_lastRun;
    run->awaited = elements.size();
    if (!elements.isEmpty())
        run->isAwaited.resize(size_t(*std::max_element(elements.begin(), elements.end())) + 1);
    for (const quint16 element : elements)
        run->isAwaited[element] = true;
    m_runs->insert(key, run);
    return run->number;
}

void ConsistenceTracker::cancel(eLivingSpace key)
{
    if (m_runs)
        m_runs->remove(key);
}

bool ConsistenceTracker::arrived(eLivingSpace key, quint16 element)
{
    const std::shared_ptr<Run> run = m_runs ? m_runs->value(key) : nullptr;
    if (!run || element >= run->isAwaited.size() || !run->isAwaited[element])
        return false;
    run->isAwaited[element] = false;
    return --run->awaited == 0;
}

QList<eLivingSpace> ConsistenceTracker::forget(const std::function<bool(quint16)> &isThere)
{
    QList<eLivingSpace> complete;
    for (const eLivingSpace key : m_runs ? m_runs->keys() : QList<eLivingSpace>()) {
        const size_t end = m_runs->value(key)->isAwaited.size();
        for (size_t element = 0; element < end; ++element) {
            if (!isThere(quint16(element)) && arrived(key, quint16(element)))
                complete.append(key);
        }
    }
    std::sort(complete.begin(), complete.end());
    return complete;
}

bool ConsistenceTracker::isRunning(eLivingSpace key) const
{
    const std::shared_ptr<Run> run = m_runs ? m_runs->value(key) : nullptr;
    return run && run->awaited > 0;
}

bool ConsistenceTracker::isCurrent(eLivingSpace key, quint32 run) const
{
    const std::shared_ptr<Run> current = m_runs ? m_runs->value(key) : nullptr;
    return current && current->number == run;
}
