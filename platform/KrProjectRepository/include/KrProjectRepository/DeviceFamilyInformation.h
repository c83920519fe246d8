#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

/// What is known of a device family.
class DeviceFamilyInformation {
public:
    DeviceFamilyInformation(quint32 identifier, const QString &name, bool hasPhysicalAxes)
        : m_name(name)
        , m_identifier(identifier)
        , m_hasPhysicalAxes(hasPhysicalAxes)
    {
    }

    quint32 identifier() const { return m_identifier; }
    QString name() const { return m_name; }
    /// Each axis is hardware of its own and keeps its own copy of a physical-axis parameter.
    bool hasPhysicalAxes() const { return m_hasPhysicalAxes; }
    bool operator==(const DeviceFamilyInformation &other) const = default;

private:
    QString m_name;
    quint32 m_identifier;
    bool m_hasPhysicalAxes;
};
