#include "tests/support/SignalLog.h"

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtTest/QTest>

#include <memory>

class Sender : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void happened();
    void addressed(ParameterAddress address);
    void placed(ParameterCoordinate coordinate, eLivingSpace livingSpace);
    void switched(bool on);
    void counted(int number, const QString &text);
    void defaulted(int number = 7);
    void opaque(const std::shared_ptr<int> &value);
};

class tst_SignalLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rendersArguments();
    void keepsOrderAcrossObjects();
    void signalWithDefaultArgumentIsRecordedOnce();
    void takeEmptiesTheList();
    void notesStandBetweenSignals();
    void countsOneSignal();
    void survivesItsSources();
};

void tst_SignalLog::rendersArguments()
{
    Sender sender;
    SignalLog log;
    log.attach(&sender, QStringLiteral("sender"));
    const ParameterCoordinate coordinate(QStringLiteral("E84"));
    Q_EMIT sender.happened();
    Q_EMIT sender.addressed(ParameterAddress(1, coordinate, 3));
    Q_EMIT sender.placed(coordinate, eLivingSpace::Axis2);
    Q_EMIT sender.switched(true);
    Q_EMIT sender.switched(false);
    Q_EMIT sender.counted(-12, QStringLiteral("a, b"));
    QCOMPARE(log.entries(),
        (QStringList {QStringLiteral("sender.happened()"),
            QStringLiteral("sender.addressed(2.E084[00003])"),
            QStringLiteral("sender.placed(E84, 2)"), QStringLiteral("sender.switched(true)"),
            QStringLiteral("sender.switched(false)"),
            QStringLiteral("sender.counted(-12, a, b)")}));
    log.take();
    Q_EMIT sender.opaque(std::make_shared<int>(1));
    QCOMPARE(log.take(), QStringList {QStringLiteral("sender.opaque(std::shared_ptr<int>)")});
}

void tst_SignalLog::keepsOrderAcrossObjects()
{
    Sender first;
    Sender second;
    SignalLog log;
    log.attach(&first, QStringLiteral("first"));
    log.attach(&second, QStringLiteral("second"));
    Q_EMIT second.happened();
    Q_EMIT first.happened();
    Q_EMIT second.switched(true);
    QCOMPARE(log.entries(),
        (QStringList {QStringLiteral("second.happened()"), QStringLiteral("first.happened()"),
            QStringLiteral("second.switched(true)")}));
}

void tst_SignalLog::signalWithDefaultArgumentIsRecordedOnce()
{
    Sender sender;
    SignalLog log;
    log.attach(&sender, QStringLiteral("sender"));
    Q_EMIT sender.defaulted();
    QCOMPARE(log.entries(), QStringList {QStringLiteral("sender.defaulted(7)")});
}

void tst_SignalLog::takeEmptiesTheList()
{
    Sender sender;
    SignalLog log;
    log.attach(&sender, QStringLiteral("sender"));
    Q_EMIT sender.happened();
    QCOMPARE(log.take(), QStringList {QStringLiteral("sender.happened()")});
    QCOMPARE(log.take(), QStringList());
}

void tst_SignalLog::notesStandBetweenSignals()
{
    Sender sender;
    SignalLog log;
    log.attach(&sender, QStringLiteral("sender"));
    Q_EMIT sender.happened();
    log.note(QStringLiteral("then"));
    Q_EMIT sender.happened();
    QCOMPARE(log.entries(),
        (QStringList {QStringLiteral("sender.happened()"), QStringLiteral("then"),
            QStringLiteral("sender.happened()")}));
}

void tst_SignalLog::countsOneSignal()
{
    Sender sender;
    SignalLog log;
    log.attach(&sender, QStringLiteral("sender"));
    Q_EMIT sender.switched(true);
    Q_EMIT sender.happened();
    Q_EMIT sender.switched(false);
    QCOMPARE(log.count(QStringLiteral("switched")), 2);
    QCOMPARE(log.count(QStringLiteral("switch")), 0);
    QCOMPARE(log.entriesOf(QStringLiteral("happened")),
        QStringList {QStringLiteral("sender.happened()")});
}

void tst_SignalLog::survivesItsSources()
{
    SignalLog log;
    {
        Sender sender;
        log.attach(&sender, QStringLiteral("gone"));
        Q_EMIT sender.happened();
    }
    Sender sender;
    log.attach(&sender, QStringLiteral("new"));
    Q_EMIT sender.happened();
    QCOMPARE(log.entries(),
        (QStringList {QStringLiteral("gone.happened()"), QStringLiteral("new.happened()")}));
}

QTEST_GUILESS_MAIN(tst_SignalLog)

#include "tst_SignalLog.moc"
