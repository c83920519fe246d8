#include "apps/krparameter/ValueView.h"

#include "apps/host/TrialCopy.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrSystem/System.h>

#include <limits>

namespace {

constexpr int LabelWidth = 11;

/// Parameter kind whose values are written online only.
constexpr int OnlineChoiceKind = 2;
/// Parameter kind whose values are addresses of parameters.
constexpr int AddressKind = 11;

/// The native texts of the least and the greatest integer of a type.
std::pair<QString, QString> rangeOf(const SimpleType &type)
{
    const bool isSigned = type.kind() == SimpleType::SignedInteger;
    const quint32 surplus = 64 - 8 * type.sizeInBytes();
    if (isSigned) {
        return {QString::number(std::numeric_limits<qint64>::min() >> surplus),
            QString::number(std::numeric_limits<qint64>::max() >> surplus)};
    }
    return {QStringLiteral("0"), QString::number(std::numeric_limits<quint64>::max() >> surplus)};
}

QString entryText(qint32 key, const ParameterTextMap &texts)
{
    return QStringLiteral("%1: %2").arg(key).arg(texts.text(key).longText());
}

/// An empty text is told from none.
QString orQuotes(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("\"\"") : text;
}

} // namespace

ValueView::ValueView(const ParameterInformation &parameter, const ValuePlace &place)
    : m_parameter(parameter)
    , m_place(place)
{
}

QString ValueView::name() const
{
    const QString name = m_parameter.name().longText();
    const QString element = m_parameter.isRecordParameter()
        ? m_parameter.elementName(m_place.element).longText()
        : QString();
    return element.isEmpty() ? name : name + QStringLiteral(" · ") + element;
}

QString ValueView::display() const
{
    return m_parameter.displayValueText(m_place.livingSpace, m_place.element, true);
}

QString ValueView::value() const
{
    return m_parameter.valueText(m_place.livingSpace, m_place.element, false);
}

QString ValueView::native() const
{
    return m_parameter.nativeValueText(m_place.livingSpace, m_place.element, false);
}

QString ValueView::unit() const
{
    return unit(eParameterProperty::ScaledMeasuringUnit);
}

QString ValueView::nativeUnit() const
{
    return unit(eParameterProperty::NativeMeasuringUnit);
}

QString ValueView::readBackNote(TrialCopy &trial) const
{
    const QString shown = display();
    const QString stored = native();
    if ((shown.isEmpty() && stored.isEmpty()) || isMasked(trial))
        return {};
    const std::optional<QString> back = trial.nativeText(m_place, shown);
    if (!back)
        return tr("dieser Text wird als Eingabe nicht angenommen");
    if (*back == stored)
        return {};
    return tr("als Eingabe ergibt dieser Text nativ \"%1\"").arg(*back);
}

QString ValueView::noteLine(const QString &note, const QString &subject)
{
    const QString line = subject.isEmpty() ? tr("  Hinweis: %1").arg(note)
                                           : tr("  Hinweis zu \"%1\": %2").arg(subject, note);
    return singleLine(line);
}

QString ValueView::accepted(TrialCopy &trial) const
{
    const QStringList entries = acceptedChoices(trial);
    if (!entries.isEmpty())
        return entries.join(QLatin1String(", "));
    const QString range = limits(trial);
    return range.isEmpty() ? acceptedByType(trial) : range;
}

QString ValueView::writeRefusal() const
{
    if (m_parameter.isWritable(m_place.livingSpace, m_place.element))
        return {};
    const QString heading = tr("Parameter %1 ist nicht schreibbar").arg(address());
    const auto noWrite = m_parameter.elementProperty(m_place.element, eParameterProperty::NoWrite);
    if (noWrite.isValid() && noWrite.asInt32() != 0)
        return heading + tr(": er wird nur gelesen");
    const int needed = number(eParameterProperty::WriteLevel);
    const quint32 given = System::information()->userAccessLevel();
    if (needed > qint64(given))
        return heading + tr(": er braucht Zugriffsstufe %1, gegeben ist %2").arg(needed).arg(given);
    if (number(eParameterProperty::ParameterKind) == OnlineChoiceKind)
        return heading + tr(": er wird nur online geschrieben");
    return heading;
}

QJsonObject ValueView::toJson() const
{
    return {
        {QStringLiteral("address"), address()},
        {QStringLiteral("name"), name()},
        {QStringLiteral("display"), display()},
        {QStringLiteral("value"), value()},
        {QStringLiteral("native"), native()},
        {QStringLiteral("unit"), unit()},
    };
}

QJsonObject ValueView::toNotedJson(TrialCopy &trial) const
{
    QJsonObject object = toJson();
    if (const QString note = readBackNote(trial); !note.isEmpty())
        object.insert(QStringLiteral("note"), note);
    return object;
}

QJsonObject ValueView::toFullJson(TrialCopy &trial) const
{
    const eLivingSpace livingSpace = m_place.livingSpace;
    const quint16 element = m_place.element;
    const auto bothForms = [&](const QString &native) {
        return QJsonObject {
            {QStringLiteral("native"), native}, {QStringLiteral("display"), limit(trial, native)}};
    };
    QJsonObject object = toNotedJson(trial);
    object.insert(QStringLiteral("nativeUnit"), nativeUnit());
    object.insert(QStringLiteral("default"),
        bothForms(m_parameter.defaultNativeValueText(livingSpace, element)));
    object.insert(
        QStringLiteral("lowerLimit"), bothForms(m_parameter.lowerLimitText(livingSpace, element)));
    object.insert(
        QStringLiteral("upperLimit"), bothForms(m_parameter.upperLimitText(livingSpace, element)));
    QJsonObject entries;
    const ParameterTextMap texts = m_parameter.selectionTexts(livingSpace, element);
    for (const qint32 key : texts.keys())
        entries.insert(QString::number(key), texts.text(key).longText());
    object.insert(QStringLiteral("choices"), entries);
    object.insert(QStringLiteral("readLevel"), number(eParameterProperty::ReadLevel));
    object.insert(QStringLiteral("writeLevel"), number(eParameterProperty::WriteLevel));
    object.insert(QStringLiteral("visible"), m_parameter.isVisible(livingSpace, element));
    object.insert(QStringLiteral("writable"), m_parameter.isWritable(livingSpace, element));
    return object;
}

QString ValueView::toFullText(TrialCopy &trial) const
{
    QString text = address() + QLatin1String("  ") + name() + u'\n';
    const auto append = [&text](const QString &label, const QString &content) {
        if (!content.isEmpty()) {
            text +=
                QLatin1String("  ") + label.leftJustified(LabelWidth) + singleLine(content) + u'\n';
        }
    };
    append(tr("Anzeige"), orQuotes(display()));
    append(tr("Wert"), orQuotes(m_parameter.valueText(m_place.livingSpace, m_place.element, true)));
    append(tr("Nativ"),
        orQuotes(m_parameter.nativeValueText(m_place.livingSpace, m_place.element, true)));
    append(tr("Default"),
        trial.displayText(
            m_place, m_parameter.defaultNativeValueText(m_place.livingSpace, m_place.element)));
    append(tr("Grenzen"), limits(trial));
    const QStringList entries = choices();
    for (qsizetype i = 0; i < entries.size(); ++i)
        append(i == 0 ? tr("Auswahl") : QString(), entries.at(i));
    append(tr("Zugriff"), access());
    append(tr("Hinweis"),
        isMasked(trial) ? tr("offline verdeckt; Stufe 5 zeigt den Wert in Klammern")
                        : readBackNote(trial));
    return text;
}

QString ValueView::singleLine(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\n')
            line += QLatin1String("\\n");
        else if (c == u'\r')
            line += QLatin1String("\\r");
        else if (c == u'\t')
            line += QLatin1String("\\t");
        else if (c.category() == QChar::Other_Control)
            line += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            line += c;
    }
    return line;
}

/// Of the value's own living space; the unit may be another parameter's value.
QString ValueView::unit(eParameterProperty unit) const
{
    return m_parameter.measuringUnit(unit, m_place.livingSpace, m_place.element).longText();
}

bool ValueView::isMasked(TrialCopy &trial) const
{
    return trial.displayText(m_place, native()) != display();
}

QString ValueView::limit(TrialCopy &trial, const QString &nativeText) const
{
    return nativeText.isEmpty() ? QString() : trial.displayText(m_place, nativeText);
}

QString ValueView::limits(TrialCopy &trial) const
{
    const QString lower =
        limit(trial, m_parameter.lowerLimitText(m_place.livingSpace, m_place.element));
    const QString upper =
        limit(trial, m_parameter.upperLimitText(m_place.livingSpace, m_place.element));
    if (lower.isEmpty() && upper.isEmpty())
        return {};
    if (lower.isEmpty())
        return tr("bis %1").arg(upper);
    return upper.isEmpty() ? tr("ab %1").arg(lower) : tr("%1 bis %2").arg(lower, upper);
}

QStringList ValueView::choices() const
{
    const ParameterTextMap texts = m_parameter.selectionTexts(m_place.livingSpace, m_place.element);
    QStringList entries;
    for (const qint32 key : texts.keys())
        entries.append(entryText(key, texts));
    return entries;
}

/// Without those that the limits rule out.
QStringList ValueView::acceptedChoices(TrialCopy &trial) const
{
    const ParameterTextMap texts = m_parameter.selectionTexts(m_place.livingSpace, m_place.element);
    QStringList entries;
    for (const qint32 key : texts.keys()) {
        if (trial.nativeText(m_place, QString::number(key)))
            entries.append(entryText(key, texts));
    }
    return entries;
}

QString ValueView::access() const
{
    QString text = tr("lesen ab Stufe %1, schreiben ab Stufe %2")
                       .arg(number(eParameterProperty::ReadLevel))
                       .arg(number(eParameterProperty::WriteLevel));
    if (!m_parameter.isVisible(m_place.livingSpace, m_place.element))
        text += tr("; für diesen Benutzer nicht sichtbar");
    if (!m_parameter.isWritable(m_place.livingSpace, m_place.element))
        text += tr("; für diesen Benutzer nicht schreibbar");
    return text;
}

/// Of a value without choices and limits.
QString ValueView::acceptedByType(TrialCopy &trial) const
{
    if (number(eParameterProperty::ParameterKind) == AddressKind)
        return tr("eine Adresse, zum Beispiel E84, E30[1] oder 2.B01");
    const SimpleType *type =
        DatatypeProvider::instance()->simpleType(quint8(number(eParameterProperty::Datatype)));
    if (!type)
        return {};
    switch (type->kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger: {
        const auto [least, greatest] = rangeOf(*type);
        return tr("%1 bis %2").arg(limit(trial, least), limit(trial, greatest));
    }
    case SimpleType::FloatingPoint:
        return tr("eine Zahl");
    case SimpleType::CharacterString:
        return tr("ein Text mit höchstens %1 Zeichen aus Latin-1").arg(type->sizeInBytes());
    case SimpleType::ByteString:
        return tr("höchstens %1 Bytes als Paare hexadezimaler Ziffern").arg(type->sizeInBytes());
    }
    return {};
}

int ValueView::number(eParameterProperty property) const
{
    return m_parameter.elementProperty(m_place.element, property).asInt32();
}
