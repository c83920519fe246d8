#include "apps/krparameter-desk/SearchedTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_SearchedTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void findsEverythingWithoutPattern();
    void waitsForWhatIsNotRead();
    void isReadWhileIdle();
    void readsAllAtOnce();
    void startsAnewInFull();
    void rereads();
    void nothingToRead();

private:
    qsizetype count(bool found) { return m_search->found().count(found); }

    QStringList m_texts;
    QList<qsizetype> m_read;
    std::unique_ptr<SearchedTexts> m_search;
};

/// More rows than are read at a time; every tenth says "ten".
void tst_SearchedTexts::init()
{
    m_texts.clear();
    m_read.clear();
    for (int row = 0; row < 4000; ++row)
        m_texts.append(row % 10 == 0 ? QStringLiteral("Ten") : QStringLiteral("other"));
    m_search = std::make_unique<SearchedTexts>([this](qsizetype row) {
        m_read.append(row);
        return m_texts.at(row);
    });
    m_search->start(m_texts.size());
}

void tst_SearchedTexts::findsEverythingWithoutPattern()
{
    QCOMPARE(m_search->found(), QList<bool>());
    QVERIFY(!m_search->isAwaited());
    QCOMPARE(m_read, QList<qsizetype>());
}

/// A row that is not read yet may hold what is searched.
void tst_SearchedTexts::waitsForWhatIsNotRead()
{
    m_search->setPattern(QStringLiteral("ten"));
    QVERIFY(m_search->isAwaited());
    QCOMPARE(m_read.size(), 1500);
    QCOMPARE(m_search->found().size(), 4000);
    QCOMPARE(count(true), 150 + 2500);
    m_search->setPattern(QString());
    QVERIFY(!m_search->isAwaited());
    QCOMPARE(m_search->found(), QList<bool>());
}

void tst_SearchedTexts::isReadWhileIdle()
{
    const QSignalSpy anew(m_search.get(), &SearchedTexts::foundAnew);
    m_search->setPattern(QStringLiteral("ten"));
    QTRY_VERIFY(!m_search->isAwaited());
    QCOMPARE(count(true), 400);
    // Two pieces were missing; each row is read once.
    QCOMPARE(anew.count(), 2);
    QCOMPARE(m_read.size(), 4000);
    QCOMPARE(m_read.constLast(), 3999);
    QCoreApplication::processEvents();
    QCOMPARE(anew.count(), 2);
}

void tst_SearchedTexts::readsAllAtOnce()
{
    const QSignalSpy anew(m_search.get(), &SearchedTexts::foundAnew);
    m_search->setPattern(QStringLiteral("ten"));
    m_search->readAll();
    QVERIFY(!m_search->isAwaited());
    QCOMPARE(count(true), 400);
    QCoreApplication::processEvents();
    QCOMPARE(anew.count(), 0);
    QCOMPARE(m_read.size(), 4000);
}

/// In another language for example: nothing comes up for a moment that is not found.
void tst_SearchedTexts::startsAnewInFull()
{
    m_search->setPattern(QStringLiteral("ten"));
    m_texts.replaceInStrings(QStringLiteral("Ten"), QStringLiteral("Zehn"));
    m_search->start(3000);
    QVERIFY(!m_search->isAwaited());
    QCOMPARE(m_search->found(), QList<bool>(3000, false));
    m_search->setPattern(QStringLiteral("zehn"));
    QCOMPARE(count(true), 300);
}

void tst_SearchedTexts::rereads()
{
    m_search->setPattern(QStringLiteral("ten"));
    m_texts[1] = QStringLiteral("ten too");
    m_texts[3999] = QStringLiteral("ten as well");
    m_search->reread(1);
    // This one is read later anyhow.
    m_search->reread(3999);
    QCOMPARE(m_read.size(), 1501);
    QCOMPARE(count(true), 151 + 2500);
    m_search->readAll();
    QCOMPARE(count(true), 402);
}

void tst_SearchedTexts::nothingToRead()
{
    m_search->setPattern(QStringLiteral("ten"));
    m_search->start(0);
    QVERIFY(!m_search->isAwaited());
    QCOMPARE(m_search->found(), QList<bool>());
}

QTEST_GUILESS_MAIN(tst_SearchedTexts)
#include "tst_SearchedTexts.moc"
