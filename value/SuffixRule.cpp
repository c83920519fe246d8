#include "value/SuffixRule.h"

#include <QtCore/QLatin1StringView>

#include <algorithm>
#include <array>

namespace {

struct Suffix {
    QLatin1StringView text;
    SuffixRule::eFormat format;
};

constexpr std::array<Suffix, 3> Suffixes {{
    {QLatin1StringView("hex"), SuffixRule::eFormat::Hexadecimal},
    {QLatin1StringView("bin"), SuffixRule::eFormat::Binary},
    {QLatin1StringView("dec"), SuffixRule::eFormat::Decimal},
}};

/// Takes the first line off the text. Only a line feed ends a line.
QStringView takeLine(QStringView &text)
{
    const qsizetype end = text.indexOf(QLatin1Char('\n'));
    const QStringView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QStringView() : text.sliced(end + 1);
    return line;
}

} // namespace

SuffixRule::Number SuffixRule::apply(QStringView text, eFormat requested)
{
    // A text without the last letter of any suffix, as nearly every typed number is, has none.
    const bool mayHaveSuffix = std::any_of(
        text.cbegin(), text.cend(), [](QChar c) { return c == u'x' || c == u'n' || c == u'c'; });
    QStringView rest = mayHaveSuffix ? text : QStringView();
    while (!rest.isEmpty()) {
        const QStringView line = takeLine(rest);
        qsizetype last = -1;
        eFormat format = requested;
        for (const Suffix &suffix : Suffixes) {
            const qsizetype position = line.lastIndexOf(suffix.text);
            if (position > last) {
                last = position;
                format = suffix.format;
            }
        }
        if (last >= 0)
            // Deliberate: "dec" may be hexadecimal digits, yet it is the suffix; "0xdec" is "0x".
            return {format, line.first(last)};
    }
    return {requested, text};
}
