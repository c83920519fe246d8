#include "apps/online/HeldHeads.h"

#include <QtTest/QTest>

class tst_HeldHeads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void waitsForEveryOther();
    void waitsForWhatIsReadNoEarlier();
    void holdsTheLast();
};

namespace {

QList<quint32> requestsOf(const QList<HeldHeads::Head> &heads)
{
    QList<quint32> requests;
    for (const HeldHeads::Head &head : heads)
        requests.append(head.request);
    return requests;
}

} // namespace

void tst_HeldHeads::waitsForEveryOther()
{
    HeldHeads heads;
    heads.hold({3, QByteArray("x"), 10}, {4, 5});
    QVERIFY(!heads.isEmpty());
    QVERIFY(heads.arrived(6, 11).isEmpty());
    QVERIFY(heads.arrived(5, 11).isEmpty());
    QVERIFY(!heads.waitsFor(5));
    QVERIFY(heads.waitsFor(4));
    const QList<HeldHeads::Head> complete = heads.arrived(4, 12);
    QCOMPARE(complete.size(), 1);
    QCOMPARE(complete.at(0).value, qsizetype(3));
    QCOMPARE(complete.at(0).bytes, QByteArray("x"));
    QCOMPARE(complete.at(0).request, 10U);
    QVERIFY(heads.isEmpty());
}

void tst_HeldHeads::waitsForWhatIsReadNoEarlier()
{
    HeldHeads heads;
    heads.hold({3, {}, 10}, {4});
    QVERIFY(heads.arrived(4, 9).isEmpty());
    QVERIFY(heads.waitsFor(4));
    // Behind it in the same block.
    QCOMPARE(requestsOf(heads.arrived(4, 10)), QList<quint32> {10});
}

void tst_HeldHeads::holdsTheLast()
{
    HeldHeads heads;
    heads.hold({3, {}, 10}, {4});
    heads.hold({7, {}, 11}, {8});
    heads.hold({3, {}, 12}, {4});
    QVERIFY(heads.arrived(4, 11).isEmpty());
    QCOMPARE(requestsOf(heads.arrived(4, 13)), QList<quint32> {12});
    heads.drop(7);
    QVERIFY(heads.isEmpty());
    QVERIFY(!heads.waitsFor(8));
}

QTEST_GUILESS_MAIN(tst_HeldHeads)
#include "tst_HeldHeads.moc"
