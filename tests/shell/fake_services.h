#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QSettings>
#include <QTemporaryDir>

#include "platform/host.h"
#include "shell/fake_update_controller.h"
#include "shell/services.h"
#include "shell/ui/services_registration.h"

namespace corvane {

/// The program's services as QML sees them, with a temporary settings file.
struct FakeServices {
    struct Setup {
        QUrl site = QUrl(QStringLiteral("https://corvane.invalid/")); ///< unreachable
        std::vector<std::string> reportFolders = {};
        bool canUpdate = true;
    };

    explicit FakeServices(Setup setup, FileSystem &files = systemHost().files)
        : api(std::move(setup.site)),
          crashReporter(defaults, api, files, {.folders = std::move(setup.reportFolders), .executable = "corvane"}),
          updateController(new FakeUpdateController),
          updater(std::unique_ptr<UpdateController>(updateController), setup.canUpdate)
    {
        ServicesRegistration::setServices(&services);
    }
    FakeServices() : FakeServices(Setup{}) {}

    [[nodiscard]] QString settingsFile() const { return folder.filePath(QStringLiteral("settings.conf")); }

    const QTemporaryDir folder;
    UserDefaults defaults{std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat)};
    API api;
    CrashReporter crashReporter;
    FakeUpdateController *const updateController;
    AppUpdater updater;
    Services services{defaults, api, crashReporter, updater};
};

} // namespace corvane
