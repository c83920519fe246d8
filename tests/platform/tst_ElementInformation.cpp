#include <KrParameterDefinition/ElementInformation.h>

#include <QtTest/QtTest>

class tst_ElementInformation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void hasNothingByDefault();
    void holdsEveryDefinitionProperty();
    void replacesProperty();
    void removesProperty();
    void anInvalidValueRemoves();
    void refusesNumber_data();
    void refusesNumber();
    void settableIsKeptApartFromTheValue();
};

void tst_ElementInformation::hasNothingByDefault()
{
    const ElementInformation information;
    for (quint32 number = 0; number < 200; ++number) {
        QVERIFY(!information.hasProperty(eParameterProperty(number)));
        QVERIFY(!information.property(eParameterProperty(number)).isValid());
        QVERIFY(!information.isPropertySettable(eParameterProperty(number)));
    }
}

void tst_ElementInformation::holdsEveryDefinitionProperty()
{
    ElementInformation information;
    for (quint32 number = 51; number-- > 0;)
        information.setProperty(eParameterProperty(number), number + 1000);
    for (quint32 number = 0; number <= 50; ++number) {
        QVERIFY(information.hasProperty(eParameterProperty(number)));
        QCOMPARE(information.property(eParameterProperty(number)).asUint32(), number + 1000);
    }
}

void tst_ElementInformation::replacesProperty()
{
    ElementInformation information;
    information.setProperty(eParameterProperty::ReadLevel, 1);
    information.setProperty(eParameterProperty::WriteLevel, 2);
    information.setProperty(eParameterProperty::ReadLevel, QStringLiteral("3"));
    QCOMPARE(information.property(eParameterProperty::ReadLevel).asString(), QStringLiteral("3"));
    QCOMPARE(information.property(eParameterProperty::WriteLevel).asString(), QStringLiteral("2"));
}

void tst_ElementInformation::removesProperty()
{
    ElementInformation information;
    information.setProperty(eParameterProperty::ReadLevel, 1);
    information.setProperty(eParameterProperty::WriteLevel, 2);
    information.setProperty(eParameterProperty::Datatype, 3);
    information.removeProperty(eParameterProperty::WriteLevel);
    information.removeProperty(eParameterProperty::NoWrite);

    QVERIFY(!information.hasProperty(eParameterProperty::WriteLevel));
    QVERIFY(!information.property(eParameterProperty::WriteLevel).isValid());
    QCOMPARE(information.property(eParameterProperty::ReadLevel).asInt32(), 1);
    QCOMPARE(information.property(eParameterProperty::Datatype).asInt32(), 3);

    information.setProperty(eParameterProperty::WriteLevel, 4);
    QCOMPARE(information.property(eParameterProperty::WriteLevel).asInt32(), 4);
    QCOMPARE(information.property(eParameterProperty::Datatype).asInt32(), 3);
}

void tst_ElementInformation::anInvalidValueRemoves()
{
    ElementInformation information;
    information.setProperty(eParameterProperty::ReadLevel, QVariant());
    QVERIFY(!information.hasProperty(eParameterProperty::ReadLevel));
    information.setProperty(eParameterProperty::ReadLevel, 1);
    information.setProperty(eParameterProperty::ReadLevel, QVariant());
    QVERIFY(!information.hasProperty(eParameterProperty::ReadLevel));
}

void tst_ElementInformation::refusesNumber_data()
{
    QTest::addColumn<quint32>("number");

    QTest::newRow("first beyond the definition") << 51U;
    QTest::newRow("answered by the library") << 100U;
    QTest::newRow("largest") << 4294967295U;
}

void tst_ElementInformation::refusesNumber()
{
    QFETCH(quint32, number);

    ElementInformation information;
    information.setProperty(eParameterProperty::ReadLevel, 1);
    information.setProperty(eParameterProperty(number), 5);
    information.setPropertySettable(eParameterProperty(number), true);
    information.removeProperty(eParameterProperty(number));
    QVERIFY(!information.hasProperty(eParameterProperty(number)));
    QVERIFY(!information.property(eParameterProperty(number)).isValid());
    QVERIFY(!information.isPropertySettable(eParameterProperty(number)));
    QCOMPARE(information.property(eParameterProperty::ReadLevel).asInt32(), 1);
}

void tst_ElementInformation::settableIsKeptApartFromTheValue()
{
    ElementInformation information;
    information.setPropertySettable(eParameterProperty::DescriptionReference, true);
    QVERIFY(information.isPropertySettable(eParameterProperty::DescriptionReference));
    QVERIFY(!information.hasProperty(eParameterProperty::DescriptionReference));
    QVERIFY(!information.isPropertySettable(eParameterProperty::ShownOffline));
    information.setPropertySettable(eParameterProperty::DescriptionReference, false);
    QVERIFY(!information.isPropertySettable(eParameterProperty::DescriptionReference));
}

QTEST_APPLESS_MAIN(tst_ElementInformation)
#include "tst_ElementInformation.moc"
