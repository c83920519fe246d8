#include <KrParameterDefinition/RecordParameterDefinition.h>

#include <QtTest/QtTest>

using ElementNumbers = QList<quint16>;

namespace {

ParameterText germanText(const QString &text)
{
    ParameterText result;
    result.setText(QStringLiteral("de"), text, text);
    return result;
}

} // namespace

class tst_RecordParameterDefinition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutElements();
    void keepsTheOrderOfTheDefinition();
    void answersByNumber();
    void aRepeatedNumberKeepsItsFirstEntry();
    void holds16000Elements();
};

void tst_RecordParameterDefinition::withoutElements()
{
    const RecordParameterDefinition record({});
    QCOMPARE(record.elementCount(), quint16(0));
    QVERIFY(record.elementList().isEmpty());
    QVERIFY(record.elementSet().isEmpty());
    QVERIFY(!record.hasElement(0));
}

void tst_RecordParameterDefinition::keepsTheOrderOfTheDefinition()
{
    const RecordParameterDefinition record({{7, {}, 0}, {0, {}, 0}, {65535, {}, 0}, {3, {}, 0}});
    QCOMPARE(record.elementCount(), quint16(4));
    QCOMPARE(record.elementList(), ElementNumbers({7, 0, 65535, 3}));
    QCOMPARE(record.elementSet(), QSet<quint16>({0, 3, 7, 65535}));
}

void tst_RecordParameterDefinition::answersByNumber()
{
    const RecordParameterDefinition record({{7, germanText(QStringLiteral("Sieben")), 70},
        {3, germanText(QStringLiteral("Drei")), 30}});
    QVERIFY(record.hasElement(7));
    QVERIFY(record.hasElement(3));
    QCOMPARE(record.elementName(7).longText(), QStringLiteral("Sieben"));
    QCOMPARE(record.elementName(3).longText(), QStringLiteral("Drei"));
    QCOMPARE(record.elementNameCommonTextIndex(7), 70);
    QCOMPARE(record.elementNameCommonTextIndex(3), 30);

    // Positions are no numbers.
    QVERIFY(!record.hasElement(0));
    QVERIFY(record.elementName(0).isEmpty());
    QCOMPARE(record.elementNameCommonTextIndex(1), 0);
}

void tst_RecordParameterDefinition::aRepeatedNumberKeepsItsFirstEntry()
{
    const RecordParameterDefinition record({{7, germanText(QStringLiteral("erste")), 1},
        {7, germanText(QStringLiteral("zweite")), 2}, {8, germanText(QStringLiteral("acht")), 3}});
    QCOMPARE(record.elementList(), ElementNumbers({7, 8}));
    QCOMPARE(record.elementName(7).longText(), QStringLiteral("erste"));
    QCOMPARE(record.elementNameCommonTextIndex(7), 1);
    QCOMPARE(record.elementName(8).longText(), QStringLiteral("acht"));
}

void tst_RecordParameterDefinition::holds16000Elements()
{
    QList<RecordParameterDefinition::Element> elements;
    for (int number = 15999; number >= 0; --number)
        elements.append({quint16(number), {}, number + 1});
    const RecordParameterDefinition record(elements);

    QCOMPARE(record.elementCount(), quint16(16000));
    QCOMPARE(record.elementList().constFirst(), quint16(15999));
    for (int number = 0; number < 16000; ++number)
        QCOMPARE(record.elementNameCommonTextIndex(quint16(number)), number + 1);
    QVERIFY(!record.hasElement(16000));
}

QTEST_APPLESS_MAIN(tst_RecordParameterDefinition)
#include "tst_RecordParameterDefinition.moc"
