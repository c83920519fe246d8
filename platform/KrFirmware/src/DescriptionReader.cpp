#include "DescriptionReader.h"

#include "Decimal.h"
#include "FindingText.h"
#include "Integer.h"
#include "ValueScaling.h"

#include <algorithm>
#include <limits>

namespace {

QString joined(std::initializer_list<QLatin1StringView> keys)
{
    QStringList texts;
    for (const QLatin1StringView key : keys)
        texts.append(QString(key));
    return texts.join(QLatin1StringView(", "));
}

/// Nothing where the number has a fraction or is beyond 64 bits.
std::optional<Integer> wholeNumberOf(const QString &text)
{
    const std::optional<Decimal> number = Decimal::fromText(text);
    // 18 digits fit into 63 bits and are more than every range that is asked for.
    if (!number || !number->isInteger() || number->integerDigits() > 18)
        return std::nullopt;
    return Integer::fromText(number->toText());
}

} // namespace

void DescriptionReader::expectKeys(
    const JsonValue &value, std::initializer_list<QLatin1StringView> keys) const
{
    for (const JsonValue::Member &member : object(value)) {
        const bool isKnown = std::any_of(keys.begin(), keys.end(),
            [&member](QLatin1StringView key) { return member.key == key; });
        if (!isKnown) {
            m_findings.refuse(
                member.value, FindingText::tr("unknown key; known are %1").arg(joined(keys)));
            return;
        }
    }
}

const JsonValue *DescriptionReader::required(const JsonValue &object, QLatin1StringView key) const
{
    this->object(object);
    const JsonValue *value = object.member(key);
    if (!value)
        m_findings.refuseMissing(object, key, FindingText::tr("is missing"));
    return value;
}

const JsonValue::List &DescriptionReader::list(const JsonValue &value) const
{
    static const JsonValue::List Empty;
    if (const JsonValue::List *list = value.toList())
        return *list;
    m_findings.refuse(value, FindingText::tr("expected a list"));
    return Empty;
}

const JsonValue::Object &DescriptionReader::object(const JsonValue &value) const
{
    static const JsonValue::Object Empty;
    if (const JsonValue::Object *object = value.toObject())
        return *object;
    m_findings.refuse(value, FindingText::tr("expected an object"));
    return Empty;
}

QString DescriptionReader::text(const JsonValue &value) const
{
    if (const QString *text = value.toText())
        return *text;
    m_findings.refuse(value, FindingText::tr("expected a text"));
    return {};
}

QString DescriptionReader::filledText(const JsonValue &value) const
{
    const QString result = text(value);
    if (result.isEmpty())
        m_findings.refuse(value, FindingText::tr("expected a text that is not empty"));
    return result;
}

QStringList DescriptionReader::textList(const JsonValue &value) const
{
    QStringList result;
    for (const JsonValue &entry : list(value))
        result.append(text(entry));
    return result;
}

bool DescriptionReader::boolean(const JsonValue &value) const
{
    if (const bool *boolean = value.toBool())
        return *boolean;
    m_findings.refuse(value, FindingText::tr("expected true or false"));
    return false;
}

qint64 DescriptionReader::wholeNumber(const JsonValue &value, qint64 least, qint64 most) const
{
    const JsonValue::Number *number = value.toNumber();
    const std::optional<Integer> whole = number ? wholeNumberOf(number->text) : std::nullopt;
    if (!whole || *whole < Integer::fromNumber(least) || *whole > Integer::fromNumber(most)) {
        m_findings.refuse(
            value, FindingText::tr("expected a whole number from %1 to %2").arg(least).arg(most));
        return least;
    }
    return whole->toNumber();
}

int DescriptionReader::systemStringNumber(const JsonValue &value) const
{
    return int(wholeNumber(value, 0, std::numeric_limits<quint16>::max()));
}

quint32 DescriptionReader::version(const JsonValue &value) const
{
    return quint32(wholeNumber(value, 0, std::numeric_limits<quint32>::max()));
}

std::optional<qint32> DescriptionReader::numberKey(
    const JsonValue::Member &member, qint32 least, qint32 most) const
{
    const std::optional<Integer> number = Integer::fromText(member.key);
    if (!number || !ValueScaling::isPlainInteger(member.key) || *number < Integer::fromNumber(least)
        || *number > Integer::fromNumber(most)) {
        m_findings.refuse(member.value,
            FindingText::tr("expected a key that is a whole number from %1 to %2")
                .arg(least)
                .arg(most));
        return std::nullopt;
    }
    return qint32(number->toNumber());
}

ParameterText DescriptionReader::multilingualText(const JsonValue &value) const
{
    ParameterText result;
    if (const QString *text = value.toText()) {
        for (const QString &language : m_languages)
            result.setText(language, *text, *text);
        return result;
    }
    if (!value.toObject()) {
        m_findings.refuse(
            value, FindingText::tr("expected a text or an object of texts by language"));
        return result;
    }

    const JsonValue::Object &object = *value.toObject();
    if (object.empty())
        m_findings.refuse(value, FindingText::tr("expected a text for at least one language"));
    for (const JsonValue::Member &member : object) {
        if (!m_languages.contains(member.key))
            m_findings.refuse(member.value,
                FindingText::tr("expected one of the languages %1")
                    .arg(m_languages.join(QLatin1StringView(", "))));
    }
    // In the order of the languages, whose first one is the fallback.
    for (const QString &language : m_languages) {
        for (const JsonValue::Member &member : object) {
            if (member.key == language)
                addLanguage(result, language, member.value);
        }
    }
    return result;
}

void DescriptionReader::addLanguage(
    ParameterText &text, const QString &language, const JsonValue &value) const
{
    if (const QString *both = value.toText()) {
        text.setText(language, *both, *both);
        return;
    }
    if (!value.toObject()) {
        m_findings.refuse(
            value, FindingText::tr("expected a text or an object with the keys short, long"));
        return;
    }
    constexpr QLatin1StringView ShortKey("short");
    constexpr QLatin1StringView LongKey("long");
    expectKeys(value, {ShortKey, LongKey});
    const JsonValue *shortText = required(value, ShortKey);
    const JsonValue *longText = required(value, LongKey);
    if (shortText && longText)
        text.setText(language, this->text(*shortText), this->text(*longText));
}
