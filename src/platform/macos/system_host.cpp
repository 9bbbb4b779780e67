#include "platform/host.h"

#include "platform/macos/mac_applications.h"
#include "platform/macos/mac_desktop.h"
#include "platform/macos/mac_file_system.h"
#include "platform/macos/mac_trash.h"
#include "platform/macos/mac_volumes.h"
#include "platform/posix/host_of.h"

namespace corvane {

const Host &systemHost()
{
    return hostOf<MacFileSystem, MacTrash, MacVolumes, MacDesktop, MacApplications>();
}

} // namespace corvane
