#include <KrParameterInstance/ParameterNavigationHost.h>

#include <QtCore/QPointer>
#include <QtTest/QTest>

#include <cstring>
#include <memory>

/// A host implements the six operations and nothing else.
class tst_ParameterNavigationHost : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isOwnedByItsParent();
    void declaresNoSignals();
    void keepsCountAndOrderOfItsOperations();
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

/// Its own operation stands behind those that it inherits.
class AnyObject : public QObject {
public:
    virtual void behind() { }
};

class HostWithMore : public ParameterNavigationHost {
public:
    virtual void behind() { }
};

/// The position of a virtual operation in the table of the class, as the C++ ABI of GCC and Clang on
/// x86-64 keeps it in a pointer to the operation: its distance in bytes, plus one.
template <typename Operation>
qsizetype slotOf(Operation operation)
{
    qsizetype distance = 0;
    std::memcpy(&distance, &operation, sizeof distance);
    return (distance - 1) / qsizetype(sizeof(void *));
}

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

void tst_ParameterNavigationHost::keepsCountAndOrderOfItsOperations()
{
#if defined(__x86_64__) && defined(__GNUC__)
    using T = ParameterNavigationHost;
    const qsizetype first = slotOf(&AnyObject::behind);
    QCOMPARE(slotOf(&T::canNavigateToParameter), first);
    QCOMPARE(slotOf(&T::navigateToParameter), first + 1);
    QCOMPARE(slotOf(&T::canNavigateToAddress), first + 2);
    QCOMPARE(slotOf(&T::navigateToAddress), first + 3);
    QCOMPARE(slotOf(&T::currentAddress), first + 4);
    QCOMPARE(slotOf(&T::parameterContainer), first + 5);
    QCOMPARE(slotOf(&HostWithMore::behind), first + 6);
#else
    QVERIFY2(true, "other ABIs keep no positions in pointers");
#endif
}

QTEST_GUILESS_MAIN(tst_ParameterNavigationHost)
#include "tst_ParameterNavigationHost.moc"
