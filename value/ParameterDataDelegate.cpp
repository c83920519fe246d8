#include "value/ParameterDataDelegate.h"

#include "value/ElementFacts.h"
#include "value/ParameterInstanceData.h"

#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterInstance/ParameterSetup.h>

bool ParameterDataDelegate::isGlobalParameter() const
{
    const ParameterSetup *owner = m_record->owner();
    return owner && owner->isGlobalParameter();
}

quint8 ParameterDataDelegate::axis() const
{
    return m_record->address(0).axis();
}

quint32 ParameterDataDelegate::addressNumber(quint16 element) const
{
    m_record->checkElement(element);
    return m_record->address(element).toNumber();
}

quint8 ParameterDataDelegate::datatype(quint16 element) const
{
    return m_record->facts(element).datatype;
}

const SimpleType *ParameterDataDelegate::simpleType(quint16 element) const
{
    return m_record->facts(element).type;
}

qint32 ParameterDataDelegate::kind(quint16 element) const
{
    return m_record->facts(element).kind;
}

qint32 ParameterDataDelegate::decimalPlacesBehind(quint16 element) const
{
    return m_record->facts(element).decimalPlacesBehind;
}

quint32 ParameterDataDelegate::decimalPlacesSignificant(quint16 element) const
{
    return m_record->facts(element).decimalPlacesSignificant;
}

quint32 ParameterDataDelegate::fullScaleValue(quint16 element) const
{
    return m_record->facts(element).fullScaleValue;
}

double ParameterDataDelegate::scalingFactor(quint16 element) const
{
    return m_record->facts(element).scalingFactor;
}

double ParameterDataDelegate::editStartStepSize(quint16 element) const
{
    return m_record->facts(element).editStartStepSize;
}

QString ParameterDataDelegate::lowerLimitValue(quint16 element) const
{
    return m_record->facts(element).lowerLimit;
}

QString ParameterDataDelegate::upperLimitValue(quint16 element) const
{
    return m_record->facts(element).upperLimit;
}

quint16 ParameterDataDelegate::hidingFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::HidingFunctionIndex);
}

quint16 ParameterDataDelegate::limitFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::LimitFunctionIndex);
}

quint16 ParameterDataDelegate::scalingFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::ScalingFunctionIndex);
}

quint16 ParameterDataDelegate::prereadFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::PrereadFunctionIndex);
}

quint16 ParameterDataDelegate::prewriteFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::PrewriteFunctionIndex);
}

quint16 ParameterDataDelegate::postreadFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::PostreadFunctionIndex);
}

quint16 ParameterDataDelegate::postwriteFunctionIndex(quint16 element) const
{
    return m_record->facts(element).functionIndex(eParameterProperty::PostwriteFunctionIndex);
}

QList<qint32> ParameterDataDelegate::choiceMapKeys(quint16 element) const
{
    const QVariant choice = property(element, eParameterProperty::ChoiceMap);
    if (choice.metaType() == QMetaType::fromType<ParameterTextMap>())
        return static_cast<const ParameterTextMap *>(choice.constData())->keys();
    ParameterTextMap converted;
    if (!QMetaType::convert(choice.metaType(), choice.constData(),
            QMetaType::fromType<ParameterTextMap>(), &converted))
        return {};
    return converted.keys();
}

bool ParameterDataDelegate::hasProperty(quint16 element, eParameterProperty property) const
{
    const ParameterSetup *owner = m_record->owner();
    return owner && owner->hasElementProperty(element, property);
}

QVariant ParameterDataDelegate::property(quint16 element, eParameterProperty property) const
{
    const ParameterSetup *owner = m_record->owner();
    return owner ? owner->elementProperty(element, property).asVariant() : QVariant();
}
