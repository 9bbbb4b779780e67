#pragma once

#include <utility>

#include "shell/fake_services.h"
#include "shell/updates/update_session.h"

namespace corvane {

/// A session whose states are set by a test, and which counts calls.
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

/// The program's services with such a session, at a displayed version.
struct FakeUpdates {
    FakeUpdates()
    {
        program.updateController->shown = &session;
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
    FakeSession session;
    FakeServices program;
};

} // namespace corvane
