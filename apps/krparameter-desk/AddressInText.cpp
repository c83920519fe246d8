#include "apps/krparameter-desk/AddressInText.h"

#include <QtCore/QStringList>

namespace {

constexpr QLatin1StringView Punctuation(",;:!?.'()");

QString trimmed(QString word)
{
    while (!word.isEmpty() && Punctuation.contains(word.back()))
        word.chop(1);
    while (!word.isEmpty() && Punctuation.contains(word.front()))
        word.remove(0, 1);
    return word;
}

ParameterAddress addressOf(const QString &word)
{
    return ParameterAddress(trimmed(word.section(QLatin1Char('/'), 0, 0)), true);
}

/// A mark that nothing closes is a letter like others.
QString withoutQuotations(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('"'));
    QString result;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const bool isQuoted = i % 2 == 1 && i + 1 < parts.size();
        result += isQuoted ? QStringLiteral(" \" ") : parts.at(i) + QLatin1Char(' ');
    }
    return result.simplified();
}

/// What the message says it is about.
ParameterAddress subjectOf(const QStringList &words)
{
    const bool isNamed = words.constFirst() == QLatin1String("Parameter");
    const QString word = words.value(isNamed ? 1 : 0);
    return isNamed || word.endsWith(QLatin1Char(':')) ? addressOf(word) : ParameterAddress();
}

/// The first of a list behind a colon.
ParameterAddress listed(const QStringList &words)
{
    for (qsizetype i = 1; i < words.size(); ++i) {
        if (!words.at(i - 1).endsWith(QLatin1Char(':')))
            continue;
        if (const ParameterAddress address = addressOf(words.at(i)); address.isValid())
            return address;
    }
    return {};
}

} // namespace

ParameterAddress AddressInText::ofTitle(const QString &title)
{
    return addressOf(title.section(QLatin1Char(' '), 0, 0));
}

ParameterAddress AddressInText::ofMessage(const QString &text, const IsKnown &isKnown)
{
    const QStringList words = withoutQuotations(text).split(QLatin1Char(' '));
    if (const ParameterAddress subject = subjectOf(words); subject.isValid())
        return subject;
    for (const QString &word : words) {
        const ParameterAddress address = addressOf(word);
        if (address.isValid() && isKnown(address))
            return address;
    }
    return listed(words);
}
