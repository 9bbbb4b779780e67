#include "core/detached_call.h"

#include <atomic>
#include <chrono>
#include <system_error>
#include <thread>

namespace corvane {

namespace {

constexpr std::chrono::milliseconds lookInterval(50);
constexpr std::chrono::milliseconds slowAnswer(500);

std::atomic<std::size_t> left = 0;

} // namespace

bool Waiting::until(std::unique_lock<std::mutex> &lock, std::condition_variable &changed,
                    const std::function<bool()> &isReady, const std::string &about) const
{
    const auto begin = std::chrono::steady_clock::now();
    while (!isReady()) {
        if (changed.wait_for(lock, lookInterval, isReady))
            break;
        lock.unlock();
        const bool givesUp = isOver();
        if (!givesUp && isSlow && std::chrono::steady_clock::now() - begin >= slowAnswer)
            isSlow(about);
        lock.lock();
        if (givesUp)
            return isReady();
    }
    return true;
}

/// State shared by a thread and its companion, which keeps it alive while it runs.
struct Companion::Desk {
    std::mutex lock;
    std::condition_variable changed;
    // Guarded by the lock.
    std::function<void()> call;
    bool isBusy = false;
    bool isLeft = false; // the companion ends after the call
    std::thread thread;

    static void work(const std::shared_ptr<Desk> &desk)
    {
        std::unique_lock lock(desk->lock);
        for (;;) {
            desk->changed.wait(lock, [&] { return desk->isBusy || desk->isLeft; });
            if (!desk->isBusy)
                return;
            std::function<void()> call = std::exchange(desk->call, nullptr);
            lock.unlock();
            call();
            call = nullptr; // destroy what the call owned before signalling that it has ended
            lock.lock();
            desk->isBusy = false;
            desk->changed.notify_all();
            if (desk->isLeft) {
                --left;
                return;
            }
        }
    }
};

Companion &Companion::ofThisThread()
{
    static thread_local Companion companion;
    return companion;
}

Companion::~Companion()
{
    if (!m_desk)
        return;
    {
        std::unique_lock lock(m_desk->lock);
        m_desk->changed.wait(lock, [&] { return !m_desk->isBusy; });
        m_desk->isLeft = true;
    }
    m_desk->changed.notify_all();
    m_desk->thread.join();
}

bool Companion::begin(std::function<void()> call)
{
    if (!m_desk) {
        auto desk = std::make_shared<Desk>();
        try {
            desk->thread = std::thread([desk] { Desk::work(desk); });
        } catch (const std::system_error &) {
            return false;
        }
        m_desk = std::move(desk);
    }
    {
        std::unique_lock lock(m_desk->lock);
        m_desk->changed.wait(lock, [&] { return !m_desk->isBusy; });
        m_desk->call = std::move(call);
        m_desk->isBusy = true;
    }
    m_desk->changed.notify_all();
    return true;
}

void Companion::leave()
{
    if (!m_desk)
        return;
    {
        const std::scoped_lock lock(m_desk->lock);
        if (!m_desk->isBusy)
            return;
        m_desk->isLeft = true;
        ++left;
    }
    m_desk->thread.detach();
    m_desk.reset();
}

std::size_t Companion::leftCalls()
{
    return left;
}

} // namespace corvane
