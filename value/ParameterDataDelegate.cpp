#include "value/ParameterDataDelegate.h"

#include "value/ParameterInstanceData.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterInstance/ParameterSetup.h>

bool ParameterDataDelegate::isGlobalParameter() const
{
    return m_record->owner()->isGlobalParameter();
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
    return quint8(read(element, eParameterProperty::Datatype).asUint32());
}

const SimpleType *ParameterDataDelegate::simpleType(quint16 element) const
{
    return DatatypeProvider::instance()->simpleType(datatype(element));
}

qint32 ParameterDataDelegate::kind(quint16 element) const
{
    return read(element, eParameterProperty::ParameterKind).asInt32();
}

qint32 ParameterDataDelegate::decimalPlacesBehind(quint16 element) const
{
    return read(element, eParameterProperty::DecimalPlacesBehind).asInt32();
}

quint32 ParameterDataDelegate::decimalPlacesSignificant(quint16 element) const
{
    return read(element, eParameterProperty::DecimalPlacesSignificant).asUint32();
}

quint32 ParameterDataDelegate::fullScaleValue(quint16 element) const
{
    return read(element, eParameterProperty::FullScaleValue).asUint32();
}

double ParameterDataDelegate::scalingFactor(quint16 element) const
{
    return double(read(element, eParameterProperty::ScalingFactor).asFloat());
}

double ParameterDataDelegate::editStartStepSize(quint16 element) const
{
    return double(read(element, eParameterProperty::EditStartStepSize).asFloat());
}

QString ParameterDataDelegate::lowerLimitValue(quint16 element) const
{
    return read(element, eParameterProperty::LowerLimitValue).asString();
}

QString ParameterDataDelegate::upperLimitValue(quint16 element) const
{
    return read(element, eParameterProperty::UpperLimitValue).asString();
}

quint16 ParameterDataDelegate::hidingFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::HidingFunctionIndex).asUint16();
}

quint16 ParameterDataDelegate::limitFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::LimitFunctionIndex).asUint16();
}

quint16 ParameterDataDelegate::scalingFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::ScalingFunctionIndex).asUint16();
}

quint16 ParameterDataDelegate::prereadFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::PrereadFunctionIndex).asUint16();
}

quint16 ParameterDataDelegate::prewriteFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::PrewriteFunctionIndex).asUint16();
}

quint16 ParameterDataDelegate::postreadFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::PostreadFunctionIndex).asUint16();
}

quint16 ParameterDataDelegate::postwriteFunctionIndex(quint16 element) const
{
    return read(element, eParameterProperty::PostwriteFunctionIndex).asUint16();
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
    return m_record->owner()->hasElementProperty(element, property);
}

QVariant ParameterDataDelegate::property(quint16 element, eParameterProperty property) const
{
    return read(element, property).asVariant();
}

ParameterProperty ParameterDataDelegate::read(quint16 element, eParameterProperty property) const
{
    return m_record->owner()->elementProperty(element, property);
}
