#include "value/AddressForm.h"
#include "value/BinaryForm.h"
#include "value/ChoiceForm.h"
#include "value/DecimalForm.h"
#include "value/HexadecimalForm.h"
#include "value/Ipv4Form.h"
#include "value/NumberText.h"
#include "value/SuffixRule.h"
#include "value/TimeForm.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

#include <bit>
#include <cmath>

/// Compares random numbers and typed texts with a process of plain C functions. The number of
/// rounds of each form is 100,000, or what KR_ORACLE_COUNT says.
class tst_NumberOracle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reading();
    void fixed();
    void general();
    void decimalForm();
    void suffix();
    void hexadecimal();
    void binary();
    void ipv4();
    void time();
    void typedDecimal();
    void typedChoice();
    void typedAddress();
    void shownHexadecimal();
    void shownBinary();
    void shownTime();
    void shownIpv4();
};

namespace {

constexpr int DefaultCount = 100000;
/// Lines that one process answers, which bounds the memory of a long run.
constexpr int BatchSize = 50000;
constexpr int ProcessTimeout = 120000;
const QString Point = QStringLiteral(".");

constexpr SimpleType Signed(4, SimpleType::SignedInteger, 8, "Signed 64 bit", "INT64");
constexpr SimpleType Byte(1, SimpleType::SignedInteger, 1, "Signed 8 bit", "INT8");
constexpr SimpleType Word(6, SimpleType::UnsignedInteger, 2, "Unsigned 16 bit", "UINT16");
constexpr SimpleType LongWord(3, SimpleType::SignedInteger, 4, "Signed 32 bit", "INT32");
constexpr SimpleType Unsigned(8, SimpleType::UnsignedInteger, 8, "Unsigned 64 bit", "UINT64");
constexpr SimpleType Single(9, SimpleType::FloatingPoint, 4, "Floating point 32 bit", "REAL32");
constexpr SimpleType Double(10, SimpleType::FloatingPoint, 8, "Floating point 64 bit", "REAL64");

struct Round {
    QByteArray question;
    QByteArray answer;
};

int count()
{
    const int wanted = qEnvironmentVariableIntValue("KR_ORACLE_COUNT");
    return wanted > 0 ? wanted : DefaultCount;
}

QByteArrayList oracleAnswers(const QByteArray &questions)
{
    QProcess oracle;
    oracle.start(QStringLiteral(NUMBER_ORACLE), {});
    oracle.write(questions);
    oracle.closeWriteChannel();
    if (!oracle.waitForFinished(ProcessTimeout))
        return {};
    return oracle.readAllStandardOutput().split('\n');
}

/// Asks `make` for as many rounds as are wanted and compares their answers with the oracle's.
template <typename Make>
void compare(Make make)
{
    QRandomGenerator random(20240229);
    for (int done = 0; done < count(); done += BatchSize) {
        QList<Round> rounds;
        QByteArray questions;
        for (int i = 0; i < std::min(BatchSize, count() - done); ++i) {
            rounds.append(make(random));
            questions += rounds.last().question + '\n';
        }
        const QByteArrayList answers = oracleAnswers(questions);
        QCOMPARE(answers.size(), rounds.size() + 1);
        for (qsizetype i = 0; i < rounds.size(); ++i) {
            if (rounds[i].answer != answers[i])
                QFAIL(rounds[i].question + ": " + rounds[i].answer + " is not " + answers[i]);
        }
    }
}

double anyDouble(QRandomGenerator &random)
{
    switch (random.bounded(6)) {
    case 0: // Any bits at all.
        return std::bit_cast<double>(random.generate64());
    case 1: // A tie of its last decimal.
        return (random.bounded(20000) - 10000) / 8.0;
    case 2: // About a power of ten.
        return std::pow(10.0, random.bounded(30) - 12) * (1 + (random.bounded(3) - 1) * 1e-9);
    case 3: // A single-precision number.
        return double(std::bit_cast<float>(random.generate()));
    case 4: // An integer.
        return double(qint64(random.generate64() >> random.bounded(64)));
    default: // As parameters have it.
        return (random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(12));
    }
}

QByteArray anyNumber(QRandomGenerator &random)
{
    return QByteArray::number(anyDouble(random), 'g', 17);
}

/// Pieces in any order: mostly near a valid text, never with a line end.
QByteArray anyText(QRandomGenerator &random, const QByteArrayList &pieces)
{
    QByteArray text;
    for (int length = random.bounded(12); length > 0; --length)
        text += pieces[random.bounded(int(pieces.size()))];
    return text;
}

int anyPrecision(QRandomGenerator &random)
{
    return random.bounded(20) == 0 ? random.bounded(1200) - 50 : random.bounded(20);
}

/// Of every width and sign, some beyond 64 bits, some no integer.
QByteArray anyInteger(QRandomGenerator &random)
{
    switch (random.bounded(8)) {
    case 0:
        return QByteArray::number(qint64(random.generate64()) >> random.bounded(64));
    case 1:
        return QByteArray::number(-qint64(random.bounded(300)));
    case 2:
        return QByteArray::number(quint64(random.generate64())) + "0";
    case 3:
        return "12.5";
    default:
        return QByteArray::number(quint64(random.generate64()) >> random.bounded(64));
    }
}

ParameterTextMap smallChoice()
{
    ParameterTextMap choice;
    for (const auto &[key, text] :
        {std::pair(-1, "Aus"), std::pair(3, "Drehmoment"), std::pair(10, "x: y")}) {
        ParameterText entry;
        entry.setText(QStringLiteral("de"), QString(), QString::fromLatin1(text));
        choice.insert(key, entry);
    }
    return choice;
}

/// What shows a number by the size of its type.
using ShowBySize = QString (*)(const QString &, const SimpleType *);

QByteArray answerOf(const std::optional<QString> &text)
{
    return text ? text->toLatin1() : QByteArray("refused");
}

QString latin1(const QByteArray &text)
{
    return QString::fromLatin1(text);
}

Round shownBySize(QRandomGenerator &random, char question, ShowBySize show)
{
    constexpr const SimpleType *Types[] = {&Byte, &Word, &LongWord, &Unsigned};
    const SimpleType *type = Types[random.bounded(4)];
    const QByteArray text = anyInteger(random);
    return {QByteArray(1, question) + ' ' + QByteArray::number(type->sizeInBytes()) + ' ' + text,
        show(latin1(text), type).toLatin1()};
}

/// The bits, because "not a number" and -0 count too.
QByteArray exactText(double value)
{
    if (std::isnan(value))
        return std::signbit(value) ? "-nan" : "nan";
    return QByteArray::number(std::bit_cast<quint64>(value), 16);
}

} // namespace

void tst_NumberOracle::reading()
{
    const QByteArrayList pieces {"0", "1", "9", "5", ".", "-", "+", "e", "E", "e-30", "e300",
        "e-308", "0x", "p", "p-1070", "f", "inf", "nan", "inity", " ", "(", ")",
        "99999999999999999", "00000000000000001", "x", ","};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text =
            random.bounded(2) == 0 ? anyNumber(random) : anyText(random, pieces);
        return {"R " + text, exactText(NumberText::toDouble(latin1(text)))};
    });
}

void tst_NumberOracle::fixed()
{
    compare([](QRandomGenerator &random) -> Round {
        const QByteArray text = anyNumber(random);
        const int precision = anyPrecision(random);
        QString answer;
        NumberText::appendFixed(answer, NumberText::toDouble(latin1(text)), precision);
        return {"F " + QByteArray::number(precision) + ' ' + text, answer.toLatin1()};
    });
}

void tst_NumberOracle::general()
{
    compare([](QRandomGenerator &random) -> Round {
        const QByteArray text = anyNumber(random);
        const int precision = anyPrecision(random);
        QString answer;
        NumberText::appendGeneral(answer, NumberText::toDouble(latin1(text)), precision);
        return {"G " + QByteArray::number(precision) + ' ' + text, answer.toLatin1()};
    });
}

void tst_NumberOracle::decimalForm()
{
    constexpr const SimpleType *Types[] = {&Signed, &Single, &Double};
    constexpr int Sizes[] = {0, 4, 8};
    compare([&](QRandomGenerator &random) -> Round {
        const QByteArray text = anyNumber(random);
        const int type = random.bounded(3);
        const int behind = anyPrecision(random);
        const int significant = random.bounded(3) == 0 ? 0 : std::abs(anyPrecision(random));
        const QString answer = DecimalForm::show(
            latin1(text), Types[type], {behind, quint32(significant)}, QString(), Point);
        return {"D " + QByteArray::number(Sizes[type]) + ' ' + QByteArray::number(behind) + ' '
                + QByteArray::number(significant) + ' ' + text,
            answer.toLatin1()};
    });
}

void tst_NumberOracle::suffix()
{
    const QByteArrayList pieces {"hex", "bin", "dec", "he", "x", "d", "0", "1f", " ", "HEX"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces);
        // A requested format that no suffix names tells that there was none.
        const QString typed = latin1(text);
        const SuffixRule::Number number = SuffixRule::apply(typed, SuffixRule::eFormat(-1));
        const QByteArray format = number.format == SuffixRule::eFormat::Hexadecimal ? "hex"
            : number.format == SuffixRule::eFormat::Binary                          ? "bin"
            : number.format == SuffixRule::eFormat::Decimal                         ? "dec"
                                                                                    : "none";
        return {"S " + text, format + " [" + number.text.toLatin1() + ']'};
    });
}

void tst_NumberOracle::hexadecimal()
{
    const QByteArrayList pieces {"0x", "0", "1", "a", "F", "ff", " ", "  ", "dead", "g", "-"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces.first(random.bounded(2) == 0 ? 9 : 11));
        const bool isSigned = random.bounded(2) == 0;
        const auto answer = HexadecimalForm::read(latin1(text), isSigned ? &Signed : &Unsigned);
        return {(isSigned ? "H s " : "H u ") + text, answerOf(answer)};
    });
}

void tst_NumberOracle::binary()
{
    const QByteArrayList pieces {"0", "1", " ", "1111 1111 ", "00000000", "1010101010101010", "2"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces.first(random.bounded(2) == 0 ? 6 : 7));
        const bool isSigned = random.bounded(2) == 0;
        const auto answer = BinaryForm::read(latin1(text), isSigned ? &Signed : &Unsigned);
        return {(isSigned ? "B s " : "B u ") + text, answerOf(answer)};
    });
}

void tst_NumberOracle::ipv4()
{
    const QByteArrayList pieces {"1.", "25", "255.", "6", "0.0.", ".", " ", "99.", "x"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces);
        return {"I " + text, answerOf(Ipv4Form::read(latin1(text)))};
    });
}

void tst_NumberOracle::time()
{
    const QByteArrayList pieces {"h", "m", "s", "9", "61", "123", " ", "2h", "05m", "07s"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces);
        return {"T " + text, TimeForm::read(latin1(text)).toLatin1()};
    });
}

void tst_NumberOracle::typedDecimal()
{
    const QByteArrayList pieces {"1", "25", ".", ",", "-", "e3", " ", "A", " A", "AA", "x"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces);
        const bool hasComma = random.bounded(2) == 0;
        const QString answer = DecimalForm::read(latin1(text), QStringLiteral("A"),
            hasComma ? QStringLiteral(",") : QStringLiteral("."));
        return {(hasComma ? "n " : "N ") + text, answer.toLatin1()};
    });
}

void tst_NumberOracle::typedChoice()
{
    const ParameterTextMap choice = smallChoice();
    const auto longText = [](const ParameterText &entry) { return entry.longText(); };
    const QByteArrayList pieces {
        "Aus", "Drehmoment", "x: y", "3", "-1", ":", " ", "+", "99", "Aus ", "999999999", "x"};
    compare([&](QRandomGenerator &random) -> Round {
        const QByteArray text = anyText(random, pieces).left(random.bounded(2) == 0 ? 5 : 60);
        const std::optional<QString> number = ChoiceForm::readNumber(latin1(text));
        const QString answer =
            number ? *number : ChoiceForm::readText(latin1(text), choice, longText);
        return {"C " + text, answer.toLatin1()};
    });
}

void tst_NumberOracle::typedAddress()
{
    const QByteArrayList pieces {"1.", "4.", "5.", "E", "Z", "12", "7", "999", "[", "]", "[3]",
        "[16383]", "[16384]", " ", " Strom", ":5", "-", "e"};
    compare([&pieces](QRandomGenerator &random) -> Round {
        QByteArray text = anyText(random, pieces);
        if (random.bounded(2) == 0)
            text = "2.E12" + text.left(7);
        return {"A " + text, AddressForm::read(latin1(text)).toLatin1()};
    });
}

void tst_NumberOracle::shownHexadecimal()
{
    compare(
        [](QRandomGenerator &random) { return shownBySize(random, 'h', HexadecimalForm::show); });
}

void tst_NumberOracle::shownBinary()
{
    compare([](QRandomGenerator &random) { return shownBySize(random, 'b', BinaryForm::show); });
}

void tst_NumberOracle::shownTime()
{
    compare([](QRandomGenerator &random) -> Round {
        const QByteArray text = anyInteger(random);
        return {"t " + text, TimeForm::show(latin1(text)).toLatin1()};
    });
}

void tst_NumberOracle::shownIpv4()
{
    compare([](QRandomGenerator &random) -> Round {
        const QByteArray text = anyInteger(random);
        return {"i " + text, Ipv4Form::show(latin1(text)).toLatin1()};
    });
}

QTEST_GUILESS_MAIN(tst_NumberOracle)
#include "tst_NumberOracle.moc"
