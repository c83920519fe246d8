#include <KrFirmware/ParameterFunctionProvider.h>

ParameterFunctionProvider::~ParameterFunctionProvider() = default;

std::optional<std::pair<QString, QString>> ParameterFunctionProvider::limits(
    const ParameterData *, quint16)
{
    return std::nullopt;
}

void ParameterFunctionProvider::beginChange()
{
}

void ParameterFunctionProvider::endChange()
{
}
