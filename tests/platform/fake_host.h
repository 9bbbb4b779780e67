#pragma once

#include "platform/fake_applications.h"
#include "platform/fake_desktop.h"
#include "platform/fake_file_system.h"
#include "platform/fake_trash.h"
#include "platform/fake_volumes.h"
#include "platform/host.h"

namespace corvane {

/// A complete fake system. All fakes share one log, so that a test sees the order of calls across them.
struct FakeHost {
    FakeHost() = default;
    FakeHost(const FakeHost &) = delete;
    FakeHost &operator=(const FakeHost &) = delete;

    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
    FakeFileSystem files{log};
    FakeTrash trash{files};
    FakeVolumes volumes{log};
    FakeDesktop desktop{log};
    FakeApplications applications{log};

    /// Valid as long as this object is.
    [[nodiscard]] Host host() { return {files, trash, volumes, desktop, applications}; }
};

} // namespace corvane
