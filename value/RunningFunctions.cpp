#include "value/RunningFunctions.h"

#include <utility>

int RunningFunctions::running = 0;
std::vector<std::shared_ptr<void>> RunningFunctions::kept;

void RunningFunctions::release()
{
    // Out of the list first: what goes may lead to another call.
    const auto going = std::exchange(kept, {});
}
