#pragma once

#include <chrono>
#include <functional>

#include <QDateTime>
#include <QTimer>

#include "shell/update_controller.h"
#include "shell/updates/feed_session.h"
#include "shell/user_defaults.h"

namespace corvane {

/// Updates without the update framework. Checks its feed when the user asks, and automatically only where the user has
/// turned that on: at the start and 24 hours after the last check. Main thread only.
class FeedController final : public UpdateController {
    Q_OBJECT

public:
    /// What tests set otherwise.
    struct Clock {
        std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc;
        /// How often it tests whether a check is due: a timer of a whole day would stop while the machine sleeps.
        std::chrono::milliseconds tick = std::chrono::hours(1);
    };

    /// `defaults` outlives it.
    FeedController(FeedSession::Options options, UserDefaults &defaults, Clock clock, QObject *parent = nullptr);

    void start() override;
    [[nodiscard]] bool canCheckForUpdates() const override;
    void checkForUpdates() override;
    /// "SUEnableAutomaticChecks"; off until the user turns it on.
    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    void setAutomaticallyChecksForUpdates(bool automatically) override;
    /// "SUAutomaticallyUpdate": what an automatic check finds is downloaded and verified before the user is told.
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
    bool m_couldCheck = false; // what was told last
};

} // namespace corvane
