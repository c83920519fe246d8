#include "tests/instance/InstanceStand.h"
#include "tests/value/LocalText.h"

#include <QtTest/QTest>

#include <functional>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// What a set answers about its values: text forms, units, limits, choices, visibility, writability.
class tst_CoordinateInstanceSetTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void forms_data();
    void forms();
    void absentElementOrInstance_data();
    void absentElementOrInstance();
    void globalParameterAnswersEveryLivingSpace_data();
    void globalParameterAnswersEveryLivingSpace();
    void textWithoutUnitHasNoBlank();
    void emptyTextHasNoUnit();
    void withoutStorage();
    void withoutFirmwareAllFormsAreNative();
    void readsMaterialise_data();
    void readsMaterialise();
    void displayIsMaskedOffline_data();
    void displayIsMaskedOffline();
    void maskedEmptyValue();
    void preparedValueTextIsNotMasked();
    void formattedKinds_data();
    void formattedKinds();
    void prepareValueText_data();
    void prepareValueText();
    void adoptValueText_data();
    void adoptValueText();
    void adoptReportsItsAddress_data();
    void adoptReportsItsAddress();
    void okMayBeNull();
    void limitTexts_data();
    void limitTexts();
    void limitTextsOfTheFirmware();
    void isValueTextAcceptable_data();
    void isValueTextAcceptable();
    void isValueTextAcceptableChangesNothing();
    void selectionTexts();
};

namespace {

using Read = std::function<QString(const CoordinateInstanceSet &, eLivingSpace, quint16, bool)>;

/// Every operation that answers a text of a value.
const QList<std::pair<const char *, Read>> &reads()
{
    static const QList<std::pair<const char *, Read>> list {
        {"displayValueText",
            [](const auto &s, auto l, auto e, bool u) { return s.displayValueText(l, e, u); }},
        {"nativeValueText",
            [](const auto &s, auto l, auto e, bool u) { return s.nativeValueText(l, e, u); }},
        {"valueText", [](const auto &s, auto l, auto e, bool u) { return s.valueText(l, e, u); }},
        {"preparedValueText",
            [](const auto &s, auto l, auto e, bool u) { return s.preparedValueText(l, e, u); }},
        {"unconvertedNativeValueText",
            [](const auto &s, auto l, auto e, bool u) {
                return s.unconvertedNativeValueText(l, e, u);
            }},
        {"unconvertedValueText",
            [](const auto &s, auto l, auto e, bool u) { return s.unconvertedValueText(l, e, u); }},
        {"formattedValueText",
            [](const auto &s, auto l, auto e, bool) { return s.formattedValueText(l, e, 3); }},
        {"formattedNativeValueText",
            [](const auto &s, auto l, auto e, bool u) {
                return s.formattedNativeValueText(l, e, 3, u);
            }},
        {"defaultNativeValueText",
            [](const auto &s, auto l, auto e, bool) { return s.defaultNativeValueText(l, e); }},
        {"defaultValueText",
            [](const auto &s, auto l, auto e, bool) { return s.defaultValueText(l, e); }},
    };
    return list;
}

/// The value text has one more decimal digit than the native text: 12 is 120.
void scaleByTen(ProgrammedFunctions *firmware)
{
    firmware->valueText = [](const QString &text, const ParameterData &, quint16) {
        return text.isEmpty() ? text : text + u'0';
    };
    firmware->nativeText = [](const QString &text, const ParameterData &, quint16) {
        return text.endsWith(u'0') ? text.chopped(1) : text;
    };
}

} // namespace

void tst_CoordinateInstanceSetTexts::forms_data()
{
    QTest::addColumn<int>("read");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("withUnit");

    // Native 12, value text 120, default native 7; scaled unit mA, native unit inc.
    const QStringList expected {u"120"_s, u"120 mA"_s, u"12"_s, u"12 inc"_s, u"120"_s, u"120 mA"_s,
        u"120"_s, u"120 mA"_s, u"12"_s, u"12 inc"_s, u"120"_s, u"120 mA"_s, u"00000078 hex"_s,
        u"00000078 hex"_s, u"0000000c hex"_s, u"0000000c hex inc"_s, u"7"_s, u"7"_s, u"70"_s,
        u"70"_s};
    for (int i = 0; i < reads().size(); ++i) {
        QTest::newRow(reads().at(i).first) << i << expected.at(2 * i) << expected.at(2 * i + 1);
    }
}

void tst_CoordinateInstanceSetTexts::forms()
{
    QFETCH(int, read);
    QFETCH(QString, plain);
    QFETCH(QString, withUnit);
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(
        DefinitionBuilder().defaultValue(u"7"_s).units(u"mA"_s, u"inc"_s, u"bit"_s), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"12"_s);
    QCOMPARE(reads().at(read).second(*set, Axis1, 0, false), plain);
    QCOMPARE(reads().at(read).second(*set, Axis1, 0, true), withUnit);
}

void tst_CoordinateInstanceSetTexts::absentElementOrInstance_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint16>("element");

    QTest::newRow("element behind the last") << false << 1 << quint16(2);
    QTest::newRow("greatest element") << false << 1 << quint16(65535);
    QTest::newRow("element that the record lacks") << true << 1 << quint16(0);
    for (const int livingSpace : {-2147483647, -1, 0, 2, 3, 4, 5, 2147483647})
        QTest::addRow("living space %d", livingSpace) << false << livingSpace << quint16(1);
}

void tst_CoordinateInstanceSetTexts::absentElementOrInstance()
{
    QFETCH(bool, isRecord);
    QFETCH(int, livingSpace);
    QFETCH(quint16, element);
    InstanceStand stand;
    DefinitionBuilder builder;
    builder.limits(u"1"_s, u"2"_s).choices({{0, u"null"_s}}).units(u"mA"_s, u"inc"_s);
    if (isRecord)
        builder.element(3, u"a"_s);
    else
        builder.elementCount(2);
    const auto *set = stand.add(builder, u"A12"_s);
    const auto at = eLivingSpace(livingSpace);
    for (const auto &[name, read] : reads())
        QVERIFY2(read(*set, at, element, true).isNull(), name);
    QCOMPARE(set->lowerLimitText(at, element), QString());
    QCOMPARE(set->upperLimitText(at, element), QString());
    QVERIFY(!set->isValueTextAcceptable(at, element, u"1"_s));
    QVERIFY(set->selectionTexts(at, element).isEmpty());
    QVERIFY(!set->isHidden(at, element));
    QVERIFY(!set->isWritable(at, element));
    QCOMPARE(set->attribute(at, element, u"ScalingInformationNative"_s), QString());
}

void tst_CoordinateInstanceSetTexts::globalParameterAnswersEveryLivingSpace_data()
{
    QTest::addColumn<int>("livingSpace");
    for (const int livingSpace : {-2147483647 - 1, -1, 0, 1, 2, 3, 4, 5, 2147483647})
        QTest::addRow("living space %d", livingSpace) << livingSpace;
}

void tst_CoordinateInstanceSetTexts::globalParameterAnswersEveryLivingSpace()
{
    QFETCH(int, livingSpace);
    InstanceStand stand;
    const auto at = eLivingSpace(livingSpace);
    auto *set =
        stand.add(DefinitionBuilder().global().defaultValue(u"255"_s).limits(u"1"_s, u"900"_s),
            u"A12"_s, {0});
    QCOMPARE(set->displayValueText(at, 0, false), u"255"_s);
    QCOMPARE(set->nativeValueText(at, 0, false), u"255"_s);
    QCOMPARE(set->valueText(at, 0, false), u"255"_s);
    QCOMPARE(set->formattedValueText(at, 0, 3), u"000000ff hex"_s);
    QCOMPARE(set->defaultValueText(at, 0), u"255"_s);
    QCOMPARE(set->upperLimitText(at, 0), u"900"_s);
    QVERIFY(set->isWritable(at, 0));
    QVERIFY(set->isVisible(at, 0));
    set->setValueText(at, 0, u"300"_s);
    QCOMPARE(set->nativeValueText(Global, 0, false), u"300"_s);
    QVERIFY(set->setValueChangeTag(at, 0, u"t"_s));
    QCOMPARE(set->attribute(Global, 0, u"ValueChangeTag"_s), u"t"_s);
}

void tst_CoordinateInstanceSetTexts::textWithoutUnitHasNoBlank()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s);
    for (const auto &[name, read] : reads())
        QVERIFY2(!read(*set, Axis1, 0, true).endsWith(u' '), name);
}

void tst_CoordinateInstanceSetTexts::emptyTextHasNoUnit()
{
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().units(u"mA"_s, u"inc"_s).defaultValue(QString()), u"A12"_s);
    for (const auto &[name, read] : reads())
        QVERIFY2(read(*set, Axis1, 0, true).isEmpty(), name);
}

void tst_CoordinateInstanceSetTexts::withoutStorage()
{
    InstanceStand stand;
    const auto *set = stand.add(
        DefinitionBuilder().property(MemoryAllocation, 1U).defaultValue(u"5"_s), u"A12"_s);
    QCOMPARE(set->preparedValueText(Axis1, 0, true), QString());
    QCOMPARE(set->unconvertedNativeValueText(Axis1, 0, true), QString());
    QCOMPARE(set->displayValueText(Axis1, 0, true), u"5"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, true), u"5"_s);
    QCOMPARE(set->valueText(Axis1, 0, true), u"5"_s);
    QCOMPARE(set->unconvertedValueText(Axis1, 0, true), u"5"_s);
    const auto *stored = stand.add(
        DefinitionBuilder().property(MemoryAllocation, 2U).defaultValue(u"5"_s), u"A13"_s);
    QCOMPARE(stored->preparedValueText(Axis1, 0, true), u"5"_s);
    QCOMPARE(stored->unconvertedNativeValueText(Axis1, 0, true), u"5"_s);
}

void tst_CoordinateInstanceSetTexts::withoutFirmwareAllFormsAreNative()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().scaling(0.1F).defaultValue(u"55"_s), u"A12"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"55"_s);
    QCOMPARE(set->valueText(Axis1, 0, false), u"55"_s);
    QCOMPARE(set->displayValueText(Axis1, 0, false), u"55"_s);
}

void tst_CoordinateInstanceSetTexts::readsMaterialise_data()
{
    QTest::addColumn<int>("read");
    for (int i = 0; i < reads().size() - 2; ++i)
        QTest::newRow(reads().at(i).first) << i;
}

void tst_CoordinateInstanceSetTexts::readsMaterialise()
{
    QFETCH(int, read);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s);
    stand.listen(set);
    stand.container->setParameterChangeTag(u"gelesen"_s);
    reads().at(read).second(*set, Axis1, 0, false);
    stand.container->setParameterChangeTag(u"danach"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"gelesen"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"DefaultValueChangeTag"_s), u"gelesen"_s);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetTexts::displayIsMaskedOffline_data()
{
    QTest::addColumn<int>("writeLevel");
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<QVariant>("shownOffline");
    QTest::addColumn<QString>("expected");

    const QString value = u"5 mA"_s;
    const QString masked = u"<offline>"_s;
    QTest::newRow("level 5") << 5 << 0U << false << false << QVariant() << value;
    QTest::newRow("level 6") << 6 << 0U << false << false << QVariant() << masked;
    QTest::newRow("level 7") << 7 << 6U << false << false << QVariant() << masked;
    QTest::newRow("user of level 4") << 6 << 4U << false << false << QVariant() << masked;
    QTest::newRow("user of level 5")
        << 6 << 5U << false << false << QVariant() << u"<offline> (5 mA)"_s;
    QTest::newRow("user of level 6") << 6 << 6U << false << false << QVariant() << masked;
    QTest::newRow("online") << 6 << 0U << true << false << QVariant() << value;
    QTest::newRow("online, user of level 5") << 6 << 5U << true << false << QVariant() << value;
    QTest::newRow("read-only") << 6 << 0U << false << true << QVariant() << value;
    QTest::newRow("shown offline") << 6 << 0U << false << false << QVariant(1U) << value;
    QTest::newRow("shown offline is 0") << 6 << 0U << false << false << QVariant(0U) << masked;
}

void tst_CoordinateInstanceSetTexts::displayIsMaskedOffline()
{
    QFETCH(int, writeLevel);
    QFETCH(quint32, userLevel);
    QFETCH(bool, isOnline);
    QFETCH(bool, isReadOnly);
    QFETCH(QVariant, shownOffline);
    QFETCH(QString, expected);

    InstanceStand stand;
    DefinitionBuilder builder =
        DefinitionBuilder().levels(0, quint32(writeLevel)).units(u"mA"_s).defaultValue(u"5"_s);
    if (shownOffline.isValid())
        builder.property(ShownOffline, shownOffline);
    const auto *set = stand.add(builder, u"A12"_s);
    stand.setUserLevel(userLevel);
    stand.container->setOnline(isOnline);
    stand.container->setReadOnly(isReadOnly);
    QCOMPARE(set->displayValueText(Axis1, 0, true), expected);
}

void tst_CoordinateInstanceSetTexts::maskedEmptyValue()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().levels(0, 6).defaultValue(QString()), u"A12"_s);
    QCOMPARE(set->displayValueText(Axis1, 0, false), u"<offline>"_s);
    stand.setUserLevel(5);
    QCOMPARE(set->displayValueText(Axis1, 0, false), u"<offline> ()"_s);
}

void tst_CoordinateInstanceSetTexts::preparedValueTextIsNotMasked()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().levels(0, 6).defaultValue(u"5"_s), u"A12"_s);
    QCOMPARE(set->preparedValueText(Axis1, 0, false), u"5"_s);
    QCOMPARE(set->valueText(Axis1, 0, false), u"5"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"5"_s);
}

void tst_CoordinateInstanceSetTexts::formattedKinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("expected");
    QTest::newRow("-1 is no form") << -1 << u"10"_s;
    QTest::newRow("decimal") << 0 << u"10"_s;
    QTest::newRow("hexadecimal") << 3 << u"0a hex"_s;
    QTest::newRow("binary") << 4 << u"0000 1010 bin"_s;
    QTest::newRow("none") << 5 << u"10"_s;
    QTest::newRow("time") << 7 << u"0h 00m 10s"_s;
    QTest::newRow("IPv4") << 10 << u"0.0.0.10"_s;
    QTest::newRow("12 is no form") << 12 << u"10"_s;
}

void tst_CoordinateInstanceSetTexts::formattedKinds()
{
    QFETCH(int, kind);
    QFETCH(QString, expected);
    InstanceStand stand;
    const auto *set = stand.add(
        DefinitionBuilder().datatype(u"UINT8"_s).units({}, u"inc"_s).defaultValue(u"10"_s),
        u"A12"_s);
    QCOMPARE(set->formattedValueText(Axis1, 0, kind), expected);
    QCOMPARE(set->formattedNativeValueText(Axis1, 0, kind, false), expected);
    QCOMPARE(set->formattedNativeValueText(Axis1, 0, kind, true), expected + u" inc"_s);
}

void tst_CoordinateInstanceSetTexts::prepareValueText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint16>("element");
    QTest::addColumn<bool>("withUnit");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("ok");

    QTest::newRow("value") << u"1.5"_s << 1 << quint16(0) << false << localText(u"1.50"_s) << true;
    QTest::newRow("value with unit")
        << u"1.5"_s << 1 << quint16(0) << true << localText(u"1.50 mA"_s) << true;
    QTest::newRow("empty") << QString() << 1 << quint16(0) << true << QString() << false;
    QTest::newRow("absent element") << u"1.5"_s << 1 << quint16(1) << true << QString() << false;
    QTest::newRow("without instance the text stays")
        << u"1.5"_s << 2 << quint16(0) << true << u"1.5"_s << true;
    QTest::newRow("text that is no number")
        << u"x"_s << 1 << quint16(0) << false << localText(u"0.00"_s) << true;
}

void tst_CoordinateInstanceSetTexts::prepareValueText()
{
    QFETCH(QString, text);
    QFETCH(int, livingSpace);
    QFETCH(quint16, element);
    QFETCH(bool, withUnit);
    QFETCH(QString, expected);
    QFETCH(bool, ok);
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().datatype(u"REAL64"_s).decimals(2).units(u"mA"_s), u"A12"_s);
    for (const bool before : {false, true}) {
        bool answered = before;
        QCOMPARE(
            set->prepareValueText(text, eLivingSpace(livingSpace), element, withUnit, &answered),
            expected);
        QCOMPARE(answered, ok);
    }
}

void tst_CoordinateInstanceSetTexts::adoptValueText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint16>("element");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("report");

    QTest::newRow("hexadecimal") << u"ff"_s << 1 << quint16(0) << u"255"_s << true << QString();
    QTest::newRow("suffix") << u"1010bin"_s << 1 << quint16(0) << u"10"_s << true << QString();
    QTest::newRow("refused") << u"xyz"_s << 1 << quint16(0) << QString() << false
                             << u"Parameter 1.A12: Fehler beim Übernehmen des Werts - "
                                u"Wert \"xyz\" ist ungültig"_s;
    QTest::newRow("place holders in the text")
        << u"%1%2"_s << 1 << quint16(0) << QString() << false
        << u"Parameter 1.A12: Fehler beim Übernehmen des Werts - "
           u"Wert \"%1%2\" ist ungültig"_s;
    QTest::newRow("without instance")
        << u"ff"_s << 2 << quint16(0) << u"255"_s << true << QString();
    QTest::newRow("refused without instance names the coordinate")
        << u"xyz"_s << 2 << quint16(0) << QString() << false
        << u"Parameter A12: Fehler beim Übernehmen des Werts - "
           u"Wert \"xyz\" ist ungültig"_s;
    QTest::newRow("absent element")
        << u"xyz"_s << 1 << quint16(1) << QString() << true << QString();
}

void tst_CoordinateInstanceSetTexts::adoptValueText()
{
    QFETCH(QString, text);
    QFETCH(int, livingSpace);
    QFETCH(quint16, element);
    QFETCH(QString, expected);
    QFETCH(bool, ok);
    QFETCH(QString, report);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().kind(3).datatype(u"UINT32"_s), u"A12"_s);
    for (const bool before : {false, true}) {
        if (!report.isEmpty())
            stand.expectCritical(report);
        bool answered = before;
        QCOMPARE(
            set->adoptValueText(text, eLivingSpace(livingSpace), element, &answered), expected);
        QCOMPARE(answered, ok);
        QVERIFY(stand.messages.verify());
    }
}

void tst_CoordinateInstanceSetTexts::adoptReportsItsAddress_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint16>("count");
    QTest::addColumn<QString>("address");
    QTest::newRow("axis 2") << 2 << quint16(1) << u"2.A12"_s;
    QTest::newRow("global") << 0 << quint16(1) << u"A12"_s;
    QTest::newRow("several elements") << 1 << quint16(2) << u"1.A12[0]"_s;
}

void tst_CoordinateInstanceSetTexts::adoptReportsItsAddress()
{
    QFETCH(int, livingSpace);
    QFETCH(quint16, count);
    QFETCH(QString, address);
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().kind(4).elementCount(count).global(livingSpace == 0),
            u"A12"_s, {livingSpace});
    stand.expectCritical(u"Parameter "_s + address
        + u": Fehler beim Übernehmen des Werts - Wert \"2\" ist ungültig"_s);
    QCOMPARE(set->adoptValueText(u"2"_s, eLivingSpace(livingSpace), 0, nullptr), QString());
}

void tst_CoordinateInstanceSetTexts::okMayBeNull()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    QCOMPARE(set->prepareValueText(u"5"_s, Axis1, 0, false, nullptr), u"5"_s);
    QCOMPARE(set->prepareValueText(QString(), Axis1, 9, false, nullptr), QString());
    QCOMPARE(set->adoptValueText(u"5"_s, Axis1, 9, nullptr), QString());
    // Whoever goes on by the flag asks for the element too.
    QVERIFY(!set->isValueTextAcceptable(Axis1, 9, u"5"_s));
}

void tst_CoordinateInstanceSetTexts::limitTexts_data()
{
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<quint32>("memoryAllocation");
    QTest::addColumn<QString>("lower");
    QTest::addColumn<QString>("upper");
    QTest::newRow("level 5 without storage") << 5U << 1U << u"-1"_s << u"9"_s;
    QTest::newRow("level 6 without storage") << 6U << 1U << QString() << QString();
    QTest::newRow("level 7 without storage") << 7U << 1U << QString() << QString();
    QTest::newRow("level 6 with storage") << 6U << 0U << u"-1"_s << u"9"_s;
    QTest::newRow("level 6 with other storage") << 6U << 2U << u"-1"_s << u"9"_s;
}

void tst_CoordinateInstanceSetTexts::limitTexts()
{
    QFETCH(quint32, writeLevel);
    QFETCH(quint32, memoryAllocation);
    QFETCH(QString, lower);
    QFETCH(QString, upper);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder()
                                    .levels(0, writeLevel)
                                    .property(MemoryAllocation, memoryAllocation)
                                    .limits(u"-1"_s, u"9"_s),
        u"A12"_s);
    QCOMPARE(set->lowerLimitText(Axis1, 0), lower);
    QCOMPARE(set->upperLimitText(Axis1, 0), upper);
}

void tst_CoordinateInstanceSetTexts::limitTextsOfTheFirmware()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().limits(u"-1"_s, u"9"_s), u"A12"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->lowerLimit = [](const ParameterData &, quint16) { return u"3"_s; };
    QCOMPARE(set->lowerLimitText(Axis1, 0), u"3"_s);
    QCOMPARE(set->upperLimitText(Axis1, 0), u"9"_s);
    firmware->upperLimit = [](const ParameterData &, quint16) { return u"18446744073709551615"_s; };
    QCOMPARE(set->upperLimitText(Axis1, 0), u"18446744073709551615"_s);
}

void tst_CoordinateInstanceSetTexts::isValueTextAcceptable_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("report");

    const QString start = u"Parameter 1.A12: Fehler beim Übernehmen des Werts - "_s;
    QTest::newRow("acceptable") << u"ff"_s << 0U << QString();
    QTest::newRow("not adopted") << u"xyz"_s << 0U << start + u"Wert \"xyz\" ist ungültig"_s;
    QTest::newRow("refused by the firmware")
        << u"ff"_s << 3U << start + u"Wert \"000000ff hex\" ist zu groß"_s;
}

void tst_CoordinateInstanceSetTexts::isValueTextAcceptable()
{
    QFETCH(QString, text);
    QFETCH(quint32, code);
    QFETCH(QString, report);
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->checkValue = [code](const QString &, const ParameterData &, quint16) { return code; };
    const auto *set = stand.add(DefinitionBuilder().kind(3).datatype(u"UINT32"_s), u"A12"_s);
    if (!report.isEmpty())
        stand.expectCritical(report);
    QCOMPARE(set->isValueTextAcceptable(Axis1, 0, text), report.isEmpty());
}

void tst_CoordinateInstanceSetTexts::isValueTextAcceptableChangesNothing()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    scaleByTen(firmware);
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.listen(set);
    stand.container->setParameterChangeTag(u"t"_s);
    QVERIFY(set->isValueTextAcceptable(Axis1, 0, u"120"_s));
    // The native text is checked.
    QCOMPARE(firmware->callsOf(u"checkValue"_s), QStringList {u"checkValue 1.A012[00000] 12"_s});
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetTexts::selectionTexts()
{
    InstanceStand stand;
    stand.add(DefinitionBuilder().kind(5).datatype(u"STRING16"_s).defaultValue(u"Sondermodus"_s),
        u"E13"_s);
    const auto *set = stand.add(DefinitionBuilder().kind(1).choices({{-1, u"<localAxis:E13>"_s},
                                    {0, u"Aus"_s}, {7, u"Ein"_s}, {9, u"<localAxis:E99>"_s}}),
        u"A12"_s);
    const ParameterTextMap texts = set->selectionTexts(Axis1, 0);
    QCOMPARE(texts.keys(), (QList<qint32> {-1, 0, 7, 9}));
    QCOMPARE(texts.text(-1).longText(), u"Sondermodus"_s);
    QCOMPARE(texts.text(0).longText(), u"Aus"_s);
    QCOMPARE(texts.text(9).longText(), u"<localAxis:E99>"_s);
    QVERIFY(stand.add(DefinitionBuilder(), u"A13"_s)->selectionTexts(Axis1, 0).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetTexts)

#include "tst_CoordinateInstanceSetTexts.moc"
