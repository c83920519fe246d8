#include "apps/krparameter/CommandLine.h"

#include <algorithm>

namespace {

constexpr QLatin1StringView LongPrefix("--");

bool isShortOption(const QString &word)
{
    return word.size() == 2 && word.at(0) == u'-'
        && ((word.at(1) >= u'a' && word.at(1) <= u'z')
            || (word.at(1) >= u'A' && word.at(1) <= u'Z'));
}

} // namespace

CommandLine::CommandLine(const QStringList &words, const QList<Option> &options)
{
    parse(words, options);
}

QString CommandLine::value(const QString &option) const
{
    const QStringList given = values(option);
    return given.isEmpty() ? QString() : given.constLast();
}

void CommandLine::parse(const QStringList &words, const QList<Option> &options)
{
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words.at(i) == LongPrefix) {
            for (const QString &word : words.mid(i + 1))
                takeArgument(word);
            return;
        }
        Word word = read(words.at(i), options);
        if (!m_error.isEmpty())
            return;
        if (!word.option) {
            takeArgument(words.at(i));
            continue;
        }
        if (word.option->takesValue() && !word.hasValue) {
            word.value = words.value(i + 1);
            ++i;
        }
        if (word.option->takesValue() && word.value.isEmpty()) {
            m_error =
                tr("--%1 braucht einen Wert: %2").arg(word.option->name, word.option->valueName);
            return;
        }
        m_values[word.option->name].append(word.value);
    }
}

CommandLine::Word CommandLine::read(const QString &word, const QList<Option> &options)
{
    const bool isLong = word.startsWith(LongPrefix);
    if (!isLong && !isShortOption(word))
        return {};
    const qsizetype equals = isLong ? word.indexOf(u'=') : -1;
    const QString name =
        word.sliced(isLong ? 2 : 1, equals < 0 ? word.size() - (isLong ? 2 : 1) : equals - 2);
    const auto found = std::find_if(options.begin(), options.end(), [&](const Option &option) {
        return isLong ? option.name == name : option.letter == name.at(0);
    });
    if (found == options.end()) {
        m_error = tr("unbekannte Option %1").arg(word);
        return {};
    }
    if (equals >= 0 && !found->takesValue()) {
        m_error = tr("--%1 nimmt keinen Wert").arg(name);
        return {};
    }
    return {&*found, equals >= 0, equals >= 0 ? word.sliced(equals + 1) : QString()};
}

void CommandLine::takeArgument(const QString &word)
{
    if (m_command.isEmpty())
        m_command = word;
    else
        m_arguments.append(word);
}
