#pragma once

#include <memory>

#include <QString>

#include "shell/update_controller.h"
#include "shell/user_defaults.h"

namespace corvane {

/// Where a build gets its updates from: settings of the build, or on macOS values of the bundle.
struct UpdateConfiguration {
    QString feedUrl;   ///< empty where there is none
    QString publicKey; ///< base64; empty where there is none

    [[nodiscard]] static UpdateConfiguration ofThisBuild();
};

/// What updates the program on this system, not started yet. `defaults` outlives it. Main thread only, after the
/// QGuiApplication.
[[nodiscard]] std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &configuration,
                                                                     UserDefaults &defaults);

} // namespace corvane
