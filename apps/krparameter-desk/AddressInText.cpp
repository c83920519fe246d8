#include "apps/krparameter-desk/AddressInText.h"

#include <QtCore/QStringList>

namespace {

constexpr QLatin1StringView Punctuation(",;:!?.\"'()");

QString trimmed(QString word)
{
    while (!word.isEmpty() && Punctuation.contains(word.back()))
        word.chop(1);
    while (!word.isEmpty() && Punctuation.contains(word.front()))
        word.remove(0, 1);
    return word;
}

} // namespace

ParameterAddress AddressInText::find(const QString &text)
{
    for (const QString &word : text.simplified().split(QLatin1Char(' '))) {
        const QString head = word.section(QLatin1Char('/'), 0, 0);
        const ParameterAddress address(trimmed(head), true);
        if (address.isValid())
            return address;
    }
    return {};
}
