#pragma once

#include "apps/import/WideInteger.h"

#include <QtCore/QStringView>

#include <optional>

/// An integer as an electronic data sheet writes it.
///
///     number = [ sign ] term *( sign term ) [ ";" comment ]     sign = "+" / "-"
///     term   = "$NODEID" / "0x" hex / "0" octal / decimal
///
/// Blanks between the parts and upper or lower case carry no meaning; the "$" may be missing.
/// Digits after a leading 0 are octal, as the standard says, except where an 8 or a 9 shows that
/// they cannot be.
class EdsNumber {
public:
    enum class eState { Empty, Number, NoNumber, TooLarge, NodeIdUnknown };

    /// Without a node id an expression that names it has no value.
    static EdsNumber parse(QStringView text, std::optional<quint8> nodeId = std::nullopt);

    eState state() const { return m_state; }
    bool isNumber() const { return m_state == eState::Number; }
    /// 0 unless this is a number.
    WideInteger value() const { return m_value; }
    /// A single hexadecimal number without sign, which may stand for the bits of a signed value.
    bool isBitPattern() const { return m_isBitPattern; }
    /// Leading zeros made a difference to the value or had to be ignored.
    bool hasLeadingZeros() const { return m_hasLeadingZeros; }
    /// The value where this is a number of at most `maximum`, otherwise nothing.
    std::optional<quint32> unsignedValue(quint32 maximum) const;

private:
    class Parser;

    eState m_state = eState::Empty;
    WideInteger m_value;
    bool m_isBitPattern = false;
    bool m_hasLeadingZeros = false;
};
