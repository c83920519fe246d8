#include "FakeParameterInformation.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QtTest>

#include <rapidcheck.h>

#include <array>
#include <cmath>
#include <limits>

/// A value text that its form carries whole reads back as it was. The forms do not carry whole:
///
/// - decimal: integers beyond 2^53, because the form goes through a double; more than 15
/// significant
///   digits; digits beyond those shown; up to three significant digits in the engineering form,
///   which cuts the zeros of a mantissa without point;
/// - hexadecimal: negative values of 8 to 32 bits, which read back unsigned, and what lies above
/// the
///   low 32 bits of 64; types that are no integers, whose text has no suffix;
/// - binary: negative values of 8 to 32 bits, which read back unsigned; types that are no integers;
/// - time: negative values, those beyond 32 bits, more than 99999 hours, and minutes and seconds
/// above
///   59, which carry;
/// - IPv4: negative values and those beyond 32 bits;
/// - choice: nothing is lost of an integer.
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
    void floatingPoint_data();
    void floatingPoint();
    void engineering();
    void textsAsTheyStand_data();
    void textsAsTheyStand();
};

namespace {

constexpr int Decimal = 0;
constexpr int Choice = 1;
constexpr int OnlineChoice = 2;
constexpr int Hexadecimal = 3;
constexpr int Binary = 4;
constexpr int Time = 7;
constexpr int Ipv4 = 10;
constexpr int Address = 11;
constexpr std::array Forms {
    Decimal, Choice, OnlineChoice, Hexadecimal, Binary, Time, Ipv4, Address};

constexpr qint64 LastExactInteger = qint64(1) << 53;
constexpr qint64 LastLow32 = 0xFFFFFFFF;
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

bool isSigned(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger;
}

/// The value is given as the 64 bits of its type.
bool isCarriedWhole(int kind, const SimpleType &type, quint64 bits)
{
    const bool isNegative = isSigned(type) && qint64(bits) < 0;
    switch (kind) {
    case Decimal:
        return isNegative ? qint64(bits) >= -LastExactInteger : bits <= quint64(LastExactInteger);
    case Hexadecimal:
        return !isNegative && bits <= quint64(LastLow32);
    case Binary:
        return !isNegative || type.sizeInBytes() == 8;
    case Time:
        return !isNegative && bits <= quint64(LastLow32) && (bits & 63) < 60
            && (bits >> 6 & 63) < 60 && bits >> 12 <= 99999;
    case Ipv4:
        return !isNegative && bits <= quint64(LastLow32);
    default:
        return true;
    }
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

    QString throughDisplay(const QString &valueText)
    {
        const QString shown = m_converter.prepare(valueText, eLivingSpace::Axis1, 0, Unit);
        return m_converter.adopt(shown, eLivingSpace::Axis1, 0, Unit);
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
        RC_ASSERT(isSameNumber(subject.throughDisplay(text), text));
    }));
}

void tst_RoundTrip::engineering()
{
    const SimpleType *type = typeOf(SimpleType::FloatingPoint, 8);
    QVERIFY(type);
    Subject subject(Decimal, *type);
    QVERIFY(rc::check([&] {
        const int digits = *rc::gen::inRange(4, 15);
        const qint64 greatest = qint64(std::pow(10.0, digits)) - 1;
        const qint64 number = *rc::gen::inRange<qint64>(-greatest, greatest);
        const int exponent = *rc::gen::inRange(-40, 40);
        const QString text = QStringLiteral("%1e%2").arg(number).arg(exponent);
        subject.information.significant = quint32(digits);
        RC_ASSERT(isSameNumber(subject.throughDisplay(text), text));
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
