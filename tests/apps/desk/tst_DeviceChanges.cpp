#include "apps/krparameter-desk/DeviceChanges.h"

#include "tests/apps/desk/DeskDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

class tst_DeviceChanges : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void values();
    void everythingAtOnce();
    void levelIsToldOnce();
    void parametersAreToldOnce();
    void anotherDevice();

private:
    ParameterContainer &container() const { return m_project->container(); }
    void write(const char *text)
    {
        container().writeValueNative(
            eLivingSpace::Axis2, place("B01").coordinate, 0, QString::fromLatin1(text));
    }
    QString placeText(const ValuePlace &at) const
    {
        return at.addressText(*container().parameterInformation(at.coordinate));
    }
    QString taken() { return std::exchange(m_told, {}).join(u' '); }

    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<DeskDevice> m_device;
    std::unique_ptr<DriveProject> m_project;
    std::unique_ptr<DeviceChanges> m_changes;
    QStringList m_told;
};

void tst_DeviceChanges::init()
{
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_device = std::make_unique<DeskDevice>();
    m_project = m_device->open();
    m_changes = std::make_unique<DeviceChanges>();
    m_changes->setDevice(m_project.get());
    connect(m_changes.get(), &DeviceChanges::valueChanged, this,
        [this](const ValuePlace &at) { m_told.append(placeText(at)); });
    connect(m_changes.get(), &DeviceChanges::visibilityChanged, this,
        [this](const ValuePlace &at) { m_told.append(QStringLiteral("seen:") + placeText(at)); });
    connect(m_changes.get(), &DeviceChanges::allChanged, this,
        [this] { m_told.append(QStringLiteral("all")); });
    connect(m_changes.get(), &DeviceChanges::parametersChanged, this,
        [this] { m_told.append(QStringLiteral("parameters")); });
}

void tst_DeviceChanges::cleanup()
{
    m_changes.reset();
    m_project.reset();
    m_messages.reset();
    m_told.clear();
}

/// By native text and value text alike.
void tst_DeviceChanges::values()
{
    write("5000");
    QCOMPARE(taken(), QStringLiteral("2.B01 2.B01"));
    write("5000");
    QCOMPARE(taken(), QString());
}

void tst_DeviceChanges::everythingAtOnce()
{
    container().setOnline(true);
    QVERIFY(taken().endsWith(QStringLiteral("all")));
    container().setReadOnly(true);
    QVERIFY(taken().endsWith(QStringLiteral("all")));
}

/// A value that a level shows is no row of its own then.
void tst_DeviceChanges::levelIsToldOnce()
{
    System::information()->setUserAccessLevel(5);
    const QString told = taken();
    QCOMPARE(told.count(QStringLiteral("all")), 1);
    QVERIFY(told.endsWith(QStringLiteral("all")));
    QVERIFY(!told.contains(QStringLiteral("seen:")));
}

void tst_DeviceChanges::parametersAreToldOnce()
{
    container().deleteParameter(QStringLiteral("Drive.1;{P5}"));
    container().deleteParameter(QStringLiteral("Drive.1;{P4}"));
    QCOMPARE(taken(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(taken(), QStringLiteral("parameters"));
    QCoreApplication::processEvents();
    QCOMPARE(taken(), QString());
}

void tst_DeviceChanges::anotherDevice()
{
    const auto other = m_device->open();
    m_changes->setDevice(other.get());
    write("5000");
    container().setReadOnly(true);
    QCOMPARE(taken(), QString());
    other->container().writeValueNative(
        eLivingSpace::Axis2, place("B01").coordinate, 0, QStringLiteral("5000"));
    QCOMPARE(taken(), QStringLiteral("2.B01 2.B01"));
    m_changes->setDevice(nullptr);
    other->container().setReadOnly(true);
    QCOMPARE(taken(), QString());
}

QTEST_GUILESS_MAIN(tst_DeviceChanges)
#include "tst_DeviceChanges.moc"
