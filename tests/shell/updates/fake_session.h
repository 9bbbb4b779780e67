#pragma once

#include <memory>
#include <utility>

#include "shell/app_updater.h"
#include "shell/updates/update_session.h"

namespace corvane {

/// A session whose states a test sets, which counts what is asked of it.
class FakeSession final : public UpdateSession {
public:
    void become(UpdateState state)
    {
        m_state = std::move(state);
        emit stateChanged();
    }

    [[nodiscard]] const UpdateState &state() const override { return m_state; }
    void download() override { ++downloads; }
    void end() override
    {
        ++ends;
        become(UpdateState());
    }

    int downloads = 0;
    int ends = 0;

private:
    UpdateState m_state;
};

/// A controller that does nothing but have that session.
class SessionController final : public UpdateController {
public:
    void start() override {}
    [[nodiscard]] bool canCheckForUpdates() const override { return true; }
    void checkForUpdates() override {}
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return false; }
    void setAutomaticallyChecksForUpdates(bool) override {}
    [[nodiscard]] bool automaticallyDownloadsUpdates() const override { return false; }
    void setAutomaticallyDownloadsUpdates(bool) override {}
    [[nodiscard]] FakeSession *session() override { return &m_session; }

private:
    FakeSession m_session;
};

/// An updater over such a session, at a version that is shown.
struct FakeUpdates {
    FakeUpdates()
    {
        state.isShown = true;
        state.version = QStringLiteral("1.2.0");
        state.runningVersion = QStringLiteral("1.0.0");
        state.size = 34'500'000;
    }
    void become(UpdateState::Phase phase)
    {
        state.phase = phase;
        session.become(state);
    }

    UpdateState state;
    AppUpdater updater{std::make_unique<SessionController>(), true};
    FakeSession &session = *static_cast<SessionController &>(updater.controller()).session();
};

} // namespace corvane
