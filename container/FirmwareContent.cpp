#include "container/FirmwareContent.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>

namespace {

struct IndexKind {
    const char *name;
    eParameterProperty property;
    quint16 (ServoDriveFirmware::*maximum)() const;
};

constexpr std::array<IndexKind, FirmwareContent::KindCount> Kinds {{
    {"SystemStringNumber", eParameterProperty::ChoiceMapCommonTextIndex,
        &ServoDriveFirmware::maximumSystemStringNumber},
    {"ScalingFunctionIndex", eParameterProperty::ScalingFunctionIndex,
        &ServoDriveFirmware::maximumScalingFunctionIndex},
    {"LimitFunctionIndex", eParameterProperty::LimitFunctionIndex,
        &ServoDriveFirmware::maximumLimitFunctionIndex},
    {"PostwriteFunctionIndex", eParameterProperty::PostwriteFunctionIndex,
        &ServoDriveFirmware::maximumPostwriteFunctionIndex},
    {"PrereadFunctionIndex", eParameterProperty::PrereadFunctionIndex,
        &ServoDriveFirmware::maximumPrereadFunctionIndex},
    {"HidingFunctionIndex", eParameterProperty::HidingFunctionIndex,
        &ServoDriveFirmware::maximumHidingFunctionIndex},
    {"PostreadFunctionIndex", eParameterProperty::PostreadFunctionIndex,
        &ServoDriveFirmware::maximumPostreadFunctionIndex},
    {"PrewriteFunctionIndex", eParameterProperty::PrewriteFunctionIndex,
        &ServoDriveFirmware::maximumPrewriteFunctionIndex},
}};

} // namespace

void FirmwareContent::add(const ParameterInformation &information)
{
    for (const quint16 element : information.elementList()) {
        for (size_t i = 0; i < Kinds.size(); ++i) {
            const ParameterProperty value = information.elementProperty(element, Kinds[i].property);
            if (!value.isValid())
                continue;
            if (Kinds[i].property != eParameterProperty::ChoiceMapCommonTextIndex) {
                m_highest[i] = std::max(m_highest[i], value.asUint16());
                continue;
            }
            for (const quint16 number : value.asUint16List())
                m_highest[i] = std::max(m_highest[i], number);
        }
    }
}

QList<QString> FirmwareContent::issues(const ServoDriveFirmware &firmware) const
{
    QList<QString> names;
    for (size_t i = 0; i < Kinds.size(); ++i) {
        if ((firmware.*Kinds[i].maximum)() < m_highest[i])
            names.append(QString::fromLatin1(Kinds[i].name));
    }
    return names;
}
