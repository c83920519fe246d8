#pragma once

#include <KrFilter/Filter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <memory>

/// The filter that conditions of the form "PROPERTY=VALUE" make: of each property one of its values,
/// as text, in full and with case.
class PropertyFilter {
    Q_DECLARE_TR_FUNCTIONS(PropertyFilter)

public:
    /// **Refused** a condition without "=" or without property: null, `error` says which.
    static std::unique_ptr<Filter> of(const QStringList &conditions, QString &error);
    /// The properties among the conditions that a filter does not know; they answer like
    /// "Coordinate".
    static QStringList unknownProperties(const QStringList &conditions);
};
