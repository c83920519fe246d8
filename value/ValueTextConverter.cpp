#include "value/ValueTextConverter.h"

#include "value/DisplayForms.h"
#include "value/RejectionReport.h"

#include <KrParameterInstance/ParameterInformation.h>

ValueTextConverter::ValueTextConverter(const ParameterInformation &information)
    : m_information(information)
{
}

QString ValueTextConverter::prepare(
    const QString &valueText, eLivingSpace livingSpace, quint16 element, const QString &unit)
{
    m_problems.clear();
    if (valueText.isEmpty())
        return {};
    const DisplayForms::Place place {m_information, livingSpace, element, unit};
    const int kind = m_information.kind(element);
    return place.isThere ? DisplayForms::show(kind, valueText, place) : valueText;
}

QString ValueTextConverter::adopt(
    const QString &displayText, eLivingSpace livingSpace, quint16 element, const QString &unit)
{
    m_problems.clear();
    const DisplayForms::Place place {m_information, livingSpace, element, unit};
    const int kind = m_information.kind(element);
    const std::optional<QString> valueText =
        place.isThere ? DisplayForms::read(kind, displayText, place) : displayText;
    if (!valueText)
        m_problems.append(RejectionReport::problemText(displayText, RejectionReport::Invalid));
    return valueText.value_or(QString());
}

QString ValueTextConverter::adoptDefault(const QString &text, quint16 element)
{
    m_problems.clear();
    const QString noUnit;
    const DisplayForms::Place place {m_information, eLivingSpace::Global, element, noUnit};
    const int kind = m_information.kind(element);
    return place.isThere ? DisplayForms::readDefault(kind, text, place) : text;
}

QString ValueTextConverter::format(
    const QString &text, eLivingSpace livingSpace, quint16 element, int kind)
{
    m_problems.clear();
    if (text.isEmpty())
        return {};
    return DisplayForms::show(kind, text, {m_information, livingSpace, element, QString()});
}

ParameterTextMap ValueTextConverter::choiceTexts(eLivingSpace livingSpace, quint16 element) const
{
    return DisplayForms::choiceTexts({m_information, livingSpace, element, QString()});
}
