#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class ParameterContainer;
class ParameterSetup;
struct MappedValue;

/// The container's values as the line carries them. Tells changes that come from the drive from those
/// that are made here.
class ContainerValues : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller; the container outlives this.
    explicit ContainerValues(ParameterContainer &container);

    QString nativeText(const MappedValue &value) const;
    /// Empty where the container has the value no more.
    QList<quint16> registers(const MappedValue &value) const;
    /// Stores what the drive has. True when it means something else than before. A listener may delete this;
    /// `guard` holds it, or what owns it. The value may go meanwhile.
    bool adopt(const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard);
    /// Whether both native texts mean the same to a drive: numbers by value, byte strings without
    /// case and with zero bytes behind.
    static bool isSame(const MappedValue &value, const QString &sent, const QString &kept);

Q_SIGNALS:
    /// Not while a value of the drive is being stored: what follows from it is the drive's too.
    void changedHere(const ParameterAddress &address);

private:
    bool adoptInteger(
        const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard);
    bool adoptOther(
        const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard);
    void onChanged(const ParameterAddress &address);

    ParameterContainer &m_container;
    /// Values come parameter by parameter: the last one that was looked for, and where it stood.
    QPointer<ParameterSetup> m_parameter;
    ParameterCoordinate m_coordinate;
    /// Invalid while nothing is being stored.
    ParameterAddress m_adopted;
    bool m_hasChanged = false;
};
