#include "apps/files/WholeFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_WholeFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void read_data();
    void read();
    void readRefuses_data();
    void readRefuses();
    void replace_data();
    void replace();
    void replaceFails_data();
    void replaceFails();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void put(const QString &name, qint64 size) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_WholeFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkdir(u"folder"_s));
}

/// Sparse: takes no room on the disk.
void tst_WholeFile::put(const QString &name, qint64 size) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(size));
}

void tst_WholeFile::read_data()
{
    QTest::addColumn<qint64>("size");
    QTest::newRow("empty") << qint64(0);
    QTest::newRow("one byte") << qint64(1);
    QTest::newRow("as long as allowed") << qint64(2 * 1024 * 1024);
}

void tst_WholeFile::read()
{
    QFETCH(qint64, size);
    put(u"a"_s, size);
    QString error;
    const auto bytes = WholeFile::read(path(u"a"_s), 2 * WholeFile::Mebibyte, error);
    QCOMPARE(error, QString());
    QVERIFY(bytes.has_value());
    QCOMPARE(*bytes, QByteArray(size, '\0'));
}

void tst_WholeFile::readRefuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("missing") << u"none"_s << u"ist nicht vorhanden"_s;
    QTest::newRow("in a folder that is missing") << u"none/a"_s << u"ist nicht vorhanden"_s;
    QTest::newRow("folder") << u"folder"_s << u"ist ein Ordner"_s;
    QTest::newRow("one byte longer than allowed") << u"long"_s << u"ist länger als 2 MiB"_s;
}

void tst_WholeFile::readRefuses()
{
    QFETCH(QString, name);
    put(u"long"_s, 2 * 1024 * 1024 + 1);
    QString error;
    QVERIFY(!WholeFile::read(path(name), 2 * WholeFile::Mebibyte, error).has_value());
    QTEST(error, "expected");
}

void tst_WholeFile::replace_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("shorter") << "after"_ba;
    QTest::newRow("longer") << QByteArray(100000, 'x');
    QTest::newRow("nothing") << ""_ba;
}

void tst_WholeFile::replace()
{
    QFETCH(QByteArray, bytes);
    put(u"a"_s, 10);
    QCOMPARE(WholeFile::replace(path(u"a"_s), bytes), QString());
    QFile file(path(u"a"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList {u"a"_s});
}

void tst_WholeFile::replaceFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("folder") << u"folder"_s << u"ist ein Ordner"_s;
    QTest::newRow("in a folder that is missing")
        << u"none/a"_s << u"der Ordner ist nicht vorhanden"_s;
}

void tst_WholeFile::replaceFails()
{
    QFETCH(QString, name);
    QTEST(WholeFile::replace(path(name), "x"), "expected");
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList());
}

QTEST_GUILESS_MAIN(tst_WholeFile)
#include "tst_WholeFile.moc"
