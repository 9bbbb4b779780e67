#include "platform/host.h"

#include "platform/linux/linux_applications.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_trash.h"
#include "platform/linux/linux_volumes.h"
#include "platform/posix/host_of.h"

namespace corvane {

const Host &systemHost()
{
    return hostOf<LinuxFileSystem, LinuxTrash, LinuxVolumes, LinuxDesktop, LinuxApplications>();
}

} // namespace corvane
