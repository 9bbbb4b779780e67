#pragma once

#include <string>

namespace corvane {

/// Whether the computer has a device that draws. Without one, the system's OpenGL is emulated by the processor, which
/// draws the whole window for each change, where the scene graph's own software renderer draws what has changed, and
/// needs 100 MB less. Looks for the device's file in the folder `devices`, without opening it.
[[nodiscard]] bool hasGraphicsDevice(const std::string &devices = "/dev");

} // namespace corvane
