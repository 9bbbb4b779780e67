#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include <QMetaObject>
#include <QObject>
#include <QThreadPool>

#include "core/stop_flag.h"

namespace corvane {

/// Background work of which only the newest request counts: starting another asks the running one to stop, and its
/// result is dropped whenever it arrives. A member of the object that publishes the result; main thread only, except
/// for the work itself. Nothing is received after destruction.
///
/// `Progress` is shared between the work of one request and the main thread: a `StopFlag`, or a type of counters with
/// `cancel()`, callable from any thread. Each request gets a new one.
template <typename Result, typename Progress = StopFlag>
class LatestJob {
public:
    /// Runs on a thread of the job's own pool and must not throw. The result of a superseded request is dropped.
    using Work = std::function<Result(Progress &)>;
    using Receiver = std::function<void(Result)>;

    /// `receive` is called on the main thread with the result of the newest request. With one thread, work waits until
    /// the superseded work has ended.
    explicit LatestJob(Receiver receive, int threads = 1) : m_receive(std::move(receive))
    {
        m_pool.setMaxThreadCount(threads);
    }
    /// Asks the work to stop and waits for it.
    ~LatestJob()
    {
        close();
        m_pool.waitForDone();
    }
    LatestJob(const LatestJob &) = delete;
    LatestJob &operator=(const LatestJob &) = delete;

    /// Starts a new request, which supersedes the previous one.
    void start(Work work)
    {
        if (m_isClosed)
            return;
        drop();
        m_request = std::make_shared<Request>();
        m_request->token = m_token;
        m_isLoading = true;
        run(std::move(work));
    }

    /// Runs another step of the newest request, for a result that needs more work before it can be used.
    void proceed(Work work)
    {
        if (m_request == nullptr || m_request->isSuperseded)
            return;
        m_isLoading = true;
        run(std::move(work));
    }

    /// Drops the newest request without starting another.
    void drop()
    {
        if (m_request) {
            m_request->isSuperseded = true;
            tellToStop(m_request->progress);
        }
        ++m_token;
        m_isLoading = false;
        m_heldWork = nullptr;
    }

    /// Drops the newest request and refuses further ones.
    void close()
    {
        m_isClosed = true;
        drop();
    }

    /// Delays work started from now on until release(); such a request counts as loading.
    void hold() { m_isHeld = true; }
    void release()
    {
        m_isHeld = false;
        if (Work work = std::exchange(m_heldWork, nullptr))
            run(std::move(work));
    }

    /// Whether a result is pending.
    [[nodiscard]] bool isLoading() const { return m_isLoading; }
    /// The number of the newest request; grows with each.
    [[nodiscard]] int token() const { return m_token; }
    /// The progress of the newest request, also after its result has arrived; null before the first.
    [[nodiscard]] std::shared_ptr<Progress> progress() const
    {
        return m_request ? std::shared_ptr<Progress>(m_request, &m_request->progress) : nullptr;
    }

    /// Receives a result unless `token` is no longer that of the newest request. Results of the work arrive here.
    void finish(Result result, int token) { take(std::move(result), token == m_token); }
    /// The same, identified by the request's progress.
    void finish(Result result, const std::shared_ptr<Progress> &token)
    {
        take(std::move(result), m_request && !m_request->isSuperseded && token == progress());
    }

private:
    struct Request {
        int token = 0; // constant after construction
        std::atomic<bool> isSuperseded = false;
        Progress progress{};
    };

    static void tellToStop(Progress &progress)
    {
        if constexpr (std::is_same_v<Progress, StopFlag>)
            progress = true;
        else
            progress.cancel();
    }

    void take(Result result, bool isCurrent)
    {
        if (isCurrent) {
            m_isLoading = false;
            m_receive(std::move(result));
        } else {
            // May be too large to free on the main thread.
            m_pool.start([held = std::make_shared<Result>(std::move(result))]() mutable { held.reset(); });
        }
    }

    void run(Work work)
    {
        if (m_isHeld) {
            m_heldWork = std::move(work);
            return;
        }
        m_pool.start([this, request = m_request, work = std::move(work)] {
            if (request->isSuperseded)
                return;
            auto result = std::make_shared<Result>(work(request->progress));
            if (request->isSuperseded)
                return;
            QMetaObject::invokeMethod(
                &m_mainThread,
                [this, result = std::move(result), token = request->token] { finish(std::move(*result), token); },
                Qt::QueuedConnection);
        });
    }

    const Receiver m_receive;
    std::shared_ptr<Request> m_request; // the newest request
    int m_token = 0;
    bool m_isLoading = false;
    bool m_isClosed = false;
    bool m_isHeld = false;
    Work m_heldWork;      // work of the newest request; empty if none is held
    QObject m_mainThread; // receives the queued calls; pending ones are dropped with it
    QThreadPool m_pool;
};

} // namespace corvane
