#include "apps/host/LossReport.h"

#include "apps/host/Progress.h"
#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QJsonObject>

#include <algorithm>

namespace {

/// In the order of LossReport::eText.
constexpr const char *KindTexts[] = {
    QT_TRANSLATE_NOOP("LossReport", "Wert"),
    QT_TRANSLATE_NOOP("LossReport", "Änderungskennung des Werts"),
    QT_TRANSLATE_NOOP("LossReport", "Defaultwert"),
    QT_TRANSLATE_NOOP("LossReport", "Änderungskennung des Defaultwerts"),
    QT_TRANSLATE_NOOP("LossReport", "Eigenschaft"),
};
constexpr const char *KindKeys[] = {
    "value", "valueChangeTag", "defaultValue", "defaultValueChangeTag", "property"};

bool fitsLatin1(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= 0xFF; });
}

/// Texts in several languages are saved escaped and lose nothing.
QString propertyText(const ParameterProperty &property)
{
    return property.asVariant().metaType() == QMetaType::fromType<ParameterText>()
        ? QString()
        : property.asString();
}

class Collector {
public:
    Collector(const ParameterInformation &parameter, QList<LossReport::Loss> &losses)
        : m_parameter(parameter)
        , m_losses(losses)
    {
    }

    void collect(const ValuePlace &place)
    {
        const eLivingSpace livingSpace = place.livingSpace;
        const quint16 element = place.element;
        const auto take = [&](LossReport::eText kind, const QString &text) {
            if (!fitsLatin1(text))
                m_losses.append({place.addressText(m_parameter), kind, text});
        };
        const auto tag = [&](const QString &name) {
            return m_parameter.attribute(livingSpace, element, name);
        };
        take(LossReport::eText::Value, m_parameter.nativeValueText(livingSpace, element, false));
        take(LossReport::eText::ValueChangeTag, tag(QStringLiteral("ValueChangeTag")));
        take(LossReport::eText::DefaultValue,
            m_parameter.defaultNativeValueText(livingSpace, element));
        take(
            LossReport::eText::DefaultValueChangeTag, tag(QStringLiteral("DefaultValueChangeTag")));
        // Overrides belong to the parameter: named once, at its first living space.
        // Elements of a simple parameter share them.
        if (livingSpace != m_parameter.livingSpaces().constFirst()
            || (element > 0 && !m_parameter.isRecordParameter()))
            return;
        for (quint32 number = 0; number < DefinitionPropertyEnd; ++number) {
            const auto property = eParameterProperty(number);
            if (m_parameter.hasPropertyOverride(element, property)) {
                take(LossReport::eText::Property,
                    propertyText(m_parameter.elementProperty(element, property)));
                take(LossReport::eText::Property,
                    tag(QStringLiteral("PropertyChangeTag_%1").arg(number)));
            }
        }
    }

private:
    const ParameterInformation &m_parameter;
    QList<LossReport::Loss> &m_losses;
};

} // namespace

LossReport LossReport::of(ParameterContainer &container, Progress *progress)
{
    QList<ParameterCoordinate> coordinates = container.parameterList();
    std::sort(coordinates.begin(), coordinates.end());
    LossReport report;
    for (qsizetype i = 0; i < coordinates.size(); ++i) {
        if (progress && !progress->advance(i, coordinates.size())) {
            report.wasCancelled = true;
            return report;
        }
        const auto parameter = container.parameterInformation(coordinates.at(i));
        if (!parameter)
            continue;
        Collector collector(*parameter, report.losses);
        for (const ValuePlace &place : ValuePlace::allOf(*parameter))
            collector.collect(place);
    }
    if (progress)
        progress->advance(coordinates.size(), coordinates.size());
    return report;
}

QString LossReport::toText() const
{
    QString text;
    for (const Loss &loss : losses) {
        text += tr("Parameter %1: %2 \"%3\" enthält Zeichen, die Latin-1 nicht kennt")
                    .arg(loss.address, tr(KindTexts[int(loss.kind)]), loss.text)
            + QLatin1Char('\n');
    }
    return text;
}

QJsonArray LossReport::toJson() const
{
    QJsonArray array;
    for (const Loss &loss : losses) {
        array.append(QJsonObject {{QStringLiteral("address"), loss.address},
            {QStringLiteral("kind"), QLatin1String(KindKeys[int(loss.kind)])},
            {QStringLiteral("text"), loss.text}});
    }
    return array;
}
