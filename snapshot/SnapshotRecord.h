#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QExplicitlySharedDataPointer>
#include <QtCore/QMap>
#include <QtCore/QList>
#include <QtCore/QSharedData>
#include <QtCore/QString>

#include <span>

/// The two units of a value. One object serves all values of a snapshot that have the same two.
struct SnapshotUnits : QSharedData {
    QString scaled;
    QString native;
};

/// One value, in its three forms without unit. Default-constructed where a living space has no
/// value for an element: such a value has neither text nor unit.
struct SnapshotValue {
    static const SnapshotValue &none();
    QString displayWithUnit() const { return withUnit(display, scaledUnit()); }
    QString nativeWithUnit() const { return withUnit(native, nativeUnit()); }
    QString undecoratedWithUnit() const { return withUnit(undecorated, scaledUnit()); }
    QString scaledUnit() const { return units ? units->scaled : QString(); }
    QString nativeUnit() const { return units ? units->native : QString(); }

    QString display;
    QString undecorated;
    // Side by side: a comparison reads mostly these two.
    QString native;
    /// Null where both units are empty.
    QExplicitlySharedDataPointer<const SnapshotUnits> units;

private:
    static QString withUnit(const QString &text, const QString &unit);
};
Q_DECLARE_TYPEINFO(SnapshotValue, Q_RELOCATABLE_TYPE);

/// What a record holds besides texts. Most parameters of a device are alike in this, so that one
/// object serves many records. All lists are ascending.
struct SnapshotLayout : QSharedData {
    friend bool operator==(const SnapshotLayout &a, const SnapshotLayout &b)
    {
        return a.coversTheSame(b) && areSame(a.tables, b.tables)
            && areSame(a.positions, b.positions) && areSame(a.readLevels, b.readLevels);
    }
    bool coversTheSame(const SnapshotLayout &other) const
    {
        return areSame(livingSpaces, other.livingSpaces) && areSame(elements, other.elements);
    }

    /// The living spaces that the snapshot takes and the parameter has.
    QList<eLivingSpace> livingSpaces;
    /// The elements that no living space rejected.
    QList<quint16> elements;
    /// The living spaces of which values are held, also those that the snapshot does not take.
    QList<eLivingSpace> tables;
    /// The elements of which values are held. The index is the element's position in every sequence.
    QList<quint16> positions;
    /// By position.
    QList<quint32> readLevels;

private:
    /// Qt's operator gives an empty list's null pointer to memcmp(), which must not get one.
    template <typename T>
    static bool areSame(const QList<T> &a, const QList<T> &b)
    {
        return a.size() == b.size() && (a.isEmpty() || a == b);
    }
};

/// The frozen texts of one parameter: for each living space a sequence of values by element
/// position. Made by SnapshotRecordBuilder and SnapshotJsonParameter.
class SnapshotRecord {
public:
    const SnapshotLayout &layout() const { return *m_layout; }
    const QString &name() const { return m_name; }
    /// Empty where no value of the element is held, and for a simple parameter.
    QString elementName(quint16 element) const;
    quint32 elementReadLevel(quint16 element) const;
    /// The empty value where there is none.
    const SnapshotValue &value(eLivingSpace livingSpace, quint16 element) const;
    /// All values of a living space, by position; empty where none is held.
    std::span<const SnapshotValue> sequence(eLivingSpace livingSpace) const;

private:
    friend class SnapshotJsonParameter;
    friend class SnapshotRecordBuilder;
    SnapshotRecord() = default;

    static constexpr qsizetype NoPosition = -1;
    qsizetype position(quint16 element) const;

    QString m_name;
    /// Never null once built.
    QExplicitlySharedDataPointer<const SnapshotLayout> m_layout;
    /// By position; empty for a simple parameter.
    QList<QString> m_elementNames;
    /// One sequence after the other, in the order of the layout's tables.
    QList<SnapshotValue> m_values;
};

using SnapshotRecords = QMap<ParameterCoordinate, SnapshotRecord>;
