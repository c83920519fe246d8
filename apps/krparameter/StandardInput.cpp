#include "apps/krparameter/StandardInput.h"

#include <unistd.h>

namespace {

/// No order is longer.
constexpr qsizetype LongestLine = 64 * 1024;

} // namespace

StandardInput::StandardInput()
    : m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] { read(); });
}

void StandardInput::read()
{
    // QFile would wait until its whole buffer is full.
    char buffer[4096];
    const ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (size <= 0) {
        m_notifier.setEnabled(false);
        return;
    }
    m_pending.append(buffer, qsizetype(size));
    for (qsizetype end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
        QByteArray line = m_pending.first(end);
        m_pending.remove(0, end + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        Q_EMIT lineRead(QString::fromUtf8(line));
    }
    if (m_pending.size() > LongestLine)
        m_pending.clear();
}
