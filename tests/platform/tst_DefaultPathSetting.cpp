#include <LmUtilities/DefaultPathSetting.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

class tst_DefaultPathSetting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void kindsAreTheStoredKeys();
    void documentsFolderWhereNoneWasStored();
    void pathReturns_data();
    void pathReturns();
    void everyKindHasItsOwn();
    void emptyPathForgets();
    void settingsOfTheApplication();
    void settingsWithoutAnOrganization();

private:
    QTemporaryDir m_home;
};

void tst_DefaultPathSetting::initTestCase()
{
    QVERIFY(m_home.isValid());
    QVERIFY(qputenv("HOME", m_home.path().toLocal8Bit()));
    QVERIFY(qputenv("XDG_CONFIG_HOME", m_home.filePath(QStringLiteral("config")).toLocal8Bit()));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(
        QSettings::IniFormat, QSettings::UserScope, m_home.filePath(QStringLiteral("settings")));
}

void tst_DefaultPathSetting::init()
{
    QDir(m_home.filePath(QStringLiteral("settings"))).removeRecursively();
    QCoreApplication::setOrganizationName(QStringLiteral("Maker"));
    QCoreApplication::setApplicationName(QStringLiteral("Host"));
}

void tst_DefaultPathSetting::kindsAreTheStoredKeys()
{
    QCOMPARE(int(DefaultPathSetting::ParameterValueExport), 2);
    QCOMPARE(int(DefaultPathSetting::HtmlReport), 3);
}

void tst_DefaultPathSetting::documentsFolderWhereNoneWasStored()
{
    const DefaultPathSetting setting(DefaultPathSetting::ParameterValueExport);
    QCOMPARE(setting.path(), m_home.filePath(QStringLiteral("Documents")));
}

void tst_DefaultPathSetting::pathReturns_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("absolute folder") << QStringLiteral("/data/exports");
    QTest::newRow("blank, comma and percent") << QStringLiteral("/data/a b,c%20d");
    QTest::newRow("letters beyond ASCII") << QStringLiteral("/data/Gr\u00f6\u00dfen/\u65e5\u672c");
    QTest::newRow("folder that does not exist") << QStringLiteral("/nowhere/at/all");
}

void tst_DefaultPathSetting::pathReturns()
{
    QFETCH(QString, path);
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(path);
    QTEST(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(), "path");
}

void tst_DefaultPathSetting::everyKindHasItsOwn()
{
    DefaultPathSetting(DefaultPathSetting::ParameterValueExport).setPath(QStringLiteral("/two"));
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(QStringLiteral("/three"));
    QCOMPARE(DefaultPathSetting(2).path(), QStringLiteral("/two"));
    QCOMPARE(DefaultPathSetting(3).path(), QStringLiteral("/three"));
}

void tst_DefaultPathSetting::emptyPathForgets()
{
    DefaultPathSetting setting(DefaultPathSetting::HtmlReport);
    setting.setPath(QStringLiteral("/three"));
    setting.setPath(QString());
    QCOMPARE(setting.path(), m_home.filePath(QStringLiteral("Documents")));
}

void tst_DefaultPathSetting::settingsOfTheApplication()
{
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(QStringLiteral("/three"));
    const QString file = m_home.filePath(QStringLiteral("settings/Maker/Host.ini"));
    QVERIFY(QFileInfo::exists(file));
    const QSettings stored(file, QSettings::IniFormat);
    QCOMPARE(stored.value(QStringLiteral("DefaultPath/3")).toString(), QStringLiteral("/three"));
}

void tst_DefaultPathSetting::settingsWithoutAnOrganization()
{
    QCoreApplication::setOrganizationName(QString());
    DefaultPathSetting(DefaultPathSetting::HtmlReport).setPath(QStringLiteral("/three"));
    QCOMPARE(DefaultPathSetting(DefaultPathSetting::HtmlReport).path(), QStringLiteral("/three"));
    QVERIFY(
        QFileInfo::exists(m_home.filePath(QStringLiteral("settings/KrPlatform/KrPlatform.ini"))));
}

QTEST_GUILESS_MAIN(tst_DefaultPathSetting)
#include "tst_DefaultPathSetting.moc"
