#include "apps/host/ProjectFolder.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <unistd.h>

namespace {

const QString Block = QStringLiteral("Parameter.ini");

QByteArray bytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

void write(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class tst_ProjectFolder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isBlockName_data();
    void isBlockName();
    void writesFilesAndManifest();
    void readsWhatItWrote();
    void keepsOtherBlocks();
    void refusesANameThatLeavesTheFolder();
    void readsAFolderWithoutManifest();
    void ignoresACutManifest();
    void refusesWhatIsNoFile();
    void refusesAMissingFolder();
    void refusesAFileAsFolder();
    void isFree();
    void failsWithTheNameOfTheFile();
    void failsInAReadOnlyFolder();
};

void tst_ProjectFolder::isBlockName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("expected");
    const auto row = [](const char *rule, const QString &name, bool expected) {
        QTest::newRow(rule) << name << expected;
    };
    row("the parameter block", Block, true);
    row("letters digits and marks", QStringLiteral("a-Z_0.9"), true);
    row("100 characters", QString(100, u'a'), true);
    row("101 characters", QString(101, u'a'), false);
    row("empty", QString(), false);
    row("parent folder", QStringLiteral(".."), false);
    row("path upwards", QStringLiteral("../x"), false);
    row("path", QStringLiteral("a/b"), false);
    row("absolute path", QStringLiteral("/etc/passwd"), false);
    row("backslash", QStringLiteral("a\\b"), false);
    row("hidden", QStringLiteral(".x"), false);
    row("blank", QStringLiteral("a b"), false);
    row("NUL", QStringLiteral("a") + QChar(0), false);
    row("not ASCII", QStringLiteral("ä"), false);
    row("the manifest", QStringLiteral("Manifest.ini"), false);
    row("the manifest in another case", QStringLiteral("manifest.INI"), false);
}

void tst_ProjectFolder::isBlockName()
{
    QFETCH(QString, name);
    QTEST(ProjectFolder::isBlockName(name), "expected");
}

void tst_ProjectFolder::writesFilesAndManifest()
{
    const QTemporaryDir root;
    const QString path = root.filePath(QStringLiteral("new/project"));
    QCOMPARE(ProjectFolder(path).write({{Block, "[A020]\r\nV_0_0=1\r\n"}}), QString());
    QCOMPARE(bytesOf(path + QLatin1String("/Parameter.ini")), "[A020]\r\nV_0_0=1\r\n");
    QCOMPARE(bytesOf(path + QLatin1String("/Manifest.ini")),
        ";type=\"projectmanifest\" version=\"0\"\r\n[Parameter.ini]\r\nBytes=17\r\nSections=1\r\n");
    QCOMPARE(QDir(path).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

void tst_ProjectFolder::readsWhatItWrote()
{
    const QTemporaryDir root;
    ProjectFolder folder(root.path());
    const QMap<QString, QByteArray> blocks {
        {Block, QByteArray("\0\xFF\r\n[x]\r\n", 9)}, {QStringLiteral("Other.bin"), QByteArray()}};
    QCOMPARE(folder.write(blocks), QString());
    QString error;
    const auto content = folder.read(error);
    QVERIFY(content);
    QCOMPARE(content->blocks, blocks);
    QCOMPARE(content->manifest.entry(Block), (BlockManifest::Entry {9, 1}));
    QCOMPARE(content->manifest.entry(QStringLiteral("Other.bin")), (BlockManifest::Entry {0, 0}));
}

void tst_ProjectFolder::keepsOtherBlocks()
{
    const QTemporaryDir root;
    ProjectFolder folder(root.path());
    QCOMPARE(folder.write({{QStringLiteral("Other.bin"), "12345"}}), QString());
    QCOMPARE(folder.write({{Block, "x"}}), QString());
    QString error;
    const auto content = folder.read(error);
    QVERIFY(content);
    QCOMPARE(content->blocks.value(QStringLiteral("Other.bin")), "12345");
    QCOMPARE(content->manifest.entry(QStringLiteral("Other.bin"))->size, 5);
}

void tst_ProjectFolder::refusesANameThatLeavesTheFolder()
{
    const QTemporaryDir root;
    ProjectFolder folder(root.filePath(QStringLiteral("inner")));
    QCOMPARE(folder.write({{QStringLiteral("../outer"), "x"}, {Block, "y"}}),
        QStringLiteral("\"../outer\" ist kein Blockname"));
    QVERIFY(!QFile::exists(root.filePath(QStringLiteral("outer"))));
    QVERIFY(!QFile::exists(root.filePath(QStringLiteral("inner"))));
    QVERIFY(QDir(root.path()).mkdir(QStringLiteral("inner")));
    write(root.filePath(QStringLiteral("outer")), "secret");
    write(root.filePath(QStringLiteral("inner/Manifest.ini")),
        "[../outer]\r\nBytes=6\r\nSections=0\r\n");
    QString error;
    QVERIFY(folder.read(error)->blocks.isEmpty());
}

void tst_ProjectFolder::readsAFolderWithoutManifest()
{
    const QTemporaryDir root;
    write(root.filePath(Block), "block");
    write(root.filePath(QStringLiteral("Notes.txt")), "mine");
    QString error;
    const auto content = ProjectFolder(root.path()).read(error);
    QCOMPARE(content->blocks, (QMap<QString, QByteArray> {{Block, "block"}}));
    QVERIFY(!content->manifest.entry(Block));
}

void tst_ProjectFolder::ignoresACutManifest()
{
    const QTemporaryDir root;
    write(root.filePath(Block), "block");
    const QByteArray whole = "[Parameter.ini]\r\nBytes=5\r\nSections=0\r\n";
    for (qsizetype size = 0; size < whole.size() - 1; ++size) {
        write(root.filePath(QStringLiteral("Manifest.ini")), whole.first(size));
        QString error;
        QVERIFY2(!ProjectFolder(root.path()).read(error)->manifest.entry(Block),
            qPrintable(QString::number(size)));
    }
}

void tst_ProjectFolder::refusesWhatIsNoFile()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(Block));
    QString error;
    QVERIFY(!ProjectFolder(root.path()).read(error));
    QCOMPARE(error, root.filePath(Block) + QStringLiteral(": ist keine Datei"));
}

void tst_ProjectFolder::refusesAMissingFolder()
{
    QString error;
    QVERIFY(!ProjectFolder(QStringLiteral("/nowhere/none")).read(error));
    QCOMPARE(error, QStringLiteral("/nowhere/none: der Ordner ist nicht vorhanden"));
}

void tst_ProjectFolder::refusesAFileAsFolder()
{
    const QTemporaryDir root;
    const QString file = root.filePath(QStringLiteral("file"));
    write(file, "x");
    QString error;
    QVERIFY(!ProjectFolder(file).read(error));
    QCOMPARE(error, file + QStringLiteral(": ist kein Ordner"));
}

void tst_ProjectFolder::isFree()
{
    const QTemporaryDir root;
    write(root.filePath(QStringLiteral("file")), "x");
    QVERIFY(ProjectFolder(root.filePath(QStringLiteral("none"))).isFree());
    QVERIFY(ProjectFolder(root.path()).isFree());
    QVERIFY(!ProjectFolder(root.filePath(QStringLiteral("file"))).isFree());
    QCOMPARE(ProjectFolder(root.path()).write({{Block, "x"}}), QString());
    QVERIFY(!ProjectFolder(root.path()).isFree());
}

void tst_ProjectFolder::failsWithTheNameOfTheFile()
{
    const QTemporaryDir root;
    write(root.filePath(QStringLiteral("file")), "x");
    const QString below = root.filePath(QStringLiteral("file/project"));
    QCOMPARE(ProjectFolder(below).write({{Block, "y"}}),
        below + QStringLiteral(": der Ordner kann nicht angelegt werden"));
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("p/Parameter.ini")));
    const QString error = ProjectFolder(root.filePath(QStringLiteral("p"))).write({{Block, "y"}});
    QVERIFY2(
        error.startsWith(root.filePath(QStringLiteral("p/Parameter.ini: "))), qPrintable(error));
}

void tst_ProjectFolder::failsInAReadOnlyFolder()
{
    const QTemporaryDir root;
    ProjectFolder folder(root.path());
    QCOMPARE(folder.write({{Block, "old"}}), QString());
    const auto readOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup
        | QFile::ReadOther | QFile::ExeOther;
    QFile::setPermissions(root.path(), readOnly);
    // Root writes everywhere; anybody else does not.
    constexpr uid_t Nobody = 65534;
    const uid_t user = geteuid();
    QVERIFY(user != 0 || seteuid(Nobody) == 0);
    const QString error = folder.write({{Block, "new"}});
    QVERIFY(user != 0 || seteuid(user) == 0);
    QFile::setPermissions(root.path(), readOnly | QFile::WriteOwner);
    QVERIFY2(error.startsWith(root.filePath(QStringLiteral("Manifest.ini: "))), qPrintable(error));
    QCOMPARE(bytesOf(root.filePath(Block)), "old");
}

QTEST_GUILESS_MAIN(tst_ProjectFolder)
#include "tst_ProjectFolder.moc"
