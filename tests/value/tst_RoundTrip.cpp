#include "CarriedWhole.h"
#include "FakeParameterInformation.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QtTest>

#include <rapidcheck.h>

#include <array>
#include <cmath>
#include <limits>

/// A value text that its form carries whole (CarriedWhole.h lists the exceptions) reads back as it
/// was.
class tst_RoundTrip : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyByteAndWord_data();
    void everyByteAndWord();
    void negativeBytesReadBackUnsigned_data();
    void negativeBytesReadBackUnsigned();
    void integers_data();
    void integers();
    void decimalsOfIntegers();
    void decimalsOfStrings_data();
    void decimalsOfStrings();
    void floatingPoint_data();
    void floatingPoint();
    void engineering_data();
    void engineering();
    void integersOfOtherTypes_data();
    void integersOfOtherTypes();
    void textsAsTheyStand_data();
    void textsAsTheyStand();
};

namespace {

using namespace CarriedWhole;

constexpr std::array Forms {
    Decimal, Choice, OnlineChoice, Hexadecimal, Binary, Time, Ipv4, Address};

const QString Unit = QStringLiteral("A");

const SimpleType *typeOf(SimpleType::eKind kind, quint32 size)
{
    const QList<const SimpleType *> types = DatatypeProvider::instance()->simpleTypes();
    for (const SimpleType *type : types) {
        if (type->kind() == kind && type->sizeInBytes() == size)
            return type;
    }
    return nullptr;
}

QString textOf(const SimpleType &type, quint64 bits)
{
    return isSigned(type) ? QString::number(qint64(bits)) : QString::number(bits);
}

QVariant choiceOfTwo()
{
    ParameterText text;
    text.setText(QStringLiteral("de"), QString(), QStringLiteral("12: Drehmoment"));
    ParameterTextMap choice;
    choice.insert(0, text);
    choice.insert(-5, text);
    return QVariant::fromValue(choice);
}

/// A parameter of a form and a type, with a choice.
class Subject {
public:
    Subject(int kind, const SimpleType &type)
        : m_converter(information)
    {
        information.kindValue = kind;
        information.datatypeId = type.id();
        information.choice = choiceOfTwo();
    }

    QString shown(const QString &valueText)
    {
        return m_converter.prepare(valueText, eLivingSpace::Axis1, 0, Unit);
    }

    QString throughDisplay(const QString &valueText)
    {
        return m_converter.adopt(shown(valueText), eLivingSpace::Axis1, 0, Unit);
    }

    FakeParameterInformation information;

private:
    ValueTextConverter m_converter;
};

void addFormsAndSizes(std::initializer_list<quint32> sizes)
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("isSigned");
    QTest::addColumn<quint32>("size");
    for (const int kind : Forms) {
        for (const quint32 size : sizes) {
            QTest::addRow("kind %d, signed %u bytes", kind, size) << kind << true << size;
            QTest::addRow("kind %d, unsigned %u bytes", kind, size) << kind << false << size;
        }
    }
}

const SimpleType *integerType(bool isSigned, quint32 size)
{
    return typeOf(isSigned ? SimpleType::SignedInteger : SimpleType::UnsignedInteger, size);
}

qint64 lowestOf(const SimpleType &type)
{
    return isSigned(type) ? -(qint64(1) << (type.sizeInBytes() * 8 - 1)) : 0;
}

qint64 greatestOf(const SimpleType &type)
{
    return lowestOf(type) + (qint64(1) << (type.sizeInBytes() * 8)) - 1;
}

/// A number that was read back as text must be the same one.
bool isSameNumber(const QString &text, const QString &other)
{
    return text.toDouble() == other.toDouble();
}

} // namespace

void tst_RoundTrip::everyByteAndWord_data()
{
    addFormsAndSizes({1, 2});
}

void tst_RoundTrip::everyByteAndWord()
{
    QFETCH(int, kind);
    QFETCH(bool, isSigned);
    QFETCH(quint32, size);
    const SimpleType *type = integerType(isSigned, size);
    QVERIFY(type);
    Subject subject(kind, *type);
    for (qint64 value = lowestOf(*type); value <= greatestOf(*type); ++value) {
        const QString text = QString::number(value);
        if (isCarriedWhole(kind, *type, quint64(value)))
            QCOMPARE(subject.throughDisplay(text), text);
    }
}

void tst_RoundTrip::negativeBytesReadBackUnsigned_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("hexadecimal") << Hexadecimal;
    QTest::newRow("binary") << Binary;
}

// Deliberate: the firmware refuses what is read back.
void tst_RoundTrip::negativeBytesReadBackUnsigned()
{
    QFETCH(int, kind);
    const SimpleType *type = integerType(true, 1);
    QVERIFY(type);
    Subject subject(kind, *type);
    for (int value = -128; value < 0; ++value)
        QCOMPARE(subject.throughDisplay(QString::number(value)), QString::number(value + 256));
}

void tst_RoundTrip::integers_data()
{
    addFormsAndSizes({4, 8});
}

void tst_RoundTrip::integers()
{
    QFETCH(int, kind);
    QFETCH(bool, isSigned);
    QFETCH(quint32, size);
    const SimpleType *type = integerType(isSigned, size);
    QVERIFY(type);
    Subject subject(kind, *type);
    QVERIFY(rc::check([&] {
        // Small numbers and those near every power of two as often as large ones.
        const int shift = *rc::gen::inRange(0, 64);
        quint64 bits = *rc::gen::arbitrary<quint64>() >> shift;
        if (*rc::gen::arbitrary<bool>())
            bits = ~bits;
        if (size == 4)
            bits = isSigned ? quint64(qint64(qint32(bits))) : quint64(quint32(bits));
        RC_PRE(isCarriedWhole(kind, *type, bits));
        const QString text = textOf(*type, bits);
        RC_ASSERT(subject.throughDisplay(text) == text);
    }));
}

void tst_RoundTrip::decimalsOfIntegers()
{
    const SimpleType *type = integerType(true, 8);
    QVERIFY(type);
    Subject subject(Decimal, *type);
    QVERIFY(rc::check([&] {
        const int behind = *rc::gen::inRange(0, 7);
        const qint64 scaled = *rc::gen::inRange<qint64>(-99999999999999, 99999999999999);
        const QString text = QString::number(double(scaled) / std::pow(10.0, behind), 'f', behind);
        subject.information.behind = behind;
        RC_ASSERT(subject.throughDisplay(text) == text);
    }));
}

void tst_RoundTrip::decimalsOfStrings_data()
{
    QTest::addColumn<SimpleType::eKind>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("back");
    struct Row {
        const char *rule;
        const char *text;
        const char *shown;
        const char *back;
    };
    constexpr Row Rows[] = {
        {"digits read back", "12", "12 A", "12"},
        {"negative digits read back", "-7", "-7 A", "-7"},
        {"empty reads back", "", "", ""},
        {"blanks at the ends are lost", "  12 ", "12 A", "12"},
        {"the unit is lost", "12 A", "12 A", "12"},
        {"leading zeros are lost", "0012", "12 A", "12"},
        {"plain text shows as 0", "abc", "0 A", "0"},
        {"text behind a number is lost", "12abc", "12 A", "12"},
        {"blanks alone show as 0", "  ", "0 A", "0"},
    };
    for (const Row &row : Rows) {
        QTest::addRow("characters: %s", row.rule)
            << SimpleType::CharacterString << QString::fromLatin1(row.text)
            << QString::fromLatin1(row.shown) << QString::fromLatin1(row.back);
        QTest::addRow("bytes: %s", row.rule)
            << SimpleType::ByteString << QString::fromLatin1(row.text)
            << QString::fromLatin1(row.shown) << QString::fromLatin1(row.back);
    }
}

// Deliberate: the decimal form shows a number whatever the type, so that of a string only a number
// reads back.
void tst_RoundTrip::decimalsOfStrings()
{
    QFETCH(SimpleType::eKind, kind);
    QFETCH(QString, text);
    const SimpleType *type = typeOf(kind, 8);
    QVERIFY(type);
    Subject subject(Decimal, *type);
    QTEST(subject.shown(text), "shown");
    QTEST(subject.throughDisplay(text), "back");
}

void tst_RoundTrip::floatingPoint_data()
{
    QTest::addColumn<quint32>("size");
    QTest::addColumn<qint64>("greatest");
    QTest::newRow("single precision, 7 digits") << 4U << qint64(9999999);
    QTest::newRow("double precision, 15 digits") << 8U << qint64(999999999999999);
}

void tst_RoundTrip::floatingPoint()
{
    QFETCH(quint32, size);
    QFETCH(qint64, greatest);
    const SimpleType *type = typeOf(SimpleType::FloatingPoint, size);
    QVERIFY(type);
    Subject subject(Decimal, *type);
    QVERIFY(rc::check([&] {
        const int behind = *rc::gen::inRange(0, 6);
        const qint64 scaled = *rc::gen::inRange<qint64>(-greatest, greatest);
        const QString text = QString::number(double(scaled) / std::pow(10.0, behind), 'f', behind);
        subject.information.behind = behind;
        RC_ASSERT(subject.throughDisplay(text) == text);
    }));
}

void tst_RoundTrip::engineering_data()
{
    QTest::addColumn<quint32>("size");
    QTest::addColumn<int>("mostDigits");
    QTest::newRow("single precision") << 4U << 6;
    QTest::newRow("double precision") << 8U << 15;
}

void tst_RoundTrip::engineering()
{
    QFETCH(quint32, size);
    QFETCH(int, mostDigits);
    const SimpleType *type = typeOf(SimpleType::FloatingPoint, size);
    QVERIFY(type);
    Subject subject(Decimal, *type);
    QVERIFY(rc::check([&] {
        const int digits = *rc::gen::inRange(4, mostDigits + 1);
        const qint64 greatest = qint64(std::pow(10.0, digits)) - 1;
        const qint64 number = *rc::gen::inRange<qint64>(-greatest, greatest);
        const int exponent = *rc::gen::inRange(-30, 30);
        const QString text = QStringLiteral("%1e%2").arg(number).arg(exponent);
        subject.information.significant = quint32(digits);
        const QString back = subject.throughDisplay(text);
        RC_ASSERT(isSameNumber(back, text));
        RC_ASSERT(subject.throughDisplay(back) == back);
    }));
}

void tst_RoundTrip::integersOfOtherTypes_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint8>("datatype");
    for (const int kind : {Choice, OnlineChoice, Time, Ipv4, Address}) {
        for (const SimpleType *type : DatatypeProvider::instance()->simpleTypes()) {
            if (type->kind() != SimpleType::SignedInteger
                && type->kind() != SimpleType::UnsignedInteger)
                QTest::addRow("kind %d, %s", kind, qPrintable(type->shortName()))
                    << kind << type->id();
        }
    }
}

// These forms do not ask for the type.
void tst_RoundTrip::integersOfOtherTypes()
{
    QFETCH(int, kind);
    QFETCH(quint8, datatype);
    const SimpleType *type = DatatypeProvider::instance()->simpleType(datatype);
    QVERIFY(type);
    Subject subject(kind, *type);
    QVERIFY(rc::check([&] {
        const quint64 bits = *rc::gen::arbitrary<quint64>() >> *rc::gen::inRange(0, 64);
        RC_PRE(isCarriedWhole(kind, *type, bits));
        const QString text = QString::number(bits);
        RC_ASSERT(subject.throughDisplay(text) == text);
    }));
}

void tst_RoundTrip::textsAsTheyStand_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint8>("datatype");
    for (const int kind : {5, 6, 8, 9, -1, 12}) {
        for (const SimpleType *type : DatatypeProvider::instance()->simpleTypes())
            QTest::addRow("kind %d, data type %d", kind, type->id()) << kind << type->id();
    }
    for (const int kind : Forms) {
        QTest::addRow("kind %d, the data type that is never formatted", kind)
            << kind << DatatypeProvider::UnformattedId;
    }
}

void tst_RoundTrip::textsAsTheyStand()
{
    QFETCH(int, kind);
    QFETCH(quint8, datatype);
    const SimpleType *type = DatatypeProvider::instance()->simpleType(datatype);
    QVERIFY(type);
    Subject subject(kind, *type);
    QVERIFY(rc::check([&] {
        const std::u16string characters =
            *rc::gen::container<std::u16string>(rc::gen::arbitrary<char16_t>());
        const QString text = QString::fromStdU16String(characters);
        RC_ASSERT(subject.throughDisplay(text) == text);
    }));
}

QTEST_APPLESS_MAIN(tst_RoundTrip)
#include "tst_RoundTrip.moc"
