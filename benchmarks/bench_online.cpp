// A full upload beside the bare protocol on the same loopback, and the cost of an idle cycle.
//
// The limit program reads the same blocks with the module's client, as many at a time, and throws the
// answers away. The drive is this program once more, in a process of its own.

#include "apps/host/DriveProject.h"
#include "apps/online/BlockPlan.h"
#include "apps/online/OnlineSession.h"
#include "apps/simulation/DriveServer.h"
#include "apps/simulation/SimulatedDrive.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtNetwork/QAbstractSocket>
#include <QtSerialBus/QModbusReply>
#include <QtSerialBus/QModbusTcpClient>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <numeric>

namespace {

constexpr int ValueCount = 4000;
constexpr int PolledCounts[] = {0, 100, 1000};
constexpr int Windows[] = {1, 4};
constexpr int Rounds = 41;
constexpr int CycleRounds = 20;
constexpr double LeastShare = 0.7;

enum class eForm {
    Arrays,
    Records, ///< A change of the first element asks the limits of the second one anew.
};

struct Kind {
    const char *name;
    const char *dataType;
    /// Of the display: 5 is a text.
    int kind;
    eForm form = eForm::Arrays;
};

constexpr Kind Kinds[] = {{"INT32", "INT32", 0}, {"INT64", "INT64", 0}, {"REAL32", "REAL32", 0},
    {"STRING8", "STRING8", 5}, {"INT32 in records", "INT32", 0, eForm::Records}};

constexpr int ParameterCount = ValueCount / 200;
constexpr int ElementCount = 100;

/// What an element's number adds to what all have.
QString recordFacts(int parameter, int element)
{
    if (element == 0)
        return QStringLiteral(R"(, "dependencies": {"limit": %1})").arg(parameter);
    if (element == 1)
        return QStringLiteral(R"(, "functions": {"limit": %1})").arg(parameter);
    return {};
}

/// Each element of a record has its own default, those of an array share a list.
QString parameterText(const Kind &kind, int parameter, bool isNumbered)
{
    const QString head = QStringLiteral(R"({"number": %1, "coordinates": ["A%2"], "name": "N", )")
                             .arg(parameter)
                             .arg(parameter, 2, 10, QLatin1Char('0'));
    const QString type = QStringLiteral(R"("dataType": "%1", "kind": %2)")
                             .arg(QLatin1String(kind.dataType))
                             .arg(kind.kind);
    QStringList defaults;
    QStringList elements;
    for (int i = 0; i < ElementCount; ++i) {
        const QString value =
            isNumbered ? QStringLiteral(R"(, "default": "%1")").arg(i + 1) : QString();
        defaults.append(QString::number(i + 1));
        elements.append(QStringLiteral(R"({"number": %1, "name": "E", %2%3%4})")
                            .arg(i)
                            .arg(type, value, recordFacts(parameter, i)));
    }
    if (kind.form == eForm::Records) {
        return head
            + QStringLiteral(R"("type": "record", "elements": [%1]})")
                  .arg(elements.join(QLatin1String(", ")));
    }
    const QString list = isNumbered
        ? QStringLiteral(R"("defaults": ["%1"], )").arg(defaults.join(QLatin1String(R"(", ")")))
        : QString();
    return head + list
        + QStringLiteral(R"("elementCount": %1, "elements": [{%2}]})").arg(ElementCount).arg(type);
}

/// 4,000 values of one kind on two axes, which the drive has numbered and the host as zeros.
QByteArray description(const Kind &kind, bool isNumbered)
{
    QStringList parameters;
    QStringList functions;
    for (int p = 1; p <= ParameterCount; ++p) {
        parameters.append(parameterText(kind, p, isNumbered));
        functions.append(QStringLiteral(R"("%1": "return 0, 1000")").arg(p));
    }
    const QString tables = kind.form == eForm::Records
        ? QStringLiteral(R"("functions": {"limit": {%1}}, )")
              .arg(functions.join(QLatin1String(", ")))
        : QString();
    return QStringLiteral(R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 79, "name": "Benchmark drive", "hasPhysicalAxes": true, "axes": [1, 2]},
  "languages": ["de"], "dataTypes": ["%1"], %2"parameters": [%3]})")
        .arg(QLatin1String(kind.dataType), tables, parameters.join(QLatin1String(", ")))
        .toUtf8();
}

std::unique_ptr<DriveProject> open(const Kind &kind, bool isNumbered)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("device.json"));
    QFile file(name);
    QString error;
    if (file.open(QIODevice::WriteOnly)) {
        file.write(description(kind, isNumbered));
        file.close();
    }
    auto project = DriveProject::open(name, error);
    if (!project) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        std::abort();
    }
    return project;
}

int runDrive(const Kind &kind)
{
    const auto project = open(kind, true);
    SimulatedDrive drive(*project);
    DriveServer server(drive);
    if (!server.listen(QStringLiteral("127.0.0.1"), 0))
        return EXIT_FAILURE;
    std::printf("%d\n", int(server.port()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}

/// A process that goes with this one.
class Drive {
public:
    explicit Drive(const Kind &kind)
    {
        m_process.start(QCoreApplication::applicationFilePath(),
            {QStringLiteral("--drive"), QString::number(&kind - Kinds)});
        m_process.waitForReadyRead();
        m_port = quint16(m_process.readLine().trimmed().toInt());
    }
    ~Drive()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    quint16 port() const { return m_port; }

private:
    QProcess m_process;
    quint16 m_port = 0;
};

double median(std::vector<double> values)
{
    std::nth_element(
        values.begin(), values.begin() + std::ptrdiff_t(values.size() / 2), values.end());
    return values[values.size() / 2];
}

double threadSeconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// Reads blocks a few at a time and throws the answers away.
class BareReader {
public:
    BareReader(quint16 port, int window)
        : m_window(window)
    {
        m_client.setTimeout(-1);
        m_client.setConnectionParameter(
            QModbusDevice::NetworkAddressParameter, QStringLiteral("127.0.0.1"));
        m_client.setConnectionParameter(QModbusDevice::NetworkPortParameter, port);
        QObject::connect(&m_client, &QModbusDevice::stateChanged, &m_loop, [this](auto state) {
            if (state == QModbusDevice::ConnectedState)
                m_loop.quit();
        });
        m_client.connectDevice();
        m_loop.exec();
        if (auto *socket = qobject_cast<QAbstractSocket *>(m_client.device())) {
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            // Behind the client: what its answers led to leaves at once.
            QObject::connect(socket, &QIODevice::readyRead, &m_loop, [socket] { socket->flush(); });
        }
    }

    /// Seconds.
    double read(const QList<BlockPlan::Block> &blocks)
    {
        m_blocks = &blocks;
        m_next = 0;
        m_done = 0;
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < m_window; ++i)
            sendNext();
        m_loop.exec();
        return double(timer.nsecsElapsed()) * 1e-9;
    }

private:
    void sendNext()
    {
        if (m_next == m_blocks->size())
            return;
        const RegisterSpan &span = m_blocks->at(m_next++).span;
        QModbusReply *reply = m_client.sendReadRequest(
            {QModbusDataUnit::HoldingRegisters, span.first, span.count}, span.unit);
        QObject::connect(reply, &QModbusReply::finished, &m_loop, [this, reply] {
            reply->deleteLater();
            sendNext();
            if (++m_done == m_blocks->size())
                m_loop.quit();
        });
    }

    QModbusTcpClient m_client;
    QEventLoop m_loop;
    const int m_window;
    const QList<BlockPlan::Block> *m_blocks = nullptr;
    qsizetype m_next = 0;
    qsizetype m_done = 0;
};

/// A host that is online.
class Host {
public:
    Host(const Kind &kind, quint16 port, const OnlineRules &rules)
        : m_project(open(kind, false))
        , m_session(OnlineSession::overModbusTcp(
              m_project->container(), QStringLiteral("127.0.0.1"), port, rules))
    {
        QObject::connect(
            m_session.get(), &OnlineSession::stateChanged, &m_loop, [this](auto state) {
                if (state != OnlineSession::eState::Connecting)
                    m_loop.quit();
            });
        QObject::connect(
            m_session.get(), &OnlineSession::transferFinished, &m_loop, [this] { m_loop.quit(); });
        m_session->goOnline();
        m_loop.exec();
    }

    /// Offline, so that nothing of it is written: other values than the drive's, online again.
    void spoil()
    {
        m_session->goOffline();
        for (const MappedValue &value : registerMap().values()) {
            const ValuePlace &place = value.place;
            container().writeValueNative(
                place.livingSpace, place.coordinate, place.element, QStringLiteral("0"));
        }
        m_session->goOnline();
        m_loop.exec();
    }

    ParameterContainer &container() { return m_project->container(); }
    const RegisterMap &registerMap() const { return *m_session->registerMap(); }

    /// Seconds.
    double upload()
    {
        QElapsedTimer timer;
        timer.start();
        m_session->upload();
        m_loop.exec();
        return double(timer.nsecsElapsed()) * 1e-9;
    }
    qsizetype changedCount() const
    {
        return m_session->report().count(OnlineOutcome::eKind::Changed);
    }
    bool isGood() const { return m_session->report().isGood(); }

private:
    std::unique_ptr<DriveProject> m_project;
    std::unique_ptr<OnlineSession> m_session;
    QEventLoop m_loop;
};

struct Times {
    /// Seconds by the wall clock; of this thread alone.
    std::vector<double> wall;
    std::vector<double> thread;
};

struct Series {
    Times bare;
    Times changed;
    Times unchanged;
};

void measure(Times &times, const std::function<double()> &run)
{
    const double start = threadSeconds();
    times.wall.push_back(run());
    times.thread.push_back(threadSeconds() - start);
}

Series measureUploads(const Kind &kind, quint16 port, int window, bool &isRight)
{
    Series series;
    BareReader reader(port, window);
    OnlineRules rules;
    rules.window = window;
    Host host(kind, port, rules);
    host.upload();
    for (int i = 0; i < Rounds; ++i) {
        host.spoil();
        QList<qsizetype> values(host.registerMap().values().size());
        std::iota(values.begin(), values.end(), 0);
        const auto blocks = BlockPlan::blocksOf(host.registerMap(), values);
        measure(series.bare, [&] { return reader.read(blocks); });
        measure(series.changed, [&] { return host.upload(); });
        isRight = isRight && host.isGood() && host.changedCount() == ValueCount;
        measure(series.unchanged, [&] { return host.upload(); });
        isRight = isRight && host.isGood() && host.changedCount() == 0
            && host.container().readValueNative(
                   eLivingSpace::Axis2, ParameterCoordinate(QStringLiteral("A20")), 99, false)
                == QLatin1String("100");
    }
    return series;
}

/// Seconds of this thread for one round over values that do not change, by the usual rules.
double measureIdleCycle(quint16 port, int valueCount)
{
    const OnlineRules rules;
    const auto project = open(Kinds[0], true);
    ParameterContainer &container = project->container();
    const auto session =
        OnlineSession::overModbusTcp(container, QStringLiteral("127.0.0.1"), port, rules);
    QEventLoop loop;
    QObject::connect(session.get(), &OnlineSession::stateChanged, &loop, &QEventLoop::quit);
    session->goOnline();
    while (session->state() != OnlineSession::eState::Online)
        loop.exec();
    for (int i = 0; i < valueCount; ++i) {
        container.dispatchParameterOnlineConsistenceNeed(
            session->registerMap()->values().at(i).address, true);
    }
    const double start = threadSeconds();
    QTimer::singleShot(rules.cycleInterval * CycleRounds, &loop, &QEventLoop::quit);
    loop.exec();
    return (threadSeconds() - start) / CycleRounds;
}

/// Whether the bound holds.
bool report(const Kind &kind, int window, const Series &series)
{
    const double bare = median(series.bare.wall);
    bool isHeld = true;
    const auto line = [bare, &isHeld](const char *name, const Times &times) {
        const double time = median(times.wall);
        const bool isOver = bare / time < LeastShare;
        isHeld = isHeld && !isOver;
        std::printf("  %-28s %7.2f ms %9.0f values/s %4.0f %%; %5.2f ms of this thread%s\n", name,
            time * 1e3, ValueCount / time, 100.0 * bare / time, median(times.thread) * 1e3,
            isOver ? "  over" : "");
    };
    std::printf("%s, requests under way: %d\n", kind.name, window);
    line("bare protocol", series.bare);
    line("upload, every value changes", series.changed);
    line("upload, no value changes", series.unchanged);
    return isHeld;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.value(1) == QLatin1String("--drive"))
        return runDrive(Kinds[std::clamp(words.value(2).toInt(), 0, int(std::size(Kinds)) - 1)]);
    bool isRight = true;
    bool isHeld = true;
    std::printf(
        "%d values in registers, medians of %d rounds; over: below %.0f %% of the bare protocol\n",
        ValueCount, Rounds, 100.0 * LeastShare);
    for (const Kind &kind : Kinds) {
        const Drive drive(kind);
        for (const int window : Windows)
            isHeld =
                report(kind, window, measureUploads(kind, drive.port(), window, isRight)) && isHeld;
    }
    const Drive drive(Kinds[0]);
    for (const int count : PolledCounts) {
        std::printf("idle cycle over %d values: %.1f us of this thread every 100 ms\n", count,
            measureIdleCycle(drive.port(), count) * 1e6);
    }
    if (!isRight) {
        std::fprintf(stderr, "wrong result\n");
        return EXIT_FAILURE;
    }
    // Without the option the machine's load may break a bound.
    return isHeld || !words.contains(QLatin1String("--strict")) ? EXIT_SUCCESS : EXIT_FAILURE;
}
