#pragma once

#include <memory>

#include <QString>

#include "shell/update_controller.h"
#include "shell/user_defaults.h"

namespace corvane {

/// Where a build gets its updates from: build settings, or on macOS values in the bundle.
struct UpdateConfiguration {
    QString feedUrl;   ///< empty for none
    QString publicKey; ///< base64; empty for none

    [[nodiscard]] static UpdateConfiguration ofThisBuild();
};

/// The update controller of this system, not started yet. `defaults` must outlive it. Main thread only, after the
/// QGuiApplication.
[[nodiscard]] std::unique_ptr<UpdateController> makeUpdateController(const UpdateConfiguration &configuration,
                                                                     UserDefaults &defaults);

} // namespace corvane
