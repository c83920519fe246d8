#include <QtCore/QDir>
#include <QtTest/QtTest>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

/// Replays the seeds of a fuzz target. A broken rule ends the process, which fails the test.
class tst_Corpus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void replay_data();
    void replay();
    void replayCut_data();
    void replayCut();
};

namespace {

/// Cuts of a seed, spread over it.
constexpr qsizetype CutCount = 12;

void addSeeds()
{
    QTest::addColumn<QByteArray>("seed");
    const QDir folder(QStringLiteral(KR_CORPUS));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    QVERIFY2(names.size() >= 10, "the corpus is there");
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTest::newRow(qPrintable(name)) << file.readAll();
    }
}

void run(const QByteArray &input)
{
    // A copy of its own size, so that the sanitizer sees every byte read beyond it.
    const std::vector<uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

void tst_Corpus::replay_data()
{
    addSeeds();
}

void tst_Corpus::replay()
{
    QFETCH(QByteArray, seed);
    run(seed);
}

void tst_Corpus::replayCut_data()
{
    addSeeds();
}

void tst_Corpus::replayCut()
{
    QFETCH(QByteArray, seed);
    for (qsizetype cut = 0; cut < CutCount; ++cut)
        run(seed.first(seed.size() * cut / CutCount));
}

QTEST_GUILESS_MAIN(tst_Corpus)
#include "tst_Corpus.moc"
