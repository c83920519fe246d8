#include "value/AxisReference.h"

#include "FakeParameterInformation.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QtTest>

#include <memory>
#include <vector>

class tst_AxisReference : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void parseRefuses_data();
    void parseRefuses();
    void resolveLocalAxis();
    void resolveActiveAxis();
    void resolveGlobalParameter();
    void resolveChoiceToItsEntryText();
    void resolveWithoutContainer();
    void resolveWithoutParameter();
    void resolveWithoutInstance();
    void resolveRecord_data();
    void resolveRecord();
    void placeholderOfARecordWithoutElement0StaysAsItStands();
    void aCircleEnds();
    void aLongChainEnds();
};

namespace {

constexpr int PlainKind = 5;
constexpr int ChoiceKind = 1;
constexpr quint8 UnsignedWord = 6;

AxisReference reference(const char *text)
{
    return *AxisReference::parse(QString::fromLatin1(text));
}

/// A choice whose only entry, 1, is the text.
QVariant choiceOf(const QString &text)
{
    ParameterText entry;
    entry.setText(QStringLiteral("de"), QString(), text);
    ParameterTextMap choice;
    choice.insert(1, entry);
    return QVariant::fromValue(choice);
}

std::unique_ptr<FakeParameterInformation> choiceParameter(
    ParameterContainer &container, const QString &entry)
{
    auto parameter = std::make_unique<FakeParameterInformation>(&container);
    parameter->kindValue = ChoiceKind;
    parameter->datatypeId = UnsignedWord;
    parameter->choice = choiceOf(entry);
    parameter->values.insert(eLivingSpace::Axis1, QStringLiteral("1"));
    return parameter;
}

} // namespace

void tst_AxisReference::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("local");
    QTest::addColumn<QString>("coordinate");
    QTest::newRow("local") << QStringLiteral("<localAxis:E12>") << true << QStringLiteral("E12");
    QTest::newRow("active") << QStringLiteral("<activeAxis:E12>") << false << QStringLiteral("E12");
    QTest::newRow("one digit") << QStringLiteral("<localAxis:E1>") << true << QStringLiteral("E01");
    QTest::newRow("three digits") << QStringLiteral("<localAxis:Z999>") << true
                                  << QStringLiteral("Z999");
    QTest::newRow("line feed behind it")
        << QStringLiteral("<localAxis:E12>\n") << true << QStringLiteral("E12");
}

void tst_AxisReference::parse()
{
    QFETCH(QString, text);
    QFETCH(bool, local);
    const std::optional<AxisReference> reference = AxisReference::parse(text);
    QVERIFY(reference);
    QCOMPARE(reference->axis() == AxisReference::eAxis::Local, local);
    QTEST(reference->coordinate().toText(), "coordinate");
}

void tst_AxisReference::parseRefuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("other text") << QStringLiteral("rpm");
    QTest::newRow("no end") << QStringLiteral("<localAxis:E12");
    QTest::newRow("text before it") << QStringLiteral(" <localAxis:E12>");
    QTest::newRow("text behind it") << QStringLiteral("<localAxis:E12> ");
    QTest::newRow("two line feeds behind it") << QStringLiteral("<localAxis:E12>\n\n");
    QTest::newRow("line feed before its end") << QStringLiteral("<localAxis:E12\n>");
    QTest::newRow("line feed without its end") << QStringLiteral("<localAxis:E12\n");
    QTest::newRow("other word") << QStringLiteral("<otherAxis:E12>");
    QTest::newRow("case counts") << QStringLiteral("<LocalAxis:E12>");
    QTest::newRow("no digit") << QStringLiteral("<localAxis:E>");
    QTest::newRow("four digits") << QStringLiteral("<localAxis:E1234>");
    QTest::newRow("lower-case group") << QStringLiteral("<localAxis:e12>");
    QTest::newRow("group of another alphabet") << QStringLiteral("<localAxis:Ä12>");
    QTest::newRow("digit of another script")
        << QStringLiteral("<localAxis:E") + QChar(0x0665) + QLatin1Char('>');
    QTest::newRow("two letters") << QStringLiteral("<localAxis:EE1>");
    QTest::newRow("no coordinate") << QStringLiteral("<localAxis:>");
}

void tst_AxisReference::parseRefuses()
{
    QFETCH(QString, text);
    QVERIFY(!AxisReference::parse(text));
}

void tst_AxisReference::resolveLocalAxis()
{
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = PlainKind;
    named.values = {
        {eLivingSpace::Axis1, QStringLiteral("one")}, {eLivingSpace::Axis2, QStringLiteral("two")}};
    container.add("E12", &named);
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis2),
        std::optional(QStringLiteral("two")));
}

void tst_AxisReference::resolveActiveAxis()
{
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = PlainKind;
    named.values = {
        {eLivingSpace::Axis1, QStringLiteral("one")}, {eLivingSpace::Axis2, QStringLiteral("two")}};
    container.add("E12", &named);
    QCOMPARE(reference("<activeAxis:E12>").resolve(&container, eLivingSpace::Axis2),
        std::optional(QStringLiteral("one")));
}

void tst_AxisReference::resolveGlobalParameter()
{
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = PlainKind;
    named.isGlobal = true;
    named.values = {{eLivingSpace::Global, QStringLiteral("all")}};
    container.add("E12", &named);
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis2),
        std::optional(QStringLiteral("all")));
}

void tst_AxisReference::resolveChoiceToItsEntryText()
{
    FakeContainer container;
    const auto named = choiceParameter(container, QStringLiteral("1: Torque"));
    container.add("E12", named.get());
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral("1: Torque")));

    named->values[eLivingSpace::Axis1] = QStringLiteral("2");
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral("2")));

    // No key stands before this colon.
    named->values[eLivingSpace::Axis1] = QStringLiteral(": Torque");
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral(": Torque")));
}

void tst_AxisReference::resolveWithoutContainer()
{
    QCOMPARE(reference("<localAxis:E12>").resolve(nullptr, eLivingSpace::Axis1), std::nullopt);
}

void tst_AxisReference::resolveWithoutParameter()
{
    FakeContainer container;
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis1), std::nullopt);
}

void tst_AxisReference::resolveWithoutInstance()
{
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = PlainKind;
    named.values = {{eLivingSpace::Axis1, QStringLiteral("one")}};
    container.add("E12", &named);
    QCOMPARE(reference("<localAxis:E12>").resolve(&container, eLivingSpace::Axis2), std::nullopt);
}

void tst_AxisReference::resolveRecord_data()
{
    QTest::addColumn<QList<quint16>>("elements");
    QTest::addColumn<std::optional<QString>>("text");
    QTest::newRow("element 0 alone") << QList<quint16> {0} << std::optional(QStringLiteral("one"));
    QTest::newRow("element 0 is not the first")
        << QList<quint16> {3, 0} << std::optional(QStringLiteral("one"));
    QTest::newRow("no element 0") << QList<quint16> {1, 2} << std::optional<QString>();
    QTest::newRow("no element") << QList<quint16>() << std::optional<QString>();
}

void tst_AxisReference::resolveRecord()
{
    QFETCH(QList<quint16>, elements);
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = PlainKind;
    named.isRecord = true;
    named.recordElements = elements;
    named.values = {{eLivingSpace::Axis1, QStringLiteral("one")}};
    container.add("E30", &named);
    QTEST(reference("<localAxis:E30>").resolve(&container, eLivingSpace::Axis1), "text");
}

void tst_AxisReference::placeholderOfARecordWithoutElement0StaysAsItStands()
{
    FakeContainer container;
    FakeParameterInformation record(&container);
    record.kindValue = PlainKind;
    record.isRecord = true;
    record.recordElements = {1, 2};
    record.values = {{eLivingSpace::Axis1, QStringLiteral("one")}};
    container.add("E30", &record);
    const auto choice = choiceParameter(container, QStringLiteral("<localAxis:E30>"));
    QCOMPARE(
        ValueTextConverter(*choice).prepare(QStringLiteral("1"), eLivingSpace::Axis1, 0, QString()),
        QStringLiteral("1: <localAxis:E30>"));
}

void tst_AxisReference::aCircleEnds()
{
    FakeContainer container;
    const auto self = choiceParameter(container, QStringLiteral("<localAxis:E01>"));
    const auto first = choiceParameter(container, QStringLiteral("<localAxis:E03>"));
    const auto second = choiceParameter(container, QStringLiteral("<localAxis:E02>"));
    container.add("E01", self.get());
    container.add("E02", first.get());
    container.add("E03", second.get());

    QCOMPARE(reference("<localAxis:E01>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral("<localAxis:E01>")));
    QCOMPARE(reference("<localAxis:E02>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral("<localAxis:E02>")));
    // What one call kept is gone with it.
    QCOMPARE(reference("<localAxis:E01>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral("<localAxis:E01>")));
}

void tst_AxisReference::aLongChainEnds()
{
    FakeContainer container;
    std::vector<std::unique_ptr<FakeParameterInformation>> chain;
    for (int line = 0; line < 999; ++line) {
        const QString next = QStringLiteral("<localAxis:E%1>").arg(line + 1);
        chain.push_back(choiceParameter(container, next));
        container.add(qPrintable(QStringLiteral("E%1").arg(line)), chain.back().get());
    }
    QCOMPARE(reference("<localAxis:E0>").resolve(&container, eLivingSpace::Axis1),
        std::optional(QStringLiteral("<localAxis:E32>")));
}

QTEST_APPLESS_MAIN(tst_AxisReference)
#include "tst_AxisReference.moc"
