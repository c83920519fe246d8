#pragma once

#include <KrParameterDefinition/KrParameterDefinitionExport.h>

#include <QtCore/QHashFunctions>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QStringView>

#include <compare>

/// Place of a parameter in the device: a group letter with a line number. A value type of two
/// bytes.
///
/// **Shape** text "E84": the letter of the group and the line with at least two digits ("A00",
/// "G245"); one to three digits are read. Sortable text "E084": always three digits; it is read
/// too. Number: group * 1000 + line, 0 for an invalid coordinate.
/// **Range** groups 1 to 26 are A to Z, lines 0 to 999; everything else is invalid.
class KrParameterDefinition_EXPORT ParameterCoordinate {
public:
    /// Group whose coordinates are moveable (Q).
    static constexpr quint16 MoveableGroup = 17;
    static constexpr quint16 LastGroup = 26;
    static constexpr quint16 LastLine = 999;

    constexpr ParameterCoordinate() noexcept = default;
    /// **Refused** numbers that name no group and line: the coordinate is invalid.
    explicit ParameterCoordinate(quint16 number) noexcept;
    ParameterCoordinate(quint16 group, quint16 line) noexcept;
    /// Letters are upper case; anything but a letter with one to three digits is invalid.
    explicit ParameterCoordinate(const QString &text) noexcept;
    explicit ParameterCoordinate(QStringView text) noexcept;

    bool isValid() const noexcept { return m_number != 0; }
    /// Lies in the moveable group, so that an instance may be moved to and from it.
    bool isMoveable() const noexcept { return group() == MoveableGroup; }
    quint16 group() const noexcept { return m_number / 1000; }
    quint16 line() const noexcept { return m_number % 1000; }
    quint16 toNumber() const noexcept { return m_number; }
    /// Empty for an invalid coordinate, like toSortableText().
    QString toText() const;
    QString toSortableText() const;

    /// By group, then by line.
    friend auto operator<=>(const ParameterCoordinate &, const ParameterCoordinate &) = default;
    friend size_t qHash(const ParameterCoordinate &coordinate, size_t seed = 0) noexcept
    {
        return ::qHash(coordinate.m_number, seed);
    }

private:
    quint16 m_number = 0;
};

Q_DECLARE_METATYPE(ParameterCoordinate)
Q_DECLARE_TYPEINFO(ParameterCoordinate, Q_PRIMITIVE_TYPE);
