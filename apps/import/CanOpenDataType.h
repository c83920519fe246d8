#pragma once

#include <QtCore/QString>

/// A basic data type of CANopen with the data type of a device description that holds it.
///
/// **Source** CiA 301, table of data type codes.
struct CanOpenDataType {
    enum class eForm { Signed, Unsigned, Real, Text, Bytes, NoValue };

    quint16 code;
    const char *name;
    eForm form;
    /// **Unit** bits; of texts and bytes the longest value that the description's type holds, in
    /// bytes.
    quint16 size;
    /// Short name in the device description; null for a type that no description has.
    const char *shortName;
    /// The description's type is wider, so that limits keep values within the drive's type.
    bool isNarrower;

    bool hasValue() const { return form != eForm::NoValue; }
    bool isInteger() const { return form == eForm::Signed || form == eForm::Unsigned; }
    bool isNumber() const { return isInteger() || form == eForm::Real; }
    bool isBoolean() const;

    /// Null for a code that is none of the standard's basic types.
    static const CanOpenDataType *find(quint32 code);
};
