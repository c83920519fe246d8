#include "apps/krparameter-desk/ReadingProgress.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QToolButton>

class tst_ReadingProgress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shownAfterAWhile();
    void cancelledByKey();
};

namespace {

struct Stand {
    Stand()
        : progress(&window)
    {
        progress.retranslate();
        (new QVBoxLayout(&window))->addWidget(&progress);
        progress.end();
        window.show();
    }

    QWidget window;
    ReadingProgress progress;
};

} // namespace

void tst_ReadingProgress::shownAfterAWhile()
{
    Stand s;
    s.progress.set(0, 0);
    s.progress.set(1, 4);
    QVERIFY(!s.progress.isVisible());
    QTRY_VERIFY(s.progress.isVisible());
    const auto *bar = s.progress.findChild<QProgressBar *>();
    QCOMPARE(bar->value(), 250);
    s.progress.set(4, 4);
    QCOMPARE(bar->value(), 1000);
    s.progress.end();
    QVERIFY(!s.progress.isVisible());
}

void tst_ReadingProgress::cancelledByKey()
{
    Stand s;
    const QSignalSpy cancelled(&s.progress, &ReadingProgress::cancelled);
    s.progress.set(1, 4);
    QTRY_VERIFY(s.progress.isVisible());
    auto *button = s.progress.findChild<QToolButton *>();
    QCOMPARE(button->text(), QStringLiteral("Abbrechen"));
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(cancelled.count(), 1);
}

QTEST_MAIN(tst_ReadingProgress)
#include "tst_ReadingProgress.moc"
