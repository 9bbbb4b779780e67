#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/call_log.h"
#include "platform/desktop.h"

namespace corvane {

/// Records the calls, and fails on request. Main thread only, as the real one.
///
/// Recorded calls: "reveal P", "openUrl U", "activateApplication", "log M", "keepAtFullSpeed R", and when that ends
/// "slowDown R".
class FakeDesktop final : public Desktop {
public:
    explicit FakeDesktop(std::shared_ptr<CallLog> log = std::make_shared<CallLog>()) : m_log(std::move(log)) {}

    /// Makes revealing this path, or opening this URL, fail with this message.
    void fail(const std::string &pathOrUrl, std::string text) { m_failures[pathOrUrl] = std::move(text); }
    /// Reports all reveals so far as failed.
    void failRevealsLate(const std::string &text)
    {
        for (const auto &[path, failed] : std::exchange(m_lateFailures, {}))
            failed(Error{"reveal", path, std::make_error_code(std::errc::not_supported), text});
    }
    void setPrefersReducedMotion(bool prefers) { m_prefersReducedMotion = prefers; }

    /// The messages in the system's log.
    [[nodiscard]] const std::vector<std::string> &logged() const { return m_logged; }

    [[nodiscard]] Expected<void> reveal(const std::string &path, FailureHandler failed) override
    {
        m_lateFailures.emplace_back(path, std::move(failed));
        return perform("reveal", path);
    }
    [[nodiscard]] Expected<void> openUrl(const std::string &url) override { return perform("openUrl", url); }
    void activateApplication() override { m_log->record("activateApplication"); }
    void log(std::string_view message) override
    {
        m_log->record("log " + std::string(message));
        m_logged.emplace_back(message);
    }
    [[nodiscard]] std::shared_ptr<void> keepAtFullSpeed(std::string_view reason) override
    {
        m_log->record("keepAtFullSpeed " + std::string(reason));
        return {m_log.get(),
                [log = m_log, reason = std::string(reason)](void *) { log->record("slowDown " + reason); }};
    }
    [[nodiscard]] bool prefersReducedMotion() override { return m_prefersReducedMotion; }

private:
    [[nodiscard]] Expected<void> perform(const std::string &operation, const std::string &target)
    {
        m_log->record(operation + " " + target);
        const auto failure = m_failures.find(target);
        if (failure == m_failures.end())
            return {};
        return tl::unexpected(
            Error{operation, target, std::make_error_code(std::errc::not_supported), failure->second});
    }

    const std::shared_ptr<CallLog> m_log;
    std::map<std::string, std::string> m_failures;
    std::vector<std::pair<std::string, FailureHandler>> m_lateFailures;
    std::vector<std::string> m_logged;
    bool m_prefersReducedMotion = false;
};

} // namespace corvane
