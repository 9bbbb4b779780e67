#pragma once

#include "platform/host.h"
#include "platform/open_file_limit.h"

namespace corvane {

/// The host that is made of one system's own types; made at the first call.
template <typename Files, typename SystemTrash, typename SystemVolumes, typename SystemDesktop,
          typename SystemApplications>
const Host &hostOf()
{
    struct System {
        Files files;
        SystemTrash trash{files};
        SystemVolumes volumes;
        SystemDesktop desktop;
        SystemApplications applications;
        Host host{files, trash, volumes, desktop, applications};
    };
    // Never destroyed: threads that still run when the program ends may be using it.
    static const System &system = *[] {
        raiseOpenFileLimit();
        return new System;
    }();
    return system.host;
}

} // namespace corvane
