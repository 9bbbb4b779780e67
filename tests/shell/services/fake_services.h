#pragma once

#include <memory>

#include <QSettings>
#include <QTemporaryDir>

#include "shell/fake_update_controller.h"
#include "shell/services.h"
#include "shell/ui/services_registration.h"
#include "shell/ui/store_registration.h"
#include "shell/window/fake_store.h"
#include "support/loopback_server.h"

namespace corvane {

/// The program's services over a store in memory, settings of their own and a web service on the loopback interface.
struct FakeServices : FakeStore {
    explicit FakeServices(bool canUpdate = true)
        : updateController(new FakeUpdateController),
          updater(std::unique_ptr<UpdateController>(updateController), canUpdate)
    {
        StoreRegistration::setStore(&store);
        ServicesRegistration::setServices(&services);
    }

    [[nodiscard]] QString settingsFile() const { return folder.filePath(QStringLiteral("settings.conf")); }

    /// From now on the files are a Mac's, which the program may read only once it has been granted.
    void becomeMac()
    {
        fake.files.setSystemKind(SystemKind::mac);
        store.refreshAccess();
    }
    void grantAccess() { fake.files.addText(PathGuard::accessProbePath(home), {}); }

    const QTemporaryDir folder;
    UserDefaults defaults{std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat)};
    LoopbackServer server;
    API api{server.url()};
    CrashReporter crashReporter{defaults, api, fake.files, {.folders = {home + "/reports"}, .executable = "corvane"}};
    FakeUpdateController *const updateController;
    AppUpdater updater;
    Services services{defaults, api, crashReporter, updater};
};

} // namespace corvane
