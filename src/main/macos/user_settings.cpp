#include "main/user_settings.h"

namespace corvane {

std::unique_ptr<QSettings> openUserSettings()
{
    auto settings = std::make_unique<QSettings>();
    // Do not read settings shared by all programs of the organisation.
    settings->setFallbacksEnabled(false);
    return settings;
}

} // namespace corvane
