#pragma once

#include <KrFirmware/DescriptionError.h>
#include <KrFirmware/KrFirmwareExport.h>
#include <KrParameterDefinition/ParameterDefinition.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>

class ParameterFunctionProvider;
class ServoDriveFirmwareData;

/// A device's firmware as its description file tells it: family, parameters, system parameters and
/// functions. Owns its definitions and must outlive every container that uses it.
class KrFirmware_EXPORT ServoDriveFirmware {
public:
    ~ServoDriveFirmware();
    Q_DISABLE_COPY_MOVE(ServoDriveFirmware)

    /// Reads a description file and registers its family.
    /// **Refused** anything that is not a complete, consistent description: null, `error` says the
    /// file, the path inside it and the reason, and nothing is registered. `error` may be null.
    static std::unique_ptr<ServoDriveFirmware> loadFromFile(
        const QString &fileName, DescriptionError *error);
    /// The same from bytes; `fileName` only names them in errors.
    static std::unique_ptr<ServoDriveFirmware> loadFromBytes(
        const QByteArray &json, const QString &fileName, DescriptionError *error);

    quint32 deviceFamilyIdentifier() const;
    QString deviceFamilyName() const;
    bool hasPhysicalAxes() const;
    /// Living spaces that the device offers, ascending, without 0.
    QList<int> axes() const;
    QStringList languages() const;
    /// Findings that do not keep the description from being used, each with its path.
    QStringList warnings() const;

    /// Numbers of the parameters that a project creates, ascending.
    QList<quint32> parameterNumbers() const;
    /// Null where there is none. **Owner** the firmware.
    ParameterDefinition *parameterDefinition(quint32 number) const;
    /// Numbers of the system parameters of a family, ascending; empty for another family.
    QList<quint32> systemParameterNumbers(quint32 deviceFamilyIdentifier) const;
    /// Null where there is none. **Owner** the firmware.
    ParameterDefinition *systemParameterDefinition(
        quint32 deviceFamilyIdentifier, quint32 number) const;

    /// Highest usable numbers, 0 where the firmware has none of a kind.
    quint16 maximumSystemStringNumber() const;
    quint16 maximumScalingFunctionIndex() const;
    quint16 maximumLimitFunctionIndex() const;
    quint16 maximumPostwriteFunctionIndex() const;
    quint16 maximumPrereadFunctionIndex() const;
    quint16 maximumHidingFunctionIndex() const;
    quint16 maximumPostreadFunctionIndex() const;
    quint16 maximumPrewriteFunctionIndex() const;

    /// **Owner** the caller; the firmware must outlive it.
    ParameterFunctionProvider *createParameterFunctionProvider() const;

private:
    explicit ServoDriveFirmware(std::unique_ptr<ServoDriveFirmwareData> data);

    std::unique_ptr<ServoDriveFirmwareData> d;
};
