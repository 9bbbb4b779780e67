#pragma once

#include <string>

namespace corvane {

/// Whether the computer has a graphics device. Without one, OpenGL is emulated on the CPU and redraws the whole window
/// for each change; the scene graph's software renderer redraws only what has changed, and needs 100 MB less. Checks
/// for the device file in the folder `devices`, without opening it.
[[nodiscard]] bool hasGraphicsDevice(const std::string &devices = "/dev");

} // namespace corvane
