#pragma once

#include "apps/import/CanOpenDataType.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <optional>

/// A value of an object dictionary as the native text of its data type.
///
/// Integers become plain decimals; a hexadecimal number for a signed type stands for its bits. A
/// real is read as decimal or, in hexadecimal, as its bit pattern and becomes the shortest plain
/// decimal that reads back as the same value. Bytes become hexadecimal digits in lower case.
class NativeValue {
    Q_DECLARE_TR_FUNCTIONS(NativeValue)

public:
    enum class eState {
        /// The file gives no value.
        Missing,
        Good,
        /// A number beyond the data type; the text is the nearest one within it.
        OutsideType,
        /// No value of this data type, or none that a text of the device holds.
        Refused,
        NodeIdUnknown,
    };

    static NativeValue read(
        const CanOpenDataType &type, const QString &text, std::optional<quint8> nodeId);

    eState state() const { return m_state; }
    bool isGood() const { return m_state == eState::Good; }
    /// Empty unless good or outside of the type.
    QString text() const { return m_text; }
    /// Why it is not good, or what is to be known of a good one; may be empty.
    QString note() const { return m_note; }

    /// Smallest and largest native text of an integer type; empty for another form.
    static QString minimumText(const CanOpenDataType &type);
    static QString maximumText(const CanOpenDataType &type);
    /// Negative, 0 or positive. **Range** good texts of a number type.
    static int compare(const CanOpenDataType &type, const QString &a, const QString &b);

private:
    NativeValue(eState state, const QString &text, const QString &note);

    static NativeValue readInteger(
        const CanOpenDataType &type, const QString &text, std::optional<quint8> nodeId);
    static NativeValue readReal(const CanOpenDataType &type, const QString &text);
    static NativeValue readText(const CanOpenDataType &type, const QString &text);
    static NativeValue readBytes(const CanOpenDataType &type, const QString &text);

    eState m_state;
    QString m_text;
    QString m_note;
};
