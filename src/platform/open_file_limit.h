#pragma once

#include <cstddef>

namespace corvane {

/// Raises this program's limit of open files as far as the system allows, up to a reasonable number. Some systems start
/// programs with 256, too few for a walk on every core of a large machine. Call once at startup; costs nothing.
void raiseOpenFileLimit();

/// This program's limit of open files; a large number if unlimited.
[[nodiscard]] std::size_t openFileLimit();

} // namespace corvane
