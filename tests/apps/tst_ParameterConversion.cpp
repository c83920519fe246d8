#include "apps/import/EdsReader.h"
#include "apps/import/ImportRemarks.h"
#include "apps/import/ObjectDictionaryReader.h"
#include "apps/import/ParameterConversion.h"

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_ParameterConversion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limits_data();
    void limits();
    void defaultText_data();
    void defaultText();
    void configuredText_data();
    void configuredText();
    void access_data();
    void access();
    void nodeId_data();
    void nodeId();
    void skipped_data();
    void skipped();
    void recordKeepsNumbersAndNames();
};

namespace {

struct Converted {
    ParameterConversion::Result result;
    QString remarks;
};

Converted convert(const QByteArray &text, std::optional<quint8> nodeId = std::nullopt)
{
    ImportRemarks ignored;
    const ObjectDictionary dictionary =
        ObjectDictionaryReader::read(EdsReader::read(text, ignored), ignored);
    ImportRemarks remarks;
    Converted converted {ParameterConversion::convert(dictionary, nodeId, remarks), {}};
    QStringList texts;
    for (const ImportRemark &remark : remarks.sorted())
        texts.append(QString::number(remark.line) + u' ' + remark.text);
    converted.remarks = texts.join(u" | "_s);
    return converted;
}

/// The one element of an object 0x2000 of that type; its keys stand from line 4 on.
Converted convertOne(
    const QByteArray &type, const QByteArray &keys, std::optional<quint8> nodeId = std::nullopt)
{
    return convert("[2000]\nAccessType=rw\nDataType=" + type + "\n" + keys, nodeId);
}

} // namespace

void tst_ParameterConversion::limits_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("lower");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("remarks");

    const auto row = [](const char *name, const QByteArray &type, const QByteArray &keys,
                         const QString &lower, const QString &upper, const QString &remarks = {}) {
        QTest::newRow(name) << type << keys << lower << upper << remarks;
    };
    row("none", "7", "", {}, {});
    row("empty", "7", "LowLimit=\nHighLimit=\n", {}, {});
    row("both", "7", "LowLimit=1\nHighLimit=5\n", u"1"_s, u"5"_s);
    row("different bases", "7", "LowLimit=10\nHighLimit=0x10\n", u"10"_s, u"16"_s);
    row("lower alone", "4", "LowLimit=-5\n", u"-5"_s, {});
    row("upper alone", "4", "HighLimit=5\n", {}, u"5"_s);
    row("equal", "7", "LowLimit=4\nHighLimit=4\n", u"4"_s, u"4"_s);
    row("two's complement", "4", "LowLimit=0x80000000\nHighLimit=0x7FFFFFFF\n", u"-2147483648"_s,
        u"2147483647"_s);
    row("64 bits", "0x1B", "LowLimit=0\nHighLimit=18446744073709551615\n", u"0"_s,
        u"18446744073709551615"_s);
    row("reals", "8", "LowLimit=-1.50\nHighLimit=0x3FC00000\n", u"-1.5"_s, u"1.5"_s);
    row("beyond the type", "2", "LowLimit=-129\nHighLimit=4294967295\n", {}, {},
        u"4 0x2000: LowLimit \"-129\" liegt außerhalb von INTEGER8; weggelassen | "
        "5 0x2000: HighLimit \"4294967295\" liegt außerhalb von INTEGER8; weggelassen"_s);
    row("no number", "5", "LowLimit=x\nHighLimit=9\n", {}, u"9"_s,
        u"4 0x2000: LowLimit \"x\" ist keine ganze Zahl; weggelassen"_s);
    row("crossed", "5", "LowLimit=9\nHighLimit=3\n", {}, {},
        u"4 0x2000: LowLimit \"9\" liegt über HighLimit; beide Grenzen weggelassen"_s);
    row("BOOLEAN has its own", "1", "", u"0"_s, u"1"_s);
    row("narrower type has its own", "0x10", "", u"-8388608"_s, u"8388607"_s);
    row("narrower type with one limit", "0x16", "HighLimit=100\n", u"0"_s, u"100"_s);
    row("narrower type beyond", "0x16", "HighLimit=0xFFFFFFFF\n", u"0"_s, u"16777215"_s,
        u"4 0x2000: HighLimit \"0xFFFFFFFF\" liegt außerhalb von UNSIGNED24; weggelassen"_s);
    row("crossed in a narrower type", "1", "LowLimit=1\nHighLimit=0\n", u"0"_s, u"1"_s,
        u"4 0x2000: LowLimit \"1\" liegt über HighLimit; beide Grenzen weggelassen"_s);
    row("of a string", "9", "LowLimit=0\nHighLimit=255\n", {}, {});
}

void tst_ParameterConversion::limits()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, keys);
    QFETCH(QString, lower);
    QFETCH(QString, upper);
    QFETCH(QString, remarks);

    const Converted converted = convertOne(type, keys);
    const ImportedElement element = converted.result.parameters.first().elements.first();
    QCOMPARE(element.lowerLimit, lower);
    QCOMPARE(element.upperLimit, upper);
    QCOMPARE(converted.remarks, remarks);
}

void tst_ParameterConversion::defaultText_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("remarks");

    const auto row = [](const char *name, const QByteArray &type, const QByteArray &keys,
                         const QString &expected, const QString &remarks = {}) {
        QTest::newRow(name) << type << keys << expected << remarks;
    };
    row("missing", "7", "", u"0"_s);
    row("empty", "7", "DefaultValue=\n", u"0"_s);
    row("decimal", "7", "DefaultValue=250\n", u"250"_s);
    row("hexadecimal", "7", "DefaultValue=0x000001A3\n", u"419"_s);
    row("negative", "2", "DefaultValue=-3\n", u"-3"_s);
    row("bits", "2", "DefaultValue=0xFD\n", u"-3"_s);
    row("on the limit", "7", "DefaultValue=5\nHighLimit=5\n", u"5"_s);
    row("missing, 0 below the limits", "7", "LowLimit=2\nHighLimit=5\n", u"2"_s);
    row("missing, 0 above the limits", "4", "LowLimit=-5\nHighLimit=-2\n", u"-2"_s);
    row("below the limits", "7", "DefaultValue=1\nLowLimit=2\n", u"2"_s,
        u"4 0x2000: DefaultValue \"1\" liegt außerhalb seiner Grenzen; stattdessen 2"_s);
    row("above the limits", "7", "DefaultValue=9\nHighLimit=5\n", u"5"_s,
        u"4 0x2000: DefaultValue \"9\" liegt außerhalb seiner Grenzen; stattdessen 5"_s);
    row("beyond the type", "5", "DefaultValue=256\n", u"255"_s,
        u"4 0x2000: DefaultValue \"256\" liegt außerhalb von UNSIGNED8; stattdessen 255"_s);
    row("beyond type and limits", "5", "DefaultValue=256\nHighLimit=9\n", u"9"_s,
        u"4 0x2000: DefaultValue \"256\" liegt außerhalb von UNSIGNED8; stattdessen 9"_s);
    row("no number", "5", "DefaultValue=abc\nLowLimit=3\n", u"3"_s,
        u"4 0x2000: DefaultValue \"abc\" ist keine ganze Zahl; stattdessen 3"_s);
    row("leading zeros", "5", "DefaultValue=010\n", u"8"_s,
        u"4 0x2000: DefaultValue \"010\" hat führende Nullen und wurde als 8 gelesen"_s);
    row("real", "8", "DefaultValue=0.10\n", u"0.1"_s);
    row("real above its limit", "0x11", "DefaultValue=2\nHighLimit=1.5\n", u"1.5"_s,
        u"4 0x2000: DefaultValue \"2\" liegt außerhalb seiner Grenzen; stattdessen 1.5"_s);
    row("string", "9", "DefaultValue=Drive\n", u"Drive"_s);
    row("string missing", "9", "", QString());
    row("string beyond Latin-1", "9", "DefaultValue=\xE2\x82\xAC\n", QString(),
        u"4 0x2000: DefaultValue \"\u20AC\" enthält Zeichen, die ein Text des Geräts nicht hat; "
        u"weggelassen"_s);
    row("bytes", "0xA", "DefaultValue=01 FF\n", u"01ff"_s);
}

void tst_ParameterConversion::defaultText()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, keys);
    QFETCH(QString, expected);
    QFETCH(QString, remarks);

    const Converted converted = convertOne(type, keys);
    QCOMPARE(converted.result.parameters.first().elements.first().defaultText, expected);
    QCOMPARE(converted.remarks, remarks);
}

void tst_ParameterConversion::configuredText_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("remarks");

    const auto row = [](const char *name, const QByteArray &keys, const QString &expected,
                         const QString &remarks = {}) {
        QTest::newRow(name) << keys << expected << remarks;
    };
    row("missing", "", u"none"_s);
    row("empty", "ParameterValue=\n", u"none"_s);
    row("value", "ParameterValue=0x64\n", u"100"_s);
    row("value that equals its default", "ParameterValue=0\nDefaultValue=0\n", u"0"_s);
    row("outside of the limits", "ParameterValue=9\nHighLimit=5\n", u"9"_s,
        u"4 0x2000: ParameterValue \"9\" liegt außerhalb seiner Grenzen; übernommen wie konfiguriert"_s);
    row("beyond the type", "ParameterValue=0x10000\n", u"none"_s,
        u"4 0x2000: ParameterValue \"0x10000\" liegt außerhalb von UNSIGNED16; weggelassen"_s);
    row("no number", "ParameterValue=x\n", u"none"_s,
        u"4 0x2000: ParameterValue \"x\" ist keine ganze Zahl; weggelassen"_s);
}

void tst_ParameterConversion::configuredText()
{
    QFETCH(QByteArray, keys);
    QFETCH(QString, expected);
    QFETCH(QString, remarks);

    const Converted converted = convertOne("6", keys);
    QCOMPARE(
        converted.result.parameters.first().elements.first().configuredText.value_or(u"none"_s),
        expected);
    QCOMPARE(converted.remarks, remarks);
}

void tst_ParameterConversion::access_data()
{
    QTest::addColumn<QByteArray>("access");
    QTest::addColumn<bool>("isWritable");
    QTest::addColumn<bool>("isWriteOnly");

    QTest::newRow("ro") << "ro"_ba << false << false;
    QTest::newRow("const") << "const"_ba << false << false;
    QTest::newRow("rw") << "rw"_ba << true << false;
    QTest::newRow("wo") << "wo"_ba << true << true;
}

void tst_ParameterConversion::access()
{
    QFETCH(QByteArray, access);
    QFETCH(bool, isWritable);
    QFETCH(bool, isWriteOnly);

    const Converted converted =
        convert("[2000]\nDataType=5\nPDOMapping=1\nAccessType=" + access + "\n");
    const ImportedElement element = converted.result.parameters.first().elements.first();
    QCOMPARE(element.isWritable, isWritable);
    QCOMPARE(element.isWriteOnly, isWriteOnly);
    QVERIFY(element.isMappable);
}

void tst_ParameterConversion::nodeId_data()
{
    QTest::addColumn<QByteArray>("commissioned");
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("remarks");

    QTest::newRow("of the file") << "[DeviceComissioning]\nNodeID=5\n"_ba << 0 << u"133"_s
                                 << QString();
    QTest::newRow("of the option") << ""_ba << 6 << u"134"_s << QString();
    QTest::newRow("the option goes first")
        << "[DeviceComissioning]\nNodeID=5\n"_ba << 6 << u"134"_s << QString();
    QTest::newRow("unknown") << ""_ba << 0 << u"0"_s
                             << u"4 0x2000: DefaultValue \"$NODEID + 0x80\" hängt von der "
                                u"Knotennummer ab, die nicht bekannt ist; "
                                "stattdessen 0"_s;
}

void tst_ParameterConversion::nodeId()
{
    QFETCH(QByteArray, commissioned);
    QFETCH(int, option);
    QFETCH(QString, expected);
    QFETCH(QString, remarks);

    const Converted converted = convertOne("7", "DefaultValue=$NODEID + 0x80\n" + commissioned,
        option == 0 ? std::nullopt : std::optional<quint8>(quint8(option)));
    QCOMPARE(converted.result.parameters.first().elements.first().defaultText, expected);
    QCOMPARE(converted.remarks, remarks);
}

void tst_ParameterConversion::skipped_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("DOMAIN") << "[2000]\nAccessType=rw\nDataType=0x000F\n"_ba
                            << u"0x2000: eine Gerätebeschreibung hat keinen Datentyp für DOMAIN"_s;
    QTest::newRow("TIME_OF_DAY")
        << "[2000]\nAccessType=rw\nDataType=0x000C\n"_ba
        << u"0x2000: eine Gerätebeschreibung hat keinen Datentyp für TIME_OF_DAY"_s;
    QTest::newRow("unknown type") << "[2000]\nAccessType=rw\nDataType=0x40\n"_ba
                                  << u"0x2000: der Datentyp 0x0040 ist keiner der Grundtypen"_s;
    QTest::newRow("all of a record")
        << "[2000]\nObjectType=9\n[2000sub1]\nAccessType=rw\nDataType=0x40\n"_ba
        << u"0x2000 sub 1: der Datentyp 0x0040 ist keiner der Grundtypen | "
           "0x2000: keines seiner Unterobjekte hat einen Wert"_s;
}

void tst_ParameterConversion::skipped()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);

    const Converted converted = convert(text);
    QCOMPARE(converted.result.parameters.size(), 0);
    QStringList texts;
    for (const SkippedObject &object : converted.result.skipped)
        texts.append(object.place() + u": "_s + object.reason);
    QCOMPARE(texts.join(u" | "_s), expected);
}

void tst_ParameterConversion::recordKeepsNumbersAndNames()
{
    const Converted converted =
        convert("[1018]\nParameterName=Identity\nObjectType=9\nDenotation=d\n"
                "[1018sub0]\nParameterName=Count\nDataType=5\nAccessType=ro\n"
                "[1018sub2]\nParameterName=Time\nDataType=0xC\nAccessType=ro\n"
                "[1018sub4]\nParameterName=Serial\nDataType=7\nAccessType=ro\n");
    const ImportedParameter parameter = converted.result.parameters.first();
    QCOMPARE(parameter.index, quint16(0x1018));
    QCOMPARE(parameter.name, u"Identity"_s);
    QCOMPARE(parameter.denotation, u"d"_s);
    QVERIFY(parameter.isRecord);
    QCOMPARE(parameter.elements.size(), 2);
    QCOMPARE(parameter.elements.at(0).subIndex, quint8(0));
    QCOMPARE(parameter.elements.at(1).subIndex, quint8(4));
    QCOMPARE(parameter.elements.at(1).name, u"Serial"_s);
    QCOMPARE(converted.result.skipped.size(), 1);
    QCOMPARE(converted.result.skipped.first().place(), u"0x1018 sub 2"_s);
    QCOMPARE(converted.result.skipped.first().line, 9);
}

QTEST_GUILESS_MAIN(tst_ParameterConversion)
#include "tst_ParameterConversion.moc"
