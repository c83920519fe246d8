#pragma once

#include "apps/import/DeviceInformation.h"
#include "apps/import/SkippedObject.h"

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>

/// Who may do what with a value.
enum class eObjectAccess { ReadOnly, WriteOnly, ReadWrite };

/// A value as the file writes it; empty where it has none.
struct DictionaryText {
    QString text;
    int line = 0;
};

/// One value of an object dictionary: a simple object or a sub-object.
struct DictionaryEntry {
    quint8 subIndex = 0;
    int line = 0;
    QString name;
    quint32 dataType = 0;
    eObjectAccess access = eObjectAccess::ReadOnly;
    bool isMappable = false;
    DictionaryText defaultValue;
    DictionaryText lowLimit;
    DictionaryText highLimit;
    DictionaryText configuredValue;
};

/// One object with a value or with values at its sub-indices.
struct DictionaryObject {
    quint16 index = 0;
    int line = 0;
    QString name;
    /// What this object is for in one device; only a configuration has it.
    QString denotation;
    /// Has sub-indices; otherwise there is one entry.
    bool isRecord = false;
    /// Ascending by sub-index.
    QList<DictionaryEntry> entries;
};

/// What an electronic data sheet or a device configuration file says of a device.
struct ObjectDictionary {
    QMap<quint16, DictionaryObject> objects;
    QList<SkippedObject> skipped;
    DeviceInformation device;
};
