#pragma once

#include "apps/online/MappedValue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>
#include <utility>

class ParameterContainer;
class ParameterInformation;

/// Which registers of the drive carry which value: follows from the described parameters alone, so
/// that both ends of the line find the same. docs/formats/register-map.md describes it.
class RegisterMap {
    Q_DECLARE_TR_FUNCTIONS(RegisterMap)

public:
    static constexpr int UnitSize = 65536;
    /// The registers before the first value tell what the unit holds.
    static constexpr quint16 HeaderSize = 16;
    /// **Unit** registers; the longest that one request can write.
    static constexpr quint16 LongestValue = 123;
    static constexpr quint16 LayoutVersion = 1;

    enum class eRefusal {
        UnknownType,
        TooLong, ///< Longer than one request can write.
        NoRoom, ///< Behind the last register of the unit.
        NotInDefinition, ///< An element that only this container has.
    };

    struct Refusal {
        ValuePlace place;
        QString address;
        eRefusal reason;
        /// Like MappedValue::isSetting().
        bool isSetting;
    };

    explicit RegisterMap(ParameterContainer &container);

    /// The unit that carries a living space: 1 for the global one, 2 to 5 for the axes 1 to 4.
    static quint8 unitOf(eLivingSpace livingSpace) { return quint8(int(livingSpace) + 1); }
    static eLivingSpace livingSpaceOf(quint8 unit) { return eLivingSpace(int(unit) - 1); }
    /// For the user.
    static QString reasonText(eRefusal reason);

    /// By unit, then by register.
    const QList<MappedValue> &values() const { return m_values; }
    const QList<Refusal> &refusals() const { return m_refusals; }
    /// Position in values(); -1 where the address has no register.
    qsizetype indexOf(const ParameterAddress &address) const;
    /// The first position whose value ends behind a register of a unit; the size where there is none.
    qsizetype firstAt(quint8 unit, int registerNumber) const;
    /// First and last of the positions of one parameter in a living space; none: the first lies behind.
    std::pair<qsizetype, qsizetype> positionsOf(
        const ParameterCoordinate &coordinate, eLivingSpace livingSpace) const;
    /// Null where the address was not refused.
    const Refusal *refusalOf(const ParameterAddress &address) const;
    /// The units that have values, ascending.
    QList<quint8> units() const;
    /// The registers before the first value of a unit.
    QList<quint16> header(quint8 unit) const;

private:
    void add(ParameterContainer &container, const ParameterCoordinate &coordinate);
    /// Gives the value its registers; a reason where it gets none.
    std::optional<eRefusal> assign(const ParameterInformation &parameter, const ValuePlace &place);

    QList<MappedValue> m_values;
    QList<Refusal> m_refusals;
    QHash<ParameterAddress, qsizetype> m_indexes;
    /// Positions in refusals().
    QHash<ParameterAddress, qsizetype> m_refusalIndexes;
    /// Unit to the next free register.
    QHash<quint8, int> m_ends;
    quint32 m_familyIdentifier;
};
