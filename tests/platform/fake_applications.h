#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/applications.h"
#include "platform/call_log.h"

namespace corvane {

/// Applications with running instances and dates of use set by the test. A request to quit has no effect unless the
/// test enables it. `running` and `requestQuit` on the main thread only, as in the real one.
///
/// Recorded calls: "running P", "requestQuit P N", "lastUsed P", with the bundle's path P and the instance's number N.
class FakeApplications final : public Applications {
public:
    explicit FakeApplications(std::shared_ptr<CallLog> log = std::make_shared<CallLog>()) : m_log(std::move(log)) {}

    /// Sets the running instances of the bundle.
    void setRunning(const std::string &bundlePath, std::vector<std::int64_t> instances)
    {
        m_running[bundlePath] = std::move(instances);
    }
    /// Whether an instance quits immediately on request.
    void setQuits(bool quits) { m_quits = quits; }
    void setLastUsed(const std::string &bundlePath, Time when)
    {
        const std::lock_guard lock(m_mutex);
        m_lastUsed[bundlePath] = when;
    }

    [[nodiscard]] std::vector<std::int64_t> running(const ProgramMarks &app) override
    {
        m_log->record("running " + app.bundlePath);
        return m_running[app.bundlePath];
    }
    void requestQuit(std::int64_t instance, const ProgramMarks &app) override
    {
        m_log->record("requestQuit " + app.bundlePath + " " + std::to_string(instance));
        if (m_quits)
            std::erase(m_running[app.bundlePath], instance);
    }
    [[nodiscard]] std::optional<Time> lastUsed(const std::string &bundlePath) override
    {
        m_log->record("lastUsed " + bundlePath);
        const std::lock_guard lock(m_mutex);
        const auto found = m_lastUsed.find(bundlePath);
        return found == m_lastUsed.end() ? std::nullopt : std::optional(found->second);
    }

private:
    const std::shared_ptr<CallLog> m_log;
    std::map<std::string, std::vector<std::int64_t>> m_running;
    bool m_quits = false;
    std::mutex m_mutex;
    std::map<std::string, Time> m_lastUsed; // guarded by m_mutex
};

} // namespace corvane
