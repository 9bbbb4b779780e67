#pragma once

#include "platform/applications.h"
#include "platform/desktop.h"
#include "platform/file_system.h"
#include "platform/trash.h"
#include "platform/volume.h"

namespace corvane {

/// Access to the system, one interface per capability. The referenced objects outlive every user of the struct.
struct Host {
    FileSystem &files;
    Trash &trash;
    Volumes &volumes;
    Desktop &desktop;
    Applications &applications;
};

/// The host for the running system. Created on first use; any thread.
[[nodiscard]] const Host &systemHost();

} // namespace corvane
