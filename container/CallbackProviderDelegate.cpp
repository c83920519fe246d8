#include "container/CallbackProviderDelegate.h"

#include "container/ParameterContainerPrivate.h"

#include <KrMultilingual/LanguageManager.h>
#include <KrSystem/System.h>

QString CallbackProviderDelegate::readValue(
    int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit)
{
    return m_container->readForFirmware(eForm::Display, livingSpace, coordinate, element, withUnit);
}

QString CallbackProviderDelegate::readValueNative(
    int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit)
{
    return m_container->readForFirmware(eForm::Native, livingSpace, coordinate, element, withUnit);
}

QString CallbackProviderDelegate::readUndecoratedValue(
    int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit)
{
    return m_container->readForFirmware(
        eForm::Undecorated, livingSpace, coordinate, element, withUnit);
}

void CallbackProviderDelegate::writeValue(
    int livingSpace, unsigned short coordinate, unsigned short element, const QString &text)
{
    m_container->writeForFirmware(eForm::Display, livingSpace, coordinate, element, text);
}

void CallbackProviderDelegate::writeValueNative(
    int livingSpace, unsigned short coordinate, unsigned short element, const QString &text)
{
    m_container->writeForFirmware(eForm::Native, livingSpace, coordinate, element, text);
}

void CallbackProviderDelegate::writeUndecoratedValue(
    int livingSpace, unsigned short coordinate, unsigned short element, const QString &text)
{
    m_container->writeForFirmware(eForm::Undecorated, livingSpace, coordinate, element, text);
}

QVariant CallbackProviderDelegate::parameterProperty(
    unsigned short coordinate, const QString &key, const QVariant &fallback)
{
    return m_container->parameterProperty(coordinate, key, fallback);
}

QVariant CallbackProviderDelegate::elementProperty(
    unsigned short coordinate, unsigned short element, unsigned int property)
{
    return m_container->elementProperty(coordinate, element, property);
}

QVariant CallbackProviderDelegate::datatypeProperty(unsigned short coordinate, const QString &key)
{
    return m_container->datatypeProperty(coordinate, key);
}

QVariant CallbackProviderDelegate::systemProperty(const QString &key)
{
    if (key == QLatin1String("activeLanguage"))
        return LanguageManager::activeLanguage();
    return {};
}

QString CallbackProviderDelegate::containerText(const QString &key)
{
    return m_container->containerText(key);
}

void CallbackProviderDelegate::addInformationMessage(const QString &text)
{
    System::addInformationMessage(m_container->domain, text);
}

void CallbackProviderDelegate::addWarningMessage(const QString &text)
{
    System::addWarningMessage(m_container->domain, text);
}

void CallbackProviderDelegate::addCriticalMessage(const QString &text)
{
    System::addCriticalMessage(m_container->domain, text);
}
