#include <KrParameterInstance/ParameterNavigationHost.h>

#include <QtCore/QPointer>
#include <QtTest/QTest>

#include <memory>

/// A host implements the six operations and nothing else.
class tst_ParameterNavigationHost : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isOwnedByItsParent();
    void declaresNoSignals();
};

namespace {

class Host final : public ParameterNavigationHost {
public:
    using ParameterNavigationHost::ParameterNavigationHost;

    bool canNavigateToParameter(const ParameterCoordinate &) const override { return false; }
    void navigateToParameter(const ParameterCoordinate &) override { }
    bool canNavigateToAddress(const ParameterAddress &) const override { return false; }
    void navigateToAddress(const ParameterAddress &) override { }
    ParameterAddress currentAddress() const override { return {}; }
    ParameterContainer *parameterContainer() const override { return nullptr; }
};

} // namespace

void tst_ParameterNavigationHost::isOwnedByItsParent()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<ParameterNavigationHost> host(new Host(parent.get()));
    QCOMPARE(host->parent(), parent.get());
    parent.reset();
    QVERIFY(!host);
}

void tst_ParameterNavigationHost::declaresNoSignals()
{
    const QMetaObject &meta = ParameterNavigationHost::staticMetaObject;
    QCOMPARE(meta.methodCount(), QObject::staticMetaObject.methodCount());
}

QTEST_GUILESS_MAIN(tst_ParameterNavigationHost)
#include "tst_ParameterNavigationHost.moc"
