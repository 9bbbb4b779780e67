#pragma once

#include "shell/update_controller.h"

namespace corvane {

/// Does nothing except storing the settings and counting calls.
class FakeUpdateController final : public UpdateController {
public:
    void start() override { ++starts; }
    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck; }
    void checkForUpdates() override { ++checks; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return checksAutomatically; }
    void setAutomaticallyChecksForUpdates(bool automatically) override
    {
        ++settings;
        checksAutomatically = automatically;
    }
    [[nodiscard]] bool automaticallyDownloadsUpdates() const override { return installsAutomatically; }
    void setAutomaticallyDownloadsUpdates(bool automatically) override
    {
        ++settings;
        installsAutomatically = automatically;
    }
    [[nodiscard]] UpdateSession *session() override { return shown; }

    void setCanCheck(bool can)
    {
        canCheck = can;
        emit canCheckForUpdatesChanged();
    }

    int starts = 0;
    int checks = 0;
    int settings = 0; // number of calls of the two setters
    bool canCheck = true;
    bool checksAutomatically = true;
    bool installsAutomatically = false;
    UpdateSession *shown = nullptr; // must outlive it
};

} // namespace corvane
