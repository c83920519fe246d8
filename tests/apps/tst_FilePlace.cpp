#include "apps/files/FilePlace.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

class tst_FilePlace : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void behindLinks_data();
    void behindLinks();
    void circle();
    void folder_data();
    void folder();
    void oneOfTwoNames();

private:
    QString in(const QString &name) const { return m_folder + QLatin1Char('/') + name; }
    bool link(const QString &from, const QString &to) const { return QFile::link(to, in(from)); }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_folder;
};

void tst_FilePlace::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_folder = QDir(m_directory->path()).canonicalPath();
    QFile file(in(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QDir(m_folder).mkdir(QStringLiteral("inner")));
    QVERIFY(link(QStringLiteral("one"), QStringLiteral("file")));
    QVERIFY(link(QStringLiteral("two"), in(QStringLiteral("one"))));
    QVERIFY(link(QStringLiteral("inner/three"), QStringLiteral("../two")));
    QVERIFY(link(QStringLiteral("open"), QStringLiteral("missing")));
    QVERIFY(link(QStringLiteral("folder"), QStringLiteral("inner")));
}

void tst_FilePlace::behindLinks_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("place");
    const auto row = [](const char *rule, const char *name, const char *place) {
        QTest::newRow(rule) << QString::fromLatin1(name) << QString::fromLatin1(place);
    };
    row("a file", "file", "file");
    row("no file yet", "missing", "missing");
    row("in a folder that is missing", "none/file", "none/file");
    row("a link", "one", "file");
    row("a link to a link", "two", "file");
    row("relative to the link's folder", "inner/three", "file");
    row("a link to no file yet", "open", "missing");
    row("through a linked folder", "folder/new", "inner/new");
    row("with dots", "inner/../file", "file");
}

void tst_FilePlace::behindLinks()
{
    QFETCH(QString, name);
    QFETCH(QString, place);
    const FilePlace found(in(name));
    QCOMPARE(found.path(), in(place));
    QCOMPARE(found.error(), QString());
}

void tst_FilePlace::circle()
{
    QVERIFY(link(QStringLiteral("left"), QStringLiteral("right")));
    QVERIFY(link(QStringLiteral("right"), QStringLiteral("left")));
    const FilePlace found(in(QStringLiteral("left")));
    QCOMPARE(found.path(), QString());
    QCOMPARE(found.error(), QStringLiteral("die Verweise führen im Kreis"));
}

void tst_FilePlace::folder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("that is there") << QStringLiteral("inner/");
    QTest::newRow("that is missing") << QStringLiteral("none/");
    QTest::newRow("of a file's name") << QStringLiteral("file/");
}

void tst_FilePlace::folder()
{
    QFETCH(QString, name);
    const FilePlace found(in(name));
    QCOMPARE(found.path(), QString());
    QCOMPARE(found.error(), QStringLiteral("ist der Name eines Ordners"));
}

void tst_FilePlace::oneOfTwoNames()
{
    QVERIFY(FilePlace(in(QStringLiteral("two"))) == FilePlace(in(QStringLiteral("./file"))));
    QVERIFY(FilePlace(in(QStringLiteral("folder/a"))) == FilePlace(in(QStringLiteral("inner/a"))));
    QVERIFY(!(FilePlace(in(QStringLiteral("file"))) == FilePlace(in(QStringLiteral("missing")))));
}

QTEST_GUILESS_MAIN(tst_FilePlace)
#include "tst_FilePlace.moc"
