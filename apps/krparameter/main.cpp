#include "apps/krparameter/Application.h"
#include "apps/krparameter/Console.h"

#include <QtCore/QCoreApplication>

int main(int argc, char *argv[])
{
    // Qt tells here that it reads and writes UTF-8 in any locale; the standard error belongs to the
    // messages of the program.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QCoreApplication qt(argc, argv);
    qInstallMessageHandler(nullptr);

    Console console;
    return int(Application(console).run(QCoreApplication::arguments().mid(1)));
}
