#include "apps/krparameter-desk/WriteObstacle.h"

#include <QtTest/QTest>

using eKind = WriteObstacle::eKind;

class tst_WriteObstacle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void kindOf_data();
    void kindOf();
};

void tst_WriteObstacle::kindOf_data()
{
    QTest::addColumn<WriteObstacle::Facts>("facts");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, const WriteObstacle::Facts &facts, eKind expected) {
        QTest::newRow(name) << facts << int(expected);
    };
    // Connecting, writable, read only, never written, online only and offline, write level, level of the user.
    row("writable", {false, true, false, false, false, 4, 4}, eKind::None);
    row("one level too low", {false, false, false, false, false, 5, 4}, eKind::Level);
    row("a level that nobody has", {false, false, false, false, false, 7, 6}, eKind::Level);
    row("while it connects", {true, true, false, false, false, 4, 4}, eKind::Connecting);
    row("read only", {false, false, true, false, false, 4, 4}, eKind::ReadOnly);
    row("read only stays behind the connecting", {true, false, true, false, false, 4, 4},
        eKind::ReadOnly);
    row("the level stays without read only", {false, false, true, false, false, 5, 4},
        eKind::Level);
    row("never, whatever the level", {true, false, true, true, false, 7, 4}, eKind::NeverWritten);
    row("offline", {false, false, false, false, true, 4, 4}, eKind::OnlineOnly);
    row("nothing explains it", {false, false, false, false, false, 4, 4}, eKind::Unexplained);
    row("offline, while it connects", {true, false, false, false, true, 4, 4}, eKind::Connecting);
}

void tst_WriteObstacle::kindOf()
{
    QFETCH(WriteObstacle::Facts, facts);
    QFETCH(int, expected);
    QCOMPARE(int(WriteObstacle::kindOf(facts)), expected);
}

QTEST_GUILESS_MAIN(tst_WriteObstacle)
#include "tst_WriteObstacle.moc"
