#include "apps/files/StagedFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_StagedFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void takesItsPlaceOnCommit();
    void leavesTheFileWithoutCommit();
    void refusesWhatIsNoFile();
    void keepsLinks();
    void refusesACircleOfLinks();
    void readsBack();

private:
    QString path() const { return m_folder->filePath(u"a"_s); }
    QByteArray content() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_StagedFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("before"), 6);
}

QByteArray tst_StagedFile::content() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(none)"_ba;
}

void tst_StagedFile::takesItsPlaceOnCommit()
{
    StagedFile file(path());
    QCOMPARE(file.stage("after"), QString());
    QCOMPARE(content(), "before"_ba);
    QCOMPARE(file.commit(), QString());
    QCOMPARE(content(), "after"_ba);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList {u"a"_s});
}

void tst_StagedFile::leavesTheFileWithoutCommit()
{
    {
        StagedFile file(path());
        QCOMPARE(file.stage("after"), QString());
    }
    QCOMPARE(content(), "before"_ba);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList {u"a"_s});
}

void tst_StagedFile::refusesWhatIsNoFile()
{
    const QString pipe = m_folder->filePath(u"pipe"_s);
    QCOMPARE(::mkfifo(qPrintable(pipe), 0600), 0);
    StagedFile file(pipe);
    QCOMPARE(file.stage("after"), u"ist keine Datei"_s);
    QVERIFY(!QFileInfo(pipe).isFile());
}

void tst_StagedFile::keepsLinks()
{
    const QString link = m_folder->filePath(u"link"_s);
    const QString second = m_folder->filePath(u"second"_s);
    QVERIFY(QFile::link(path(), link));
    QVERIFY(QFile::link(link, second));
    StagedFile file(second);
    QCOMPARE(file.stage("after"), QString());
    QCOMPARE(file.commit(), QString());
    QCOMPARE(content(), "after"_ba);
    QVERIFY(!QFileInfo(path()).isSymLink());
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(QFileInfo(second).isSymLink());
}

void tst_StagedFile::refusesACircleOfLinks()
{
    const QString link = m_folder->filePath(u"link"_s);
    QVERIFY(QFile::link(link, m_folder->filePath(u"second"_s)));
    QVERIFY(QFile::link(m_folder->filePath(u"second"_s), link));
    StagedFile file(link);
    QCOMPARE(file.stage("after"), u"die Verweise führen im Kreis"_s);
    QVERIFY(QFileInfo(link).isSymLink());
}

void tst_StagedFile::readsBack()
{
    StagedFile file(path());
    QCOMPARE(file.stage("after"), QString());
    QVERIFY(QFile::remove(path()));
    QVERIFY(QDir(m_folder->path()).mkdir(u"a"_s));
    QVERIFY(!file.commit().isEmpty());
}

QTEST_GUILESS_MAIN(tst_StagedFile)
#include "tst_StagedFile.moc"
