#include "FactReader.h"

#include "FindingText.h"
#include "NativeTextReader.h"
#include "RealText.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrMultilingual/ParameterTextMap.h>

#include <cmath>

namespace {

/// "<localAxis:E12>", "<activeAxis:E12>"; a line feed may follow.
bool isUnitLocator(QStringView text)
{
    if (text.endsWith(u'\n'))
        text.chop(1);
    constexpr qsizetype MostDigits = 3;
    bool isAxis = false;
    for (const QLatin1StringView start :
        {QLatin1StringView("<localAxis:"), QLatin1StringView("<activeAxis:")}) {
        if (text.startsWith(start)) {
            text = text.sliced(start.size());
            isAxis = true;
        }
    }
    if (!isAxis || !text.endsWith(u'>') || text.front() < u'A' || text.front() > u'Z')
        return false;
    const QStringView line = text.sliced(1).chopped(1);
    return !line.isEmpty() && line.size() <= MostDigits
        && std::all_of(line.cbegin(), line.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool isNumeric(const SimpleType &type)
{
    return type.kind() != SimpleType::CharacterString && type.kind() != SimpleType::ByteString;
}

} // namespace

QVariant FactReader::value(
    const ElementFact &fact, const JsonValue &value, const SimpleType *type) const
{
    switch (fact.form) {
    case eFactForm::Number:
        return uint(m_reader.wholeNumber(value, fact.least, fact.most));
    case eFactForm::SignedNumber:
        return int(m_reader.wholeNumber(value, fact.least, fact.most));
    case eFactForm::Real:
        return real(value);
    case eFactForm::DataType: {
        const SimpleType *named = dataType(value);
        return named ? QVariant(uint(named->id())) : QVariant();
    }
    case eFactForm::Limit:
        return limit(value, type);
    case eFactForm::Choices:
        return choices(fact, value);
    case eFactForm::Unit:
        return unit(value);
    case eFactForm::NumberList:
        return numberList(fact, value);
    case eFactForm::TextOrNumber:
        return textOrNumber(fact, value);
    }
    return {};
}

QVariant FactReader::defaultValue(const ElementFact &fact)
{
    switch (fact.byDefault) {
    case eFactDefault::None:
        break;
    case eFactDefault::Zero:
        return fact.form == eFactForm::SignedNumber ? QVariant(0) : QVariant(0U);
    case eFactDefault::EmptyText:
        return QVariant::fromValue(ParameterText());
    }
    return {};
}

const SimpleType *FactReader::dataType(const JsonValue &value) const
{
    const QString *name = value.toText();
    if (!name || !m_dataTypes.contains(*name)) {
        m_reader.findings().refuse(value,
            FindingText::tr("expected one of the description's data types %1")
                .arg(m_dataTypes.join(QLatin1StringView(", "))));
        return nullptr;
    }
    return DatatypeProvider::instance()->simpleType(*name);
}

QVariant FactReader::real(const JsonValue &value) const
{
    static const SimpleType &single =
        *DatatypeProvider::instance()->simpleType(QStringLiteral("REAL32"));
    const JsonValue::Number *number = value.toNumber();
    const std::optional<double> read = number ? RealText::read(number->text, single) : std::nullopt;
    // A number that is not 0 and becomes 0 would silently mean "absent".
    const bool isLost = read == 0.0 && RealText::read(number->text) != 0.0;
    if (!read || !std::isfinite(*read) || isLost) {
        m_reader.findings().refuse(
            value, FindingText::tr("expected a number that a 32-bit float holds"));
        return 0.0F;
    }
    return float(*read);
}

QVariant FactReader::limit(const JsonValue &value, const SimpleType *type) const
{
    if (type && isNumeric(*type))
        return NativeTextReader::read(value, *type, m_reader);
    if (type)
        m_reader.findings().warn(value,
            FindingText::tr("a limit plays no part for the data type %1").arg(type->shortName()));
    if (const JsonValue::Number *number = value.toNumber())
        return number->text;
    if (const QString *text = value.toText())
        return *text;
    m_reader.findings().refuse(value, FindingText::tr("expected a number or a text"));
    return QString();
}

QVariant FactReader::choices(const ElementFact &fact, const JsonValue &value) const
{
    ParameterTextMap map;
    for (const JsonValue::Member &member : m_reader.object(value)) {
        const std::optional<qint32> key =
            m_reader.numberKey(member, qint32(fact.least), qint32(fact.most));
        const ParameterText text = m_reader.multilingualText(member.value);
        if (key)
            map.insert(*key, text);
    }
    return QVariant::fromValue(map);
}

QVariant FactReader::unit(const JsonValue &value) const
{
    const QString *text = value.toText();
    if (!text || !text->startsWith(u'<'))
        return QVariant::fromValue(m_reader.multilingualText(value));
    if (!isUnitLocator(*text))
        m_reader.findings().warn(value,
            FindingText::tr("begins with '<' and is no unit locator such as \"<localAxis:E12>\""));
    return *text;
}

QVariant FactReader::numberList(const ElementFact &fact, const JsonValue &value) const
{
    QVariantList numbers;
    for (const JsonValue &entry : m_reader.list(value))
        numbers.append(uint(m_reader.wholeNumber(entry, fact.least, fact.most)));
    return numbers;
}

QVariant FactReader::textOrNumber(const ElementFact &fact, const JsonValue &value) const
{
    if (const QString *text = value.toText())
        return *text;
    if (value.toNumber())
        return uint(m_reader.wholeNumber(value, fact.least, fact.most));
    m_reader.findings().refuse(value,
        FindingText::tr("expected a text or a whole number from %1 to %2")
            .arg(fact.least)
            .arg(fact.most));
    return {};
}
