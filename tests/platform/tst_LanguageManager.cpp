#include <KrMultilingual/LanguageManager.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QtTest>

class tst_LanguageManager : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void startsWithGermanOutOfTwo();
    void setActiveLanguage();
    void setActiveLanguageRefuses_data();
    void setActiveLanguageRefuses();
    void setLanguageListKeepsTheActiveLanguage();
    void setLanguageListFallsBackToTheFirst();
    void setLanguageListRefusesAnEmptyList();
    void aListenerMaySetTheLanguage();
};

void tst_LanguageManager::cleanup()
{
    LanguageManager::instance()->setLanguageList({QStringLiteral("de"), QStringLiteral("en")});
    LanguageManager::instance()->setActiveLanguage(QStringLiteral("de"));
}

void tst_LanguageManager::startsWithGermanOutOfTwo()
{
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("de"));
    QCOMPARE(
        LanguageManager::languageList(), QStringList({QStringLiteral("de"), QStringLiteral("en")}));
    QCOMPARE(LanguageManager::instance(), LanguageManager::instance());
}

void tst_LanguageManager::setActiveLanguage()
{
    QSignalSpy changes(LanguageManager::instance(), &LanguageManager::activeLanguageChanged);
    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("en")));
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("en"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), QStringLiteral("en"));

    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("en")));
    QCOMPARE(changes.count(), 1);
}

void tst_LanguageManager::setActiveLanguageRefuses_data()
{
    QTest::addColumn<QString>("language");

    QTest::newRow("unknown") << QStringLiteral("fr");
    QTest::newRow("empty") << QString();
    QTest::newRow("letter case differs") << QStringLiteral("EN");
}

void tst_LanguageManager::setActiveLanguageRefuses()
{
    QFETCH(QString, language);

    QSignalSpy changes(LanguageManager::instance(), &LanguageManager::activeLanguageChanged);
    QVERIFY(!LanguageManager::instance()->setActiveLanguage(language));
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("de"));
    QCOMPARE(changes.count(), 0);
}

void tst_LanguageManager::setLanguageListKeepsTheActiveLanguage()
{
    QSignalSpy changes(LanguageManager::instance(), &LanguageManager::activeLanguageChanged);
    QVERIFY(
        LanguageManager::instance()->setLanguageList({QStringLiteral("fr"), QStringLiteral("de")}));
    QCOMPARE(
        LanguageManager::languageList(), QStringList({QStringLiteral("fr"), QStringLiteral("de")}));
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("de"));
    QCOMPARE(changes.count(), 0);
}

void tst_LanguageManager::setLanguageListFallsBackToTheFirst()
{
    QSignalSpy changes(LanguageManager::instance(), &LanguageManager::activeLanguageChanged);
    QVERIFY(
        LanguageManager::instance()->setLanguageList({QStringLiteral("fr"), QStringLiteral("en")}));
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("fr"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), QStringLiteral("fr"));
}

void tst_LanguageManager::setLanguageListRefusesAnEmptyList()
{
    QVERIFY(!LanguageManager::instance()->setLanguageList({}));
    QCOMPARE(
        LanguageManager::languageList(), QStringList({QStringLiteral("de"), QStringLiteral("en")}));
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("de"));
}

void tst_LanguageManager::aListenerMaySetTheLanguage()
{
    QObject listener;
    QStringList seen;
    connect(LanguageManager::instance(), &LanguageManager::activeLanguageChanged, &listener,
        [&seen](const QString &language) {
            if (language == QStringLiteral("en"))
                LanguageManager::instance()->setLanguageList({QStringLiteral("fr")});
            seen.append(language);
        });
    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("en")));
    QCOMPARE(LanguageManager::activeLanguage(), QStringLiteral("fr"));
    QCOMPARE(seen, QStringList({QStringLiteral("fr"), QStringLiteral("en")}));
}

QTEST_GUILESS_MAIN(tst_LanguageManager)
#include "tst_LanguageManager.moc"
