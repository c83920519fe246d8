#pragma once

#include <KrFirmware/KrFirmwareExport.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

/// The firmware functions' way back into the container. Parameters are addressed by coordinate
/// number. A negative living space asks for the active axis.
/// Declaration order is binary interface; do not reorder.
class KrFirmware_EXPORT CallbackProvider {
public:
    virtual QString readValue(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) = 0;
    virtual QString readValueNative(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) = 0;
    virtual QString readUndecoratedValue(
        int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit) = 0;
    virtual void writeValue(int livingSpace, unsigned short coordinate, unsigned short element,
        const QString &text) = 0;
    virtual void writeValueNative(int livingSpace, unsigned short coordinate,
        unsigned short element, const QString &text) = 0;
    virtual void writeUndecoratedValue(int livingSpace, unsigned short coordinate,
        unsigned short element, const QString &text) = 0;
    /// Keys "isGlobalParameter", "isOnline", "isReadOnly", "elementCount", "name"; an unknown key
    /// or parameter gives `fallback`.
    virtual QVariant parameterProperty(
        unsigned short coordinate, const QString &key, const QVariant &fallback) = 0;
    virtual QVariant elementProperty(
        unsigned short coordinate, unsigned short element, unsigned int property) = 0;
    /// Keys "kind", "name", "shortName", "sizeInBytes" of element 0's data type.
    virtual QVariant datatypeProperty(unsigned short coordinate, const QString &key) = 0;
    /// Key "activeLanguage".
    virtual QVariant systemProperty(const QString &key) = 0;
    /// Keys "domain", "parameterChangeTag", and "change": a text that names the outermost change of a
    /// value, or round of questions, that runs with all that follows from it, another one for each;
    /// empty while none runs. An unknown key gives an empty text.
    virtual QString containerText(const QString &key) = 0;
    virtual void addInformationMessage(const QString &text) = 0;
    virtual void addWarningMessage(const QString &text) = 0;
    virtual void addCriticalMessage(const QString &text) = 0;

protected:
    ~CallbackProvider() = default;
};
