#include "shell/ui/graphics_device.h"

namespace corvane {

// Every Mac has one.
bool hasGraphicsDevice(const std::string &)
{
    return true;
}

} // namespace corvane
