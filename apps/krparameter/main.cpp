#include "apps/krparameter/Application.h"
#include "apps/krparameter/Console.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>

#include <memory>

namespace {

/// A command that draws does so off the screen, of which there may be none.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    if (!Application::needsWidgets(words))
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QApplication>(argc, argv);
}

} // namespace

int main(int argc, char *argv[])
{
    // Qt tells here that it reads and writes UTF-8 in any locale; the standard error belongs to the
    // messages of the program.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const std::unique_ptr<QCoreApplication> qt = makeApplication(argc, argv);
    qInstallMessageHandler(nullptr);
    // What goes wrong on the line to a drive is reported; the module would say it once more.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.modbus*=false"));

    Console console;
    return int(Application(console).run(QCoreApplication::arguments().mid(1)));
}
