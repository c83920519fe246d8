#include "value/ChoiceForm.h"

#include "value/NumberText.h"

#include <limits>

namespace {

/// "-2147483648: ".
constexpr qsizetype LongestKey = 13;

} // namespace

std::optional<qint32> ChoiceForm::keyOf(const QString &valueText, const ParameterTextMap &choice)
{
    const std::optional<qint64> key = NumberText::toInteger(valueText);
    if (!key || *key < std::numeric_limits<qint32>::min()
        || *key > std::numeric_limits<qint32>::max() || !choice.contains(qint32(*key)))
        return {};
    return qint32(*key);
}

QString ChoiceForm::show(
    const QString &valueText, const ParameterTextMap &choice, const EntryText &entryText)
{
    const std::optional<qint32> key = keyOf(valueText, choice);
    if (!key)
        return valueText;
    const QString entry = entryText(choice.text(*key));
    QString text;
    text.reserve(LongestKey + entry.size());
    NumberText::appendInteger(text, *key);
    text.append(QLatin1StringView(": "));
    return text.append(entry);
}

std::optional<QString> ChoiceForm::readNumber(const QString &text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const QStringView number = QStringView(text).first(colon < 0 ? text.size() : colon);
    if (const std::optional<qint64> value = NumberText::toInteger(number))
        return NumberText::integer(*value);
    if (const std::optional<quint64> value = NumberText::toUnsigned(number))
        return NumberText::integer(*value);
    return {};
}

QString ChoiceForm::readText(
    const QString &text, const ParameterTextMap &choice, const EntryText &entryText)
{
    const QStringView typed = QStringView(text).trimmed();
    if (typed.isEmpty())
        return text;
    const QList<qint32> keys = choice.keys();
    for (const qint32 key : keys) {
        if (QStringView(entryText(choice.text(key))).trimmed() == typed)
            return NumberText::integer(qint64(key));
    }
    return text;
}
