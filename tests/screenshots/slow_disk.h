#pragma once

#include <chrono>

namespace corvane {

/// How long every listing of a folder takes longer than it does. The Mac-shaped root is read in an instant; a
/// picture of a scan under way needs a disk that takes its time. Any thread.
void slowDownListings(std::chrono::milliseconds delay);

} // namespace corvane
