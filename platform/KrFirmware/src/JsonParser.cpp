#include "JsonParser.h"

#include "FindingText.h"

#include <algorithm>

namespace {

struct Escape {
    char16_t letter;
    char16_t meaning;
};

constexpr Escape Escapes[] = {
    {u'"', u'"'},
    {u'\\', u'\\'},
    {u'/', u'/'},
    {u'b', u'\b'},
    {u'f', u'\f'},
    {u'n', u'\n'},
    {u'r', u'\r'},
    {u't', u'\t'},
};

constexpr char16_t FirstPrintable = 0x20;
constexpr qsizetype CodeUnitDigits = 4;

/// The key that an object has twice; null where it has none.
const QString *repeatedKey(const JsonValue::Object &object)
{
    std::vector<const QString *> keys;
    keys.reserve(object.size());
    for (const JsonValue::Member &member : object)
        keys.push_back(&member.key);
    std::sort(keys.begin(), keys.end(), [](const QString *a, const QString *b) { return *a < *b; });
    const auto repeated = std::adjacent_find(
        keys.begin(), keys.end(), [](const QString *a, const QString *b) { return *a == *b; });
    return repeated == keys.end() ? nullptr : *repeated;
}

} // namespace

std::optional<JsonValue> JsonParser::parse()
{
    JsonValue value;
    skipBlanks();
    if (!parseValue(value, 1))
        return std::nullopt;
    skipBlanks();
    if (m_position < m_text.size()) {
        refuse(FindingText::tr("expected the end of the file"));
        return std::nullopt;
    }
    return value;
}

bool JsonParser::parseValue(JsonValue &value, int depth)
{
    if (depth > DeepestNesting)
        return refuse(FindingText::tr("nested deeper than %1 levels").arg(DeepestNesting));
    if (++m_count > MostValues)
        return refuse(FindingText::tr("more than %1 values").arg(MostValues));

    switch (current()) {
    case u'{':
        return parseObject(value, depth);
    case u'[':
        return parseList(value, depth);
    case u'"': {
        QString text;
        const bool isGood = parseText(text);
        value = JsonValue(std::move(text));
        return isGood;
    }
    case u't':
        value = JsonValue(true);
        return parseWord(QLatin1StringView("true"));
    case u'f':
        value = JsonValue(false);
        return parseWord(QLatin1StringView("false"));
    case u'n':
        return parseWord(QLatin1StringView("null"));
    default:
        return parseNumber(value);
    }
}

bool JsonParser::parseList(JsonValue &value, int depth)
{
    JsonValue::List list;
    take(u'[');
    skipBlanks();
    if (!take(u']')) {
        do {
            skipBlanks();
            if (!parseValue(list.emplace_back(), depth + 1))
                return false;
            skipBlanks();
        } while (take(u','));
        if (!take(u']'))
            return refuse(FindingText::tr("expected ',' or ']'"));
    }
    list.shrink_to_fit();
    value = JsonValue(std::move(list));
    return true;
}

bool JsonParser::parseObject(JsonValue &value, int depth)
{
    const qsizetype start = m_position;
    JsonValue::Object object;
    take(u'{');
    skipBlanks();
    if (!take(u'}')) {
        do {
            skipBlanks();
            JsonValue::Member &member = object.emplace_back();
            if (current() != u'"')
                return refuse(FindingText::tr("expected a key in quotes"));
            if (!parseText(member.key))
                return false;
            skipBlanks();
            if (!take(u':'))
                return refuse(FindingText::tr("expected ':'"));
            skipBlanks();
            if (!parseValue(member.value, depth + 1))
                return false;
            skipBlanks();
        } while (take(u','));
        if (!take(u'}'))
            return refuse(FindingText::tr("expected ',' or '}'"));
    }
    if (const QString *key = repeatedKey(object))
        return refuseAt(start, FindingText::tr("the object has the key \"%1\" twice").arg(*key));
    object.shrink_to_fit();
    value = JsonValue(std::move(object));
    return true;
}

bool JsonParser::parseNumber(JsonValue &value)
{
    const qsizetype start = m_position;
    const auto refuseNumber = [this, start] {
        return refuseAt(start, FindingText::tr("expected a value"));
    };
    take(u'-');
    if (!take(u'0') && !skipDigits())
        return refuseNumber();
    if (take(u'.') && !skipDigits())
        return refuseNumber();
    if (take(u'e') || take(u'E')) {
        if (!take(u'+'))
            take(u'-');
        if (!skipDigits())
            return refuseNumber();
    }
    const QStringView text = m_text.sliced(start, m_position - start);
    value = JsonValue(JsonValue::Number {text.toString()});
    return true;
}

bool JsonParser::parseText(QString &text)
{
    take(u'"');
    while (true) {
        const qsizetype start = m_position;
        while (m_position < m_text.size() && current() >= FirstPrintable && current() != u'"'
            && current() != u'\\')
            ++m_position;
        text += m_text.sliced(start, m_position - start);
        if (take(u'"'))
            break;
        if (!take(u'\\'))
            return refuse(FindingText::tr("expected '\"' at the end of the text"));
        if (!parseEscape(text))
            return false;
    }
    if (!text.isValidUtf16())
        return refuse(FindingText::tr("the text has half of a surrogate pair"));
    return true;
}

bool JsonParser::parseEscape(QString &text)
{
    if (take(u'u'))
        return parseCodeUnit(text);
    for (const Escape &escape : Escapes) {
        if (take(escape.letter)) {
            text += QChar(escape.meaning);
            return true;
        }
    }
    return refuse(FindingText::tr("unknown escape"));
}

bool JsonParser::parseCodeUnit(QString &text)
{
    char16_t unit = 0;
    for (qsizetype i = 0; i < CodeUnitDigits; ++i) {
        const char16_t c = current();
        const bool isDigit = c >= u'0' && c <= u'9';
        const char16_t letter = c | 0x20;
        if (!isDigit && (letter < u'a' || letter > u'f'))
            return refuse(FindingText::tr("expected four hexadecimal digits"));
        unit = char16_t(unit * 16 + (isDigit ? c - u'0' : letter - u'a' + 10));
        ++m_position;
    }
    text += QChar(unit);
    return true;
}

bool JsonParser::parseWord(QLatin1StringView word)
{
    if (!m_text.sliced(m_position).startsWith(word))
        return refuse(FindingText::tr("expected a value"));
    m_position += word.size();
    return true;
}

bool JsonParser::skipDigits()
{
    const qsizetype start = m_position;
    while (current() >= u'0' && current() <= u'9')
        ++m_position;
    return m_position > start;
}

void JsonParser::skipBlanks()
{
    while (current() == u' ' || current() == u'\t' || current() == u'\n' || current() == u'\r')
        ++m_position;
}

/// 0, which no rule of the grammar takes, at the end of the text.
char16_t JsonParser::current() const
{
    return m_position < m_text.size() ? m_text[m_position].unicode() : u'\0';
}

bool JsonParser::take(char16_t c)
{
    if (current() != c)
        return false;
    ++m_position;
    return true;
}

bool JsonParser::refuseAt(qsizetype position, const QString &reason)
{
    const QStringView before = m_text.first(position);
    const qsizetype lineStart = before.lastIndexOf(u'\n') + 1;
    m_error = FindingText::tr("line %1, column %2: %3")
                  .arg(before.count(u'\n') + 1)
                  .arg(position - lineStart + 1)
                  .arg(reason);
    return false;
}
