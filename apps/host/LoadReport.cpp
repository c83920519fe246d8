#include "apps/host/LoadReport.h"

#include <QtCore/QJsonArray>

#include <algorithm>
#include <array>

namespace {

struct CutSignText {
    eCutSign sign;
    const char *key;
    const char *text;
};

constexpr std::array CutSignTexts {
    CutSignText {eCutSign::Missing, "missing",
        QT_TRANSLATE_NOOP("LoadReport", "der Block fehlt, obwohl das Manifest ihn kennt")},
    CutSignText {eCutSign::ShorterThanNoted, "shorterThanNoted",
        QT_TRANSLATE_NOOP("LoadReport", "der Block ist kürzer, als das Manifest festhält")},
    CutSignText {eCutSign::FewerSectionsThanNoted, "fewerSectionsThanNoted",
        QT_TRANSLATE_NOOP(
            "LoadReport", "der Block hat weniger Abschnitte, als das Manifest festhält")},
    CutSignText {eCutSign::NoLastLineEnd, "noLastLineEnd",
        QT_TRANSLATE_NOOP("LoadReport", "die letzte Zeile hat kein Zeilenende")},
    CutSignText {eCutSign::LastSectionIncomplete, "lastSectionIncomplete",
        QT_TRANSLATE_NOOP("LoadReport", "im letzten Abschnitt fehlen Schlüssel")},
    CutSignText {eCutSign::LastParametersMissing, "lastParametersMissing",
        QT_TRANSLATE_NOOP("LoadReport", "genau die letzten Parameter fehlen")},
};

const CutSignText &textsOf(eCutSign sign)
{
    return *std::find_if(CutSignTexts.begin(), CutSignTexts.end(),
        [sign](const CutSignText &texts) { return texts.sign == sign; });
}

QString shortList(const QStringList &names)
{
    QString text = names.mid(0, LoadReport::NamedInText).join(QLatin1String(", "));
    if (names.size() > LoadReport::NamedInText)
        text += LoadReport::tr(" und %1 weitere").arg(names.size() - LoadReport::NamedInText);
    return text;
}

QStringList numberTexts(const QList<qsizetype> &numbers)
{
    QStringList texts;
    for (const qsizetype number : numbers)
        texts.append(QString::number(number));
    return texts;
}

} // namespace

bool LoadReport::isComplete() const
{
    return !isCut() && !leavesContentBehind() && parametersMissing.isEmpty()
        && valuesEmptied.isEmpty() && defaultsEmptied.isEmpty();
}

bool LoadReport::leavesContentBehind() const
{
    return !sectionsSkipped.isEmpty() || !sectionsRepeated.isEmpty() || !keysNotUnderstood.isEmpty()
        || malformedLineCount > 0;
}

QString LoadReport::toText() const
{
    QString text = tr("%1 Werte und %2 Defaultwerte gelesen").arg(valuesRead).arg(defaultsRead);
    text += QLatin1Char('\n');
    const auto append = [&text](const QString &line, const QStringList &names) {
        if (!names.isEmpty())
            text += line.arg(names.size()).arg(shortList(names)) + QLatin1Char('\n');
    };
    append(
        tr("%1 Abschnitte übersprungen, das Gerät hat diese Parameter nicht: %2"), sectionsSkipped);
    append(tr("%1 Abschnitte stehen mehrfach, der letzte gilt: %2"), sectionsRepeated);
    append(tr("%1 Parameter fehlen und behalten ihre Werte: %2"), parametersMissing);
    append(tr("%1 Werte fehlen und werden leer: %2"), valuesEmptied);
    append(tr("%1 Defaultwerte fehlen und werden leer: %2"), defaultsEmptied);
    append(tr("%1 Schlüssel nicht verstanden: %2"), keysNotUnderstood);
    if (malformedLineCount > 0) {
        text += tr("%1 Zeilen nicht lesbar, zuerst: %2")
                    .arg(malformedLineCount)
                    .arg(shortList(numberTexts(firstMalformedLines)))
            + QLatin1Char('\n');
    }
    for (const eCutSign sign : cutSigns)
        text += tr("abgeschnitten: %1").arg(tr(textsOf(sign).text)) + QLatin1Char('\n');
    return text;
}

QJsonObject LoadReport::toJson() const
{
    QJsonArray lines;
    for (const qsizetype line : firstMalformedLines)
        lines.append(qint64(line));
    QJsonArray signs;
    for (const eCutSign sign : cutSigns)
        signs.append(QLatin1String(textsOf(sign).key));
    return {
        {QStringLiteral("valuesRead"), qint64(valuesRead)},
        {QStringLiteral("defaultsRead"), qint64(defaultsRead)},
        {QStringLiteral("sectionsSkipped"), QJsonArray::fromStringList(sectionsSkipped)},
        {QStringLiteral("sectionsRepeated"), QJsonArray::fromStringList(sectionsRepeated)},
        {QStringLiteral("parametersMissing"), QJsonArray::fromStringList(parametersMissing)},
        {QStringLiteral("valuesEmptied"), QJsonArray::fromStringList(valuesEmptied)},
        {QStringLiteral("defaultsEmptied"), QJsonArray::fromStringList(defaultsEmptied)},
        {QStringLiteral("keysNotUnderstood"), QJsonArray::fromStringList(keysNotUnderstood)},
        {QStringLiteral("malformedLines"), qint64(malformedLineCount)},
        {QStringLiteral("firstMalformedLines"), lines},
        {QStringLiteral("cut"), signs},
    };
}
