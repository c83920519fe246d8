#include "tests/support/MessageRecorder.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

#include "LocalText.h"
#include "tests/support/ProcessorTimer.h"

#include <QtTest/QtTest>

/// Every form as a host meets it: shown by readValue() and typed into writeValue(), with the
/// reference provider behind it, in the C and in the German locale.
class tst_FormsThroughContainer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void shows_data();
    void shows();
    void takes_data();
    void takes();
    void refuses_data();
    void refuses();
    void correctedValueStandsInTheRejection();
    void negativeDigitsAreRefused_data();
    void negativeDigitsAreRefused();
    void nativeAndValueTextNeverFollowTheLocale();
    void definitionDefaultIsInNoForm();
    void addressesReadBack();
    void longTextsAreLinear_data();
    void longTextsAreLinear();

private:
    ParameterCoordinate at(const QString &text) const { return ParameterCoordinate(text); }
    QString shown(const QString &coordinate) const;
    QString native(const QString &coordinate) const;
    void store(const QString &coordinate, const QString &nativeText) const;

    std::unique_ptr<ServoDriveFirmware> m_firmware;
    std::unique_ptr<ParameterContainer> m_container;
};

namespace {

constexpr auto Space = eLivingSpace::Axis1;

/// One parameter a form; the reference firmware checks types and limits.
constexpr char Description[] = R"({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 77, "name": "Antrieb", "hasPhysicalAxes": false, "axes": [1]},
  "languages": ["de", "en"],
  "dataTypes": ["INT8", "INT16", "INT32", "INT64", "UINT8", "UINT16", "UINT32", "UINT64", "REAL32",
                "REAL64", "STRING32", "BYTES8"],
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": "Strom",
     "elements": [{"dataType": "INT32", "kind": 0, "default": 1250,
                   "units": {"scaled": "A", "native": "mA"}, "scaling": {"factor": 0.001},
                   "decimals": {"behind": 2}, "limits": {"lower": -5000, "upper": 5000}}]},
    {"number": 2, "coordinates": ["A02"], "name": "Kraft",
     "elements": [{"dataType": "REAL32", "kind": 0, "default": 12345678,
                   "decimals": {"behind": 2, "significant": 3}}]},
    {"number": 3, "coordinates": ["A03"], "name": "Arbeit",
     "elements": [{"dataType": "REAL64", "kind": 0, "default": 12345678,
                   "decimals": {"behind": 2, "significant": 4}, "units": {"scaled": "J"}}]},
    {"number": 4, "coordinates": ["A04"], "name": "Betriebsart",
     "elements": [{"dataType": "INT16", "kind": 1, "default": 3,
                   "choices": {"0": "Aus", "3": "Drehmoment"}}]},
    {"number": 5, "coordinates": ["A05"], "name": "Statuswort",
     "elements": [{"dataType": "UINT16", "kind": 3, "default": "255"}]},
    {"number": 6, "coordinates": ["A06"], "name": "Kennung",
     "elements": [{"dataType": "UINT64", "kind": 3, "default": "4294967296"}]},
    {"number": 7, "coordinates": ["A07"], "name": "Maske",
     "elements": [{"dataType": "UINT16", "kind": 4, "default": "258"}]},
    {"number": 8, "coordinates": ["A08"], "name": "Zeit",
     "elements": [{"dataType": "UINT32", "kind": 7, "default": "8519"}]},
    {"number": 9, "coordinates": ["A09"], "name": "Gateway",
     "elements": [{"dataType": "UINT32", "kind": 10, "default": "3232235521"}]},
    {"number": 10, "coordinates": ["A10"], "name": "Quelle",
     "elements": [{"dataType": "UINT32", "kind": 11, "default": "1001"}]},
    {"number": 11, "coordinates": ["A11"], "name": "Text",
     "elements": [{"dataType": "STRING32", "kind": 5, "default": "1.5"}]},
    {"number": 12, "coordinates": ["A12"], "name": "Byte",
     "elements": [{"dataType": "INT8", "kind": 3, "default": "0"}]},
    {"number": 13, "coordinates": ["A13"], "name": "Wort",
     "elements": [{"dataType": "INT16", "kind": 4, "default": "0"}]},
    {"number": 14, "coordinates": ["A14"], "name": "Langwort",
     "elements": [{"dataType": "INT32", "kind": 3, "default": "0"}]},
    {"number": 15, "coordinates": ["A15"], "name": "Zahl",
     "elements": [{"dataType": "INT64", "kind": 4, "default": "0"}]},
    {"number": 16, "coordinates": ["A16"], "name": "Frei",
     "elements": [{"dataType": "UINT16", "kind": 6, "default": "12"}]},
    {"number": 17, "coordinates": ["A17"], "name": "Anwahl",
     "elements": [{"dataType": "INT16", "kind": 2, "default": 3,
                   "choices": {"0": "Aus", "3": "Drehmoment"}}]},
    {"number": 18, "coordinates": ["A18"], "name": "Notiz",
     "elements": [{"dataType": "STRING32", "kind": 8, "default": "a"}]},
    {"number": 19, "coordinates": ["A19"], "name": "Bezeichnung",
     "elements": [{"dataType": "STRING32", "kind": 9, "default": "b"}]},
    {"number": 20, "coordinates": ["A20"], "name": "Netz", "global": true,
     "elements": [{"dataType": "INT32", "kind": 0, "default": "0"}]},
    {"number": 21, "coordinates": ["A21"], "name": "Bytes",
     "elements": [{"dataType": "BYTES8", "kind": 3, "default": "0a0b"}]}
  ]
})";

} // namespace

void tst_FormsThroughContainer::initTestCase()
{
    DescriptionError error;
    m_firmware = ServoDriveFirmware::loadFromBytes(Description, QStringLiteral("test"), &error);
    QVERIFY2(m_firmware, qPrintable(error.toText()));
}

void tst_FormsThroughContainer::init()
{
    m_container = std::make_unique<ParameterContainer>();
    m_container->setDomain(QStringLiteral("Antrieb"));
    m_container->setFirmware(m_firmware.get());
    for (const quint32 number : m_firmware->parameterNumbers())
        QVERIFY(m_container->createOrUpdateParameter(
            m_firmware->parameterDefinition(number), QStringLiteral("Drive.1;{P%1}").arg(number)));
}

QString tst_FormsThroughContainer::shown(const QString &coordinate) const
{
    return m_container->readValue(Space, at(coordinate), 0, true);
}

QString tst_FormsThroughContainer::native(const QString &coordinate) const
{
    return m_container->readValueNative(Space, at(coordinate), 0, false);
}

void tst_FormsThroughContainer::store(const QString &coordinate, const QString &nativeText) const
{
    m_container->parameterSetup(at(coordinate))->setOnlineValueText(Space, 0, nativeText);
}

void tst_FormsThroughContainer::shows_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<QString>("nativeText");
    QTest::addColumn<QString>("display");

    const auto row = [](const char *name, const char *coordinate, const char *nativeText,
                         const QString &display) {
        QTest::newRow(name) << QString::fromLatin1(coordinate) << QString::fromLatin1(nativeText)
                            << display;
    };
    row("scaled decimal with unit", "A01", "1250", localText(QStringLiteral("1.25 A")));
    row("single precision, 3 digits", "A02", "12345678", localText(QStringLiteral("12.3E+6")));
    row("double precision, 4 digits", "A03", "12345678", localText(QStringLiteral("12.35E+6 J")));
    // Deliberate: zeros are cut without looking for a point first.
    row("0.0005 with 3 digits", "A02", "0.0005", QStringLiteral("5E-6"));
    row("100000000 with 3 digits", "A02", "100000000", QStringLiteral("1E+6"));
    row("10000000 with 3 digits", "A02", "10000000", QStringLiteral("10E+6"));
    row("0 takes no engineering form", "A02", "0", QStringLiteral("0"));
    row("choice", "A04", "3", QStringLiteral("3: Drehmoment"));
    row("choice without the key", "A04", "4", QStringLiteral("4"));
    row("hexadecimal", "A05", "255", QStringLiteral("00ff hex"));
    // Deliberate: an 8-byte value shows only its low 32 bits.
    row("hexadecimal of 8 bytes", "A06", "4294967296", QStringLiteral("0000000000000000 hex"));
    row("binary", "A07", "258", QStringLiteral("0000 0001 0000 0010 bin"));
    row("time", "A08", "8519", QStringLiteral("2h 05m 07s"));
    row("time 0", "A08", "0", QStringLiteral("0h 00m 00s"));
    row("IPv4", "A09", "3232235521", QStringLiteral("192.168.0.1"));
    row("address", "A10", "1001", QStringLiteral("1.A01 Strom"));
    row("address that the container lacks", "A10", "26999", QStringLiteral("26999"));
    row("the invalid address", "A10", "4294967295", QStringLiteral("4294967295"));
    row("address of a global parameter", "A10", "1020", QStringLiteral("A20 Netz"));
    // The axis means nothing there, but the text must read back as the same number.
    row("address of a global parameter with an axis", "A10", "1073742844",
        QStringLiteral("2.A20 Netz"));
    row("text", "A11", "1.5", QStringLiteral("1.5"));
    row("online choice", "A17", "0", QStringLiteral("0: Aus"));
    row("kind 8", "A18", "007", QStringLiteral("007"));
    row("kind 9", "A19", " x ", QStringLiteral(" x "));
    row("hexadecimal of a byte string", "A21", "1000", QStringLiteral("1000"));
    row("kind 6", "A16", "12", QStringLiteral("12"));
}

void tst_FormsThroughContainer::shows()
{
    MessageRecorder messages;
    QFETCH(QString, coordinate);
    QFETCH(QString, nativeText);
    store(coordinate, nativeText);
    QTEST(shown(coordinate), "display");
}

void tst_FormsThroughContainer::takes_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("nativeText");

    const auto row = [](const char *name, const char *coordinate, const QString &typed,
                         const char *nativeText) {
        QTest::newRow(name) << QString::fromLatin1(coordinate) << typed
                            << QString::fromLatin1(nativeText);
    };
    row("decimal with unit", "A01", localText(QStringLiteral("2.5 A")), "2500");
    row("decimal without unit", "A01", localText(QStringLiteral(" -2.5 ")), "-2500");
    row("decimal by hexadecimal", "A01", QStringLiteral("0x2 hex"), "2000");
    row("engineering form, unscaled", "A03", localText(QStringLiteral("12.35E+6 J")), "12.35E+6");
    row("choice by number", "A04", QStringLiteral("0: Aus"), "0");
    row("choice by text", "A04", QStringLiteral("Aus"), "0");
    row("hexadecimal", "A05", QStringLiteral("00fe hex"), "254");
    row("hexadecimal without suffix", "A05", QStringLiteral("fe"), "254");
    row("hexadecimal by decimal", "A05", QStringLiteral("254 dec"), "254");
    row("binary", "A07", QStringLiteral("0000 0001 0000 0011 bin"), "259");
    row("binary of 64 bits, negative", "A15", QString(64, QLatin1Char('1')), "-1");
    row("time", "A08", QStringLiteral("2h 05m 08s"), "8520");
    // Deliberate: a text without any part is the time 0.
    row("time without part", "A08", QStringLiteral("abc"), "0");
    row("IPv4", "A09", QStringLiteral("10.0.0.1"), "167772161");
    // Deliberate: only the start is looked at.
    row("IPv4 with a fifth part", "A09", QStringLiteral("10.0.0.1.9"), "167772161");
    row("address as shown", "A10", QStringLiteral("1.A02 Kraft"), "1002");
    row("address of a global parameter", "A10", QStringLiteral("A20 Netz"), "1020");
    row("address of a global parameter with an axis", "A10", QStringLiteral("2.A20 Netz"),
        "1073742844");
    row("online choice", "A17", QStringLiteral("Aus"), "0");
    row("kind 8", "A18", QStringLiteral("00ff hex"), "00ff hex");
    row("kind 9", "A19", QStringLiteral(" 1 "), " 1 ");
    row("text with a comma", "A11", QStringLiteral("1,5"), "1,5");
}

void tst_FormsThroughContainer::takes()
{
    MessageRecorder messages;
    QFETCH(QString, coordinate);
    QFETCH(QString, typed);
    m_container->writeValue(Space, at(coordinate), 0, typed);
    QTEST(native(coordinate), "nativeText");
}

void tst_FormsThroughContainer::refuses_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");

    const auto row = [](const char *name, const char *coordinate, const char *typed,
                         const QString &problem) {
        QTest::newRow(name) << QString::fromLatin1(coordinate) << QString::fromLatin1(typed)
                            << problem;
    };
    row("hexadecimal", "A05", "xyz", QStringLiteral("Wert \"xyz\" ist ungültig"));
    row("binary", "A07", "012", QStringLiteral("Wert \"012\" ist ungültig"));
    row("IPv4 part of 256", "A09", "1.2.3.256", QStringLiteral("Wert \"1.2.3.256\" ist ungültig"));
    // Deliberate: "dec" is a suffix, and what stands before it is no number.
    row("decimal suffix behind a prefix", "A05", "0xdec",
        QStringLiteral("Wert \"0x\" ist ungültig"));
    row("decimal suffix behind a word", "A05", "foo dec",
        QStringLiteral("Wert \"foo\" ist ungültig"));
    row("the same of a binary parameter", "A07", "foo dec",
        QStringLiteral("Wert \"foo\" ist ungültig"));
    row("no number", "A03", "foo", QStringLiteral("Wert \"foo\" ist ungültig"));
    row("key that the choice lacks", "A17", "4", QStringLiteral("Wert \"4\" ist ungültig"));
    row("more than 64 bits", "A06", "10000000000000000",
        QStringLiteral("Wert \"10000000000000000\" ist ungültig"));
}

void tst_FormsThroughContainer::refuses()
{
    MessageRecorder messages;
    QFETCH(QString, coordinate);
    QFETCH(QString, typed);
    QFETCH(QString, problem);
    const QString before = native(coordinate);
    messages.expect(MessageRecorder::eSeverity::Critical, QStringLiteral("Antrieb"),
        QStringLiteral("Parameter 1.%1: Fehler beim Übernehmen des Werts - %2")
            .arg(coordinate, problem));
    m_container->writeValue(Space, at(coordinate), 0, typed);
    QCOMPARE(native(coordinate), before);
}

// Deliberate: the user typed 7 and reads of 5, the nearest value that is accepted.
void tst_FormsThroughContainer::correctedValueStandsInTheRejection()
{
    MessageRecorder messages;
    messages.expect(MessageRecorder::eSeverity::Critical, QStringLiteral("Antrieb"),
        QStringLiteral(
            "Parameter 1.A01: Fehler beim Übernehmen des Werts - Wert \"%1\" ist zu groß")
            .arg(localText(QStringLiteral("5.00 A"))));
    m_container->writeValue(Space, at(QStringLiteral("A01")), 0, QStringLiteral("7 A"));
    QCOMPARE(native(QStringLiteral("A01")), QStringLiteral("1250"));
}

void tst_FormsThroughContainer::negativeDigitsAreRefused_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<QString>("display");
    QTest::newRow("hexadecimal, 8 bits") << QStringLiteral("A12") << QStringLiteral("ff hex");
    QTest::newRow("binary, 16 bits")
        << QStringLiteral("A13") << QStringLiteral("1111 1111 1111 1111 bin");
    QTest::newRow("hexadecimal, 32 bits")
        << QStringLiteral("A14") << QStringLiteral("ffffffff hex");
}

// Deliberate: the text that stands there reads back as an unsigned number, which is too large.
void tst_FormsThroughContainer::negativeDigitsAreRefused()
{
    QFETCH(QString, coordinate);
    MessageRecorder messages;
    store(coordinate, QStringLiteral("-1"));
    QTEST(shown(coordinate), "display");
    m_container->writeValue(Space, at(coordinate), 0, shown(coordinate));
    const QList<SystemMessage> reports = messages.take();
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports.first().severity, MessageRecorder::eSeverity::Critical);
    QVERIFY(reports.first().text.endsWith(QStringLiteral("ist zu groß")));
    QCOMPARE(native(coordinate), QStringLiteral("-1"));
}

void tst_FormsThroughContainer::nativeAndValueTextNeverFollowTheLocale()
{
    MessageRecorder messages;
    const QString coordinate = QStringLiteral("A01");
    m_container->writeValue(Space, at(coordinate), 0, localText(QStringLiteral("2.5 A")));
    const ParameterSetup *parameter = m_container->parameterSetup(at(coordinate));
    QCOMPARE(shown(coordinate), localText(QStringLiteral("2.50 A")));
    QCOMPARE(parameter->nativeValueText(Space, 0, true), QStringLiteral("2500 mA"));
    QCOMPARE(parameter->valueText(Space, 0, true), QStringLiteral("2.5 A"));
    QMap<QString, QByteArray> blocks;
    m_container->saveTo(blocks);
    QVERIFY(blocks.first().contains("[A001]\r\nV_1_0=2500\r\nDV_1_0=1250\r\n"));
}

void tst_FormsThroughContainer::definitionDefaultIsInNoForm()
{
    MessageRecorder messages;
    QCOMPARE(native(QStringLiteral("A05")), QStringLiteral("255"));
    QCOMPARE(native(QStringLiteral("A07")), QStringLiteral("258"));
    QCOMPARE(native(QStringLiteral("A11")), QStringLiteral("1.5"));
}

// Of parameters that are there and of others, with and without axis and element.
void tst_FormsThroughContainer::addressesReadBack()
{
    MessageRecorder messages;
    const QString holder = QStringLiteral("A10");
    for (const char *coordinate : {"A01", "A10", "A20", "B05", "Z999"}) {
        for (quint8 axis = 0; axis < 4; ++axis) {
            for (const quint16 element : {0, 1, 16000}) {
                const QString number = QString::number(
                    ParameterAddress(axis, at(QString::fromLatin1(coordinate)), element)
                        .toNumber());
                store(holder, number);
                const QString typed = shown(holder);
                store(holder, QStringLiteral("0"));
                m_container->writeValue(Space, at(holder), 0, typed);
                QCOMPARE(native(holder), number);
            }
        }
    }
}

void tst_FormsThroughContainer::longTextsAreLinear_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<QString>("typed");
    constexpr qsizetype Mebibyte = 1 << 20;
    for (const char *coordinate : {"A01", "A03", "A04", "A05", "A07", "A08", "A09", "A10"}) {
        const QString at = QString::fromLatin1(coordinate);
        QTest::addRow("%s: digits and a suffix", coordinate)
            << at << QString(Mebibyte, QLatin1Char('7')) + QStringLiteral(" hex");
        QTest::addRow("%s: suffixes", coordinate)
            << at << QStringLiteral("hex").repeated(Mebibyte / 3);
        QTest::addRow("%s: lines", coordinate)
            << at << QStringLiteral("x\n").repeated(Mebibyte / 2);
        QTest::addRow("%s: blanks", coordinate) << at << QString(Mebibyte, QLatin1Char(' '));
        QTest::addRow("%s: points", coordinate) << at << QString(Mebibyte, QLatin1Char('.'));
    }
}

void tst_FormsThroughContainer::longTextsAreLinear()
{
    QFETCH(QString, coordinate);
    QFETCH(QString, typed);
    MessageRecorder messages;
    const ParameterSetup *parameter = m_container->parameterSetup(at(coordinate));
    const ProcessorTimer timer;
    static_cast<void>(parameter->adoptValueText(typed, Space, 0, nullptr));
    QVERIFY(timer.elapsed() < 100);
    messages.take();
}

QTEST_GUILESS_MAIN(tst_FormsThroughContainer)
#include "tst_FormsThroughContainer.moc"
