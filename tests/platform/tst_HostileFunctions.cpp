#include "FunctionFailure.h"
#include "FunctionStand.h"

#include "tests/support/ProcessorTimer.h"

#include <KrSystem/System.h>

#include <QtTest/QtTest>

#include <limits>

namespace {

const QString Spent =
    QStringLiteral("the budget of 1000000 instructions is spent; the function is not run again");
const QString Memory = QStringLiteral("more than 4194304 bytes of memory, or 262144 in one piece, "
                                      "are needed; the function is not run again");
const QString TooMuchForAChange = QStringLiteral(
    "the functions that follow from one change need more than 50000000 instructions; the rest of "
    "them is not run");

} // namespace

/// Functions that never end, need everything or try to break out: each ends with one message, and
/// the next call works.
class tst_HostileFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void endsWithOneMessage_data();
    void endsWithOneMessage();
    void endsInTime_data();
    void endsInTime();
    void endlessOfEveryKind_data();
    void endlessOfEveryKind();
    void budgetIsTheSameForEveryCall();
    void budgetCoversTheCallsThatItLeadsTo();
    void nestedFunctionIsBlamed();
    void functionsBeyondCount();
    void functionsOfOneChange();
    void budgetEndsCallbacks_data();
    void budgetEndsCallbacks();
    void nestedFailureIsReportedAfterTheOutermostEnd();
    void nestedFailureLetsTheOuterGoOn();
    void sameFailureIsReportedOnce();
    void functionThatWritesItself();
    void nestingEnds();
    void memoryIsFreeAgain();
    void nothingIsKeptBetweenCalls_data();
    void nothingIsKeptBetweenCalls();
    void cutOffWhileItRuns();
    void cutOffEndsTheOuterToo();
    void listenerOfTheMessageCallsAgain();

private:
    /// Every critical message, with what stands behind "element 0: ".
    static QStringList reasons(MessageRecorder &recorder)
    {
        QStringList result;
        for (const SystemMessage &message : recorder.take())
            result.append(message.text.section(QStringLiteral("element 0: "), 1));
        return result;
    }
};

void tst_HostileFunctions::endsWithOneMessage_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");

    const auto row = [](const char *rule, const char *text, const QString &reason) {
        QTest::newRow(rule) << QString::fromUtf8(text) << reason;
    };
    const auto line1 = [](const char *reason) {
        return QStringLiteral("line 1: ") + QString::fromUtf8(reason);
    };
    row("endless loop", "while true do end", Spent);
    row("endless repetition", "repeat until false", Spent);
    row("endless jump", "::a:: goto a", Spent);
    row("endless count", "for i = 1, math.huge do end", Spent);
    row("endless tail call", "local function f() return f() end f()", Spent);
    row("endless arithmetic", "local a = 1 while true do a = a * 3 + 1 end", Spent);
    row("endless iteration", "for k in function() return 1 end do end", Spent);
    row("deep recursion", "local function f(n) return 1 + f(n + 1) end f(1)", Memory);
    row("mutual recursion",
        "local f local function g(n) return 1 + f(n) end f = function(n) return 1 + g(n) end f(1)",
        Memory);
    row("doubling text", "local s = 'x' while true do s = s .. s end", Memory);
    row("doubling by format", "local s = 'x' while true do s = string.format('%s%s', s, s) end",
        Memory);
    row("growing table", "local t = {} for i = 1, 1e9 do t[i] = i end", Memory);
    row("growing table of tables", "local t = {} while true do t = {t, {}, {}} end", Memory);
    row("wide result", "return (('x'):rep(1e9))",
        line1("attempt to call a nil value (method 'rep')"));
    row("many arguments", "local function f(...) return f(1, ...) end f()", Memory);
    row("many results",
        "local s = 'x' for i = 1, 12 do s = s .. s end "
        "while true do local n = select('#', s:byte(1, -1)) end",
        Spent);
    row("huge format width", "return string.format('%1000d', 1)",
        line1("invalid conversion specification: '%1000d'"));
    row("comparing large texts",
        "local a, b = 'x', 'x' for i = 1, 17 do a = a .. a b = b .. b end while a == b do end",
        Spent);
    row("ordering large texts",
        "local a, b = 'x', 'x' for i = 1, 17 do a = a .. a b = b .. b end while a <= b do end",
        Spent);
    row("copying a large text",
        "local a = 'x' for i = 1, 17 do a = a .. a end while true do local b = a .. 'y' end",
        Spent);
    row("rehashing a large table",
        "local t = {} for i = 1, 16000 do t[i] = i end "
        "local i = 0 while true do i = i + 1 t['k' .. i] = 1 t['k' .. i] = nil end",
        Spent);
    row("near the bound of the memory",
        "local t = {} for i = 1, 14000 do t[i] = {i, i, i, i, i, i, i, i} end "
        "while true do local s = {} end",
        Spent);
    row("an error with a text", "error('broken')", line1("broken"));
    row("an error without a position", "error('broken', 0)", QStringLiteral("broken"));
    row("an error with a number", "error(5)", QStringLiteral("5"));
    row("an error with a table", "error({})", QStringLiteral("an error without a text (a table)"));
    row("an error with a truth value", "error(true)", QStringLiteral("true"));
    row("an error with a function", "error(error)",
        QStringLiteral("an error without a text (a function)"));
    row("an error with the parameter", "error(parameter)",
        QStringLiteral("an error without a text (a userdata)"));
    row("an error with nil", "error(nil)", QStringLiteral("an error without a text"));
    row("an error with nothing", "error()", QStringLiteral("an error without a text"));
    row("a failed assertion", "assert(false)", line1("assertion failed!"));
    row("a long error text", "local s = 'x' for i = 1, 12 do s = s .. s end error(s, 0)",
        QString(300, u'x'));
    row("text arithmetic", "return '1' + 1",
        line1("attempt to perform arithmetic on a string value (constant '1')"));
    row("a nil index", "return parameter.coordinate.x.y",
        line1("attempt to index a nil value (field 'x')"));
    row("a missing table", "return B01.current",
        line1("attempt to index a nil value (global 'B01')"));
    row("a nil call", "pcall(error)", line1("attempt to call a nil value (global 'pcall')"));
    row("comparing different types", "return 1 < '2'",
        line1("attempt to compare number with string"));
    row("division by zero", "return 1 // 0", line1("attempt to divide by zero"));
    row("a global", "x = 1", line1("'x' is not a local and cannot be set"));
    row("a library function", "math.floor = nil",
        line1("'floor' is not a local and cannot be set"));
    row("a callback", "readValue = nil", line1("'readValue' is not a local and cannot be set"));
    row("a library by number", "math[1] = 1", line1("'number' is not a local and cannot be set"));
    row("a metatable of texts", "getmetatable('').__index = nil",
        line1("attempt to call a nil value (global 'getmetatable')"));
    row("the operations of texts", "('').upper = nil",
        line1("attempt to index a string value (constant '')"));
    row("a finalizer", "setmetatable({}, {__gc = function() while true do end end})",
        line1("attempt to call a nil value (global 'setmetatable')"));
    row("a value to be closed", "local x <close> = {}",
        line1("variable 'x' got a non-closable value"));
    row("an argument of wrong type", "readValueNative({}, 'B01')",
        line1("bad argument #1 to 'readValueNative' (number expected, got table)"));
    row("a living space beyond 32 bits", "readValueNative(2147483648, 'B01')",
        line1("bad argument #1 to 'readValueNative' (number out of range)"));
    row("a coordinate that is none", "readValueNative(1, 'B')",
        line1("bad argument #2 to 'readValueNative' (coordinate expected, got string)"));
    row("a coordinate beyond 16 bits", "readValueNative(1, 65536)",
        line1("bad argument #2 to 'readValueNative' (number out of range)"));
    row("an element below 0", "readValueNative(1, 'B01', -1)",
        line1("bad argument #3 to 'readValueNative' (number out of range)"));
    row("an element with a fraction", "readValueNative(1, 'B01', 0.5)",
        line1("bad argument #3 to 'readValueNative' (number has no integer representation)"));
    row("writing nothing", "writeValueNative(1, 'B01', 0)",
        line1("bad argument #4 to 'writeValueNative' (number or text expected, got no value)"));
    row("writing a table", "writeValueNative(1, 'B01', 0, {})",
        line1("bad argument #4 to 'writeValueNative' (number or text expected, got table)"));
    row("writing a truth value", "writeValueNative(1, 'B01', 0, true)",
        line1("bad argument #4 to 'writeValueNative' (number or text expected, got boolean)"));
    row("a message that is no text", "addWarningMessage(5)",
        line1("bad argument #1 to 'addWarningMessage' (string expected, got number)"));
    row("a property that is none", "parameter.property('x')",
        line1("bad argument #1 to 'property' (number expected, got string)"));
}

void tst_HostileFunctions::endsWithOneMessage()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    QFETCH(QString, reason);
    FunctionStand stand({{QStringLiteral("postWrite"), text},
        {QStringLiteral("limit"), QStringLiteral("return 1, 2")}});
    QVERIFY(stand.provider);
    const bool isGivenUp = reason == Spent || reason == Memory;
    for (int round = 0; round < 3; ++round) {
        const ProcessorTimer timer;
        if (round == 0 || !isGivenUp)
            expectFailure(recorder, QStringLiteral("post-write"), reason);
        stand.postWrite();
        QVERIFY(recorder.verify());
        const double taken = timer.elapsed();
        QVERIFY2(taken < 250, qPrintable(QString::number(taken)));
        QCOMPARE(stand.upper(), QStringLiteral("2"));
    }
}

void tst_HostileFunctions::endsInTime_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("loop") << QStringLiteral("while true do end");
    QTest::newRow("calls") << QStringLiteral("local function f() return f() end f()");
    QTest::newRow("texts") << QStringLiteral("while true do local s = 'a' .. 1 end");
    QTest::newRow("tables") << QStringLiteral("while true do local t = {1, 2, 3} end");
}

void tst_HostileFunctions::endsInTime()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    // About 10 ms; what stands above leaves room for slow machines and sanitizers.
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < 5; ++round) {
        FunctionStand stand("postWrite", text);
        const ProcessorTimer timer;
        stand.postWrite();
        best = qMin(best, timer.elapsed());
        QCOMPARE(reasons(recorder), QStringList({Spent}));
    }
    QVERIFY2(best <= 100, qPrintable(QString::number(best)));
}

void tst_HostileFunctions::endlessOfEveryKind_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("kind");

    const auto row = [](const char *key, const char *kind) {
        QTest::newRow(kind) << QString::fromLatin1(key) << QString::fromLatin1(kind);
    };
    row("limit", "limit");
    row("scaling", "scaling");
    row("hiding", "hiding");
    row("preRead", "pre-read");
    row("preWrite", "pre-write");
    row("postRead", "post-read");
    row("postWrite", "post-write");
}

void tst_HostileFunctions::endlessOfEveryKind()
{
    MessageRecorder recorder;
    QFETCH(QString, key);
    QFETCH(QString, kind);
    FunctionStand stand({{key, QStringLiteral("while true do end")}});
    ParameterFunctionProvider &provider = *stand.provider;
    stand.data.lower = QStringLiteral("-10");
    stand.data.factor = 0.5;
    expectFailure(recorder, kind, Spent);
    if (kind == QStringLiteral("limit")) {
        QCOMPARE(provider.checkValue(QStringLiteral("-11"), &stand.data, 0), 2U);
    } else if (kind == QStringLiteral("scaling")) {
        QCOMPARE(provider.valueText(QStringLiteral("3"), &stand.data, 0), QStringLiteral("1.5"));
    } else if (kind == QStringLiteral("hiding")) {
        QVERIFY(!provider.isHidden(&stand.data, 0));
    } else {
        for (const eFunctionKind each : {eFunctionKind::Preread, eFunctionKind::Prewrite,
                 eFunctionKind::Postwrite, eFunctionKind::Postread})
            provider.runFunction(each, &stand.data, 0);
    }
}

void tst_HostileFunctions::budgetIsTheSameForEveryCall()
{
    MessageRecorder recorder;
    // About 900,000 instructions each.
    FunctionStand stand("limit", QStringLiteral("for i = 1, 900000 do end return 1, 2"));
    for (int round = 0; round < 5; ++round)
        QCOMPARE(stand.upper(), QStringLiteral("2"));

    FunctionStand larger("limit", QStringLiteral("for i = 1, 1010000 do end return 1, 2"));
    expectFailure(recorder, QStringLiteral("limit"), Spent);
    QCOMPARE(larger.upper(), QString());
}

void tst_HostileFunctions::budgetCoversTheCallsThatItLeadsTo()
{
    MessageRecorder recorder;
    // A write asks for the limits; five times 300,000 instructions are too many.
    FunctionStand stand({{QStringLiteral("postWrite"),
                             QStringLiteral("for i = 1, 5 do writeValue(1, 'B01', 0, i) end")},
        {QStringLiteral("limit"), QStringLiteral("for i = 1, 300000 do end return 1, 2")}});
    stand.container.listener = [&](const QString &) { stand.upper(); };
    // Not the fault of the limit function, which is well within the budget.
    expectFailure(recorder, QStringLiteral("post-write"), Spent);
    stand.postWrite();
    QCOMPARE(stand.container.takeCalls().size(), 4);
    QVERIFY(recorder.verify());
    QCOMPARE(stand.upper(), QStringLiteral("2"));
    stand.postWrite();
    QCOMPARE(stand.container.takeCalls(), QStringList());
}

void tst_HostileFunctions::nestedFunctionIsBlamed()
{
    MessageRecorder recorder;
    FunctionStand stand(
        {{QStringLiteral("postWrite"),
             QStringLiteral("writeValue(1, 'B01', 0, 5) writeValue(1, 'B02', 0, 6)")},
            {QStringLiteral("limit"), QStringLiteral("while true do end")}});
    stand.container.listener = [&](const QString &) { stand.upper(); };
    expectFailure(recorder, QStringLiteral("limit"), Spent);
    stand.postWrite();
    QVERIFY(recorder.verify());
    // All that ran ended; the one that is not to blame runs again.
    QCOMPARE(stand.container.takeCalls().size(), 1);
    stand.postWrite();
    QCOMPARE(stand.container.takeCalls().size(), 2);
}

void tst_HostileFunctions::functionsBeyondCount()
{
    MessageRecorder recorder;
    QHash<int, QString> texts;
    for (int index = 1; index <= 40; ++index)
        texts.insert(index, QStringLiteral("while true do end"));
    texts.insert(41, QStringLiteral("return 1, 2"));
    FunctionStand stand("limit", texts);
    stand.data.functionIndex = 41;
    QCOMPARE(stand.upper(), QStringLiteral("2"));
    QStringList expected;
    for (quint16 index = 1; index <= 40; ++index) {
        stand.data.functionIndex = index;
        stand.upper();
        if (index < 32)
            expected.append(Spent);
        else if (index == 32)
            expected.append(QStringLiteral("the budget of 1000000 instructions is spent; after 32 "
                                           "such functions none of the device is run again"));
    }
    QCOMPARE(reasons(recorder), expected);
    stand.data.functionIndex = 41;
    QCOMPARE(stand.upper(), QString());
}

void tst_HostileFunctions::functionsOfOneChange()
{
    MessageRecorder recorder;
    // Each is within the budget of a call: 56 of them are 50 million instructions.
    FunctionStand stand("limit", QStringLiteral("for i = 1, 900000 do end return 1, 2"));
    const auto answered = [&](int calls) {
        int count = 0;
        for (int i = 0; i < calls; ++i)
            count += stand.upper() == QStringLiteral("2") ? 1 : 0;
        return count;
    };
    stand.container.change = QStringLiteral("1");
    expectFailure(recorder, QStringLiteral("limit"), TooMuchForAChange);
    const int count = answered(100);
    QVERIFY2(count > 50 && count < 60, qPrintable(QString::number(count)));
    QVERIFY(recorder.verify());
    QCOMPARE(answered(5), 0);
    // What belongs to no change is not counted, and the next change has all of it again.
    stand.container.change.clear();
    QCOMPARE(answered(60), 60);
    stand.container.change = QStringLiteral("2");
    QCOMPARE(answered(50), 50);
}

void tst_HostileFunctions::budgetEndsCallbacks_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("most");

    QTest::newRow("reading") << QStringLiteral("readValue(1, 'B01')") << 10000;
    QTest::newRow("writing") << QStringLiteral("writeValue(1, 'B01', 0, 5)") << 1000;
    QTest::newRow("messages") << QStringLiteral("addWarningMessage('x')") << 100;
}

void tst_HostileFunctions::budgetEndsCallbacks()
{
    MessageRecorder recorder;
    QFETCH(QString, call);
    QFETCH(int, most);
    FunctionStand stand("postWrite", QStringLiteral("while true do %1 end").arg(call));
    expectFailure(recorder, QStringLiteral("post-write"), Spent);
    stand.postWrite();
    QVERIFY(stand.container.calls.size() <= most);
    QVERIFY(stand.container.calls.size() > most / 2);
}

void tst_HostileFunctions::nestedFailureIsReportedAfterTheOutermostEnd()
{
    MessageRecorder recorder;
    FunctionStand stand({{QStringLiteral("postWrite"),
                             QStringLiteral("writeValue(1, 'B01', 0, 5) addWarningMessage('end')")},
        {QStringLiteral("limit"), QStringLiteral("error('broken', 0)")}});
    int messagesAtTheEnd = -1;
    stand.container.listener = [&](const QString &call) {
        if (call.startsWith(QStringLiteral("writeValue")))
            stand.upper();
        else
            messagesAtTheEnd = int(recorder.take().size());
    };
    stand.postWrite();
    QCOMPARE(messagesAtTheEnd, 0);
    QCOMPARE(reasons(recorder), QStringList({QStringLiteral("broken")}));
}

void tst_HostileFunctions::nestedFailureLetsTheOuterGoOn()
{
    MessageRecorder recorder;
    FunctionStand stand(
        {{QStringLiteral("postWrite"),
             QStringLiteral("writeValue(1, 'B01', 0, 5) writeValue(1, 'B02', 0, 6)")},
            {QStringLiteral("limit"), QStringLiteral("error('broken', 0)")}});
    stand.data.upper = QStringLiteral("20");
    stand.container.listener = [&](const QString &) {
        QCOMPARE(stand.upper(), QStringLiteral("20"));
    };
    stand.postWrite();
    QCOMPARE(stand.container.calls,
        QStringList(
            {QStringLiteral("writeValue 1 B01 0 = 5"), QStringLiteral("writeValue 1 B02 0 = 6")}));
    QCOMPARE(reasons(recorder), QStringList({QStringLiteral("broken")}));
}

void tst_HostileFunctions::sameFailureIsReportedOnce()
{
    MessageRecorder recorder;
    FunctionStand stand({{QStringLiteral("postWrite"),
                             QStringLiteral("for i = 1, 500 do writeValue(1, 'B01', 0, i) end")},
        {QStringLiteral("limit"), QStringLiteral("error('broken', 0)")}});
    stand.container.listener = [&](const QString &) { stand.upper(); };
    stand.postWrite();
    QCOMPARE(reasons(recorder), QStringList({QStringLiteral("broken")}));
}

void tst_HostileFunctions::functionThatWritesItself()
{
    MessageRecorder recorder;
    FunctionStand stand("postWrite",
        QStringLiteral("writeValueNative(2, 'D10', 0, readValueNative(2, 'D10') + 1)"));
    stand.container.values.insert(QStringLiteral("2 D10 0"), QStringLiteral("0"));
    stand.container.listener = [&](const QString &call) {
        if (call.startsWith(QStringLiteral("writeValueNative")))
            stand.postWrite();
    };
    expectFailure(recorder, QStringLiteral("post-write"),
        QStringLiteral("the functions are nested too deeply"));
    stand.postWrite();
    QVERIFY(recorder.verify());
    const int depth = stand.container.values.value(QStringLiteral("2 D10 0")).toInt();
    QVERIFY2(depth > 150 && depth < 200, qPrintable(QString::number(depth)));

    stand.container.listener = [](const QString &) {};
    stand.container.values.insert(QStringLiteral("2 D10 0"), QStringLiteral("7"));
    stand.postWrite();
    QCOMPARE(stand.container.values.value(QStringLiteral("2 D10 0")), QStringLiteral("8"));
}

void tst_HostileFunctions::nestingEnds()
{
    MessageRecorder recorder;
    // Each asks twice: without an end for all of them 2^190 calls would follow.
    FunctionStand stand(
        "limit", QStringLiteral("local v = parameter.value local w = parameter.value return v, w"));
    stand.container.listener = [&](const QString &) { stand.upper(); };
    expectFailure(
        recorder, QStringLiteral("limit"), QStringLiteral("the functions are nested too deeply"));
    QCOMPARE(stand.upper(), QString());
    QVERIFY(stand.container.calls.size() < 200);
}

void tst_HostileFunctions::memoryIsFreeAgain()
{
    MessageRecorder recorder;
    // Every one needs all of the memory.
    QHash<int, QString> texts;
    for (int index = 1; index <= 20; ++index)
        texts.insert(index, QStringLiteral("local t = {} for i = 1, 1e6 do t[i] = {i, i} end"));
    texts.insert(21,
        QStringLiteral("local t = {} for i = 1, 12000 do t[i] = {i, i, i, i, i, i} end "
                       "return #t, 2"));
    FunctionStand stand("limit", texts);
    for (quint16 index = 1; index <= 20; ++index) {
        stand.data.functionIndex = index;
        stand.lower();
        QCOMPARE(reasons(recorder).size(), 1);
        // Needs more than half of the memory.
        stand.data.functionIndex = 21;
        QCOMPARE(stand.lower(), QStringLiteral("12000"));
    }
}

void tst_HostileFunctions::nothingIsKeptBetweenCalls_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("global") << QStringLiteral("count = (count or 0) + 1");
    QTest::newRow("field of a library") << QStringLiteral("string.count = 1");
    QTest::newRow("field of the parameter") << QStringLiteral("parameter.count = 1");
    QTest::newRow("environment") << QStringLiteral("_ENV.count = 1");
}

void tst_HostileFunctions::nothingIsKeptBetweenCalls()
{
    MessageRecorder recorder;
    QFETCH(QString, text);
    FunctionStand stand({{QStringLiteral("postWrite"), text},
        {QStringLiteral("limit"), QStringLiteral("return count or string.count or 1, 2")}});
    for (int round = 0; round < 2; ++round) {
        stand.postWrite();
        QCOMPARE(reasons(recorder).size(), 1);
        QCOMPARE(stand.lower(), QStringLiteral("1"));
    }
}

void tst_HostileFunctions::cutOffWhileItRuns()
{
    MessageRecorder recorder;
    FunctionStand stand(
        "postWrite", QStringLiteral("writeValue(1, 'B01', 0, 5) writeValue(1, 'B02', 0, 6)"));
    stand.container.listener = [&](const QString &) {
        stand.provider->setCallbackProvider(nullptr);
    };
    stand.postWrite();
    QCOMPARE(stand.container.takeCalls(), QStringList({QStringLiteral("writeValue 1 B01 0 = 5")}));

    stand.container.listener = [](const QString &) {};
    stand.provider->setCallbackProvider(&stand.container);
    stand.postWrite();
    QCOMPARE(stand.container.calls.size(), 2);
}

void tst_HostileFunctions::cutOffEndsTheOuterToo()
{
    MessageRecorder recorder;
    FunctionStand stand(
        {{QStringLiteral("postWrite"),
             QStringLiteral("writeValue(1, 'B01', 0, 5) writeValue(1, 'B02', 0, 6)")},
            {QStringLiteral("limit"),
                QStringLiteral("return readValueNative(1, 'C01'), readValueNative(1, 'C02')")}});
    stand.data.upper = QStringLiteral("20");
    stand.container.listener = [&](const QString &call) {
        if (call.startsWith(QStringLiteral("writeValue")))
            QCOMPARE(stand.upper(), QStringLiteral("20"));
        else
            stand.provider->setCallbackProvider(nullptr);
    };
    stand.postWrite();
    QCOMPARE(stand.container.calls,
        QStringList(
            {QStringLiteral("writeValue 1 B01 0 = 5"), QStringLiteral("readValueNative 1 C01 0")}));
}

void tst_HostileFunctions::listenerOfTheMessageCallsAgain()
{
    MessageRecorder recorder;
    FunctionStand stand({{QStringLiteral("postWrite"), QStringLiteral("while true do end")},
        {QStringLiteral("limit"), QStringLiteral("return 1, 2")}});
    QStringList seen;
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener,
        [&](const SystemMessage &) { seen.append(stand.upper()); });
    stand.postWrite();
    QCOMPARE(seen, QStringList({QStringLiteral("2")}));
    QCOMPARE(reasons(recorder), QStringList({Spent}));
}

QTEST_GUILESS_MAIN(tst_HostileFunctions)
#include "tst_HostileFunctions.moc"
