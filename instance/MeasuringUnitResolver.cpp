#include "instance/MeasuringUnitResolver.h"

#include "value/AxisReference.h"
#include "value/PropertyResolver.h"

#include <KrMultilingual/LanguageManager.h>

#include <QtCore/QMetaType>

#include <optional>

namespace {

ParameterText inEveryLanguage(const QString &text)
{
    ParameterText unit;
    for (const QString &language : LanguageManager::languageList())
        unit.setText(language, text, text);
    return unit;
}

} // namespace

MeasuringUnitResolver::Outcome MeasuringUnitResolver::resolve(
    const ParameterProperty &property, ParameterContainer *container, eLivingSpace livingSpace)
{
    const QVariant &value = property.asVariant();
    if (value.metaType() == QMetaType::fromType<ParameterText>())
        return {*static_cast<const ParameterText *>(value.constData()), eProblem::None};
    if (value.metaType() == QMetaType::fromType<QString>()) {
        const QString text = value.toString();
        if (const std::optional<AxisReference> reference = AxisReference::parse(text)) {
            const std::optional<QString> referenced = reference->resolve(container, livingSpace);
            return referenced ? Outcome {inEveryLanguage(*referenced), eProblem::None}
                              : Outcome {{}, eProblem::Unknown};
        }
        if (text.startsWith(QLatin1Char('<')))
            return {{}, eProblem::Unknown};
        return {inEveryLanguage(text), eProblem::None};
    }
    Outcome outcome;
    if (!QMetaType::convert(value.metaType(), value.constData(),
            QMetaType::fromType<ParameterText>(), &outcome.unit))
        outcome.problem = eProblem::Inconvertible;
    return outcome;
}

void MeasuringUnitResolver::report(
    eProblem problem, eParameterProperty unit, const ParameterCoordinate &coordinate)
{
    if (problem == eProblem::Unknown)
        PropertyResolver::report(PropertyResolver::eFault::UnknownValue, unit, coordinate);
    if (problem == eProblem::Inconvertible)
        PropertyResolver::report(PropertyResolver::eFault::InconvertibleValue, unit, coordinate);
}

ParameterCoordinate MeasuringUnitResolver::locatedCoordinate(const ParameterProperty &property)
{
    const QVariant &value = property.asVariant();
    if (value.metaType() != QMetaType::fromType<QString>())
        return {};
    const std::optional<AxisReference> reference = AxisReference::parse(value.toString());
    return reference ? reference->coordinate() : ParameterCoordinate();
}

QString MeasuringUnitResolver::allTexts(const ParameterText &unit)
{
    QString all;
    for (const QString &language : unit.languages()) {
        for (const QString &part : {language, unit.shortText(language), unit.longText(language)})
            all += part + QChar(QChar::Null);
    }
    return all;
}
