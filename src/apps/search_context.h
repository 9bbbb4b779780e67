#pragma once

#include "core/path_guard.h"
#include "core/stop_flag.h"
#include "platform/file_system.h"
#include "platform/time.h"

namespace corvane {

/// What every step of a search for applications and their data needs. Refers to objects of the caller, which must
/// outlive the search.
struct SearchContext {
    FileSystem &files;
    const ProtectedLocations &locations;
    Time now;
    const StopFlag &stop = neverStopped;
};

} // namespace corvane
