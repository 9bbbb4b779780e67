#pragma once

#include <memory>

#include "shell/update_controller.h"

namespace corvane {

/// Updates by the update framework, which has windows of its own and keeps its settings itself. Made after the
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
    struct Framework; // what is Objective-C
    const std::unique_ptr<Framework> m_framework;
};

} // namespace corvane
