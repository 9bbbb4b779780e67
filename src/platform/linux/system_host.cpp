#include "platform/host.h"

#include "platform/linux/linux_applications.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_trash.h"
#include "platform/linux/linux_volumes.h"
#include "platform/open_file_limit.h"

namespace corvane {

namespace {

struct System {
    LinuxFileSystem files;
    LinuxTrash trash{files};
    LinuxVolumes volumes;
    LinuxDesktop desktop;
    LinuxApplications applications;
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
