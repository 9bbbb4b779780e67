#include "platform/host.h"

#include "platform/macos/mac_applications.h"
#include "platform/macos/mac_desktop.h"
#include "platform/macos/mac_file_system.h"
#include "platform/macos/mac_trash.h"
#include "platform/macos/mac_volumes.h"
#include "platform/open_file_limit.h"

namespace corvane {

namespace {

struct System {
    MacFileSystem files;
    MacTrash trash{files};
    MacVolumes volumes;
    MacDesktop desktop;
    MacApplications applications;
    Host host{files, trash, volumes, desktop, applications};
};

} // namespace

const Host &systemHost()
{
    // Never destroyed: threads that still run when the program ends may be using it.
    static const System &system = *[] {
        raiseOpenFileLimit();
        return new System;
    }();
    return system.host;
}

} // namespace corvane
