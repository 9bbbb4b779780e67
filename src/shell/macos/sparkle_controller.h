#pragma once

#include <memory>

#include "shell/update_controller.h"

namespace corvane {

/// Updates through the update framework, which has its own windows and stores its own settings. Create it after the
/// application object; main thread only.
class SparkleController final : public UpdateController {
    Q_OBJECT

public:
    explicit SparkleController(QObject *parent = nullptr);
    ~SparkleController() override;

    void start() override;
    [[nodiscard]] bool canCheckForUpdates() const override;
    void checkForUpdates() override;
    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool automatically) override;
    [[nodiscard]] bool automaticallyDownloadsUpdates() const override;
    void setAutomaticallyDownloadsUpdates(bool automatically) override;

private:
    struct Framework; // hides the Objective-C types
    const std::unique_ptr<Framework> m_framework;
};

} // namespace corvane
