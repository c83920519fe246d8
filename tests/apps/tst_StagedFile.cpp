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
    void cutWrites_data();
    void cutWrites();
    void otherBytes();

private:
    QString path() const { return m_folder->filePath(u"a"_s); }
    QByteArray content() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// Loses the last byte of each write, as a full disk may, without an error.
class CuttingDevice : public QSaveFile {
public:
    enum class eAnswer { Written, Asked };

    explicit CuttingDevice(eAnswer answer)
        : m_answer(answer)
    {
    }

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        const qint64 written = QSaveFile::writeData(data, size - 1);
        return m_answer == eAnswer::Asked ? size : written;
    }

private:
    eAnswer m_answer;
};

/// Writes as many bytes as it gets, the first of them another one.
class ChangingDevice : public QSaveFile {
protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        const QByteArray changed = '?' + QByteArray(data, size).mid(1);
        return QSaveFile::writeData(changed.constData(), changed.size());
    }
};

} // namespace

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

void tst_StagedFile::cutWrites_data()
{
    QTest::addColumn<CuttingDevice::eAnswer>("answer");
    QTest::newRow("the device answers with fewer bytes") << CuttingDevice::eAnswer::Written;
    QTest::newRow("only the length tells") << CuttingDevice::eAnswer::Asked;
}

void tst_StagedFile::cutWrites()
{
    QFETCH(CuttingDevice::eAnswer, answer);
    StagedFile file(path(), std::make_unique<CuttingDevice>(answer));
    QCOMPARE(file.stage("after"), u"nicht alle Bytes konnten geschrieben werden"_s);
    QCOMPARE(content(), "before"_ba);
    QVERIFY(!file.commit().isEmpty());
    QCOMPARE(content(), "before"_ba);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList {u"a"_s});
}

void tst_StagedFile::otherBytes()
{
    StagedFile file(path(), std::make_unique<ChangingDevice>());
    QCOMPARE(file.stage("after"), QString());
    QCOMPARE(file.commit(), u"das Gelesene unterscheidet sich vom Geschriebenen"_s);
}

QTEST_GUILESS_MAIN(tst_StagedFile)
#include "tst_StagedFile.moc"
