// Showing and reading each display form beside the bare std::to_chars or std::from_chars of the same
// number, and reading a shown value with its unit through the container.

#include "BenchmarkDevice.h"
#include "Measurement.h"
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

#include <QtCore/QCoreApplication>

#include <array>
#include <charconv>
#include <functional>

namespace {

/// So few that the texts stay in the cache: the forms are measured, not the memory.
constexpr int Count = 1000;
constexpr double ContainerBound = 4.0;

constexpr SimpleType Signed32(3, SimpleType::SignedInteger, 4, "Signed 32 bit", "INT32");
constexpr SimpleType Unsigned32(7, SimpleType::UnsignedInteger, 4, "Unsigned 32 bit", "UINT32");
constexpr SimpleType Single(9, SimpleType::FloatingPoint, 4, "Floating point 32 bit", "REAL32");
constexpr SimpleType Double(10, SimpleType::FloatingPoint, 8, "Floating point 64 bit", "REAL64");

const QString Point = QStringLiteral(".");
const QString Unit = QStringLiteral("A");

// The numbers of a series.

/// As drives have them: a few digits, some behind the point.
double realAt(int i)
{
    return double((i * 7919) % 900000 - 450000) / 100.0;
}

/// More places than are shown.
double longRealAt(int i)
{
    return realAt(i) / 1000.0;
}

/// Beyond the plain range of the engineering form.
double largeAt(int i)
{
    return (1e7 + double(i)) * 1234.5678;
}

quint32 wordAt(int i)
{
    return quint32(i) * 2654435761U;
}

/// Hours up to 99999, minutes and seconds below 60.
quint32 timeAt(int i)
{
    return quint32(i * 97 % 100000) << 12 | quint32(i % 60) << 6 | quint32(i * 7 % 60);
}

/// Axis, element and a coordinate from A00 on.
quint32 addressAt(int i)
{
    return quint32(i % 4) << 30 | quint32(i % 100) << 16 | quint32(1000 + i);
}

quint32 keyAt(int i)
{
    return quint32(i % 16);
}

ParameterTextMap makeChoice()
{
    ParameterTextMap choice;
    for (quint32 key = 0; key < 16; ++key) {
        ParameterText text;
        text.setText(QStringLiteral("de"), QString(), QStringLiteral("Betriebsart %1").arg(key));
        choice.insert(qint32(key), text);
    }
    return choice;
}

const ParameterTextMap &choice()
{
    static const ParameterTextMap map = makeChoice();
    return map;
}

QString longText(const ParameterText &entry)
{
    return entry.longText();
}

/// A form of a series of numbers: how the number is printed and read barely, shown and read by the
/// form. The functions answer with something that depends on their work.
struct Form {
    const char *name;
    QString (*valueText)(int i);
    qsizetype (*print)(int i, char *first, char *last);
    QString (*show)(const QString &valueText);
    double (*parse)(const char *first, const char *last);
    std::optional<QString> (*read)(const QString &shown);
    /// Another way to read what the form before shows.
    bool isOnlyRead = false;
};

template <typename Number>
QString textOf(Number value)
{
    return QString::number(value);
}

template <quint32 (*at)(int)>
QString wordText(int i)
{
    return textOf(at(i));
}

template <double (*at)(int)>
QString realText(int i)
{
    return NumberText::shortest(at(i));
}

template <quint32 (*at)(int), int base>
qsizetype printWord(int i, char *first, char *last)
{
    return std::to_chars(first, last, at(i), base).ptr - first;
}

template <double (*at)(int), int places>
qsizetype printFixed(int i, char *first, char *last)
{
    return std::to_chars(first, last, at(i), std::chars_format::fixed, places).ptr - first;
}

template <double (*at)(int), int digits>
qsizetype printGeneral(int i, char *first, char *last)
{
    return std::to_chars(first, last, at(i), std::chars_format::general, digits).ptr - first;
}

template <int base>
double parseWord(const char *first, const char *last)
{
    quint32 value = 0;
    std::from_chars(first, last, value, base);
    return double(value);
}

double parseReal(const char *first, const char *last)
{
    double value = 0.0;
    std::from_chars(first, last, value);
    return value;
}

template <const SimpleType &type, int behind, int significant>
QString showDecimal(const QString &valueText)
{
    return DecimalForm::show(valueText, &type, {behind, quint32(significant)}, Unit, Point);
}

std::optional<QString> readDecimal(const QString &shown)
{
    const SuffixRule::Number number = SuffixRule::apply(shown, SuffixRule::eFormat::Decimal);
    const bool isWhole = number.text.size() == shown.size();
    return DecimalForm::read(isWhole ? shown : number.text.toString(), Unit, Point);
}

QString showHexadecimal(const QString &valueText)
{
    return HexadecimalForm::show(valueText, &Unsigned32);
}

std::optional<QString> readHexadecimal(const QString &shown)
{
    const SuffixRule::Number number = SuffixRule::apply(shown, SuffixRule::eFormat::Hexadecimal);
    return HexadecimalForm::read(number.text, &Unsigned32);
}

QString showBinary(const QString &valueText)
{
    return BinaryForm::show(valueText, &Unsigned32);
}

std::optional<QString> readBinary(const QString &shown)
{
    const SuffixRule::Number number = SuffixRule::apply(shown, SuffixRule::eFormat::Binary);
    return BinaryForm::read(number.text, &Unsigned32);
}

QString showTime(const QString &valueText)
{
    return TimeForm::show(valueText);
}

std::optional<QString> readTime(const QString &shown)
{
    return TimeForm::read(shown);
}

QString showIpv4(const QString &valueText)
{
    return Ipv4Form::show(valueText);
}

std::optional<QString> readIpv4(const QString &shown)
{
    return Ipv4Form::read(shown);
}

QString showChoice(const QString &valueText)
{
    return ChoiceForm::show(valueText, choice(), longText);
}

std::optional<QString> readChoice(const QString &shown)
{
    return ChoiceForm::readNumber(shown);
}

QString showAddress(const QString &valueText)
{
    const std::optional<ParameterAddress> address = AddressForm::addressOf(valueText);
    static const QString name = QStringLiteral("Betriebsart");
    return AddressForm::show(address->toText(false, true), name);
}

std::optional<QString> readAddress(const QString &shown)
{
    return AddressForm::read(shown);
}

/// The entry's text alone, which is sought among the choice's.
std::optional<QString> readChoiceText(const QString &shown)
{
    return ChoiceForm::readText(
        shown.sliced(shown.indexOf(QLatin1Char(' ')) + 1), choice(), longText);
}

constexpr std::array Forms {
    Form {"decimal", realText<realAt>, printFixed<realAt, 2>, showDecimal<Signed32, 2, 0>,
        parseReal, readDecimal},
    Form {"decimal-rounded", realText<longRealAt>, printFixed<longRealAt, 2>,
        showDecimal<Signed32, 2, 0>, parseReal, readDecimal},
    Form {"address", wordText<addressAt>, printWord<addressAt, 10>, showAddress, parseWord<10>,
        readAddress},
    Form {"single", realText<realAt>, printGeneral<realAt, 6>, showDecimal<Single, 2, 6>, parseReal,
        readDecimal},
    Form {"engineering", realText<largeAt>, printGeneral<largeAt, 6>, showDecimal<Double, 2, 6>,
        parseReal, readDecimal},
    Form {"hexadecimal", wordText<wordAt>, printWord<wordAt, 16>, showHexadecimal, parseWord<16>,
        readHexadecimal},
    Form {"binary", wordText<wordAt>, printWord<wordAt, 2>, showBinary, parseWord<2>, readBinary},
    Form {"time", wordText<timeAt>, printWord<timeAt, 10>, showTime, parseWord<10>, readTime},
    Form {"ipv4", wordText<wordAt>, printWord<wordAt, 10>, showIpv4, parseWord<10>, readIpv4},
    Form {"choice", wordText<keyAt>, printWord<keyAt, 10>, showChoice, parseWord<10>, readChoice},
    Form {"choice-text", wordText<keyAt>, printWord<keyAt, 10>, showChoice, parseWord<10>,
        readChoiceText, true},
};

/// Measures `work` over the whole series; what it answers depends on all of it and is never 0.
void measureSeries(benchmark::State &state, const std::function<double()> &work)
{
    double sum = 0.0;
    measure(
        state, Count, [] {}, [&] { sum += work(); });
    check(state, sum != 0.0);
}

void showBare(benchmark::State &state, const Form &form)
{
    std::array<char, 64> buffer;
    measureSeries(state, [&] {
        double length = 0.0;
        for (int i = 0; i < Count; ++i) {
            length += double(form.print(i, buffer.data(), buffer.data() + buffer.size()));
            benchmark::DoNotOptimize(buffer.data());
            benchmark::ClobberMemory();
        }
        return length;
    });
}

void showForm(benchmark::State &state, const Form &form)
{
    QStringList valueTexts;
    for (int i = 0; i < Count; ++i)
        valueTexts.append(form.valueText(i));
    measureSeries(state, [&] {
        double length = 0.0;
        for (const QString &valueText : std::as_const(valueTexts))
            length += double(form.show(valueText).size());
        return length;
    });
}

void readBare(benchmark::State &state, const Form &form)
{
    std::array<char, 64> buffer;
    std::vector<std::string> numbers;
    for (int i = 0; i < Count; ++i) {
        const qsizetype size = form.print(i, buffer.data(), buffer.data() + buffer.size());
        numbers.emplace_back(buffer.data(), size_t(size));
    }
    measureSeries(state, [&] {
        double sum = 0.0;
        for (const std::string &number : numbers)
            sum += form.parse(number.data(), number.data() + number.size());
        return sum;
    });
}

void readForm(benchmark::State &state, const Form &form)
{
    QStringList shown;
    for (int i = 0; i < Count; ++i)
        shown.append(form.show(form.valueText(i)));
    measureSeries(state, [&] {
        double length = 0.0;
        for (const QString &text : std::as_const(shown))
            length += double(form.read(text).value_or(QString()).size());
        return length;
    });
}

// Through the container.

/// Shows so many decimal places of values that have two.
template <int decimals>
const BenchmarkDevice &device()
{
    static const BenchmarkDevice device(Count / BenchmarkDevice::AxisCount, decimals);
    return device;
}

double typedAt(int i)
{
    return double(i * 7 % 90000) / 100.0 + 10.0;
}

template <int decimals>
void containerBare(benchmark::State &state)
{
    std::vector<double> values;
    for (int i = 0; i < Count; ++i)
        values.push_back(typedAt(i));
    measureSeries(state, [&] {
        double length = 0.0;
        std::array<char, 64> buffer;
        for (const double value : values) {
            const auto printed = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                std::chars_format::fixed, decimals);
            const QString text =
                QString::fromLatin1(buffer.data(), printed.ptr - buffer.data()) + u' ' + Unit;
            length += double(text.size());
        }
        return length;
    });
}

template <int decimals>
void containerRead(benchmark::State &state)
{
    ParameterContainer container;
    const BenchmarkDevice &used = device<decimals>();
    container.setFirmware(used.firmware());
    used.fill(container);
    int i = 0;
    for (const ParameterCoordinate &coordinate : used.coordinates()) {
        for (int axis = 1; axis <= BenchmarkDevice::AxisCount; ++axis)
            container.writeValue(
                eLivingSpace(axis), coordinate, 0, QString::number(typedAt(i++), 'f', 2));
    }
    measureSeries(state, [&] {
        double length = 0.0;
        for (const ParameterCoordinate &coordinate : used.coordinates()) {
            for (int axis = 1; axis <= BenchmarkDevice::AxisCount; ++axis)
                length +=
                    double(container.readValue(eLivingSpace(axis), coordinate, 0, true).size());
        }
        return length;
    });
    const QString second =
        container.readValue(eLivingSpace::Axis2, used.coordinates().first(), 0, true);
    check(state, second == QLatin1String(decimals == 2 ? "10.07 A" : "10.1 A"));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    for (const Form &form : Forms) {
        const std::string name = form.name;
        const auto with = [&form](void (*function)(benchmark::State &, const Form &)) {
            return [&form, function](benchmark::State &state) { function(state, form); };
        };
        if (!form.isOnlyRead) {
            add("show-" + name + "/limit", Count, with(showBare));
            add("show-" + name + "/library", Count, with(showForm));
        }
        add("read-" + name + "/limit", Count, with(readBare));
        add("read-" + name + "/library", Count, with(readForm));
    }
    // The limit builds the string as well.
    add("container-read/limit", Count, containerBare<2>);
    add("container-read/library", Count, containerRead<2>);
    add("container-read-rounded/limit", Count, containerBare<1>);
    add("container-read-rounded/library", Count, containerRead<1>);
    return runPairs(argc, argv, Count,
        {{"container-read", ContainerBound}, {"container-read-rounded", ContainerBound}});
}
