#pragma once

#include <KrParameterDefinition/KrParameterDefinitionExport.h>
#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QMetaType>
#include <QtCore/QString>

#include <compare>

/// Axis, coordinate and element of one value, optionally one bit of it.
///
/// **Encoding** of the number, from the highest bit: 2 bits axis, 14 bits element, 16 bits
/// coordinate number. 4294967295 stands for every invalid address.
/// **Shape** of the texts: "E84", with element "E84[3]", with axis prefix "1.E84[3]" (the prefix is
/// axis + 1; a global parameter has none), with bit "E84[3]:5" (0 to 63). The sortable text
/// "1.E084[00003]" always has prefix, three digits of line, five digits of element and two digits
/// of a bit ("1.E084[00003]:05"); it is read by the constructor with an axis prefix too. Reading
/// takes one to five digits of element and one or two of a bit; anything that differs is invalid.
class KrParameterDefinition_EXPORT ParameterAddress {
public:
    static constexpr quint32 InvalidNumber = 4294967295U;
    static constexpr quint16 LastElement = 0x3FFF;
    static constexpr quint8 LastAxis = 3;
    static constexpr int NoBit = -1;
    static constexpr int LastBit = 63;

    ParameterAddress() noexcept = default;
    explicit ParameterAddress(quint32 number) noexcept;
    ParameterAddress(quint8 axis, const ParameterCoordinate &coordinate, quint16 element) noexcept;
    /// Reads a text. With `axisPrefix` a prefix "1." to "4." is read and a text without one means
    /// axis 0; without `axisPrefix` a text that has a prefix is invalid.
    ParameterAddress(const QString &text, bool axisPrefix);

    bool isValid() const noexcept
    {
        return m_coordinate.isValid() && m_axis <= LastAxis && m_element <= LastElement
            && m_bit >= NoBit && m_bit <= LastBit;
    }
    quint8 axis() const noexcept { return m_axis; }
    ParameterCoordinate coordinate() const noexcept { return m_coordinate; }
    quint16 element() const noexcept { return m_element; }
    bool hasBit() const noexcept { return m_bit != NoBit; }
    /// NoBit where the address names the whole value.
    int bit() const noexcept { return m_bit; }
    /// The bit plays no part in the number.
    quint32 toNumber() const noexcept
    {
        return isValid() ? quint32(m_axis) << AxisShift | quint32(m_element) << ElementShift
                | m_coordinate.toNumber()
                         : InvalidNumber;
    }

    /// **Refused** an axis above 3, an element above 16383, a bit above 63: the address is invalid.
    void setAxis(quint8 axis) noexcept { m_axis = axis; }
    void setCoordinate(const ParameterCoordinate &coordinate) noexcept
    {
        m_coordinate = coordinate;
    }
    void setElement(quint16 element) noexcept { m_element = element; }
    void setBit(int bit) noexcept { m_bit = bit; }

    /// Empty for an invalid address, like the other texts. All texts name the bit where there is
    /// one.
    QString toText(bool isGlobal, bool withElement) const;
    /// As the instance of an axis: always with prefix.
    QString toTextLocalInstance(bool withElement) const { return toText(false, withElement); }
    /// As the instance of a global parameter: never with prefix.
    QString toTextGlobalInstance(bool withElement) const { return toText(true, withElement); }
    QString toSortableText() const;

    /// By axis, element and coordinate like the number, then by bit.
    friend bool operator==(const ParameterAddress &a, const ParameterAddress &b) noexcept
    {
        return a.toNumber() == b.toNumber() && a.m_bit == b.m_bit;
    }
    friend std::strong_ordering operator<=>(
        const ParameterAddress &a, const ParameterAddress &b) noexcept
    {
        const auto byNumber = a.toNumber() <=> b.toNumber();
        return byNumber != 0 ? byNumber : a.m_bit <=> b.m_bit;
    }
    friend size_t qHash(const ParameterAddress &address, size_t seed = 0) noexcept
    {
        return ::qHash(address.toNumber(), seed);
    }

private:
    static constexpr int AxisShift = 30;
    static constexpr int ElementShift = 16;

    ParameterCoordinate m_coordinate;
    quint16 m_element = 0;
    quint8 m_axis = 0;
    int m_bit = NoBit;
};

Q_DECLARE_METATYPE(ParameterAddress)
Q_DECLARE_TYPEINFO(ParameterAddress, Q_RELOCATABLE_TYPE);
