#include "shell/update_system.h"

#include <QFile>
#include <QStandardPaths>

#include "shell/app_info.h"
#include "shell/updates/feed_controller.h"

namespace corvane {

UpdateConfiguration UpdateConfiguration::ofThisBuild()
{
    return {QStringLiteral(CORVANE_UPDATE_FEED), QStringLiteral(CORVANE_UPDATE_PUBLIC_KEY)};
}

std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &configuration, UserDefaults &defaults)
{
    FeedSession::Options options;
    options.feed = QUrl(configuration.feedUrl);
    options.publicKey = configuration.publicKey;
    options.version = AppInfo::version();
    options.build = AppInfo::build();
    options.caches =
        QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)).toStdString();
    return std::make_unique<FeedController>(std::move(options), defaults, FeedController::Clock());
}

} // namespace corvane
