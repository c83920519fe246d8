#pragma once

#include "container/ParameterContainerPrivate.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <memory>

/// A container's private object, for tests that link the library's objects.
namespace ContainerInternals {

inline ParameterContainerPrivate *of(const ParameterContainer &container)
{
    return container.findChild<ParameterContainerPrivate *>(QString(), Qt::FindDirectChildrenOnly);
}

/// Binds the container to a provider that no firmware made. Null: none.
inline void bind(
    const ParameterContainer &container, std::unique_ptr<ParameterFunctionProvider> provider)
{
    ParameterContainerPrivate *internals = of(container);
    GuardedFunctionProvider::retire(std::move(internals->functionProvider));
    internals->functionProvider =
        provider ? std::make_unique<GuardedFunctionProvider>(std::move(provider)) : nullptr;
    if (internals->functionProvider)
        internals->functionProvider->setCallbackProvider(&internals->callbackDelegate);
    internals->askKnownFlagsAnew();
}

} // namespace ContainerInternals
