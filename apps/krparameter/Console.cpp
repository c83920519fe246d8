#include "apps/krparameter/Console.h"

#include <QtCore/QJsonDocument>

#include <cstdio>

namespace {

constexpr qsizetype PieceSize = 64 * 1024;

} // namespace

void Console::write(const QString &text)
{
    m_pending += text.toUtf8();
    if (m_pending.size() >= PieceSize)
        flush();
}

void Console::writeLine(const QString &text)
{
    write(text + u'\n');
}

void Console::writeLine(const QJsonObject &object)
{
    m_pending += QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    if (m_pending.size() >= PieceSize)
        flush();
}

void Console::report(const QString &line)
{
    flush();
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stderr);
    std::fflush(stderr);
}

bool Console::flush()
{
    const auto size = std::size_t(m_pending.size());
    const bool isWritten =
        std::fwrite(m_pending.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    m_hasFailed = m_hasFailed || !isWritten;
    m_pending.clear();
    return !m_hasFailed;
}
