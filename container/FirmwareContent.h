#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <array>

class ParameterInformation;
class ServoDriveFirmware;

/// Gathers the highest function indices that definitions use, to hold them against a firmware.
class FirmwareContent {
public:
    static constexpr size_t KindCount = 8;

    void add(const ParameterInformation &information);
    /// Names of the kinds that the firmware does not cover, each once, in a fixed order. An index
    /// equal to the firmware's maximum is covered: the maxima are the highest usable numbers.
    QList<QString> issues(const ServoDriveFirmware &firmware) const;

private:
    std::array<quint16, KindCount> m_highest {};
};
