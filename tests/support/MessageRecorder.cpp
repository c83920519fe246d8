#include "tests/support/MessageRecorder.h"

#include <KrSystem/System.h>

#include <QtTest/QTest>

#include <utility>

namespace {

QString messageText(const SystemMessage &message)
{
    static constexpr const char *SeverityNames[] = {"information", "warning", "critical"};
    return QStringLiteral("%1 \"%2\": %3")
        .arg(QLatin1String(SeverityNames[size_t(message.severity)]), message.title, message.text);
}

} // namespace

MessageRecorder::MessageRecorder()
{
    QObject::connect(System::instance(), &System::messageAdded, &m_listener,
        [this](const SystemMessage &message) { receive(message); });
}

MessageRecorder::~MessageRecorder()
{
    verify();
}

void MessageRecorder::expect(eSeverity severity, const QString &title, const QString &text)
{
    m_expected.append({severity, title, text});
}

QList<SystemMessage> MessageRecorder::take()
{
    return std::exchange(m_unexpected, {});
}

bool MessageRecorder::verify()
{
    const QStringList problems = takeProblems();
    for (const QString &problem : problems)
        QTest::qFail(qUtf8Printable(problem), __FILE__, __LINE__);
    return problems.isEmpty();
}

QStringList MessageRecorder::takeProblems()
{
    QStringList problems;
    for (const SystemMessage &message : std::exchange(m_unexpected, {}))
        problems.append(QStringLiteral("Unexpected message: ") + messageText(message));
    for (const SystemMessage &message : std::exchange(m_expected, {}))
        problems.append(QStringLiteral("Missing message: ") + messageText(message));
    return problems;
}

void MessageRecorder::receive(const SystemMessage &message)
{
    if (!m_expected.isEmpty() && m_expected.first() == message)
        m_expected.removeFirst();
    else
        m_unexpected.append(message);
}
