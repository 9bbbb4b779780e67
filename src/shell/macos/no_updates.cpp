#include "shell/update_system.h"
#include "shell/updates/feed_controller.h"

namespace corvane {

// Nothing else installs on a Mac what the framework would, so a build without it has no updates.
UpdateConfiguration UpdateConfiguration::ofThisBuild()
{
    return {};
}

// Never started, as the build is not configured.
std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &, UserDefaults &defaults)
{
    return std::make_unique<FeedController>(FeedSession::Options(), defaults, FeedController::Clock());
}

} // namespace corvane
