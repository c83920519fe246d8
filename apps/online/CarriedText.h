#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class SimpleType;

/// Which native texts the bytes of a data type carry: whatever they do not carry would reach a drive as
/// zeros or as another value.
class CarriedText {
    Q_DECLARE_TR_FUNCTIONS(CarriedText)

public:
    /// **Range** whole numbers within the type; reals that stay finite and do not become zero, rounded to
    /// the type, and "nan" and "inf"; characters of Latin-1 but no zero, no more than the field has;
    /// pairs of hexadecimal digits, no more than the field has.
    static bool isCarried(const QString &native, const SimpleType &type);
    /// "ganze Zahl von 0 bis 65535", for the user.
    static QString wanted(const SimpleType &type);
};
