#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace corvane {

/// How long a thread waits for an answer that may never come.
struct Waiting {
    /// Whether the answer is no longer needed. Polled by the waiting thread about twenty times a second.
    std::function<bool()> isOver;
    /// Called repeatedly by the waiting thread when there has been no answer for half a second; `about` is what was
    /// queried.
    std::function<void(const std::string &about)> isSlow = {};

    /// Waits until `isReady`, evaluated under the lock, returns true, or until `isOver`; returns the last `isReady`.
    /// The thread that makes it ready must notify `changed`.
    [[nodiscard]] bool until(std::unique_lock<std::mutex> &lock, std::condition_variable &changed,
                             const std::function<bool()> &isReady, const std::string &about) const;
};

/// A helper thread that makes system calls which may never return: to an unreachable network disk, or to a FUSE file
/// system whose process hangs. Only a signal that kills the whole program ends such a call.
class Companion {
public:
    [[nodiscard]] static Companion &ofThisThread();

    Companion() = default;
    ~Companion();
    Companion(const Companion &) = delete;
    Companion &operator=(const Companion &) = delete;

    /// Starts a call, which must own everything it uses and must not throw. The previous call must have ended or been
    /// left. Returns false, without calling, if no thread can be started.
    [[nodiscard]] bool begin(std::function<void()> call);
    /// Abandons the running call; the next one gets a new thread. The call's objects are destroyed when it returns.
    void leave();

    /// Number of abandoned calls in the whole program that have not returned yet.
    [[nodiscard]] static std::size_t leftCalls();

private:
    struct Desk;

    std::shared_ptr<Desk> m_desk; // null without a thread
};

/// The result of `call`; empty if the wait ended first. The call must own everything it uses. Without a thread for it,
/// it is made on the caller's, however long it takes.
template <typename Call>
[[nodiscard]] std::optional<std::invoke_result_t<Call &>> detachedCall(Call call, const Waiting &waiting,
                                                                       const std::string &about)
{
    struct Reply {
        std::mutex lock;
        std::condition_variable changed;
        std::optional<std::invoke_result_t<Call &>> result; // guarded by the lock
    };
    const auto reply = std::make_shared<Reply>();
    Companion &companion = Companion::ofThisThread();
    const auto held = std::make_shared<Call>(std::move(call));
    const bool isBegun = companion.begin([reply, held] {
        auto result = (*held)();
        {
            const std::scoped_lock lock(reply->lock);
            reply->result.emplace(std::move(result));
        }
        reply->changed.notify_all();
    });
    if (!isBegun)
        return (*held)();
    std::unique_lock lock(reply->lock);
    if (waiting.until(
            lock, reply->changed, [&] { return reply->result.has_value(); }, about))
        return std::move(reply->result);
    lock.unlock();
    companion.leave();
    return std::nullopt;
}

} // namespace corvane
