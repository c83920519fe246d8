#include "TestContainer.h"

#include "tests/support/ContainerInternals.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/ProcessorTimer.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

namespace {

constexpr int ReceiverCount = 1000;
/// Far above what one write may take, and far below what asking every receiver would.
constexpr double MostMilliseconds = 3000;

const QString Endless = u"while true do end"_s;
const QString GivenUp =
    u"the budget of 1000000 instructions is spent; the function is not run again"_s;

/// Kind to index to text.
using Functions = QHash<QString, QHash<int, QString>>;

std::unique_ptr<ServoDriveFirmware> firmwareWith(const Functions &functions)
{
    QJsonObject tables;
    for (auto kind = functions.cbegin(); kind != functions.cend(); ++kind) {
        QJsonObject table;
        for (auto it = kind->cbegin(); it != kind->cend(); ++it)
            table.insert(QString::number(it.key()), it.value());
        tables.insert(kind.key(), table);
    }
    return TestFirmware::load(TestFirmware::PlainAxesFamily,
        "\"functions\": " + QJsonDocument(tables).toJson(QJsonDocument::Compact));
}

std::unique_ptr<ServoDriveFirmware> firmwareWith(const QString &kind, const QString &text)
{
    return firmwareWith({{kind, {{1, text}}}});
}

const ParameterCoordinate Source(u"A12"_s);

ParameterCoordinate receiver(int number)
{
    return ParameterCoordinate(2, quint16(number));
}

/// A12 leads to the receivers B00 and following in living space 1.
void fill(TestContainer &container, eParameterProperty dependency, eParameterProperty index,
    int count = ReceiverCount)
{
    container->setDomain(u"Antrieb"_s);
    container.create(at(u"A12"_s).property(dependency, 1), u"D.1;a"_s);
    for (int i = 0; i < count; ++i) {
        const QString text = receiver(i).toText();
        container.create(at(text).levels(3, 0).property(index, 1U), u"D.1;"_s + text);
    }
}

void write(TestContainer &container, const QString &text)
{
    container->writeValueNative(Axis1, Source, 0, text);
}

QString sourceText(TestContainer &container)
{
    return container->readValueNative(Axis1, Source, 0, false);
}

/// What stands behind "element 0: ", each severity and title as they are to be.
QStringList reasons(MessageRecorder &messages)
{
    QStringList list;
    for (const SystemMessage &message : messages.take()) {
        const bool isGood =
            message.severity == SystemMessage::eSeverity::Critical && message.title == u"Antrieb"_s;
        list.append(
            isGood ? message.text.section(u"element 0: "_s, 1) : message.title + message.text);
    }
    return list;
}

/// Where many functions are asked at once without a change of a value. What they answer is good while
/// A12 is 0.
struct Road {
    const char *name;
    /// Of the function that it asks.
    const char *kind;
    void (*ask)(TestContainer &container, ServoDriveFirmware *other);
};

/// Asks for the hidden flags, so that they are known, and makes A12 what functions fail at.
void makeBadWhenKnown(TestContainer &container)
{
    for (const ParameterCoordinate &coordinate : container->parameterList()) {
        const ParameterSetup *setup = container.setup(coordinate.toText());
        for (const quint16 element : setup->elementList())
            static_cast<void>(setup->isHidden(Axis1, element));
    }
    write(container, u"7"_s);
}

constexpr Road Roads[] = {
    {"level", "hiding",
        [](TestContainer &container, ServoDriveFirmware *) {
            write(container, u"7"_s);
            System::information()->setUserAccessLevel(4);
        }},
    {"load", "hiding",
        [](TestContainer &container, ServoDriveFirmware *) {
            makeBadWhenKnown(container);
            QMap<QString, QByteArray> blocks;
            container->saveTo(blocks);
            write(container, u"0"_s);
            container->loadFrom(blocks);
        }},
    {"firmware", "hiding",
        [](TestContainer &container, ServoDriveFirmware *other) {
            makeBadWhenKnown(container);
            container->setFirmware(other);
        }},
    {"definition", "hiding",
        [](TestContainer &container, ServoDriveFirmware *) {
            makeBadWhenKnown(container);
            container.create(
                at(u"C00"_s).elementCount(1000).property(HidingFunctionIndex, 1U), u"D.1;c"_s);
        }},
    {"save", "limit",
        [](TestContainer &container, ServoDriveFirmware *) {
            write(container, u"7"_s);
            QMap<QString, QByteArray> blocks;
            container->saveTo(blocks);
        }},
    {"change tags", "limit",
        [](TestContainer &container, ServoDriveFirmware *) {
            write(container, u"7"_s);
            QMap<QString, QString> tags;
            for (int i = 0; i < ReceiverCount; ++i)
                tags.insert(receiver(i).toText(), u"tag"_s);
            container->updateParameterChangeTagsIfEmpty({}, tags);
        }},
    {"mapping", "limit",
        [](TestContainer &container, ServoDriveFirmware *) {
            write(container, u"7"_s);
            static_cast<void>(container->isParameterMapped(ParameterAddress(u"A12"_s, true)));
        }},
};

} // namespace

/// A device whose functions never end, take long or lead to themselves: the container goes on, the
/// user is told once, and the next write works.
class tst_HostileDescription : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { System::information()->setUserAccessLevel(0); }

    void endlessFunctionOfManyReceivers_data();
    void endlessFunctionOfManyReceivers();
    void endlessScalingOfManyReceivers();
    void manyEndlessFunctions();
    void slowFunctionsOfManyReceivers();
    void failingFunctionOfManyReceivers();
    void deferredDispatchIsBoundToo();
    void manyQuestionsAtOnce_data();
    void manyQuestionsAtOnce();
    void dispatchesOfListenersAreCountedApart();
    void endlessHidingThroughTheLevel();
    void endlessHidingThroughALoad();
    void endlessHidingThroughTheFirmware();
    void functionThatWritesItself();
    void endedByTheMissingActiveAxis_data();
    void endedByTheMissingActiveAxis();
    void firmwareReplacedByWhatAFunctionWrites();
};

void tst_HostileDescription::endlessFunctionOfManyReceivers_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("dependency");
    QTest::addColumn<int>("index");
    const auto row = [](const char *kind, eParameterProperty dependency, eParameterProperty index) {
        QTest::newRow(kind) << QString::fromLatin1(kind) << int(dependency) << int(index);
    };
    row("limit", LimitDependency, LimitFunctionIndex);
    row("hiding", HidingDependency, HidingFunctionIndex);
    row("preRead", PrereadDependency, PrereadFunctionIndex);
    row("preWrite", PrewriteDependency, PrewriteFunctionIndex);
    row("postRead", PostreadDependency, PostreadFunctionIndex);
    row("postWrite", PostwriteDependency, PostwriteFunctionIndex);
}

void tst_HostileDescription::endlessFunctionOfManyReceivers()
{
    QFETCH(QString, kind);
    QFETCH(int, dependency);
    QFETCH(int, index);
    MessageRecorder messages;
    const auto firmware = firmwareWith(kind, Endless);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, eParameterProperty(dependency), eParameterProperty(index));
    const ProcessorTimer timer;
    write(container, u"1"_s);
    QCOMPARE(reasons(messages), QStringList {GivenUp});
    write(container, u"2"_s);
    QCOMPARE(reasons(messages), QStringList());
    QCOMPARE(sourceText(container), u"2"_s);
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void tst_HostileDescription::endlessScalingOfManyReceivers()
{
    MessageRecorder messages;
    const auto firmware = firmwareWith(u"scaling"_s, Endless);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, ScalingDependency, ScalingFunctionIndex);
    // Whoever shows them reads them anew.
    int shown = 0;
    connect(container.get(), &ParameterContainer::parameterValueChanged, this,
        [&](const ParameterAddress &address) {
            shown += container->readValue(Axis1, address.coordinate(), 0, true) == u"0"_s ? 1 : 0;
        });
    const ProcessorTimer timer;
    write(container, u"1"_s);
    QCOMPARE(shown, ReceiverCount);
    QCOMPARE(reasons(messages), QStringList {GivenUp});
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void tst_HostileDescription::manyEndlessFunctions()
{
    MessageRecorder messages;
    QHash<int, QString> texts;
    for (int i = 1; i <= 500; ++i)
        texts.insert(i, Endless);
    const auto firmware = firmwareWith({{u"limit"_s, texts}});
    TestContainer container;
    container->setDomain(u"Antrieb"_s);
    container->setFirmware(firmware.get());
    for (int i = 1; i <= 500; ++i) {
        const QString text = receiver(i).toText();
        QVERIFY(container.create(at(text).property(LimitFunctionIndex, uint(i)), u"D.1;"_s + text));
    }
    const ProcessorTimer timer;
    for (int i = 1; i <= 500; ++i)
        container.setup(receiver(i).toText())->upperLimitText(Axis1, 0);
    QCOMPARE(reasons(messages).size(), 32);
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void tst_HostileDescription::slowFunctionsOfManyReceivers()
{
    MessageRecorder messages;
    const auto firmware = firmwareWith(
        u"limit"_s, u"local a = readValueNative(1, 'A12') for i = 1, 900000 do end return 0, a"_s);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, LimitDependency, LimitFunctionIndex);
    const ProcessorTimer timer;
    const QStringList expected {
        u"the functions that follow from one change need more than 50000000 "
        "instructions; the rest of them is not run"_s};
    for (const QString &text : {u"100"_s, u"200"_s}) {
        write(container, text);
        QCOMPARE(reasons(messages), expected);
        QCOMPARE(sourceText(container), text);
    }
    // It is within what one question may take.
    QCOMPARE(container.setup(receiver(999).toText())->upperLimitText(Axis1, 0), u"200"_s);
    QCOMPARE(reasons(messages), QStringList());
    QVERIFY2(timer.elapsed() < 2 * MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void tst_HostileDescription::failingFunctionOfManyReceivers()
{
    MessageRecorder messages;
    const auto firmware = firmwareWith(u"limit"_s, u"error('broken', 0)"_s);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, LimitDependency, LimitFunctionIndex);
    // Sixteen of each change are told, each of another element, and that there are more.
    for (const QString &text : {u"1"_s, u"2"_s}) {
        write(container, text);
        const QList<SystemMessage> told = messages.take();
        QCOMPARE(told.size(), 17);
        QCOMPARE(told.constFirst().text, u"limit function 1 of parameter B00, element 0: broken"_s);
        QCOMPARE(told.at(15).text, u"limit function 1 of parameter B15, element 0: broken"_s);
        QCOMPARE(told.at(16).text, u"further failures of functions are not told for this change"_s);
    }
    // A question apart is answered for.
    container.setup(u"B20"_s)->upperLimitText(Axis1, 0);
    QCOMPARE(reasons(messages), QStringList {u"broken"_s});
}

void tst_HostileDescription::deferredDispatchIsBoundToo()
{
    MessageRecorder messages;
    const auto firmware = firmwareWith(u"postWrite"_s, u"for i = 1, 900000 do end"_s);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, PostwriteDependency, PostwriteFunctionIndex);
    container->dispatchDependencyChange(PostwriteDependency, Axis1, Source, 0);
    QCOMPARE(reasons(messages).size(), 1);
}

void tst_HostileDescription::manyQuestionsAtOnce_data()
{
    QTest::addColumn<int>("road");
    QTest::addColumn<QString>("function");
    QTest::addColumn<int>("told");
    QTest::addColumn<QString>("last");
    for (int i = 0; i < int(std::size(Roads)); ++i) {
        QTest::addRow("slow but finite: %s", Roads[i].name)
            << i << u"if readValueNative(1, 'A12') ~= 0 then for i = 1, 900000 do end end"_s << 1
            << u"the functions that follow from one change need more than 50000000 "
               "instructions; the rest of them is not run"_s;
        QTest::addRow("failing: %s", Roads[i].name)
            << i << u"if readValueNative(1, 'A12') ~= 0 then error('broken', 0) end"_s << 17
            << u"further failures of functions are not told for this change"_s;
    }
}

void tst_HostileDescription::manyQuestionsAtOnce()
{
    QFETCH(int, road);
    QFETCH(QString, function);
    QFETCH(int, told);
    QFETCH(QString, last);
    const Road &asked = Roads[road];
    MessageRecorder messages;
    const QString kind = QString::fromLatin1(asked.kind);
    const auto firmware = firmwareWith(kind, function);
    const auto other = firmwareWith(kind, function);
    const eParameterProperty index = kind == u"limit"_s ? LimitFunctionIndex : HidingFunctionIndex;
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, PostwriteDependency, index);
    container.create(at(u"C00"_s).kind(11).elementCount(1000).property(index, 1U), u"D.1;c"_s);
    const ProcessorTimer timer;
    asked.ask(container, other.get());
    const QList<SystemMessage> heard = messages.take();
    QCOMPARE(heard.size(), told);
    QVERIFY2(heard.constLast().text.endsWith(last), qPrintable(heard.constLast().text));
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
    // A question apart is answered for.
    static_cast<void>(container.setup(receiver(999).toText())->upperLimitText(Axis1, 0));
    for (const SystemMessage &message : messages.take())
        QVERIFY2(message.text.endsWith(u"element 0: broken"_s), qPrintable(message.text));
}

void tst_HostileDescription::dispatchesOfListenersAreCountedApart()
{
    MessageRecorder messages;
    const auto firmware =
        firmwareWith(u"postWrite"_s, u"writeValueNative(1, 'A12', 0, parameter.value + 1)"_s);
    TestContainer container;
    container->setDomain(u"Antrieb"_s);
    container->setFirmware(firmware.get());
    QVERIFY(container.create(
        at(u"A12"_s).property(PostwriteDependency, 1).property(PostwriteFunctionIndex, 1U),
        u"D.1;a"_s));
    for (int i = 0; i < 3; ++i) {
        const QString text = receiver(i).toText();
        QVERIFY(container.create(at(text).levels(3, 0), u"D.1;"_s + text));
    }
    // Each write of a listener is an outermost one, with a message of its own.
    connect(container.get(), &ParameterContainer::parameterVisibilityChanged, this,
        [&] { write(container, u"100"_s); });
    System::information()->setUserAccessLevel(4);
    QCOMPARE(messages.take().size(), 3);
    QCOMPARE(sourceText(container), u"164"_s);
}

void tst_HostileDescription::endlessHidingThroughTheLevel()
{
    MessageRecorder messages;
    const auto firmware = firmwareWith(u"hiding"_s, Endless);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, HidingDependency, HidingFunctionIndex);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    const ProcessorTimer timer;
    System::information()->setUserAccessLevel(4);
    QCOMPARE(reasons(messages), QStringList {GivenUp});
    QCOMPARE(log.count(u"parameterVisibilityChanged"_s), ReceiverCount);
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
    write(container, u"5"_s);
    QCOMPARE(sourceText(container), u"5"_s);
}

void tst_HostileDescription::endlessHidingThroughALoad()
{
    MessageRecorder messages;
    // Endless once A12 is not 0.
    const auto firmware =
        firmwareWith(u"hiding"_s, u"while readValueNative(1, 'A12') ~= 0 do end return true"_s);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, LimitDependency, HidingFunctionIndex);
    for (int i = 0; i < ReceiverCount; ++i)
        QVERIFY(container.setup(receiver(i).toText())->isHidden(Axis1, 0));
    write(container, u"7"_s);
    QMap<QString, QByteArray> blocks;
    QVERIFY(container->saveTo(blocks));
    write(container, u"0"_s);
    QCOMPARE(reasons(messages), QStringList());
    const ProcessorTimer timer;
    QVERIFY(container->loadFrom(blocks));
    QCOMPARE(reasons(messages), QStringList {GivenUp});
    QCOMPARE(sourceText(container), u"7"_s);
    // No answer is the answer of an element without function.
    QVERIFY(!container.setup(receiver(999).toText())->isHidden(Axis1, 0));
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void tst_HostileDescription::endlessHidingThroughTheFirmware()
{
    MessageRecorder messages;
    const auto good = firmwareWith(u"hiding"_s, u"return true"_s);
    const auto bad = firmwareWith(u"hiding"_s, Endless);
    TestContainer container;
    container->setFirmware(good.get());
    fill(container, HidingDependency, HidingFunctionIndex);
    for (int i = 0; i < ReceiverCount; ++i)
        QVERIFY(container.setup(receiver(i).toText())->isHidden(Axis1, 0));
    const ProcessorTimer timer;
    container->setFirmware(bad.get());
    QCOMPARE(reasons(messages), QStringList {GivenUp});
    // Set anew, it has its chance again.
    container->setFirmware(bad.get());
    QCOMPARE(reasons(messages), QStringList {GivenUp});
    container->setFirmware(good.get());
    QVERIFY(container.setup(receiver(999).toText())->isHidden(Axis1, 0));
    QVERIFY2(timer.elapsed() < MostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void tst_HostileDescription::functionThatWritesItself()
{
    MessageRecorder messages;
    const auto firmware =
        firmwareWith(u"postWrite"_s, u"writeValueNative(1, 'A12', 0, parameter.value + 1)"_s);
    TestContainer container;
    container->setDomain(u"Antrieb"_s);
    container->setFirmware(firmware.get());
    QVERIFY(container.create(
        at(u"A12"_s).property(PostwriteDependency, 1).property(PostwriteFunctionIndex, 1U),
        u"D.1;a"_s));
    for (const int begin : {100, 1000}) {
        write(container, QString::number(begin));
        // 64 dispatches inside each other, each of which wrote the next number.
        QCOMPARE(sourceText(container), QString::number(begin + 64));
        const QList<SystemMessage> told = messages.take();
        QCOMPARE(told.size(), 1);
        QCOMPARE(told.constFirst().text,
            u"A12 löst zu viele aufeinander folgende Änderungen aus. Die weiteren Abhängigkeiten "
            "wurden nicht mehr ausgeführt!"_s);
    }
}

void tst_HostileDescription::endedByTheMissingActiveAxis_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("a limit function reads")
        << u"limit"_s << u"return readValueNative(-1, 'A12'), readValue(-1, 'A12')"_s;
    QTest::newRow("a hiding function reads")
        << u"hiding"_s << u"return readUndecoratedValue(-1, 'A12') == '1'"_s;
    QTest::newRow("a function writes")
        << u"postWrite"_s << u"writeValueNative(-1, 'A12', 0, 5) writeValue(-1, 'A12', 0, 6)"_s;
}

void tst_HostileDescription::endedByTheMissingActiveAxis()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);
    MessageRecorder messages;
    const auto firmware = firmwareWith(kind, text);
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, LimitDependency, LimitFunctionIndex, 1);
    container.create(at(u"C01"_s)
                         .property(LimitDependency, 1)
                         .property(HidingDependency, 1)
                         .property(PostwriteDependency, 1)
                         .property(HidingFunctionIndex, 1U)
                         .property(LimitFunctionIndex, 1U)
                         .property(PostwriteFunctionIndex, 1U),
        u"D.1;c"_s);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] { container.destroy(); });
    container->writeValueNative(Axis1, ParameterCoordinate(u"C01"_s), 0, u"1"_s);
    QVERIFY(!container.get());
    QCOMPARE(messages.take().size(), 1);
}

void tst_HostileDescription::firmwareReplacedByWhatAFunctionWrites()
{
    MessageRecorder messages;
    const auto firmware = firmwareWith(
        {{u"postWrite"_s, {{1, u"readValue(1, 'B00') writeValueNative(1, 'C01', 0, 5)"_s}}},
            {u"scaling"_s, {{1, u"error('broken', 0)"_s}}}});
    TestContainer container;
    container->setFirmware(firmware.get());
    fill(container, PostwriteDependency, PostwriteFunctionIndex, 1);
    container.create(at(u"B00"_s).property(PostwriteFunctionIndex, 1U), u"D.1;x"_s);
    container.setup(u"B00"_s)->setProperty(0, ScalingFunctionIndex, ParameterProperty(1U));
    QVERIFY(container.create(at(u"C01"_s), u"D.1;c"_s));
    connect(container.get(), &ParameterContainer::parameterNativeValueChanged, this,
        [&](const ParameterAddress &address) {
            if (address.coordinate().toText() == u"C01"_s)
                container->setFirmware(nullptr);
        });
    write(container, u"1"_s);
    // The title is the domain, though the functions are cut off from it.
    QCOMPARE(reasons(messages), QStringList {u"broken"_s});
}

QTEST_GUILESS_MAIN(tst_HostileDescription)

#include "tst_HostileDescription.moc"
