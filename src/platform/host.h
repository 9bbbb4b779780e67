#pragma once

#include "platform/applications.h"
#include "platform/desktop.h"
#include "platform/file_system.h"
#include "platform/trash.h"
#include "platform/volume.h"

namespace corvane {

/// The system, one capability each. The referenced objects outlive every user of the struct.
struct Host {
    FileSystem &files;
    Trash &trash;
    Volumes &volumes;
    Desktop &desktop;
    Applications &applications;
};

/// The system that the program runs on. Made on first use; safe to call from any thread.
[[nodiscard]] const Host &systemHost();

} // namespace corvane
