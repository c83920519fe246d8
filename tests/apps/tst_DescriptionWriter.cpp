#include "apps/import/ConfiguredValues.h"
#include "apps/import/CoordinateTable.h"
#include "apps/import/DescriptionWriter.h"
#include "apps/import/DeviceInformation.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_DescriptionWriter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void family_data();
    void family();
    void root();
    void simpleParameter();
    void recordParameter();
    void displayForm_data();
    void displayForm();
    void namesThatAreMissing();
    void optionalKeys_data();
    void optionalKeys();
    void sameBytesTwice();
    void configuredValues();
};

namespace {

ImportedElement elementOf(quint32 type, quint8 subIndex = 0, const QString &name = u"N"_s)
{
    ImportedElement element;
    element.type = CanOpenDataType::find(type);
    element.subIndex = subIndex;
    element.name = name;
    element.isWritable = true;
    element.defaultText = u"0"_s;
    return element;
}

QByteArray written(const QList<ImportedParameter> &parameters)
{
    CoordinateTable table;
    QList<quint16> indices;
    for (const ImportedParameter &parameter : parameters)
        indices.append(parameter.index);
    table.extend(indices);
    return DescriptionWriter::write({4711, u"Drive"_s}, parameters, table);
}

QJsonObject rootOf(const QList<ImportedParameter> &parameters)
{
    return QJsonDocument::fromJson(written(parameters)).object();
}

QByteArray compact(const QJsonValue &value)
{
    return QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact);
}

} // namespace

void tst_DescriptionWriter::family_data()
{
    QTest::addColumn<quint32>("vendor");
    QTest::addColumn<quint32>("product");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<quint32>("identifier");
    QTest::addColumn<QString>("name");

    // FNV-1a, computed apart from this program.
    QTest::newRow("both numbers") << 0x1A3U << 66U << QStringList {u"V"_s, u"P"_s, u"D"_s}
                                  << 3564946307U << u"V P"_s;
    QTest::newRow("the name plays no part with both numbers")
        << 0x1A3U << 66U << QStringList {u"W"_s, u"X"_s, u"D"_s} << 3564946307U << u"W X"_s;
    QTest::newRow("no product number")
        << 0x1A3U << 0U << QStringList {u"V"_s, u"P"_s, u"D"_s} << 2462182893U << u"V P"_s;
    QTest::newRow("description for the product's name")
        << 0U << 0U << QStringList {u"V"_s, QString(), u"D"_s} << 3746808221U << u"V D"_s;
    QTest::newRow("nothing") << 0U << 0U << QStringList {QString(), QString(), QString()}
                             << 2246501505U << u"CANopen device"_s;
}

void tst_DescriptionWriter::family()
{
    QFETCH(quint32, vendor);
    QFETCH(quint32, product);
    QFETCH(QStringList, names);
    QFETCH(quint32, identifier);
    QFETCH(QString, name);

    DeviceInformation device;
    device.vendorNumber = vendor;
    device.productNumber = product;
    device.vendorName = names.at(0);
    device.productName = names.at(1);
    device.description = names.at(2);
    const DeviceFamily family = DeviceFamily::of(device);
    QCOMPARE(family.identifier, identifier);
    QCOMPARE(family.name, name);
}

void tst_DescriptionWriter::root()
{
    QJsonObject root = rootOf({{0x6041, u"Statusword"_s, {}, false, {elementOf(6)}},
        {0x6064, u"Position"_s, {}, false, {elementOf(4)}}});
    QCOMPARE(root.take(u"parameters"_s).toArray().size(), 2);
    QCOMPARE(compact(root),
        R"({"dataTypes":["INT32","UINT16"],)"
        R"("family":{"axes":[1],"hasPhysicalAxes":false,"identifier":4711,"name":"Drive"},)"
        R"("format":"kr-device-description","languages":["de","en"],"version":1})"_ba);
}

void tst_DescriptionWriter::simpleParameter()
{
    const QJsonObject root = rootOf({{0x6040, u"Controlword"_s, u"lift"_s, false, {elementOf(6)}}});
    QCOMPARE(compact(root[u"parameters"_s][0]),
        R"({"coordinates":["P64"],"description":{"de":"Objekt 0x6040: lift","en":"Object 0x6040: lift"},)"
        R"("elements":[{"dataType":"UINT16","default":"0","descriptionReference":"0x6040"}],)"
        R"("global":true,"name":"Controlword","number":24640,"type":"simple"})"_ba);
}

void tst_DescriptionWriter::recordParameter()
{
    const QJsonObject root = rootOf({{0x1018, u"Identity"_s, {}, true,
        {elementOf(5, 0, u"Count"_s), elementOf(7, 4, u"Serial"_s)}}});
    QCOMPARE(compact(root[u"parameters"_s][0]),
        R"({"coordinates":["C24"],"description":{"de":"Objekt 0x1018","en":"Object 0x1018"},"elements":[)"
        R"({"dataType":"UINT8","default":"0","descriptionReference":"0x1018","name":"Count","number":0},)"
        R"({"dataType":"UINT32","default":"0","descriptionReference":"0x1018","name":"Serial","number":4}],)"
        R"("global":true,"name":"Identity","number":4120,"type":"record"})"_ba);
}

void tst_DescriptionWriter::displayForm_data()
{
    QTest::addColumn<quint32>("type");
    QTest::addColumn<QByteArray>("element");

    QTest::newRow("a text stands as it is")
        << 0x09U
        << R"({"dataType":"STRING255","default":"0","descriptionReference":"0x2001","kind":5})"_ba;
    QTest::newRow("bytes stand as their digits")
        << 0x0AU
        << R"({"dataType":"BYTES64","default":"0","descriptionReference":"0x2001","kind":5})"_ba;
    QTest::newRow("a float has seven digits")
        << 0x08U
        << R"({"dataType":"REAL32","decimals":{"significant":7},"default":"0","descriptionReference":"0x2001"})"_ba;
    QTest::newRow("a double has fifteen digits")
        << 0x11U
        << R"({"dataType":"REAL64","decimals":{"significant":15},"default":"0","descriptionReference":"0x2001"})"_ba;
    QTest::newRow("a whole number")
        << 0x03U << R"({"dataType":"INT16","default":"0","descriptionReference":"0x2001"})"_ba;
}

void tst_DescriptionWriter::displayForm()
{
    QFETCH(quint32, type);
    QFETCH(QByteArray, element);

    const QJsonObject root = rootOf({{0x2001, u"N"_s, {}, false, {elementOf(type)}}});
    QCOMPARE(compact(root[u"parameters"_s][0][u"elements"_s][0]), element);
}

void tst_DescriptionWriter::namesThatAreMissing()
{
    const QJsonObject root = rootOf({{0x1018, {}, {}, true, {elementOf(5, 3, {})}}});
    const QJsonValue parameter = root[u"parameters"_s][0];
    QCOMPARE(parameter[u"name"_s].toString(), u"0x1018"_s);
    QCOMPARE(parameter[u"elements"_s][0][u"name"_s].toString(), u"Sub 3"_s);
}

void tst_DescriptionWriter::optionalKeys_data()
{
    QTest::addColumn<ImportedElement>("element");
    QTest::addColumn<QByteArray>("expected");

    ImportedElement element = elementOf(7);
    element.lowerLimit = u"1"_s;
    QTest::newRow("lower limit") << element << R"("limits":{"lower":"1"}})"_ba;
    element.upperLimit = u"4294967295"_s;
    QTest::newRow("both limits") << element << R"("limits":{"lower":"1","upper":"4294967295"}})"_ba;
    element = elementOf(7);
    element.isWritable = false;
    QTest::newRow("read-only") << element << R"("noWrite":1})"_ba;
    element = elementOf(7);
    element.isWriteOnly = true;
    QTest::newRow("write-only has no storage") << element << R"("memoryAllocation":1})"_ba;
    element = elementOf(7);
    element.isMappable = true;
    QTest::newRow("process data") << element << R"("processDataMappable":1})"_ba;
}

void tst_DescriptionWriter::optionalKeys()
{
    QFETCH(ImportedElement, element);
    QFETCH(QByteArray, expected);

    const QJsonObject root = rootOf({{0x2000, u"N"_s, {}, false, {element}}});
    QJsonObject object = root[u"parameters"_s][0][u"elements"_s][0].toObject();
    object.remove(u"dataType"_s);
    object.remove(u"default"_s);
    object.remove(u"descriptionReference"_s);
    QCOMPARE(compact(object), "{"_ba + expected);
}

void tst_DescriptionWriter::sameBytesTwice()
{
    const QList<ImportedParameter> parameters {
        {0x1018, u"A"_s, {}, true, {elementOf(5), elementOf(8, 1)}},
        {0x6040, u"\u00DC"_s, {}, false, {elementOf(9)}}};
    QCOMPARE(written(parameters), written(parameters));
}

void tst_DescriptionWriter::configuredValues()
{
    ImportedElement configured = elementOf(7, 2);
    configured.configuredText = u"9"_s;
    ImportedElement single = elementOf(9);
    single.configuredText = QString();
    CoordinateTable table;
    table.extend({0x1018, 0x6040, 0x6041});
    const ConfiguredValues values(
        {{0x1018, {}, {}, true, {elementOf(5), configured}},
            {0x6040, {}, {}, false, {elementOf(6)}}, {0x6041, {}, {}, false, {single}}},
        table);
    QCOMPARE(values.list().size(), 2);
    QCOMPARE(values.list().at(0).coordinate.toText(), u"C24"_s);
    QCOMPARE(values.list().at(0).element, quint16(2));
    QCOMPARE(values.list().at(0).nativeText, u"9"_s);
    QCOMPARE(values.list().at(1).coordinate.toText(), u"P65"_s);
    QCOMPARE(values.list().at(1).nativeText, QString());
    QVERIFY(!values.isEmpty());
    QVERIFY(ConfiguredValues().isEmpty());
}

QTEST_GUILESS_MAIN(tst_DescriptionWriter)
#include "tst_DescriptionWriter.moc"
