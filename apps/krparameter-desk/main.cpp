#include "apps/host/DriveProject.h"
#include "apps/host/ShippedDescriptions.h"
#include "apps/krparameter-desk/DeskOptions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/Screenshot.h"
#include "apps/krparameter-desk/WindowDialogs.h"

#include <KrSystem/System.h>

#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

constexpr int Good = 0;
constexpr int Usage = 2;
constexpr int UnreadableInput = 3;
constexpr int WriteFailed = 6;

/// As the command line: the highest level that leaves out what is the maker's.
constexpr quint32 DefaultAccessLevel = 4;

int fail(int code, const QString &reason)
{
    std::fprintf(stderr, "krparameter-desk: %s\n", qUtf8Printable(reason));
    return code;
}

bool openDevice(DeskWindow &window, const QString &device)
{
    const QString shipped =
        QFileInfo::exists(device) ? QString() : ShippedDescriptions::filePath(device);
    return window.session().open(shipped.isEmpty() ? device : shipped);
}

bool open(DeskWindow &window, const DeskOptions &options)
{
    if (!options.earlierDevice.isEmpty()) {
        if (!openDevice(window, options.earlierDevice))
            return false;
        window.snapshots().take(
            window.session().project()->container(), window.session().deviceName());
    }
    return openDevice(window, options.device)
        && (options.project.isEmpty() || window.session().load(options.project));
}

} // namespace

int main(int argc, char *argv[])
{
    if (DeskOptions::needsNoScreen(argc, argv)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // The toolkit tells here what the platform without screen cannot do; the standard error
        // belongs to the messages of the program.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    QApplication application(argc, argv);
    // What goes wrong on the line to a drive is a message; the module would say it once more.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.modbus*=false"));
    QApplication::setOrganizationName(QStringLiteral("KrParameter"));
    QApplication::setApplicationName(QStringLiteral("krparameter-desk"));

    WindowDialogs dialogs;
    System::information()->setUserAccessLevel(DefaultAccessLevel);
    DeskWindow window(dialogs);
    dialogs.setParent(&window);
    const QString language = DeskOptions::languageOf(QApplication::arguments());
    if (!language.isEmpty())
        window.language().choose(language);
    QString error;
    QString answer;
    const std::optional<DeskOptions> options =
        DeskOptions::read(QApplication::arguments(), error, answer);
    if (!error.isEmpty())
        return fail(Usage, error);
    if (!options) {
        std::fputs(qUtf8Printable(answer), stdout);
        return Good;
    }
    const bool isPicture = !options->screenshotFile.isEmpty();
    // A picture shows the same on every machine.
    if (!isPicture)
        window.restoreState(options->language);
    if (options->accessLevel)
        window.setAccessLevel(*options->accessLevel);
    if (options->drive)
        window.drive().make(*options->drive);
    const bool isOpen = options->device.isEmpty() || open(window, *options);
    if (isPicture) {
        if (!isOpen)
            return fail(UnreadableInput, System::instance()->messages().constLast().text);
        const QString problem = Screenshot(window, *options).take();
        return problem.isEmpty() ? Good : fail(WriteFailed, problem);
    }
    window.show();
    return QApplication::exec();
}
