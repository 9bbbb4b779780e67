#pragma once

#include <chrono>
#include <functional>

#include <QDateTime>
#include <QTimer>

#include "shell/update_controller.h"
#include "shell/updates/feed_session.h"
#include "shell/user_defaults.h"

namespace corvane {

/// Updates on systems without the update framework. Checks the feed when the user asks, and automatically only if the
/// user has enabled that: at startup and 24 hours after the last check. Main thread only.
class FeedController final : public UpdateController {
    Q_OBJECT

public:
    /// Overridden in tests.
    struct Clock {
        std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc;
        /// How often to test whether a check is due: a 24-hour timer would not run while the machine sleeps.
        std::chrono::milliseconds tick = std::chrono::hours(1);
    };

    /// `defaults` must outlive it.
    FeedController(FeedSession::Options options, UserDefaults &defaults, Clock clock, QObject *parent = nullptr);

    void start() override;
    [[nodiscard]] bool canCheckForUpdates() const override;
    void checkForUpdates() override;
    /// "SUEnableAutomaticChecks"; off by default.
    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool automatically) override;
    /// "SUAutomaticallyUpdate": automatic checks download and verify the update before notifying the user.
    [[nodiscard]] bool automaticallyDownloadsUpdates() const override;
    void setAutomaticallyDownloadsUpdates(bool automatically) override;

    [[nodiscard]] FeedSession *session() override { return &m_session; }

private:
    void check(FeedSession::Origin origin, FeedSession::OnUpdate onUpdate);
    void checkIfDue();
    [[nodiscard]] bool isDue() const;
    void followSession();

    UserDefaults &m_defaults;
    const Clock m_clock;
    FeedSession m_session;
    QTimer m_timer;
    bool m_isStarted = false;
    bool m_couldCheck = false; // as last emitted
};

} // namespace corvane
