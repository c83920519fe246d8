#pragma once

#include "apps/import/CanOpenDataType.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

/// One element as a device description writes it.
struct ImportedElement {
    quint8 subIndex = 0;
    QString name;
    /// Never null. **Owner** the table of types.
    const CanOpenDataType *type = nullptr;
    bool isWritable = false;
    /// Cannot be read back from the drive.
    bool isWriteOnly = false;
    bool isMappable = false;
    /// Native texts; empty where there is no limit.
    QString lowerLimit;
    QString upperLimit;
    /// Native text within the limits.
    QString defaultText;
    /// Native text; nothing where the file configures none.
    std::optional<QString> configuredText;
};

/// One object of the dictionary as a device description writes it.
struct ImportedParameter {
    quint16 index = 0;
    QString name;
    QString denotation;
    bool isRecord = false;
    /// Ascending by sub-index; exactly one unless a record.
    QList<ImportedElement> elements;
};
