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
    /// Whether the answer is no longer needed. Called by the waiting thread, some twenty times a second.
    std::function<bool()> isOver;
    /// Told by the waiting thread, again and again, that there has been no answer for half a second; with what it was
    /// asked about.
    std::function<void(const std::string &about)> isSlow = {};

    /// Waits until `isReady`, asked under the lock, or until it is over: then false. Whoever makes it ready notifies
    /// `changed`.
    [[nodiscard]] bool until(std::unique_lock<std::mutex> &lock, std::condition_variable &changed,
                             const std::function<bool()> &isReady, const std::string &about) const;
};

/// The calling thread's companion, which makes its calls of a system that may not return from them: a disk behind a
/// network that is gone, or a file system whose program hangs. No signal ends such a call, short of the one that ends
/// the program.
class Companion {
public:
    [[nodiscard]] static Companion &ofThisThread();

    Companion() = default;
    ~Companion();
    Companion(const Companion &) = delete;
    Companion &operator=(const Companion &) = delete;

    /// Begins a call, which must own all that it uses, and must not throw. The one before has ended or been left.
    void begin(std::function<void()> call);
    /// Leaves the call under way to itself; the next one gets a new thread. What it used goes once it has returned.
    void leave();

    /// How many calls have been left in the whole program and have not returned.
    [[nodiscard]] static std::size_t leftCalls();

private:
    struct Desk;

    std::shared_ptr<Desk> m_desk; // null without a thread
};

/// What `call` returns; absent where the wait was over first. The call owns all that it uses.
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
    companion.begin([reply, held = std::make_shared<Call>(std::move(call))] {
        auto result = (*held)();
        {
            const std::scoped_lock lock(reply->lock);
            reply->result.emplace(std::move(result));
        }
        reply->changed.notify_all();
    });
    std::unique_lock lock(reply->lock);
    if (waiting.until(
            lock, reply->changed, [&] { return reply->result.has_value(); }, about))
        return std::move(reply->result);
    lock.unlock();
    companion.leave();
    return std::nullopt;
}

} // namespace corvane
