#pragma once

#include "platform/error.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// Both ends of a pipe; programs that are started do not inherit them.
struct Pipe {
    FileDescriptor read;
    FileDescriptor write;
};

[[nodiscard]] Expected<Pipe> makePipe();

} // namespace corvane
