#include "value/RunningFunctions.h"

#include <QtTest/QTest>

/// What is kept for running functions lasts until the outermost one returned.
class tst_RunningFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsUntilTheOutermostReturns();
    void keepsWhatIsKeptWhileReleasing();
};

void tst_RunningFunctions::keepsUntilTheOutermostReturns()
{
    QVERIFY(!RunningFunctions::isAny());
    auto object = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = object;
    {
        const RunningFunctions outer;
        QVERIFY(RunningFunctions::isAny());
        {
            const RunningFunctions inner;
            RunningFunctions::keep(std::move(object));
            QVERIFY(!watched.expired());
        }
        QVERIFY(!watched.expired());
        QVERIFY(RunningFunctions::isAny());
    }
    QVERIFY(watched.expired());
    QVERIFY(!RunningFunctions::isAny());
}

// The end of what was kept may run functions of its own, which keep something in turn.
void tst_RunningFunctions::keepsWhatIsKeptWhileReleasing()
{
    struct Ending {
        explicit Ending(std::shared_ptr<int> last)
            : kept(std::move(last))
        {
        }
        ~Ending()
        {
            const RunningFunctions functions;
            RunningFunctions::keep(std::move(kept));
        }
        Q_DISABLE_COPY_MOVE(Ending)
        std::shared_ptr<int> kept;
    };
    auto last = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = last;
    {
        const RunningFunctions functions;
        RunningFunctions::keep(std::make_shared<Ending>(std::move(last)));
        QVERIFY(!watched.expired());
    }
    QVERIFY(watched.expired());
    QVERIFY(!RunningFunctions::isAny());
}

QTEST_GUILESS_MAIN(tst_RunningFunctions)
#include "tst_RunningFunctions.moc"
