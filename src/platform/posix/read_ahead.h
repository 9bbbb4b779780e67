#pragma once

#include <cstdint>

namespace corvane {

/// Tells the kernel that those bytes of an open file are going to be read. Does not wait, and cannot fail.
void readAhead(int file, std::int64_t offset, std::int64_t length);

} // namespace corvane
