#include "apps/krparameter-desk/DelayedProgress.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>

using namespace std::chrono_literals;

/// With a clock of its own, so that nothing waits.
class tst_DelayedProgress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_now = 1000ms; }

    void shownAfterHalfASecond_data();
    void shownAfterHalfASecond();
    void value();
    void clickCancels();
    void goneAfterTheJob();

private:
    static QProgressDialog *dialog()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *found = qobject_cast<QProgressDialog *>(widget))
                return found;
        }
        return nullptr;
    }
    DelayedProgress::Clock clock()
    {
        return [this] { return m_now; };
    }

    std::chrono::milliseconds m_now {};
};

void tst_DelayedProgress::shownAfterHalfASecond_data()
{
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("at once nothing") << 0 << false;
    QTest::newRow("after 499 ms nothing") << 499 << false;
    QTest::newRow("after 500 ms the dialog") << 500 << true;
}

void tst_DelayedProgress::shownAfterHalfASecond()
{
    QFETCH(int, after);
    QFETCH(bool, isShown);
    DelayedProgress progress(nullptr, QStringLiteral("Projekt laden"), clock());
    m_now += std::chrono::milliseconds(after);
    QVERIFY(progress.advance(1, 10));
    QCOMPARE(dialog() != nullptr, isShown);
    if (isShown)
        QCOMPARE(dialog()->labelText(), QStringLiteral("Projekt laden"));
}

void tst_DelayedProgress::value()
{
    DelayedProgress progress(nullptr, QStringLiteral("Job"), clock());
    m_now += 500ms;
    QVERIFY(progress.advance(5, 10));
    QCOMPARE(dialog()->value(), 499);
    m_now += 39ms;
    QVERIFY(progress.advance(6, 10));
    QCOMPARE(dialog()->value(), 499);
    m_now += 1ms;
    QVERIFY(progress.advance(7, 10));
    QCOMPARE(dialog()->value(), 699);
    // The end of one round is not the end of the job.
    m_now += 40ms;
    QVERIFY(progress.advance(10, 10));
    QVERIFY(dialog()->isVisible());
    m_now += 40ms;
    QVERIFY(progress.advance(0, 0));
    QCOMPARE(dialog()->value(), 0);
}

void tst_DelayedProgress::clickCancels()
{
    DelayedProgress progress(nullptr, QStringLiteral("Job"), clock());
    m_now += 500ms;
    QVERIFY(progress.advance(1, 10));
    QTest::mouseClick(dialog()->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(!progress.advance(2, 10));
    m_now += 500ms;
    QVERIFY(!progress.advance(3, 10));
}

void tst_DelayedProgress::goneAfterTheJob()
{
    {
        DelayedProgress progress(nullptr, QStringLiteral("Job"), clock());
        m_now += 500ms;
        progress.advance(1, 2);
        QVERIFY(dialog());
    }
    QVERIFY(!dialog());
}

QTEST_MAIN(tst_DelayedProgress)
#include "tst_DelayedProgress.moc"
