#include "apps/krparameter-desk/OnlineSwitch.h"
#include "tests/apps/desk/DeskDevice.h"
#include "tests/support/MessageRecorder.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_OnlineSwitch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutLink();
    void opensWhenTheLinkDoes();
    void readsBeforeItIsOpen();
    void isClosedWhileItReads();
    void closesWhenTheLinkDoes();
    void lostLink();
    void refusedLink();
    void writesWhileOnline();
    void containerGoesFirst();
};

namespace {

using eState = OnlineSwitch::eState;

/// Answers when a test says so.
class PatientLink : public DriveLink {
public:
    explicit PatientLink(QStringList &calls)
        : m_calls(calls)
    {
    }

    QString drive() const override { return QStringLiteral("drive 1"); }
    void open() override { m_calls.append(QStringLiteral("open")); }
    void close() override { m_calls.append(QStringLiteral("close")); }
    void write(const ValuePlace &place) override
    {
        m_calls.append(QStringLiteral("write ") + place.coordinate.toText());
    }

private:
    QStringList &m_calls;
};

struct Stand {
    Stand()
    {
        auto made = std::make_unique<PatientLink>(calls);
        link = made.get();
        onlineSwitch = std::make_unique<OnlineSwitch>(container, std::move(made));
    }

    MessageRecorder messages;
    QStringList calls;
    ParameterContainer container;
    PatientLink *link = nullptr;
    std::unique_ptr<OnlineSwitch> onlineSwitch;
};

} // namespace

void tst_OnlineSwitch::withoutLink()
{
    MessageRecorder messages;
    ParameterContainer container;
    OnlineSwitch onlineSwitch(container, nullptr);
    const QSignalSpy changes(&onlineSwitch, &OnlineSwitch::stateChanged);
    onlineSwitch.turn(false);
    QCOMPARE(changes.count(), 0);
    onlineSwitch.turn(true);
    QVERIFY(onlineSwitch.state() == eState::Online);
    QVERIFY(container.isOnline());
    onlineSwitch.turn(true);
    QCOMPARE(changes.count(), 1);
    onlineSwitch.write(place("B01", 1));
    onlineSwitch.turn(false);
    QVERIFY(!container.isOnline());
    QCOMPARE(changes.count(), 2);
}

void tst_OnlineSwitch::opensWhenTheLinkDoes()
{
    Stand stand;
    stand.onlineSwitch->turn(true);
    QVERIFY(stand.onlineSwitch->state() == eState::Opening);
    QVERIFY(!stand.container.isOnline());
    stand.onlineSwitch->turn(true);
    Q_EMIT stand.link->opened();
    QVERIFY(stand.onlineSwitch->state() == eState::Online);
    QVERIFY(stand.container.isOnline());
    QCOMPARE(stand.calls, QStringList(QStringLiteral("open")));
}

/// It is connected meanwhile: what is written goes to the drive.
void tst_OnlineSwitch::readsBeforeItIsOpen()
{
    Stand stand;
    const QSignalSpy states(stand.onlineSwitch.get(), &OnlineSwitch::stateChanged);
    const QSignalSpy progress(stand.onlineSwitch.get(), &OnlineSwitch::progressed);
    stand.onlineSwitch->turn(true);
    QVERIFY(!stand.onlineSwitch->isConnected());
    Q_EMIT stand.link->reading(0, 40);
    QVERIFY(stand.onlineSwitch->state() == eState::Reading);
    QVERIFY(stand.onlineSwitch->isConnected());
    QVERIFY(stand.container.isOnline());
    Q_EMIT stand.link->reading(12, 40);
    QCOMPARE(stand.onlineSwitch->readCount(), 12);
    QCOMPARE(stand.onlineSwitch->countToRead(), 40);
    stand.onlineSwitch->write(place("B01", 1));
    Q_EMIT stand.link->opened();
    QVERIFY(stand.onlineSwitch->state() == eState::Online);
    QVERIFY(stand.onlineSwitch->isConnected());
    QCOMPARE(states.count(), 3);
    QCOMPARE(progress.count(), 2);
    QCOMPARE(stand.calls, (QStringList {QStringLiteral("open"), QStringLiteral("write B01")}));
}

/// By who hears that it reads.
void tst_OnlineSwitch::isClosedWhileItReads()
{
    Stand stand;
    const QSignalSpy progress(stand.onlineSwitch.get(), &OnlineSwitch::progressed);
    stand.onlineSwitch->turn(true);
    connect(stand.onlineSwitch.get(), &OnlineSwitch::stateChanged, stand.link, [&stand] {
        if (stand.onlineSwitch->state() == eState::Reading)
            Q_EMIT stand.link->closed(QString());
    });
    Q_EMIT stand.link->reading(0, 40);
    QVERIFY(stand.onlineSwitch->state() == eState::Offline);
    QVERIFY(!stand.container.isOnline());
    QCOMPARE(progress.count(), 0);
}

void tst_OnlineSwitch::closesWhenTheLinkDoes()
{
    Stand stand;
    stand.onlineSwitch->turn(true);
    Q_EMIT stand.link->opened();
    stand.onlineSwitch->turn(false);
    QVERIFY(stand.container.isOnline());
    Q_EMIT stand.link->closed(QString());
    QVERIFY(!stand.container.isOnline());
    QVERIFY(stand.onlineSwitch->state() == eState::Offline);
    QCOMPARE(stand.calls, (QStringList {QStringLiteral("open"), QStringLiteral("close")}));
}

void tst_OnlineSwitch::lostLink()
{
    Stand stand;
    stand.container.setDomain(QStringLiteral("Plant"));
    stand.onlineSwitch->turn(true);
    Q_EMIT stand.link->opened();
    stand.messages.expect(MessageRecorder::eSeverity::Critical, QStringLiteral("Plant"),
        QStringLiteral("Nicht mehr online: no answer"));
    Q_EMIT stand.link->closed(QStringLiteral("no answer"));
    QVERIFY(!stand.container.isOnline());
}

void tst_OnlineSwitch::refusedLink()
{
    Stand stand;
    stand.onlineSwitch->turn(true);
    stand.messages.expect(MessageRecorder::eSeverity::Critical, QString(),
        QStringLiteral("Nicht mehr online: refused"));
    Q_EMIT stand.link->closed(QStringLiteral("refused"));
    QVERIFY(stand.onlineSwitch->state() == eState::Offline);
}

void tst_OnlineSwitch::writesWhileOnline()
{
    Stand stand;
    stand.onlineSwitch->write(place("A20"));
    stand.onlineSwitch->turn(true);
    stand.onlineSwitch->write(place("A20"));
    Q_EMIT stand.link->opened();
    stand.onlineSwitch->write(place("B01", 1));
    QCOMPARE(stand.calls, (QStringList {QStringLiteral("open"), QStringLiteral("write B01")}));
}

void tst_OnlineSwitch::containerGoesFirst()
{
    auto container = std::make_unique<ParameterContainer>();
    OnlineSwitch onlineSwitch(*container, nullptr);
    container.reset();
    onlineSwitch.turn(true);
    QVERIFY(onlineSwitch.state() == eState::Online);
}

QTEST_GUILESS_MAIN(tst_OnlineSwitch)
#include "tst_OnlineSwitch.moc"
