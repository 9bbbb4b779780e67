#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include <QTest>

#include "platform/call_log.h"
#include "support/patience.h"

namespace corvane {

/// Blocks threads at system calls of the fakes until the test opens the gate or destroys it. Other threads may still be
/// waiting when it is destroyed. A log has one gate at a time.
class Gate {
public:
    /// Blocks the calls for whose recorded line `blocks` returns true. It is called on the threads of the calls.
    Gate(CallLog &log, std::function<bool(const std::string &)> blocks) : m_log(log)
    {
        m_log.observe([state = m_state, blocks = std::move(blocks)](const std::string &recorded) {
            if (!blocks(recorded))
                return;
            state->isReached = true;
            std::unique_lock lock(state->mutex);
            state->changed.wait(lock, [&] { return state->isOpen; });
        });
    }
    /// Blocks the first call that is recorded as `line`.
    Gate(CallLog &log, std::string line)
        : Gate(log, [line = std::move(line), wasReached = std::make_shared<std::atomic<bool>>(false)](
                        const std::string &recorded) { return recorded == line && !wasReached->exchange(true); })
    {
    }
    ~Gate()
    {
        open();
        m_log.observe({});
    }
    Gate(const Gate &) = delete;
    Gate &operator=(const Gate &) = delete;

    bool waitUntilReached() const
    {
        return QTest::qWaitFor([this] { return m_state->isReached.load(); }, patience);
    }
    void open()
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->isOpen = true;
        m_state->changed.notify_all();
    }

private:
    struct State {
        std::atomic<bool> isReached = false;
        std::mutex mutex;
        std::condition_variable changed;
        bool isOpen = false; // guarded by the mutex
    };

    CallLog &m_log;
    const std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace corvane
