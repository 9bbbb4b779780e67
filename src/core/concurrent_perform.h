#pragma once

#include <cstddef>
#include <functional>

namespace corvane {

/// Calls `body` once for every number from 0 to `iterations` - 1, in parallel on the threads of the `WorkPool`, and
/// returns when all calls have returned. The calling thread takes part. Calls may be nested and made from
/// several threads. An exception from the body terminates the program.
void concurrentPerform(std::size_t iterations, const std::function<void(std::size_t)> &body);

} // namespace corvane
