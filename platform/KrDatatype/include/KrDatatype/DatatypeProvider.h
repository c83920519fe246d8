#pragma once

#include <KrDatatype/SimpleType.h>

#include <QtCore/QList>

/// The one fixed table of data types. Ids never change: they stand in saved definitions.
class KrDatatype_EXPORT DatatypeProvider {
public:
    /// Values of this type are never formatted.
    static constexpr quint8 UnformattedId = 31;

    static const DatatypeProvider *instance();

    /// Null for an unknown id. **Owner** the table; valid for the process.
    const SimpleType *simpleType(quint8 id) const;
    /// By short name, case-sensitive; null where unknown.
    const SimpleType *simpleType(const QString &shortName) const;
    /// Ascending by id.
    QList<const SimpleType *> simpleTypes() const;

private:
    DatatypeProvider() = default;
};
