#pragma once

#include <cstddef>

namespace corvane {

/// Lets this program have as many files open as the system allows, within reason. Some systems start a program with
/// 256, and a walk on every core of a large machine takes more. Once at the start; costs nothing.
void raiseOpenFileLimit();

/// How many files this program may have open; a large number where there is no limit.
[[nodiscard]] std::size_t openFileLimit();

} // namespace corvane
