#include "apps/files/ReadBackFile.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

/// The writer does what a library does that does not look: it answers true whatever happens.
class tst_ReadBackFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newFile();
    void replacesAnEarlierOne();
    void keepsThePermissions();
    void writesThroughLinks();
    void refusesACircleOfLinks();
    void earlierFileStays_data();
    void earlierFileStays();
    void refusedPlaces_data();
    void refusedPlaces();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_fileName;
};

namespace {

const QByteArray Expected = QByteArrayLiteral("all of it\n");

bool put(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeAll(const QString &fileName)
{
    return put(fileName, Expected);
}

} // namespace

void tst_ReadBackFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_fileName = m_folder->filePath(QStringLiteral("export.txt"));
}

void tst_ReadBackFile::newFile()
{
    QCOMPARE(ReadBackFile::replace(m_fileName, Expected, writeAll), QString());
    QCOMPARE(content(m_fileName), Expected);
    QCOMPARE(
        QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList {QStringLiteral("export.txt")});
    const auto permissions = QFile::permissions(m_fileName);
    QVERIFY(permissions & QFileDevice::ReadOwner);
    QVERIFY(permissions & QFileDevice::WriteOwner);
}

void tst_ReadBackFile::replacesAnEarlierOne()
{
    QVERIFY(put(m_fileName, "earlier and longer than the new one"));
    QCOMPARE(ReadBackFile::replace(m_fileName, Expected, writeAll), QString());
    QCOMPARE(content(m_fileName), Expected);
}

void tst_ReadBackFile::keepsThePermissions()
{
    constexpr auto Permissions =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup;
    QVERIFY(put(m_fileName, "earlier"));
    QVERIFY(QFile::setPermissions(m_fileName, Permissions));
    QCOMPARE(ReadBackFile::replace(m_fileName, Expected, writeAll), QString());
    QCOMPARE(QFile::permissions(m_fileName) & ~(QFileDevice::ReadUser | QFileDevice::WriteUser),
        QFileDevice::Permissions(Permissions));
}

/// All of which stay links.
void tst_ReadBackFile::writesThroughLinks()
{
    const QString link = m_folder->filePath(QStringLiteral("link.txt"));
    const QString second = m_folder->filePath(QStringLiteral("second.txt"));
    QVERIFY(QFile::link(m_fileName, link));
    QVERIFY(QFile::link(link, second));
    for (const QString &name : {link, second}) {
        QVERIFY(put(m_fileName, "earlier"));
        QCOMPARE(ReadBackFile::replace(name, Expected, writeAll), QString());
        QCOMPARE(content(m_fileName), Expected);
        QVERIFY(!QFileInfo(m_fileName).isSymLink());
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(QFileInfo(second).isSymLink());
    }
}

void tst_ReadBackFile::refusesACircleOfLinks()
{
    const QString link = m_folder->filePath(QStringLiteral("link.txt"));
    QVERIFY(QFile::link(m_fileName, link));
    QVERIFY(QFile::link(link, m_fileName));
    QCOMPARE(ReadBackFile::replace(link, Expected, writeAll),
        QStringLiteral("die Verweise führen im Kreis"));
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(QFileInfo(m_fileName).isSymLink());
}

void tst_ReadBackFile::earlierFileStays_data()
{
    using Write = ReadBackFile::Write;
    QTest::addColumn<Write>("write");
    QTest::addColumn<QString>("reason");
    const QString incomplete = QStringLiteral("wurde nicht vollständig geschrieben");
    QTest::newRow("cut") << Write([](const QString &name) { return put(name, "all of"); })
                         << incomplete;
    QTest::newRow("nothing written")
        << Write([](const QString &name) { return put(name, ""); }) << incomplete;
    QTest::newRow("one byte too many")
        << Write([](const QString &name) { return put(name, Expected + "!"); }) << incomplete;
    QTest::newRow("other bytes") << Write([](const QString &name) {
        return put(name, "all of It\n");
    }) << incomplete;
    QTest::newRow("never created") << Write([](const QString &) { return true; }) << incomplete;
    QTest::newRow("removed while open") << Write([](const QString &name) {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && QFile::remove(name)
            && file.write(Expected) == Expected.size();
    }) << incomplete;
    QTest::newRow("its folder removed while open") << Write([](const QString &name) {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && QFileInfo(name).dir().removeRecursively()
            && file.write(Expected) == Expected.size();
    }) << incomplete;
    QTest::newRow("cannot be opened") << Write([](const QString &) { return false; })
                                      << QStringLiteral("kann nicht geöffnet werden");
}

void tst_ReadBackFile::earlierFileStays()
{
    QFETCH(ReadBackFile::Write, write);
    QFETCH(QString, reason);
    QVERIFY(put(m_fileName, "earlier"));
    QCOMPARE(ReadBackFile::replace(m_fileName, Expected, write), reason);
    QCOMPARE(content(m_fileName), QByteArrayLiteral("earlier"));
    QCOMPARE(
        QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList {QStringLiteral("export.txt")});
}

void tst_ReadBackFile::refusedPlaces_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder is missing")
        << QStringLiteral("%1/none/export.txt") << QStringLiteral("der Ordner ist nicht vorhanden");
    QTest::newRow("is a folder") << QStringLiteral("%1") << QStringLiteral("ist ein Ordner");
    // Renaming over it would replace the device.
    QTest::newRow("is a device") << QStringLiteral("/dev/full")
                                 << QStringLiteral("ist keine Datei");
    QTest::newRow("folder in which nobody may write") << QStringLiteral(
        "/proc/export.txt") << QStringLiteral("in den Ordner kann nicht geschrieben werden");
}

void tst_ReadBackFile::refusedPlaces()
{
    QFETCH(QString, place);
    QFETCH(QString, reason);
    const QString fileName =
        place.contains(QLatin1String("%1")) ? place.arg(m_folder->path()) : place;
    bool isCalled = false;
    const auto write = [&isCalled](const QString &) { return isCalled = true; };
    QCOMPARE(ReadBackFile::replace(fileName, Expected, write), reason);
    QVERIFY(!isCalled);
}

QTEST_GUILESS_MAIN(tst_ReadBackFile)
#include "tst_ReadBackFile.moc"
