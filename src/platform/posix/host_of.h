#pragma once

#include "platform/host.h"
#include "platform/open_file_limit.h"

namespace corvane {

/// A host made of one system's own types; created at the first call.
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
    // Never destroyed: threads still running at exit may use it.
    static const System &system = *[] {
        raiseOpenFileLimit();
        return new System;
    }();
    return system.host;
}

} // namespace corvane
