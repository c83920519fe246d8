#include "apps/krparameter/SinkPrinter.h"

#include "apps/krparameter/Console.h"

#include <KrSystem/System.h>

SinkPrinter::SinkPrinter(Console &console)
    : m_console(console)
{
    connect(System::instance(), &System::messageAdded, this, &SinkPrinter::print);
}

void SinkPrinter::print(const SystemMessage &message)
{
    QString severity;
    switch (message.severity) {
    case SystemMessage::eSeverity::Information:
        severity = tr("Hinweis");
        break;
    case SystemMessage::eSeverity::Warning:
        severity = tr("Warnung");
        break;
    case SystemMessage::eSeverity::Critical:
        severity = tr("Fehler");
        break;
    }
    m_console.report(QStringLiteral("%1 [%2]: %3").arg(severity, message.title, message.text));
}
