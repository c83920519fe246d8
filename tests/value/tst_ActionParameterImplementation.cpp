#include "value/ActionParameterImplementation.h"

#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

class tst_ActionParameterImplementation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void constructionSwitchesOnlineUpdateOn();
    void constructionWithoutDeviceState();
    void start_data();
    void start();
    void startOfARejectedWrite();
    void globalAction();
    void runningActionIsEnabled_data();
    void runningActionIsEnabled();
    void isIdle_data();
    void isIdle();
    void texts();
    void textsAreLong();
    void stateTextIsMaskedOffline();
    void stateTextIsMaskedOfflineByItsLevel();
    void unitsAreForTheReader();
    void requirementThatIsNot1_data();
    void requirementThatIsNot1();
    void changesOfElements_data();
    void changesOfElements();
    void changesOnAnotherAxis();
    void progress_data();
    void progress();
    void deviceStateChanges();
    void deviceStateOfItsAxis();
    void deviceStateOfAnotherAxis();
    void deviceStateThatComesLater();
    void vanishedParameter();
    void vanishedDeviceState();
    void vanishesInsideASignal_data();
    void vanishesInsideASignal();
    void vanishesWhileItIsRead_data();
    void vanishesWhileItIsRead();
    void actionGoesWhileItIsRead_data();
    void actionGoesWhileItIsRead();
    void vanishesWhileBeingConstructed();
};

namespace {

DefinitionBuilder action(quint32 enableOffRequired = 0)
{
    return DefinitionBuilder()
        .name(u"Referenzfahrt"_s)
        .property(EnableOffRequired, enableOffRequired)
        .element(0, u"Steuerung"_s)
        .element(1, u"Fortschritt"_s)
        .element(2, u"Ergebnis"_s)
        .element(3, u"Weiteres"_s);
}

DefinitionBuilder deviceState()
{
    return DefinitionBuilder().defaultValue(u"0"_s);
}

} // namespace

void tst_ActionParameterImplementation::constructionSwitchesOnlineUpdateOn()
{
    InstanceStand stand;
    stand.add(deviceState(), u"E48"_s);
    auto *set = stand.add(action(), u"A12"_s, {1, 2});
    stand.listen(set);
    const ActionParameterImplementation object(set, Axis2);
    QCOMPARE(stand.log.take(),
        (QStringList {u"container.parameterNeedsOnlineConsistence(2.A012[00000], true)"_s,
            u"container.parameterNeedsOnlineConsistence(2.A012[00001], true)"_s,
            u"container.parameterNeedsOnlineConsistence(2.A012[00002], true)"_s}));
}

void tst_ActionParameterImplementation::constructionWithoutDeviceState()
{
    InstanceStand stand;
    ActionParameterImplementation object(stand.add(action(1), u"A12"_s), Axis1);
    // Without device state the drive counts as not enabled.
    QVERIFY(object.start());
    QCOMPARE(stand.set(u"A12"_s)->valueText(Axis1, 0, false), u"1"_s);
}

void tst_ActionParameterImplementation::start_data()
{
    QTest::addColumn<quint32>("enableOffRequired");
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("isStarted");

    for (const char *state : {"0", "1", "2", "5", "8", "9", "-3", "kein", ""}) {
        QTest::addRow("enable off required, state \"%s\"", state)
            << 1U << QString::fromLatin1(state) << true;
    }
    for (const char *state : {"3", "4", "6", "7"}) {
        QTest::addRow("enable off required, state \"%s\" is enabled", state)
            << 1U << QString::fromLatin1(state) << false;
        QTest::addRow("enable off not required, state \"%s\"", state)
            << 0U << QString::fromLatin1(state) << true;
        QTest::addRow("requirement 2, state \"%s\"", state)
            << 2U << QString::fromLatin1(state) << true;
    }
    // Digits of another base are no number: 0, which is no enabled state.
    QTest::newRow("enable off required, state \"0x4\" counts as 0") << 1U << u"0x4"_s << true;
    QTest::newRow("enable off required, state \"04\" is enabled") << 1U << u"04"_s << false;
}

void tst_ActionParameterImplementation::start()
{
    QFETCH(quint32, enableOffRequired);
    QFETCH(QString, state);
    QFETCH(bool, isStarted);

    InstanceStand stand;
    stand.add(deviceState(), u"E48"_s)->setNativeValue(Axis1, 0, state);
    auto *set = stand.add(action(enableOffRequired), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(set, u"set"_s);
    QCOMPARE(object.start(), isStarted);
    QCOMPARE(set->valueText(Axis1, 0, false), isStarted ? u"1"_s : u"0"_s);
    QCOMPARE(stand.log.count(u"valueChanged"_s), isStarted ? 1 : 0);
}

void tst_ActionParameterImplementation::startOfARejectedWrite()
{
    InstanceStand stand;
    stand.programFirmware()->checkValue = [](const QString &text, const ParameterData &, quint16) {
        return text == u"1"_s ? 2U : 0U;
    };
    auto *set = stand.add(action(), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(set, u"set"_s);
    // What the write makes of it is the sink's to tell.
    QVERIFY(object.start());
    QCOMPARE(stand.messages.take().size(), 1);
    QCOMPARE(set->valueText(Axis1, 0, false), u"0"_s);
    QVERIFY(object.isIdle());
    QCOMPARE(stand.log.count(u"valueChanged"_s), 0);
}

void tst_ActionParameterImplementation::globalAction()
{
    InstanceStand stand;
    auto *state = stand.add(deviceState(), u"E48"_s, {1, 2});
    auto *set = stand.add(action(1).global(), u"A12"_s, {0});
    ActionParameterImplementation object(set, Global);
    stand.log.attach(&object, u"action"_s);
    // The drive's state belongs to axes: none of them is the global one's.
    state->setNativeValue(Axis2, 0, u"4"_s);
    QVERIFY(object.start());
    QCOMPARE(set->valueText(Global, 0, false), u"1"_s);
    QVERIFY(!object.isIdle());
    set->setOnlineValueText(Global, 1, u"50"_s);
    set->setOnlineValueText(Global, 2, u"7"_s);
    QCOMPARE(object.stateText(), u"Ergebnis: 7"_s);
    QCOMPARE(stand.log.entries(),
        (QStringList {u"action.enableChanged(true)"_s, u"action.stateChanged()"_s,
            u"action.progressChanged(50)"_s}));
}

void tst_ActionParameterImplementation::runningActionIsEnabled_data()
{
    QTest::addColumn<QString>("state");
    for (const char *state : {"3", "4", "5", "6", "7"})
        QTest::addRow("state %s", state) << QString::fromLatin1(state);
}

void tst_ActionParameterImplementation::runningActionIsEnabled()
{
    QFETCH(QString, state);
    InstanceStand stand;
    stand.add(deviceState(), u"E48"_s)->setNativeValue(Axis1, 0, state);
    auto *set = stand.add(action(1), u"A12"_s);
    set->setNativeValue(Axis1, 0, u"3"_s);
    ActionParameterImplementation object(set, Axis1);
    QVERIFY(!object.isIdle());
    QVERIFY(object.start());
    QCOMPARE(set->valueText(Axis1, 0, false), u"1"_s);
}

void tst_ActionParameterImplementation::isIdle_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::newRow("0") << u"0"_s << true;
    QTest::newRow("1") << u"1"_s << false;
    QTest::newRow("-1") << u"-1"_s << false;
    QTest::newRow("no number") << u"läuft"_s << true;
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("fraction") << u"1.5"_s << true;
    QTest::newRow("digits of base 16") << u"0x1"_s << true;
    QTest::newRow("a zero before is no base 8") << u"010"_s << false;
    QTest::newRow("beyond the range") << u"4294967296"_s << true;
}

void tst_ActionParameterImplementation::isIdle()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s);
    set->setNativeValue(Axis1, 0, text);
    QCOMPARE(ActionParameterImplementation(set, Axis1).isIdle(), expected);
}

void tst_ActionParameterImplementation::texts()
{
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s, {1, 2});
    set->setNativeValue(Axis2, 2, u"17"_s);
    const ActionParameterImplementation object(set, Axis2);
    QCOMPARE(object.name(), u"Referenzfahrt"_s);
    QCOMPARE(object.stateText(), u"Ergebnis: 17"_s);
    QCOMPARE(object.description(), u"A12[0]__1"_s);
}

void tst_ActionParameterImplementation::textsAreLong()
{
    ParameterText name;
    name.setText(u"de"_s, u"Ref"_s, u"Referenzfahrt starten"_s);
    ParameterText result;
    result.setText(u"de"_s, u"Erg"_s, u"Ergebnis der Fahrt"_s);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder()
                              .name(name)
                              .property(EnableOffRequired, 0U)
                              .element(0, u"Steuerung"_s)
                              .element(1, u"Fortschritt"_s)
                              .element(2, result),
        u"A12"_s);
    const ActionParameterImplementation object(set, Axis1);
    QCOMPARE(object.name(), u"Referenzfahrt starten"_s);
    QCOMPARE(object.stateText(), u"Ergebnis der Fahrt: 0"_s);
}

void tst_ActionParameterImplementation::stateTextIsMaskedOffline()
{
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s);
    set->setProperty(2, WriteLevel, ParameterProperty(QVariant(6U)));
    const ActionParameterImplementation object(set, Axis1);
    QCOMPARE(object.stateText(), u"Ergebnis: <offline>"_s);
    stand.container->setOnline(true);
    QCOMPARE(object.stateText(), u"Ergebnis: 0"_s);
}

void tst_ActionParameterImplementation::stateTextIsMaskedOfflineByItsLevel()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder()
                              .name(u"Referenzfahrt"_s)
                              .property(EnableOffRequired, 0U)
                              .levels(0, 6)
                              .element(0, u"Steuerung"_s)
                              .element(1, u"Fortschritt"_s)
                              .element(2, u"Ergebnis"_s),
        u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(&object, u"action"_s);
    QCOMPARE(object.stateText(), u"Ergebnis: <offline>"_s);
    // What is masked for the reader is there for the action.
    set->setOnlineValueText(Axis1, 1, u"50"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    QVERIFY(!object.isIdle());
    QCOMPARE(stand.log.entries(),
        (QStringList {u"action.progressChanged(50)"_s, u"action.stateChanged()"_s}));
}

void tst_ActionParameterImplementation::unitsAreForTheReader()
{
    InstanceStand stand;
    auto *state = stand.add(deviceState().units(u"%"_s), u"E48"_s);
    auto *set = stand.add(DefinitionBuilder()
                              .name(u"Referenzfahrt"_s)
                              .property(EnableOffRequired, 1U)
                              .units(u"%"_s)
                              .element(0, u"Steuerung"_s)
                              .element(1, u"Fortschritt"_s)
                              .element(2, u"Ergebnis"_s),
        u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(&object, u"action"_s);
    set->setOnlineValueText(Axis1, 2, u"17"_s);
    QCOMPARE(object.stateText(), u"Ergebnis: 17 %"_s);
    set->setOnlineValueText(Axis1, 1, u"50"_s);
    QCOMPARE(stand.log.take(), QStringList {u"action.progressChanged(50)"_s});
    state->setNativeValue(Axis1, 0, u"4"_s);
    QCOMPARE(stand.log.take(), QStringList {u"action.enableChanged(false)"_s});
    QVERIFY(object.isIdle());
    set->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(!object.isIdle());
}

void tst_ActionParameterImplementation::requirementThatIsNot1_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("absent") << false;
    QTest::newRow("negative") << true;
}

void tst_ActionParameterImplementation::requirementThatIsNot1()
{
    QFETCH(bool, isThere);

    DefinitionBuilder builder;
    if (isThere)
        builder.property(EnableOffRequired, -1);
    else
        builder.without(EnableOffRequired);
    InstanceStand stand;
    stand.add(deviceState(), u"E48"_s)->setNativeValue(Axis1, 0, u"4"_s);
    auto *set = stand.add(
        builder.element(0, u"Steuerung"_s).element(1, u"Fortschritt"_s).element(2, u"Ergebnis"_s),
        u"A12"_s);
    QCOMPARE(set->hasElementProperty(0, EnableOffRequired), isThere);
    ActionParameterImplementation object(set, Axis1);
    QVERIFY(object.start());
    QCOMPARE(set->valueText(Axis1, 0, false), u"1"_s);
}

void tst_ActionParameterImplementation::changesOfElements_data()
{
    QTest::addColumn<quint16>("element");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("control") << quint16(0) << QStringList {u"action.stateChanged()"_s};
    QTest::newRow("progress") << quint16(1) << QStringList {u"action.progressChanged(12)"_s};
    QTest::newRow("result") << quint16(2) << QStringList();
    QTest::newRow("any other") << quint16(3) << QStringList();
}

void tst_ActionParameterImplementation::changesOfElements()
{
    QFETCH(quint16, element);
    QFETCH(QStringList, expected);
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(&object, u"action"_s);
    set->setOnlineValueText(Axis1, element, u"12"_s);
    QCOMPARE(stand.log.entries(), expected);
}

void tst_ActionParameterImplementation::changesOnAnotherAxis()
{
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s, {1, 2});
    set->setNativeValue(Axis1, 1, u"30"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(&object, u"action"_s);
    set->setOnlineValueText(Axis2, 1, u"80"_s);
    set->setOnlineValueText(Axis2, 0, u"1"_s);
    // Told, with what its own axis has.
    QCOMPARE(stand.log.entries(),
        (QStringList {u"action.progressChanged(30)"_s, u"action.stateChanged()"_s}));
    QVERIFY(object.isIdle());
}

void tst_ActionParameterImplementation::progress_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("percent");
    QTest::newRow("percent") << u"100"_s << 100;
    QTest::newRow("negative") << u"-5"_s << -5;
    QTest::newRow("no number") << u"viel"_s << 0;
    QTest::newRow("digits of base 16") << u"0x1"_s << 0;
    QTest::newRow("a zero before is no base 8") << u"010"_s << 10;
    QTest::newRow("empty") << QString() << 0;
}

void tst_ActionParameterImplementation::progress()
{
    QFETCH(QString, text);
    QFETCH(int, percent);
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(&object, u"action"_s);
    set->setOnlineValueText(Axis1, 1, text);
    QCOMPARE(stand.log.entries(), QStringList {u"action.progressChanged(%1)"_s.arg(percent)});
}

void tst_ActionParameterImplementation::deviceStateChanges()
{
    InstanceStand stand;
    auto *state = stand.add(deviceState(), u"E48"_s);
    auto *set = stand.add(action(1), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.log.attach(&object, u"action"_s);
    for (const char *text : {"2", "3", "4", "5", "6", "7", "8"})
        state->setOnlineValueText(Axis1, 0, QString::fromLatin1(text));
    QCOMPARE(stand.log.entries(),
        (QStringList {u"action.enableChanged(true)"_s, u"action.enableChanged(false)"_s,
            u"action.enableChanged(false)"_s, u"action.enableChanged(true)"_s,
            u"action.enableChanged(false)"_s, u"action.enableChanged(false)"_s,
            u"action.enableChanged(true)"_s}));
}

void tst_ActionParameterImplementation::deviceStateOfItsAxis()
{
    InstanceStand stand;
    auto *state = stand.add(deviceState(), u"E48"_s, {1, 2});
    auto *set = stand.add(action(1), u"A12"_s, {1, 2});
    state->setNativeValue(Axis1, 0, u"4"_s);
    ActionParameterImplementation first(set, Axis1);
    ActionParameterImplementation second(set, Axis2);
    QVERIFY(!first.start());
    QVERIFY(second.start());
}

void tst_ActionParameterImplementation::deviceStateOfAnotherAxis()
{
    InstanceStand stand;
    auto *state = stand.add(deviceState(), u"E48"_s, {1, 2});
    ActionParameterImplementation object(stand.add(action(1), u"A12"_s, {1, 2}), Axis1);
    stand.log.attach(&object, u"action"_s);
    state->setOnlineValueText(Axis2, 0, u"4"_s);
    QCOMPARE(stand.log.entries(), QStringList {u"action.enableChanged(true)"_s});
    state->setOnlineValueText(Axis1, 0, u"4"_s);
    state->setOnlineValueText(Axis2, 0, u"2"_s);
    QCOMPARE(stand.log.entries(),
        (QStringList {u"action.enableChanged(true)"_s, u"action.enableChanged(false)"_s,
            u"action.enableChanged(false)"_s}));
}

void tst_ActionParameterImplementation::deviceStateThatComesLater()
{
    InstanceStand stand;
    ActionParameterImplementation object(stand.add(action(1), u"A12"_s), Axis1);
    stand.log.attach(&object, u"action"_s);
    auto *state = stand.add(deviceState(), u"E48"_s);
    state->setNativeValue(Axis1, 0, u"4"_s);
    // Asked for, but not listened to.
    QCOMPARE(stand.log.entries(), QStringList());
    QVERIFY(!object.start());
    state->setNativeValue(Axis1, 0, u"2"_s);
    QVERIFY(object.start());
}

void tst_ActionParameterImplementation::vanishedParameter()
{
    InstanceStand stand;
    auto *state = stand.add(deviceState(), u"E48"_s);
    ActionParameterImplementation object(stand.add(action(1), u"A12"_s), Axis1);
    stand.log.attach(&object, u"action"_s);
    stand.container->deleteParameter(u"D.1;A12"_s);
    QVERIFY(!object.start());
    QVERIFY(object.isIdle());
    QCOMPARE(object.name(), QString());
    QCOMPARE(object.stateText(), QString());
    QCOMPARE(object.description(), QString());
    state->setNativeValue(Axis1, 0, u"4"_s);
    QCOMPARE(stand.log.entries(), QStringList {u"action.enableChanged(false)"_s});
    stand.container.reset();
    QVERIFY(!object.start());
}

void tst_ActionParameterImplementation::vanishedDeviceState()
{
    InstanceStand stand;
    stand.add(deviceState(), u"E48"_s)->setNativeValue(Axis1, 0, u"4"_s);
    ActionParameterImplementation object(stand.add(action(1), u"A12"_s), Axis1);
    QVERIFY(!object.start());
    stand.container->deleteParameter(u"D.1;E48"_s);
    QVERIFY(object.start());
}

void tst_ActionParameterImplementation::vanishesInsideASignal_data()
{
    QTest::addColumn<bool>("isContainer");
    QTest::newRow("the parameter") << false;
    QTest::newRow("the container") << true;
}

void tst_ActionParameterImplementation::vanishesInsideASignal()
{
    QFETCH(bool, isContainer);
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    connect(&object, &ActionParameter::stateChanged, this, [&] {
        if (isContainer)
            stand.container.reset();
        else
            stand.container->clear();
    });
    QVERIFY(object.start());
    QVERIFY(object.isIdle());
    QVERIFY(!object.start());
}

/// A function of the firmware takes the parameters away with the read that is counted.
void tst_ActionParameterImplementation::vanishesWhileItIsRead_data()
{
    QTest::addColumn<int>("reads");
    QTest::newRow("with the action's state") << 1;
    QTest::newRow("with the drive's state") << 2;
}

void tst_ActionParameterImplementation::vanishesWhileItIsRead()
{
    QFETCH(int, reads);
    InstanceStand stand;
    stand.add(deviceState(), u"E48"_s);
    auto *set = stand.add(action(1), u"A12"_s);
    ActionParameterImplementation object(set, Axis1);
    stand.programFirmware()->valueText = [&](const QString &text, const ParameterData &, quint16) {
        if (--reads == 0)
            stand.container->clear();
        return text;
    };
    QVERIFY(!object.start());
    QCOMPARE(object.stateText(), QString());
    QVERIFY(object.isIdle());
}

void tst_ActionParameterImplementation::actionGoesWhileItIsRead_data()
{
    QTest::addColumn<int>("element");
    QTest::newRow("by a change of the progress") << 1;
    QTest::newRow("by a change of the drive's state") << -1;
}

/// Nothing is told then.
void tst_ActionParameterImplementation::actionGoesWhileItIsRead()
{
    QFETCH(int, element);
    InstanceStand stand;
    auto *state = stand.add(deviceState(), u"E48"_s);
    auto *set = stand.add(action(1), u"A12"_s);
    auto object = std::make_unique<ActionParameterImplementation>(set, Axis1);
    bool isTold = false;
    connect(object.get(), &ActionParameter::progressChanged, this, [&] { isTold = true; });
    connect(object.get(), &ActionParameter::enableChanged, this, [&] { isTold = true; });
    stand.programFirmware()->valueText = [&](const QString &text, const ParameterData &, quint16) {
        object.reset();
        return text;
    };
    if (element < 0)
        state->setOnlineValueText(Axis1, 0, u"5"_s);
    else
        set->setOnlineValueText(Axis1, quint16(element), u"5"_s);
    QVERIFY(!object);
    QVERIFY(!isTold);
}

void tst_ActionParameterImplementation::vanishesWhileBeingConstructed()
{
    InstanceStand stand;
    auto *set = stand.add(action(), u"A12"_s);
    connect(stand.container.get(), &ParameterProvider::parameterNeedsOnlineConsistence, this,
        [&] { stand.container->clear(); });
    ActionParameterImplementation object(set, Axis1);
    QVERIFY(!object.start());
}

QTEST_GUILESS_MAIN(tst_ActionParameterImplementation)

#include "tst_ActionParameterImplementation.moc"
