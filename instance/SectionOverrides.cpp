#include "instance/SectionOverrides.h"

#include <KrMultilingual/ParameterTextMap.h>
#include <LmUtilities/IniSection.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace {

constexpr QByteArrayView ValuePrefix("P_");
constexpr QByteArrayView TagPrefix("PC_");

struct Place {
    quint16 element;
    eParameterProperty property;
};

QByteArray keyOf(QByteArrayView prefix, const PropertyResolver::Override &entry)
{
    return prefix.toByteArray() + QByteArray::number(entry.element) + '_'
        + QByteArray::number(quint32(entry.property));
}

/// Reads "<element>_<property>", both in plain decimal digits.
std::optional<Place> placeOf(QByteArrayView text)
{
    quint16 element = 0;
    quint32 property = 0;
    const char *end = text.data() + text.size();
    const auto [afterElement, elementError] = std::from_chars(text.data(), end, element);
    if (elementError != std::errc() || afterElement == end || *afterElement != '_')
        return std::nullopt;
    const auto [afterProperty, propertyError] = std::from_chars(afterElement + 1, end, property);
    if (propertyError != std::errc() || afterProperty != end)
        return std::nullopt;
    return Place {element, eParameterProperty(property)};
}

/// JSON leaves what lies beyond ASCII as it is; "\u00e9" survives Latin-1.
QString escaped(const QByteArray &json)
{
    QString text;
    for (const QChar c : QString::fromUtf8(json)) {
        if (c.unicode() < 0x80)
            text += c;
        else
            text += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return text;
}

QJsonObject jsonOf(const ParameterText &text)
{
    QJsonObject object;
    for (const QString &language : text.languages())
        object.insert(language, QJsonArray {text.shortText(language), text.longText(language)});
    return object;
}

ParameterText parameterTextOf(const QJsonObject &object)
{
    ParameterText text;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QJsonArray texts = it.value().toArray();
        text.setText(it.key(), texts.at(0).toString(), texts.at(1).toString());
    }
    return text;
}

QJsonObject jsonOf(const ParameterTextMap &map)
{
    QJsonObject object;
    for (const qint32 key : map.keys())
        object.insert(QString::number(key), jsonOf(map.text(key)));
    return object;
}

ParameterTextMap parameterTextMapOf(const QJsonObject &object)
{
    ParameterTextMap map;
    for (auto it = object.begin(); it != object.end(); ++it)
        map.insert(it.key().toInt(), parameterTextOf(it.value().toObject()));
    return map;
}

QString compact(const QJsonObject &object)
{
    return escaped(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

constexpr QLatin1String TextTag("t:");
constexpr QLatin1String MapTag("m:");
constexpr QLatin1String ListTag("l:");
constexpr QLatin1String AbsentTag("n:");
constexpr QLatin1String PlainTag("s:");
constexpr std::array<QLatin1String, 5> Tags {TextTag, MapTag, ListTag, AbsentTag, PlainTag};

bool isTagged(const QString &text)
{
    return std::any_of(
        Tags.begin(), Tags.end(), [&text](QLatin1String tag) { return text.startsWith(tag); });
}

QString textOf(const ParameterProperty &value)
{
    const QVariant &variant = value.asVariant();
    if (!variant.isValid())
        return AbsentTag;
    if (variant.metaType() == QMetaType::fromType<ParameterText>())
        return TextTag + compact(jsonOf(variant.value<ParameterText>()));
    if (variant.metaType() == QMetaType::fromType<ParameterTextMap>())
        return MapTag + compact(jsonOf(variant.value<ParameterTextMap>()));
    if (variant.canView<QVariantList>() && variant.metaType() != QMetaType::fromType<QString>()
        && variant.metaType() != QMetaType::fromType<QByteArray>()) {
        QStringList numbers;
        for (const quint16 number : value.asUint16List())
            numbers.append(QString::number(number));
        return ListTag + numbers.join(QLatin1Char(','));
    }
    const QString text = value.asString();
    return isTagged(text) ? PlainTag + text : text;
}

/// A plain text takes the type in which the definition holds the property.
ParameterProperty valueOf(const QString &text, const ParameterProperty &defined)
{
    const auto object = [&text] {
        return QJsonDocument::fromJson(text.sliced(TextTag.size()).toUtf8()).object();
    };
    if (text.startsWith(AbsentTag))
        return {};
    if (text.startsWith(TextTag))
        return ParameterProperty(QVariant::fromValue(parameterTextOf(object())));
    if (text.startsWith(MapTag))
        return ParameterProperty(QVariant::fromValue(parameterTextMapOf(object())));
    if (text.startsWith(ListTag)) {
        QVariantList numbers;
        for (const QString &number :
            text.sliced(ListTag.size()).split(QLatin1Char(','), Qt::SkipEmptyParts))
            numbers.append(number.toUInt());
        return ParameterProperty(numbers);
    }
    if (text.startsWith(PlainTag))
        return ParameterProperty(text.sliced(PlainTag.size()));
    const QMetaType type = defined.asVariant().metaType();
    QVariant value(text);
    const bool isPlain = type != QMetaType::fromType<ParameterText>() && value.convert(type);
    return ParameterProperty(isPlain ? value : QVariant(text));
}

} // namespace

void SectionOverrides::save(LmIniParser::IniSection &section, const PropertyResolver &properties)
{
    for (const PropertyResolver::Override &entry : properties.overrides()) {
        if (!properties.isOverridable(entry.element, entry.property))
            continue;
        section.write(keyOf(ValuePrefix, entry), textOf(entry.value).toLatin1());
        if (!entry.changeTag.isEmpty())
            section.write(keyOf(TagPrefix, entry), entry.changeTag.toLatin1());
    }
}

std::vector<PropertyResolver::Override> SectionOverrides::load(
    const LmIniParser::IniSection &section, bool utf8, const PropertyResolver &properties)
{
    const auto decoded = [utf8](QByteArrayView bytes) {
        return utf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
    };
    std::vector<PropertyResolver::Override> overrides;
    for (qsizetype i = 0; i < section.keyCount(); ++i) {
        const QByteArrayView key = section.keyAt(i);
        if (!key.startsWith(ValuePrefix))
            continue;
        const std::optional<Place> place = placeOf(key.sliced(ValuePrefix.size()));
        if (!place || !properties.isOverridable(place->element, place->property))
            continue;
        PropertyResolver::Override entry {place->element, place->property,
            valueOf(decoded(section.read(key)),
                properties.readDefined(place->element, place->property)),
            {}};
        // A key that would not be written so is no second name for the override.
        if (keyOf(ValuePrefix, entry) != key)
            continue;
        entry.changeTag = decoded(section.read(keyOf(TagPrefix, entry)));
        overrides.push_back(std::move(entry));
    }
    return overrides;
}
