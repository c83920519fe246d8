#pragma once

#include "FunctionTables.h"

#include <KrParameterDefinition/ParameterDefinition.h>

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <map>
#include <memory>

/// A loaded device description.
class ServoDriveFirmwareData {
public:
    using Definitions = std::map<quint32, std::unique_ptr<ParameterDefinition>>;

    quint32 familyIdentifier = 0;
    QString familyName;
    bool hasPhysicalAxes = false;
    /// Ascending, without 0.
    QList<int> axes;
    QStringList languages;
    QStringList warnings;
    FunctionTables tables;
    /// By number.
    Definitions parameters;
    Definitions systemParameters;
};
