// Any text through the value-text converter, shown and read, for every kind, data type and number of
// places.
//
// input       = kind type behind significant options text
// kind        = byte    ; modulo 14, less 1: the known kinds, one below and one above
// type        = byte    ; data type id, modulo 33: some are unknown
// behind      = byte    ; decimal places, signed; from 100 on far beyond what is printed
// significant = byte    ; digits
// options     = byte    ; bits: 0 text is UTF-16, 1 with unit; all of 3 to 7: text is repeated

#include "fuzz/Rule.h"
#include "tests/value/CarriedWhole.h"
#include "tests/value/FakeParameterInformation.h"
#include "value/DecimalForm.h"
#include "value/NumberText.h"
#include "value/SuffixRule.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtCore/QRegularExpression>

#include <cfloat>
#include <cmath>
#include <ctime>

namespace {

using namespace CarriedWhole;

constexpr size_t HeadSize = 5;
constexpr int KindCount = 14;
constexpr quint8 DatatypeEnd = DatatypeProvider::UnformattedId + 2;
constexpr quint8 Utf16Option = 1;
constexpr quint8 UnitOption = 2;
constexpr quint8 RepeatOptions = 0xF8;
/// Of a repeated text: quadratic work takes many seconds, linear work some milliseconds.
constexpr qsizetype RepeatedSize = 1 << 18;
constexpr double MostSeconds = 0.5;
/// The patterns are asked about texts up to here; some of them are quadratic.
constexpr qsizetype LongestForPattern = 200;
constexpr auto Space = eLivingSpace::Axis1;

struct Input {
    int kind = 0;
    const SimpleType *type = nullptr;
    QString unit;
    QString text;
    bool isRepeated = false;
};

ParameterText german(const char *text)
{
    ParameterText result;
    result.setText(QStringLiteral("de"), QString(), QString::fromUtf8(text));
    return result;
}

/// A parameter whose choice refers to itself, in a container that holds it as E12.
class Subject {
public:
    Subject()
        : information(&m_container)
        , converter(information)
    {
        ParameterTextMap choice;
        choice.insert(0, german("Aus"));
        choice.insert(-3, german("12: Drehmoment"));
        choice.insert(7, german("<localAxis:E12>"));
        choice.insert(8, german("<activeAxis:E99>"));
        information.choice = QVariant::fromValue(choice);
        information.nameText = german("Strom");
        information.significant = 0;
        m_container.add("E12", &information);
    }

    Input take(const uint8_t *data, size_t size)
    {
        Input input;
        input.kind = data[0] % KindCount - 1;
        information.kindValue = input.kind;
        information.datatypeId = data[1] % DatatypeEnd;
        input.type = DatatypeProvider::instance()->simpleType(information.datatypeId);
        const auto behind = qint8(data[2]);
        information.behind = behind >= 100 ? behind * 1000 : behind;
        information.significant = data[3];
        if (data[4] & UnitOption)
            input.unit = QStringLiteral("m/s\u00b2");
        const auto *text = reinterpret_cast<const char *>(data + HeadSize);
        const qsizetype length = qsizetype(size - HeadSize);
        if (data[4] & Utf16Option) {
            input.text = QString(length / 2, Qt::Uninitialized);
            memcpy(input.text.data(), text, size_t(length / 2) * 2);
        } else {
            input.text = QString::fromLatin1(text, length);
        }
        input.isRepeated = (data[4] & RepeatOptions) == RepeatOptions && !input.text.isEmpty();
        if (input.isRepeated)
            input.text = input.text.repeated(RepeatedSize / input.text.size() + 1);
        information.values = {{Space, input.text}};
        information.asked.clear();
        return input;
    }

private:
    FakeContainer m_container;

public:
    FakeParameterInformation information;
    ValueTextConverter converter;
};

double processorSeconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

bool hasForm(const Input &input)
{
    return input.kind >= 0 && input.kind <= Address
        && (!input.type || input.type->id() != DatatypeProvider::UnformattedId);
}

bool hasFormOf(const Input &input, int kind)
{
    return hasForm(input) && input.kind == kind;
}

std::optional<QString> adopted(Subject &subject, const Input &input, const QString &text)
{
    const QString valueText = subject.converter.adopt(text, Space, 0, input.unit);
    const QStringList &problems = subject.converter.problems();
    requireRule(problems.size() <= 1, "one text, one problem");
    requireRule(problems.isEmpty() || valueText.isEmpty(), "a refused text gives no value text");
    return problems.isEmpty() ? std::optional(valueText) : std::nullopt;
}

// What the patterns say, in their own words.

std::optional<QString> digitsByPattern(
    const QRegularExpression &pattern, int group, int base, const QString &text, bool isSigned)
{
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    const QString digits = match.captured(group).remove(QLatin1Char(' '));
    if (digits.isEmpty())
        return QStringLiteral("0");
    bool fits = false;
    const qulonglong value = digits.toULongLong(&fits, base);
    if (!fits)
        return {};
    return isSigned ? QString::number(qlonglong(value)) : QString::number(value);
}

std::optional<QString> ipv4ByPattern(QString text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})"));
    const QRegularExpressionMatch match = pattern.match(text.remove(QLatin1Char(' ')));
    if (!match.hasMatch())
        return {};
    quint32 value = 0;
    for (int part = 1; part <= 4; ++part) {
        const uint number = match.captured(part).toUInt();
        if (number > 255)
            return {};
        value = value * 256 + number;
    }
    return QString::number(value);
}

/// The number with its sign where the whole text is one of 64 bits, blanks of the "C" locale around it.
std::optional<QString> integerByPattern(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A[\\x09-\\x0d ]*([+-]?)([0-9]+)[\\x09-\\x0d ]*\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    bool fits = false;
    const bool isNegative = match.captured(1) == QLatin1String("-");
    if (isNegative) {
        const qlonglong value = (QLatin1Char('-') + match.captured(2)).toLongLong(&fits);
        return fits ? std::optional(QString::number(value)) : std::nullopt;
    }
    const qulonglong value = match.captured(2).toULongLong(&fits);
    return fits ? std::optional(QString::number(value)) : std::nullopt;
}

/// Of the subject's choice. Its entry 7 is the text of the subject's own value, which is what was typed.
QString choiceByRule(const QString &text)
{
    if (const std::optional<QString> number =
            integerByPattern(text.section(QLatin1Char(':'), 0, 0)))
        return *number;
    if (text.trimmed().isEmpty())
        return text;
    return text.trimmed() == QLatin1String("Aus") ? QStringLiteral("0") : QStringLiteral("7");
}

QString addressByPattern(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A(?:([1-4])\\.)?([A-Z])([0-9]{1,3})(?:\\[([0-9]{1,5})\\])?\\z"));
    const QString typed = text.trimmed();
    // Of a number not even its zeros change; one beyond 63 bits is none.
    bool isNumber = false;
    integerByPattern(typed).value_or(QString()).toLongLong(&isNumber);
    if (isNumber)
        return typed;
    const QRegularExpressionMatch match = pattern.match(typed.section(QLatin1Char(' '), 0, 0));
    const uint element = match.captured(4).toUInt();
    if (!match.hasMatch() || element > 16383)
        return text;
    const uint axis = match.captured(1).isEmpty() ? 0 : match.captured(1).toUInt() - 1;
    const uint group = match.captured(2).at(0).unicode() - u'A' + 1;
    const uint coordinate = group * 1000 + match.captured(3).toUInt();
    return QString::number(axis << 30 | element << 16 | coordinate);
}

QString timeByPattern(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(([0-9]{0,5})h)?[ ]?(([0-9]{0,2})m)?[ ]?(([0-9]{0,2})s)?"));
    const QRegularExpressionMatch match = pattern.match(text);
    const uint seconds = match.captured(6).toUInt();
    const uint minutes = match.captured(4).toUInt() + seconds / 60;
    const uint hours = match.captured(2).toUInt() + minutes / 60;
    return QString::number(hours * 4096 + minutes % 60 * 64 + seconds % 60);
}

void checkPatterns(const Input &input, const std::optional<QString> &valueText)
{
    // No pattern answers for half a character.
    if (input.text.size() > LongestForPattern || !input.text.isValidUtf16() || !hasForm(input))
        return;
    if (input.kind == Time)
        requireRule(valueText == timeByPattern(input.text), "a time reads like its pattern");
    if (input.kind == Ipv4)
        requireRule(valueText == ipv4ByPattern(input.text), "an address reads like its pattern");
    if (input.kind == Choice || input.kind == OnlineChoice)
        requireRule(
            valueText == choiceByRule(input.text), "a choice reads as a number or an entry");
    if (input.kind == Address)
        requireRule(valueText == addressByPattern(input.text),
            "an address of a parameter reads like its text");
    if (input.kind != Decimal && input.kind != Hexadecimal && input.kind != Binary)
        return;

    static const QRegularExpression suffix(QStringLiteral("(.*)(hex|bin|dec)"));
    static const QRegularExpression hexadecimal(QStringLiteral("^(0x)?([0-9a-fA-F ]+)[ ]*$"));
    static const QRegularExpression binary(QStringLiteral("^((1|0| )+)$"));
    const QRegularExpressionMatch match = suffix.match(input.text);
    const QString name = match.captured(2);
    const QString number = match.hasMatch() ? match.captured(1) : input.text;
    const bool isSigned = input.type && CarriedWhole::isSigned(*input.type);
    if (name == QLatin1String("hex") || (name.isEmpty() && input.kind == Hexadecimal)) {
        requireRule(valueText == digitsByPattern(hexadecimal, 2, 16, number, isSigned),
            "hexadecimal digits read like their pattern");
    } else if (name == QLatin1String("bin") || (name.isEmpty() && input.kind == Binary)) {
        requireRule(valueText == digitsByPattern(binary, 1, 2, number, isSigned),
            "binary digits read like their pattern");
    } else {
        requireRule(valueText.has_value(), "a decimal number is left to the firmware");
    }
}

bool isFloatingPoint(const SimpleType &type)
{
    return type.kind() == SimpleType::FloatingPoint;
}

/// How far a shown number may lie from what it shows; empty where the form may lose it.
std::optional<double> decimalTolerance(
    const FakeParameterInformation &information, const SimpleType &type, double value)
{
    const double magnitude = std::fabs(value);
    const int precision = information.behind < 0 ? 6 : std::min(information.behind, 1100);
    const double places = 0.5000001 * std::pow(10.0, -precision);
    if (!isFloatingPoint(type))
        return places + magnitude * 1e-15;

    const bool isDouble = type.sizeInBytes() == 8;
    const bool isNormal = isDouble ? magnitude >= DBL_MIN : magnitude >= double(FLT_MIN);
    // Rounded up, the greatest numbers are infinite.
    const bool isInRange = magnitude <= (isDouble ? DBL_MAX : double(FLT_MAX)) * 0.99;
    const double exactness = magnitude * (isDouble ? 1e-13 : 1e-5);
    if (information.significant == 0)
        return magnitude == 0 || (isNormal && magnitude <= DBL_MAX * 0.99)
            ? std::optional(places + exactness)
            : std::nullopt;
    // Fewer digits leave a mantissa without point, of which the zeros are cut.
    if (information.significant < 5 || !isNormal || !isInRange)
        return {};
    return exactness + magnitude * std::pow(10.0, 1 - int(information.significant));
}

void checkDecimal(Subject &subject, const Input &input, const QString &shown)
{
    if (!input.type) {
        requireRule(shown.isEmpty(), "a number of unknown type shows nothing");
        return;
    }
    const QString &point = DecimalForm::systemDecimalPoint();
    const double value =
        NumberText::toDouble(QString(input.text).replace(point, QStringLiteral(".")));
    const std::optional<QString> back = adopted(subject, input, shown);
    requireRule(back.has_value(), "a shown number is adopted");
    if (!std::isfinite(value))
        return;
    const auto tolerance = decimalTolerance(subject.information, *input.type, value);
    if (tolerance)
        requireRule(std::fabs(NumberText::toDouble(*back) - value) <= *tolerance,
            "a shown number reads back as far as its digits say");
}

/// The bits of a plainly written integer of the type.
std::optional<quint64> integerOf(const QString &text, const SimpleType &type)
{
    const int bits = int(type.sizeInBytes()) * 8;
    if (bits < 8 || bits > 64)
        return {};
    if (isSigned(type)) {
        const qlonglong value = text.toLongLong();
        const qlonglong greatest = qlonglong(~0ULL >> (65 - bits));
        const bool isPlain = QString::number(value) == text;
        return isPlain && value <= greatest && value >= -greatest - 1
            ? std::optional(quint64(value))
            : std::nullopt;
    }
    const qulonglong value = text.toULongLong();
    const bool isPlain = QString::number(value) == text && value <= ~0ULL >> (64 - bits);
    return isPlain ? std::optional(quint64(value)) : std::nullopt;
}

void checkRoundTrip(Subject &subject, const Input &input, const QString &shown)
{
    const SimpleType *type = input.type;
    if (!type || (!isSigned(*type) && type->kind() != SimpleType::UnsignedInteger))
        return;
    // Places behind are shown as zeros.
    if (input.kind == Decimal && subject.information.behind != 0)
        return;
    const std::optional<quint64> bits = integerOf(input.text, *type);
    if (bits && isCarriedWhole(input.kind, *type, *bits))
        requireRule(adopted(subject, input, shown) == input.text, "a shown integer reads back");
}

void convert(Subject &subject, const Input &input)
{
    const double start = processorSeconds();
    const std::optional<QString> valueText = adopted(subject, input, input.text);
    const QString shown = subject.converter.prepare(input.text, Space, 0, input.unit);
    requireRule(!input.isRepeated || processorSeconds() - start < MostSeconds,
        "the work grows no faster than the text");

    checkPatterns(input, valueText);
    if (input.text.isEmpty())
        requireRule(shown.isEmpty(), "an empty text shows nothing");
    else if (hasFormOf(input, Decimal))
        checkDecimal(subject, input, shown);
    if (!hasForm(input))
        requireRule(shown == input.text && valueText == input.text, "no form, no change");
    checkRoundTrip(subject, input, shown);
    subject.converter.adoptDefault(input.text, 0);
    subject.converter.choiceTexts(Space, 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // Never destroyed: the fuzzer ends the process where it stands.
    static auto &subject = *new Subject;
    if (size >= HeadSize)
        convert(subject, subject.take(data, size));
    return 0;
}
