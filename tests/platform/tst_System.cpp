#include <KrSystem/System.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QtTest>

class tst_System : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void storesSeverityTitleAndText();
    void emitsAfterStoring();
    void keepsTenThousandMessages();
    void aTakenListStaysAsItWas();
    void aListenerMayAddMessages();
    void aListenerMayClear();
    void mainWindowIsGuarded();
};

void tst_System::init()
{
    System::instance()->clearMessages();
}

void tst_System::storesSeverityTitleAndText()
{
    QVERIFY(System::instance()->messages().isEmpty());
    System::addInformationMessage(QStringLiteral("a"), QStringLiteral("1"));
    System::addWarningMessage(QStringLiteral("b"), QStringLiteral("2"));
    System::addCriticalMessage(QString(), QString());

    QCOMPARE(System::instance()->messages(),
        QList<SystemMessage>({
            {SystemMessage::eSeverity::Information, QStringLiteral("a"), QStringLiteral("1")},
            {SystemMessage::eSeverity::Warning, QStringLiteral("b"), QStringLiteral("2")},
            {SystemMessage::eSeverity::Critical, QString(), QString()},
        }));
    System::instance()->clearMessages();
    QVERIFY(System::instance()->messages().isEmpty());
}

void tst_System::emitsAfterStoring()
{
    QObject listener;
    qsizetype stored = -1;
    connect(System::instance(), &System::messageAdded, &listener,
        [&stored] { stored = System::instance()->messages().size(); });
    QSignalSpy added(System::instance(), &System::messageAdded);
    System::addCriticalMessage(QStringLiteral("a"), QStringLiteral("1"));

    QCOMPARE(stored, 1);
    QCOMPARE(added.count(), 1);
    const auto message = added.at(0).at(0).value<SystemMessage>();
    QCOMPARE(message.severity, SystemMessage::eSeverity::Critical);
    QCOMPARE(message.title, QStringLiteral("a"));
    QCOMPARE(message.text, QStringLiteral("1"));
}

void tst_System::keepsTenThousandMessages()
{
    for (int number = 0; number < 10000; ++number)
        System::addInformationMessage(QString(), QString::number(number));
    QCOMPARE(System::instance()->messages().size(), 10000);
    QCOMPARE(System::instance()->messages().constFirst().text, QStringLiteral("0"));

    System::addInformationMessage(QString(), QStringLiteral("10000"));
    QCOMPARE(System::instance()->messages().size(), 10000);
    QCOMPARE(System::instance()->messages().constFirst().text, QStringLiteral("1"));
    QCOMPARE(System::instance()->messages().constLast().text, QStringLiteral("10000"));

    for (int number = 10001; number < 200000; ++number)
        System::addInformationMessage(QString(), QString::number(number));
    const QList<SystemMessage> messages = System::instance()->messages();
    QCOMPARE(messages.size(), 10000);
    for (int position = 0; position < 10000; ++position)
        QCOMPARE(messages.at(position).text, QString::number(190000 + position));
}

void tst_System::aTakenListStaysAsItWas()
{
    System::addInformationMessage(QString(), QStringLiteral("1"));
    const QList<SystemMessage> taken = System::instance()->messages();
    System::addInformationMessage(QString(), QStringLiteral("2"));
    System::instance()->clearMessages();
    QCOMPARE(taken.size(), 1);
    QCOMPARE(taken.constFirst().text, QStringLiteral("1"));
}

void tst_System::aListenerMayAddMessages()
{
    QObject listener;
    QStringList seen;
    connect(System::instance(), &System::messageAdded, &listener,
        [&seen](const SystemMessage &message) {
            if (message.text.size() < 3)
                System::addWarningMessage(QString(), message.text + u'x');
            seen.append(message.text);
        });
    System::addInformationMessage(QString(), QStringLiteral("x"));

    QCOMPARE(System::instance()->messages().size(), 3);
    QCOMPARE(System::instance()->messages().constLast().text, QStringLiteral("xxx"));
    QCOMPARE(seen, QStringList({QStringLiteral("xxx"), QStringLiteral("xx"), QStringLiteral("x")}));
}

void tst_System::aListenerMayClear()
{
    QObject listener;
    QString seen;
    connect(System::instance(), &System::messageAdded, &listener,
        [&seen](const SystemMessage &message) {
            System::instance()->clearMessages();
            seen = message.text;
        });
    System::addInformationMessage(QString(), QStringLiteral("text after the clearing"));
    QCOMPARE(seen, QStringLiteral("text after the clearing"));
    QVERIFY(System::instance()->messages().isEmpty());
}

void tst_System::mainWindowIsGuarded()
{
    QVERIFY(!System::instance()->mainWindow());
    {
        QWidget window;
        System::instance()->setMainWindow(&window);
        QCOMPARE(System::instance()->mainWindow(), &window);
    }
    QVERIFY(!System::instance()->mainWindow());
    System::instance()->setMainWindow(nullptr);
    QVERIFY(!System::instance()->mainWindow());
}

QTEST_MAIN(tst_System)
#include "tst_System.moc"
