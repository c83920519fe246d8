#include "apps/krparameter/ImportEdsCommand.h"

#include "apps/import/EdsNumber.h"

#include <KrParameterDefinition/eLivingSpace.h>
#include <KrParameterInstance/ParameterContainer.h>

namespace {

constexpr quint32 LastNodeId = 127;

} // namespace

int ImportEdsCommand::exitCode(ImportResult::eStatus status)
{
    switch (status) {
    case ImportResult::eStatus::Good:
        return 0;
    case ImportResult::eStatus::BadRequest:
        return 2;
    case ImportResult::eStatus::UnreadableInput:
        return 3;
    case ImportResult::eStatus::WriteFailed:
        return 6;
    }
    return 3;
}

std::optional<quint8> ImportEdsCommand::nodeIdOf(const QString &text)
{
    const auto value = EdsNumber::parse(text).unsignedValue(LastNodeId);
    if (!value || *value == 0)
        return std::nullopt;
    return quint8(*value);
}

void ImportEdsCommand::apply(const ConfiguredValues &values, ParameterContainer &container)
{
    // Imported parameters are global: they have one instance, in living space 0.
    for (const ConfiguredValue &value : values.list()) {
        container.writeValueNative(
            eLivingSpace::Global, value.coordinate, value.element, value.nativeText);
    }
}
