#pragma once

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <memory>

/// A device of any number of equal parameters on four axes: 32-bit values in 0.01 A with limits.
class BenchmarkDevice {
public:
    static constexpr int AxisCount = 4;

    /// Of decimal places that are shown of each value.
    static constexpr int UsualDecimals = 2;

    explicit BenchmarkDevice(int parameterCount, int decimals = UsualDecimals);

    /// The JSON that describes the device.
    static QByteArray description(int parameterCount, int decimals = UsualDecimals);

    ServoDriveFirmware *firmware() const { return m_firmware.get(); }
    qint64 valueCount() const { return qint64(m_coordinates.size()) * AxisCount; }
    const QList<ParameterCoordinate> &coordinates() const { return m_coordinates; }
    const QList<ParameterDefinition *> &definitions() const { return m_definitions; }
    /// One text a parameter and axis.
    const QList<QString> &locatorTexts() const { return m_locatorTexts; }

    /// Creates every parameter on its four axes with one call.
    void fill(ParameterContainer &container) const;
    /// The same with one call an axis, as a project that names every axis does.
    void fillByAxis(ParameterContainer &container) const;

private:
    std::unique_ptr<ServoDriveFirmware> m_firmware;
    QList<ParameterCoordinate> m_coordinates;
    QList<ParameterDefinition *> m_definitions;
    QList<QString> m_locatorTexts;
    QList<QString> m_systemLocatorTexts;
};

/// A device of one record parameter on one axis.
class BenchmarkRecord {
public:
    explicit BenchmarkRecord(int elementCount);

    ServoDriveFirmware *firmware() const { return m_firmware.get(); }
    ParameterCoordinate coordinate() const;
    qint64 valueCount() const { return m_elementCount; }
    void fill(ParameterContainer &container) const;

private:
    std::unique_ptr<ServoDriveFirmware> m_firmware;
    int m_elementCount;
};
