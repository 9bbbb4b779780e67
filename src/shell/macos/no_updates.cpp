#include "shell/update_system.h"
#include "shell/updates/feed_controller.h"

namespace corvane {

// On a Mac only the framework can install updates, so a build without it has none.
UpdateConfiguration UpdateConfiguration::ofThisBuild()
{
    return {};
}

// Never started because the build is not configured for updates.
std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &, UserDefaults &defaults)
{
    return std::make_unique<FeedController>(FeedSession::Options(), defaults, FeedController::Clock());
}

} // namespace corvane
