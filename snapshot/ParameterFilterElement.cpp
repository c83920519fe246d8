#include "snapshot/ParameterFilterElement.h"

#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QLatin1StringView>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

struct PropertyName {
    QLatin1StringView text;
    eParameterProperty property;
};

constexpr PropertyName PropertyNames[] = {
    {QLatin1StringView("PrereadFunctionIndex"), eParameterProperty::PrereadFunctionIndex},
    {QLatin1StringView("PrewriteFunctionIndex"), eParameterProperty::PrewriteFunctionIndex},
    {QLatin1StringView("PostwriteFunctionIndex"), eParameterProperty::PostwriteFunctionIndex},
    {QLatin1StringView("PostreadFunctionIndex"), eParameterProperty::PostreadFunctionIndex},
    {QLatin1StringView("HidingFunctionIndex"), eParameterProperty::HidingFunctionIndex},
    {QLatin1StringView("ReadLevel"), eParameterProperty::ReadLevel},
    {QLatin1StringView("WriteLevel"), eParameterProperty::WriteLevel},
    {QLatin1StringView("LimitFunctionIndex"), eParameterProperty::LimitFunctionIndex},
    {QLatin1StringView("LowerLimitValue"), eParameterProperty::LowerLimitValue},
    {QLatin1StringView("UpperLimitValue"), eParameterProperty::UpperLimitValue},
    {QLatin1StringView("MemoryAllocation"), eParameterProperty::MemoryAllocation},
    {QLatin1StringView("ParameterKind"), eParameterProperty::ParameterKind},
    {QLatin1StringView("EnableOffRequired"), eParameterProperty::EnableOffRequired},
    {QLatin1StringView("ProcessDataMappable"), eParameterProperty::ProcessDataMappable},
    {QLatin1StringView("AutomaticOnlineUpdate"), eParameterProperty::AutomaticOnlineUpdate},
    {QLatin1StringView("NoWrite"), eParameterProperty::NoWrite},
    {QLatin1StringView("Datatype"), eParameterProperty::Datatype},
    {QLatin1StringView("ChoiceMap"), eParameterProperty::ChoiceMap},
    {QLatin1StringView("ScaledMeasuringUnit"), eParameterProperty::ScaledMeasuringUnit},
    {QLatin1StringView("NativeMeasuringUnit"), eParameterProperty::NativeMeasuringUnit},
    {QLatin1StringView("ScalingFactor"), eParameterProperty::ScalingFactor},
    {QLatin1StringView("ScalingFunctionIndex"), eParameterProperty::ScalingFunctionIndex},
    {QLatin1StringView("FullScaleValue"), eParameterProperty::FullScaleValue},
    {QLatin1StringView("DecimalPlacesBehind"), eParameterProperty::DecimalPlacesBehind},
    {QLatin1StringView("DecimalPlacesSignificant"), eParameterProperty::DecimalPlacesSignificant},
    {QLatin1StringView("EditStartStepSize"), eParameterProperty::EditStartStepSize},
    {QLatin1StringView("FieldbusMeasuringUnit"), eParameterProperty::FieldbusMeasuringUnit},
    {QLatin1StringView("FieldbusScalingFactor"), eParameterProperty::FieldbusScalingFactor},
    {QLatin1StringView("FieldbusDecimalPlacesBehind"),
        eParameterProperty::FieldbusDecimalPlacesBehind},
    {QLatin1StringView("AdditionalReadTimeout"), eParameterProperty::AdditionalReadTimeout},
    {QLatin1StringView("AdditionalWriteTimeout"), eParameterProperty::AdditionalWriteTimeout},
    {QLatin1StringView("CyclicOnlineUpdateRate"), eParameterProperty::CyclicOnlineUpdateRate},
    {QLatin1StringView("LimitDependency"), eParameterProperty::LimitDependency},
    {QLatin1StringView("ScalingDependency"), eParameterProperty::ScalingDependency},
    {QLatin1StringView("PostwriteDependency"), eParameterProperty::PostwriteDependency},
    {QLatin1StringView("PrereadDependency"), eParameterProperty::PrereadDependency},
    {QLatin1StringView("PostreadDependency"), eParameterProperty::PostreadDependency},
    {QLatin1StringView("PrewriteDependency"), eParameterProperty::PrewriteDependency},
    {QLatin1StringView("HidingDependency"), eParameterProperty::HidingDependency},
    {QLatin1StringView("MeasuringUnitDependency"), eParameterProperty::MeasuringUnitDependency},
    {QLatin1StringView("IsScopeChoice"), eParameterProperty::IsScopeChoice},
    {QLatin1StringView("ChoiceMapCommonTextIndex"), eParameterProperty::ChoiceMapCommonTextIndex},
    {QLatin1StringView("ScaledMeasuringUnitCommonTextIndex"),
        eParameterProperty::ScaledMeasuringUnitCommonTextIndex},
    {QLatin1StringView("NativeMeasuringUnitCommonTextIndex"),
        eParameterProperty::NativeMeasuringUnitCommonTextIndex},
    {QLatin1StringView("FieldbusMeasuringUnitCommonTextIndex"),
        eParameterProperty::FieldbusMeasuringUnitCommonTextIndex},
    {QLatin1StringView("OnlineOrder"), eParameterProperty::OnlineOrder},
    {QLatin1StringView("IsSimpleParameter"), eParameterProperty::IsSimpleParameter},
    {QLatin1StringView("IsRecordParameter"), eParameterProperty::IsRecordParameter},
    {QLatin1StringView("LivingSpace"), eParameterProperty::LivingSpace},
    {QLatin1StringView("Coordinate"), eParameterProperty::Coordinate},
    {QLatin1StringView("Address"), eParameterProperty::Address},
    {QLatin1StringView("Name"), eParameterProperty::Name},
    {QLatin1StringView("ElementCount"), eParameterProperty::ElementCount},
    {QLatin1StringView("ElementName"), eParameterProperty::ElementName},
    {QLatin1StringView("ValueNative"), eParameterProperty::ValueNative},
    {QLatin1StringView("ValueScaled"), eParameterProperty::ValueScaled},
    {QLatin1StringView("DefaultvalueNative"), eParameterProperty::DefaultvalueNative},
    {QLatin1StringView("DefaultvalueScaled"), eParameterProperty::DefaultvalueScaled},
    {QLatin1StringView("ChangeTagValue"), eParameterProperty::ChangeTagValue},
    {QLatin1StringView("ChangeTagDefaultValue"), eParameterProperty::ChangeTagDefaultValue},
    {QLatin1StringView("ChangeTagReadLevel"), eParameterProperty::ChangeTagReadLevel},
    {QLatin1StringView("ChangeTagWriteLevel"), eParameterProperty::ChangeTagWriteLevel},
};

bool isComputed(eParameterProperty property)
{
    return property == eParameterProperty::LivingSpace || property == eParameterProperty::Address
        || property >= eParameterProperty::ValueNative;
}

/// 0 for what is none, like a property that is looked up: also for "inf", "nan" and a number beyond
/// the range, which read as infinities and as no number.
double finiteNumber(const QString &text)
{
    const double number = text.toDouble();
    return std::isfinite(number) ? number : 0.0;
}

} // namespace

ParameterFilterElement::ParameterFilterElement() = default;

ParameterFilterElement::~ParameterFilterElement() = default;

void ParameterFilterElement::load(
    const ParameterInformation *information, eLivingSpace livingSpace, quint16 element)
{
    m_information = information;
    m_livingSpace = livingSpace;
    m_element = element;
}

eParameterProperty ParameterFilterElement::property(const QString &propertyName)
{
    const auto found = std::find_if(std::begin(PropertyNames), std::end(PropertyNames),
        [&](const PropertyName &name) { return name.text == propertyName; });
    return found == std::end(PropertyNames) ? eParameterProperty::Coordinate : found->property;
}

QStringList ParameterFilterElement::propertyNames()
{
    QStringList names;
    for (const PropertyName &name : PropertyNames)
        names.append(name.text);
    return names;
}

QString ParameterFilterElement::stringProperty(QString propertyName) const
{
    if (!m_information)
        return {};
    const eParameterProperty id = property(propertyName);
    if (isComputed(id))
        return computedText(id);
    return m_information->elementProperty(m_element, id).asString();
}

quint32 ParameterFilterElement::uint32Property(QString propertyName) const
{
    if (!m_information)
        return 0;
    const eParameterProperty id = property(propertyName);
    if (isComputed(id))
        return computedText(id).toUInt();
    return m_information->elementProperty(m_element, id).asUint32();
}

qint32 ParameterFilterElement::int32Property(QString propertyName) const
{
    if (!m_information)
        return 0;
    const eParameterProperty id = property(propertyName);
    if (isComputed(id))
        return computedText(id).toInt();
    return m_information->elementProperty(m_element, id).asInt32();
}

double ParameterFilterElement::doubleProperty(QString propertyName) const
{
    if (!m_information)
        return 0.0;
    const eParameterProperty id = property(propertyName);
    if (isComputed(id))
        return finiteNumber(computedText(id));
    return m_information->elementProperty(m_element, id).asDouble();
}

QString ParameterFilterElement::computedText(eParameterProperty property) const
{
    switch (property) {
    case eParameterProperty::LivingSpace:
        return livingSpaceText();
    case eParameterProperty::Address:
        return m_information->address(m_livingSpace, m_element).toSortableText();
    case eParameterProperty::ValueNative:
        return m_information->nativeValueText(m_livingSpace, m_element, false);
    case eParameterProperty::ValueScaled:
        return m_information->displayValueText(m_livingSpace, m_element, false);
    case eParameterProperty::DefaultvalueNative:
        return m_information->defaultNativeValueText(m_livingSpace, m_element);
    case eParameterProperty::DefaultvalueScaled:
        return defaultDisplayText();
    case eParameterProperty::ChangeTagValue:
        return m_information->attribute(m_livingSpace, m_element, QStringLiteral("ValueChangeTag"));
    case eParameterProperty::ChangeTagDefaultValue:
        return m_information->attribute(
            m_livingSpace, m_element, QStringLiteral("DefaultValueChangeTag"));
    case eParameterProperty::ChangeTagReadLevel:
        return m_information->attribute(
            m_livingSpace, m_element, QStringLiteral("ReadLevelChangeTag"));
    case eParameterProperty::ChangeTagWriteLevel:
        return m_information->attribute(
            m_livingSpace, m_element, QStringLiteral("WriteLevelChangeTag"));
    default:
        return {};
    }
}

/// All living spaces of the parameter, whichever one is loaded.
QString ParameterFilterElement::livingSpaceText() const
{
    QString text;
    const QList<eLivingSpace> livingSpaces = m_information->livingSpaces();
    for (const eLivingSpace livingSpace : livingSpaces) {
        if (!text.isEmpty())
            text += QLatin1Char(';');
        text += QString::number(static_cast<qint32>(livingSpace));
    }
    return text;
}

/// The parameter itself offers the default's value text alone.
QString ParameterFilterElement::defaultDisplayText() const
{
    const QString text = m_information->defaultValueText(m_livingSpace, m_element);
    if (!m_information)
        return {};
    return m_information->prepareValueText(text, m_livingSpace, m_element, false, nullptr);
}
