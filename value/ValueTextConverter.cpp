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
    return DisplayForms::show(
        m_information.kind(element), valueText, {m_information, livingSpace, element, unit});
}

QString ValueTextConverter::adopt(
    const QString &displayText, eLivingSpace livingSpace, quint16 element, const QString &unit)
{
    m_problems.clear();
    const std::optional<QString> valueText = DisplayForms::read(
        m_information.kind(element), displayText, {m_information, livingSpace, element, unit});
    if (!valueText)
        m_problems.append(RejectionReport::problemText(displayText, RejectionReport::Invalid));
    return valueText.value_or(QString());
}

QString ValueTextConverter::adoptDefault(const QString &text, quint16 element)
{
    m_problems.clear();
    return DisplayForms::readDefault(m_information.kind(element), text,
        {m_information, eLivingSpace::Global, element, QString()});
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
