#pragma once

#include "apps/online/MappedValue.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

#include <array>

class ParameterContainer;
class ParameterSetup;

/// The container's values as the line carries them. Tells changes that come from the drive from those
/// that are made here.
class ContainerValues : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller; the container outlives this.
    explicit ContainerValues(ParameterContainer &container);

    QString nativeText(const MappedValue &value) const;
    /// Whether the container has it; a project may have fewer elements than the device.
    bool holds(const MappedValue &value) const;
    /// Means the same as the native text that the container makes of the bytes.
    static QString textOf(const MappedValue &value, const QByteArray &bytes);
    /// Whether the bytes mean something else than what the container has.
    bool differs(const MappedValue &value, const QByteArray &bytes) const
    {
        return !isSame(value, textOf(value, bytes), nativeText(value));
    }
    /// Empty where the container does not hold the value.
    QList<quint16> registers(const MappedValue &value) const;
    /// What became of a value of the drive.
    struct Adopted {
        /// It means something else than before.
        bool hasChanged = false;
        /// Native text of the drive's value, also where a listener has written another one over it.
        QString text;
    };

    /// Stores what the drive has. A listener may delete this; `guard` holds it, or what owns it. The
    /// value may go meanwhile. **Emits** changedHere, changedByFunction.
    Adopted adopt(
        const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard);
    /// Whether both native texts mean the same to a drive: numbers by value, byte strings without
    /// case and with zero bytes behind.
    static bool isSame(const MappedValue &value, const QString &sent, const QString &kept);

Q_SIGNALS:
    /// Also while a value of the drive is being stored: a listener that writes then writes to the drive.
    void changedHere(const ParameterAddress &address);
    /// A function of the device made it of a value of the drive. The drive knows better what it has.
    void changedByFunction(const ParameterAddress &address);

private:
    /// A value of the drive on its way into the container.
    struct Adoption {
        ValuePlace place;
        ParameterAddress address;
        /// **Owner** the table of data types.
        const SimpleType *type;
        /// Native text of what the drive has.
        QString text;
        bool leadsToFunctions;
        /// How often the value has changed: more than once, and a listener has written over it.
        int changes = 0;
        /// All listeners have been told of it; what changes from now on is made by functions, and by those
        /// who are told of that.
        bool areListenersThrough = false;
        /// Changes since then of which listeners are being told, one inside the other.
        int tellings = 0;
    };

    QString nativeText(const ValuePlace &place) const;
    /// Null where there is none.
    ParameterSetup *parameterAt(const ParameterCoordinate &coordinate) const;
    /// Tells when all others have been told of a change.
    std::array<QMetaObject::Connection, 2> hearLast(const Adoption &adoption);
    void store(const Adoption &adoption);
    void onChanged(const ParameterAddress &address);
    /// Whether the change is the drive's value itself, and no other one that was written over it.
    bool isAdoption(const ParameterAddress &address);
    void beginTelling();
    void endTelling();
    void onAllTold(const ParameterAddress &address);
    bool hasWhatIsAdopted() const;

    ParameterContainer &m_container;
    /// Values come parameter by parameter: the last one that was looked for, and where it stood.
    mutable QPointer<ParameterSetup> m_parameter;
    mutable ParameterCoordinate m_coordinate;
    /// Null while nothing is being stored. **Owner** adopt().
    Adoption *m_adoption = nullptr;
};
