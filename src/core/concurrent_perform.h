#pragma once

#include <cstddef>
#include <functional>

namespace corvane {

/// Calls `body` once for every number from 0 to `iterations` - 1, at once on as many threads as the machine
/// has cores, and returns when all have returned. The calling thread takes its share; calls may be nested,
/// and come from several threads. A body that throws ends the program.
void concurrentPerform(std::size_t iterations, const std::function<void(std::size_t)> &body);

} // namespace corvane
