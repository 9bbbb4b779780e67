#pragma once

#include <cstdint>

#include "core/file_type.h"

namespace corvane {

/// The total bytes of the files of one type.
struct TypeSlice {
    FileType type;
    std::int64_t size = 0;

    friend bool operator==(const TypeSlice &, const TypeSlice &) = default;
};

} // namespace corvane
