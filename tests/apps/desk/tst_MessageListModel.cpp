#include "apps/krparameter-desk/MessageListModel.h"

#include <KrSystem/System.h>

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>

class tst_MessageListModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void messages();
    void keepsAsManyAsTheSink();
    void clear();
    void endOfADevice();
};

void tst_MessageListModel::messages()
{
    System::addWarningMessage(QStringLiteral("Early"), QStringLiteral("not heard"));
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.rowCount(), 0);
    System::addCriticalMessage(QStringLiteral("Drive"), QStringLiteral("Parameter E84: no"));
    System::addInformationMessage(QString(), QStringLiteral("without title"));
    QCOMPARE(model.rowCount(), 2);
    const QModelIndex first = model.index(0);
    QCOMPARE(first.data().toString(), QStringLiteral("Drive: Parameter E84: no"));
    QCOMPARE(first.data(Qt::ToolTipRole).toString(), QStringLiteral("Parameter E84: no"));
    QCOMPARE(
        first.data(Qt::AccessibleTextRole).toString(), QStringLiteral("Fehler: Parameter E84: no"));
    QCOMPARE(model.messageAt(first).severity, SystemMessage::eSeverity::Critical);
    QCOMPARE(model.index(1).data().toString(), QStringLiteral("without title"));
}

void tst_MessageListModel::keepsAsManyAsTheSink()
{
    MessageListModel model;
    for (int i = 0; i <= System::MessageBound; ++i)
        System::addWarningMessage(QString(), QString::number(i));
    QCOMPARE(model.rowCount(), int(System::MessageBound));
    QCOMPARE(model.index(0).data().toString(), QStringLiteral("1"));
}

void tst_MessageListModel::clear()
{
    MessageListModel model;
    System::addWarningMessage(QString(), QStringLiteral("x"));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.messageAt(QModelIndex()).text, QString());
    System::addWarningMessage(QString(), QStringLiteral("y"));
    QCOMPARE(model.rowCount(), 1);
}

void tst_MessageListModel::endOfADevice()
{
    MessageListModel model;
    System::addWarningMessage(QString(), QStringLiteral("a"));
    System::addWarningMessage(QString(), QStringLiteral("b"));
    QVERIFY(model.isOfThisDevice(model.index(1)));
    model.endDevice();
    System::addWarningMessage(QString(), QStringLiteral("c"));
    QVERIFY(!model.isOfThisDevice(model.index(0)));
    QVERIFY(!model.isOfThisDevice(model.index(1)));
    QVERIFY(model.isOfThisDevice(model.index(2)));
    QVERIFY(!model.isOfThisDevice(QModelIndex()));
    // The oldest go.
    for (int i = 0; i < System::MessageBound - 2; ++i)
        System::addWarningMessage(QString(), QString::number(i));
    QVERIFY(!model.isOfThisDevice(model.index(0)));
    QVERIFY(model.isOfThisDevice(model.index(1)));
    model.clear();
    System::addWarningMessage(QString(), QStringLiteral("d"));
    QVERIFY(model.isOfThisDevice(model.index(0)));
}

QTEST_GUILESS_MAIN(tst_MessageListModel)
#include "tst_MessageListModel.moc"
