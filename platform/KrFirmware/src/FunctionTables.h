#pragma once

#include "DescriptionReader.h"

#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QMap>

#include <map>
#include <memory>

class FunctionEvaluator;

/// What the indices of a description name: the texts of the firmware's functions by kind and index,
/// and the system strings by number.
class FunctionTables {
public:
    /// **Refused** unknown kinds, indices and numbers that are not from 1 to 65535, and texts that
    /// are no program.
    void readFunctions(const JsonValue &functions, const DescriptionReader &reader);
    void readSystemStrings(const JsonValue &strings, const DescriptionReader &reader);

    /// Highest index of the kind that the property asks for, or the highest system string for the
    /// properties that name one; 0 where the table is empty.
    quint16 maximum(eParameterProperty indexProperty) const;
    /// Holds all functions; null where there are none.
    std::unique_ptr<FunctionEvaluator> makeEvaluator() const;
    /// Warns of an index that the table lacks; 0 names nothing.
    void checkIndex(eParameterProperty indexProperty, qint64 index, const JsonValue &at,
        DescriptionFindings &findings) const;

private:
    bool isThere(eParameterProperty indexProperty, qint64 index) const;

    /// Index property to the functions' texts by index.
    std::map<eParameterProperty, QMap<qint32, QString>> m_functions;
    QMap<qint32, ParameterText> m_systemStrings;
};
