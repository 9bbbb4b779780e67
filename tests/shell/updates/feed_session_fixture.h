#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/updates/feed_session.h"
#include "shell/updates/update_server.h"

namespace corvane {

using Phase = UpdateState::Phase;
using Kind = UpdateFailure::Kind;
using Ending = LoopbackAnswer::Ending;

constexpr auto byUser = FeedSession::Origin::user;
constexpr auto bySchedule = FeedSession::Origin::schedule;
constexpr auto offer = FeedSession::OnUpdate::offer;
constexpr auto fetchAtOnce = FeedSession::OnUpdate::download;

/// One session with a server of updates on this machine.
struct FeedSessionTest : testing::Test, UpdateServer {
    FeedSession &session()
    {
        if (!m_session)
            m_session = std::make_unique<FeedSession>(changed ? changed(options()) : options());
        return *m_session;
    }
    void endSession() { m_session.reset(); }

    /// The failure message of a check requested by the user.
    QString failureOfCheck()
    {
        session().check(byUser, offer);
        EXPECT_TRUE(waitForPhase(session(), Phase::failed)) << "phase " << static_cast<int>(session().state().phase);
        return session().state().failure;
    }
    void checkAndDownload()
    {
        session().check(byUser, offer);
        ASSERT_TRUE(waitForPhase(session(), Phase::available)) << qPrintable(session().state().failure);
        session().download();
    }
    QString failureOfDownload()
    {
        checkAndDownload();
        EXPECT_TRUE(waitForPhase(session(), Phase::failed)) << "phase " << static_cast<int>(session().state().phase);
        EXPECT_TRUE(downloads().empty());
        return session().state().failure;
    }
    static QString line(Kind kind, const QString &detail = {}) { return UpdateFailure{kind, detail}.sentence(); }

    [[nodiscard]] std::vector<std::string> downloads() const
    {
        std::vector<std::string> names;
        std::error_code none;
        for (const auto &entry : std::filesystem::directory_iterator(caches / "corvane/updates", none))
            names.push_back(entry.path().filename());
        return names;
    }

    std::function<FeedSession::Options(FeedSession::Options)> changed;

private:
    std::unique_ptr<FeedSession> m_session;
};

} // namespace corvane
