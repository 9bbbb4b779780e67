#pragma once

#include <cstdint>

namespace corvane {

/// Hints to the kernel that those bytes of an open file will be read soon. Does not wait; ignores failures.
void readAhead(int file, std::int64_t offset, std::int64_t length);

} // namespace corvane
