#pragma once

#include <cstdint>

#include "core/file_type.h"

namespace corvane {

/// How many bytes the files of one type take.
struct TypeSlice {
    FileType type;
    std::int64_t size = 0;

    friend bool operator==(const TypeSlice &, const TypeSlice &) = default;
};

} // namespace corvane
