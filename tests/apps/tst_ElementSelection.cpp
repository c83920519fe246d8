#include "FrozenDevice.h"
#include "apps/host/ElementSelection.h"
#include "apps/host/PropertyFilter.h"

#include <QtTest/QtTest>

#include <algorithm>

/// B01 holds 4200 on both axes of the one device, 100 and 200 on those of the other; of the record E30
/// the other holds 3 in element 2.
class tst_ElementSelection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void selected_data();
    void selected();
    void oneDeviceAlone_data();
    void oneDeviceAlone();
    void nothingWasAdded();
    void severalFilters();
    void deviceLacksTheElement();

private:
    bool add(ElementSelection &selection, DriveProject &project, const QString &conditions) const;

    SmallDevice m_device;
    std::unique_ptr<DriveProject> m_one;
    std::unique_ptr<DriveProject> m_other;
};

namespace {

/// "address=native text" of what the selection takes of a device, by coordinate, axis and element.
QString taken(DriveProject &project, const ElementSelection &selection)
{
    ParameterValueSnapshot snapshot(&project.container());
    snapshot.apply(selection);
    QList<ParameterCoordinate> coordinates = snapshot.parameterList();
    std::sort(coordinates.begin(), coordinates.end());
    QStringList texts;
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates)) {
        for (const eLivingSpace livingSpace : snapshot.livingSpaces(coordinate)) {
            for (const quint16 element : snapshot.elements(coordinate)) {
                texts.append(
                    QStringLiteral("%1.%2[%3]=%4")
                        .arg(int(livingSpace))
                        .arg(coordinate.toText())
                        .arg(element)
                        .arg(snapshot.valueNative(livingSpace, coordinate, element, false)));
            }
        }
    }
    return texts.join(QLatin1Char(' '));
}

} // namespace

void tst_ElementSelection::init()
{
    m_one = m_device.open();
    m_other = m_device.open();
    QVERIFY(m_one && m_other);
    write(*m_other, 1, "B01", 0, "100");
    write(*m_other, 2, "B01", 0, "200");
    write(*m_other, 0, "E30", 2, "3");
}

bool tst_ElementSelection::add(
    ElementSelection &selection, DriveProject &project, const QString &conditions) const
{
    QString error;
    const auto filter =
        PropertyFilter::of(conditions.split(QLatin1Char(' '), Qt::SkipEmptyParts), error);
    if (filter)
        selection.add(project.container(), *filter);
    return filter != nullptr;
}

void tst_ElementSelection::selected_data()
{
    QTest::addColumn<QString>("conditions");
    QTest::addColumn<QString>("ofOne");
    QTest::addColumn<QString>("ofOther");
    const auto row = [](const char *rule, const char *conditions, const char *ofOne,
                         const char *ofOther) {
        QTest::newRow(rule) << QString::fromLatin1(conditions) << QString::fromLatin1(ofOne)
                            << QString::fromLatin1(ofOther);
    };
    row("on all axes of both", "Coordinate=B01", "1.B01[0]=4200 2.B01[0]=4200",
        "1.B01[0]=100 2.B01[0]=200");
    row("on all axes of one", "ValueNative=4200", "1.B01[0]=4200 2.B01[0]=4200",
        "1.B01[0]=100 2.B01[0]=200");
    row("on axis 1 of one", "ValueNative=100", "1.B01[0]=4200 2.B01[0]=4200",
        "1.B01[0]=100 2.B01[0]=200");
    row("on axis 2 of one", "ValueNative=200", "1.B01[0]=4200 2.B01[0]=4200",
        "1.B01[0]=100 2.B01[0]=200");
    row("on axis 1 of both", "Address=1.B001[00000]", "1.B01[0]=4200 2.B01[0]=4200",
        "1.B01[0]=100 2.B01[0]=200");
    row("an element of a record", "ValueNative=3", "0.E30[2]=1", "0.E30[2]=3");
    row("different elements on different sides", "Coordinate=E30 ValueNative=1",
        "0.E30[1]=1 0.E30[2]=1", "0.E30[1]=1 0.E30[2]=3");
    row("conditions that hold on different axes", "Address=1.B001[00000] ValueNative=200", "", "");
    row("conditions that hold on different sides", "ValueNative=3 ElementName=Zahl", "", "");
    row("nowhere", "Coordinate=Z99", "", "");
}

void tst_ElementSelection::selected()
{
    QFETCH(QString, conditions);
    ElementSelection selection;
    QVERIFY(add(selection, *m_one, conditions));
    QVERIFY(add(selection, *m_other, conditions));
    QTEST(taken(*m_one, selection), "ofOne");
    QTEST(taken(*m_other, selection), "ofOther");
}

void tst_ElementSelection::oneDeviceAlone_data()
{
    QTest::addColumn<QString>("conditions");
    QTest::addColumn<QString>("expected");
    QTest::newRow("on axis 1") << QStringLiteral("ValueNative=100")
                               << QStringLiteral("1.B01[0]=100 2.B01[0]=200");
    QTest::newRow("on axis 2") << QStringLiteral("ValueNative=200")
                               << QStringLiteral("1.B01[0]=100 2.B01[0]=200");
    QTest::newRow("on no axis") << QStringLiteral("ValueNative=4200") << QString();
}

void tst_ElementSelection::oneDeviceAlone()
{
    QFETCH(QString, conditions);
    ElementSelection selection;
    QVERIFY(add(selection, *m_other, conditions));
    QTEST(taken(*m_other, selection), "expected");
}

void tst_ElementSelection::nothingWasAdded()
{
    QCOMPARE(taken(*m_one, ElementSelection()), QString());
}

void tst_ElementSelection::severalFilters()
{
    ElementSelection selection;
    QVERIFY(add(selection, *m_one, QStringLiteral("Coordinate=A20")));
    QVERIFY(add(selection, *m_one, QStringLiteral("ElementName=Zahl")));
    QCOMPARE(taken(*m_one, selection), QStringLiteral("0.A20[0]=abc 0.E30[1]=1"));
}

void tst_ElementSelection::deviceLacksTheElement()
{
    ElementSelection selection;
    QVERIFY(add(selection, *m_one, QStringLiteral("Coordinate=A20")));
    m_other->container().deleteParameter(QStringLiteral("Drive.1;{P1}"));
    QCOMPARE(taken(*m_other, selection), QString());
}

QTEST_GUILESS_MAIN(tst_ElementSelection)
#include "tst_ElementSelection.moc"
