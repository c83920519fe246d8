#include <KrParameterInstance/ParameterValueSnapshot.h>

#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/MessageRecorder.h"

#include <KrFilter/Filter.h>
#include <KrFilter/FilterElement.h>

#include <QtCore/QSet>
#include <QtTest/QTest>

#include <functional>
#include <stdexcept>

/// What host and filter may do while a snapshot is taken.
class tst_SnapshotRebuild : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void snapshotGoesWhileItIsTaken();
    void containerGoesWhileItIsFrozen();
    void containerGoesWhenTheHostIsAsked();
    void snapshotGoesWhenTheHostIsAsked();
    void filterIsAskedInOrder();
    void filterThrows();
    void filterTakesEverything();
    void missingWriteLevelIsReportedOffline();
    void missingWriteLevelIsNoMatterOnline();
};

namespace {

void fill(SnapshotFixture &fixture)
{
    fixture.add(SnapshotFixture::parameter("A00", "Speed"));
    fixture.add(SnapshotFixture::parameter("B01", "Name").global());
}

/// Runs something at every question.
class ActingFilter final : public Filter {
public:
    explicit ActingFilter(std::function<void()> act, bool accepts = true)
        : m_act(std::move(act))
        , m_accepts(accepts)
    {
    }
    bool testElement(const FilterElement &) const override
    {
        m_act();
        return m_accepts;
    }

private:
    std::function<void()> m_act;
    bool m_accepts;
};

/// Keeps what it was asked for, and through which objects.
class OrderFilter final : public Filter {
public:
    bool testElement(const FilterElement &element) const override
    {
        asked.append(element.stringProperty(QStringLiteral("Address")));
        elements.insert(&element);
        return true;
    }

    mutable QStringList asked;
    mutable QSet<const FilterElement *> elements;
};

/// Runs something when it is asked for the living spaces.
class ActingHost final : public ParameterContainerHostInformation {
public:
    QList<eLivingSpace> livingSpaces() const override
    {
        if (act)
            act();
        return {eLivingSpace::Axis1};
    }
    unsigned int deviceFamilyIdentifier() const override { return 4096; }

    std::function<void()> act;
};

} // namespace

void tst_SnapshotRebuild::snapshotGoesWhileItIsTaken()
{
    SnapshotFixture fixture;
    fill(fixture);
    auto snapshot = std::make_unique<ParameterValueSnapshot>(fixture.container.get());
    const ActingFilter filter([&] { snapshot.reset(); });
    snapshot->apply(filter);
    QVERIFY(!snapshot);
}

void tst_SnapshotRebuild::containerGoesWhileItIsFrozen()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    const ActingFilter filter([&] { fixture.container.reset(); });
    snapshot.apply(filter);
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
}

void tst_SnapshotRebuild::containerGoesWhenTheHostIsAsked()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    ActingHost host;
    fixture.container->setHostInformation(&host);
    host.act = [&] { fixture.container.reset(); };
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.sourceContainer(), nullptr);
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
}

void tst_SnapshotRebuild::snapshotGoesWhenTheHostIsAsked()
{
    SnapshotFixture fixture;
    fill(fixture);
    ActingHost host;
    fixture.container->setHostInformation(&host);
    auto snapshot = std::make_unique<ParameterValueSnapshot>(fixture.container.get());
    host.act = [&] { snapshot.reset(); };
    snapshot->applyNoFilter();
    QVERIFY(!snapshot);
    host.act = nullptr;
}

/// Parameter by parameter in coordinate order, and through one filter element.
void tst_SnapshotRebuild::filterIsAskedInOrder()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("B01", "Name").global());
    fixture.add(SnapshotFixture::parameter("A00", "Speed"));
    ParameterValueSnapshot snapshot(fixture.container.get());
    const OrderFilter filter;
    snapshot.apply(filter);
    QCOMPARE(filter.asked,
        (QStringList {QStringLiteral("1.A000[00000]"), QStringLiteral("2.A000[00000]"),
            QStringLiteral("3.A000[00000]"), QStringLiteral("4.A000[00000]"),
            QStringLiteral("1.B001[00000]")}));
    QCOMPARE(filter.elements.size(), 1);
}

/// Nothing of it is left for the next time.
void tst_SnapshotRebuild::filterThrows()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    const auto applyThrowing = [&snapshot] {
        const ActingFilter filter([] { throw std::runtime_error("filter"); });
        snapshot.apply(filter);
    };
    QVERIFY_EXCEPTION_THROWN(applyThrowing(), std::runtime_error);
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.parameterList().size(), 2);
}

/// From within, without the filter; the filter's own answer comes last and stays.
void tst_SnapshotRebuild::filterTakesEverything()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    qsizetype sizeWithin = 0;
    const ActingFilter filter(
        [&] {
            snapshot.applyNoFilter();
            sizeWithin = snapshot.parameterList().size();
        },
        false);
    snapshot.apply(filter);
    QCOMPARE(sizeWithin, 2);
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
}

/// As displaying the value does.
void tst_SnapshotRebuild::missingWriteLevelIsReportedOffline()
{
    MessageRecorder messages;
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A01", "Speed")
                    .global()
                    .without(eParameterProperty::WriteLevel));
    messages.expect(MessageRecorder::eSeverity::Warning, QStringLiteral("CoordinateInstanceSet"),
        QStringLiteral("missing property \"writeLevel\" at parameter A01\""));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.parameterList(), QList {at("A01")});
    QVERIFY(messages.verify());
}

void tst_SnapshotRebuild::missingWriteLevelIsNoMatterOnline()
{
    const MessageRecorder messages;
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A01", "Speed")
                    .global()
                    .without(eParameterProperty::WriteLevel));
    fixture.container->setOnline(true);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.parameterList(), QList {at("A01")});
}

QTEST_GUILESS_MAIN(tst_SnapshotRebuild)
#include "tst_SnapshotRebuild.moc"
