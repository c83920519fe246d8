#include <KrMultilingual/ParameterTextMap.h>

#include <QtCore/QVariantMap>
#include <QtTest/QtTest>

#include <limits>

namespace {

ParameterText germanText(const QString &text)
{
    ParameterText result;
    result.setText(QStringLiteral("de"), text, text);
    return result;
}

ParameterTextMap offAndOn()
{
    ParameterTextMap map;
    map.insert(1, germanText(QStringLiteral("ein")));
    map.insert(0, germanText(QStringLiteral("aus")));
    map.insert(-1, germanText(QStringLiteral("defekt")));
    return map;
}

} // namespace

class tst_ParameterTextMap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // First: nothing of the library but the type itself was used before.
    void convertersAreThereAtLoad();
    void isEmptyByDefault();
    void answersByNumberAscending();
    void insertReplaces();
    void comparesByContent();
    void convertsToVariantMap();
    void convertsFromVariantMap();
    void otherKeysAreLeftOut_data();
    void otherKeysAreLeftOut();
    void returnsFromVariantMap();
};

void tst_ParameterTextMap::convertersAreThereAtLoad()
{
    QVERIFY(QMetaType::canConvert(
        QMetaType::fromType<QVariantMap>(), QMetaType::fromType<ParameterTextMap>()));
    QVERIFY(QMetaType::canConvert(
        QMetaType::fromType<ParameterTextMap>(), QMetaType::fromType<QVariantMap>()));
}

void tst_ParameterTextMap::isEmptyByDefault()
{
    const ParameterTextMap map;
    QVERIFY(map.isEmpty());
    QVERIFY(map.keys().isEmpty());
    QVERIFY(!map.contains(0));
    QVERIFY(map.text(0).isEmpty());
}

void tst_ParameterTextMap::answersByNumberAscending()
{
    const ParameterTextMap map = offAndOn();
    QVERIFY(!map.isEmpty());
    QCOMPARE(map.keys(), QList<qint32>({-1, 0, 1}));
    QVERIFY(map.contains(-1));
    QVERIFY(!map.contains(2));
    QCOMPARE(map.text(1).longText(), QStringLiteral("ein"));
    QVERIFY(map.text(2).isEmpty());
}

void tst_ParameterTextMap::insertReplaces()
{
    ParameterTextMap map = offAndOn();
    map.insert(1, germanText(QStringLiteral("an")));
    QCOMPARE(map.keys(), QList<qint32>({-1, 0, 1}));
    QCOMPARE(map.text(1).longText(), QStringLiteral("an"));
}

void tst_ParameterTextMap::comparesByContent()
{
    QVERIFY(offAndOn() == offAndOn());
    QVERIFY(!(offAndOn() == ParameterTextMap()));
    ParameterTextMap other = offAndOn();
    other.insert(1, germanText(QStringLiteral("an")));
    QVERIFY(!(other == offAndOn()));
}

void tst_ParameterTextMap::convertsToVariantMap()
{
    const QVariantMap variants = QVariant::fromValue(offAndOn()).toMap();
    QCOMPARE(variants.keys(),
        QStringList({QStringLiteral("-1"), QStringLiteral("0"), QStringLiteral("1")}));
    QCOMPARE(variants.value(QStringLiteral("-1")).toString(), QStringLiteral("defekt"));

    ParameterTextMap wide;
    wide.insert(std::numeric_limits<qint32>::min(), ParameterText());
    wide.insert(1234567, ParameterText());
    QCOMPARE(QVariant::fromValue(wide).toMap().keys(),
        QStringList({QStringLiteral("-2147483648"), QStringLiteral("1234567")}));
}

void tst_ParameterTextMap::convertsFromVariantMap()
{
    const QVariantMap variants {{QStringLiteral("10"), QStringLiteral("zehn")},
        {QStringLiteral("-2"), QVariant::fromValue(germanText(QStringLiteral("minus zwei")))}};
    ParameterTextMap map;
    QVERIFY(QMetaType::convert(QMetaType::fromType<QVariantMap>(), &variants,
        QMetaType::fromType<ParameterTextMap>(), &map));
    QCOMPARE(map.keys(), QList<qint32>({-2, 10}));
    QCOMPARE(map.text(10).longText(), QStringLiteral("zehn"));
    QCOMPARE(map.text(-2).longText(), QStringLiteral("minus zwei"));
}

void tst_ParameterTextMap::otherKeysAreLeftOut_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("empty") << QString();
    QTest::newRow("word") << QStringLiteral("ein");
    QTest::newRow("fraction") << QStringLiteral("1.5");
    QTest::newRow("group separator") << QStringLiteral("1.000");
    QTest::newRow("hexadecimal") << QStringLiteral("0x1");
    QTest::newRow("above 32 bits") << QStringLiteral("2147483648");
    QTest::newRow("below 32 bits") << QStringLiteral("-2147483649");
}

void tst_ParameterTextMap::otherKeysAreLeftOut()
{
    QFETCH(QString, key);
    const QVariantMap variants {
        {key, QStringLiteral("x")}, {QStringLiteral("7"), QStringLiteral("y")}};
    QCOMPARE(QVariant(variants).value<ParameterTextMap>().keys(), QList<qint32>({7}));
}

void tst_ParameterTextMap::returnsFromVariantMap()
{
    const QVariantMap variants = QVariant::fromValue(offAndOn()).toMap();
    QCOMPARE(QVariant(variants).value<ParameterTextMap>(), offAndOn());
}

QTEST_GUILESS_MAIN(tst_ParameterTextMap)
#include "tst_ParameterTextMap.moc"
