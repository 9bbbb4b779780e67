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

/// One kind of background work of which only the newest request counts: starting another tells the running one to
/// stop, and its result is dropped, whether it comes early or late. A member of the object that publishes the result;
/// main thread only, but for the work itself. Nothing is received once it is destroyed.
///
/// `Progress` is what the work of one request shares with the main thread: a `StopFlag`, or a type of counters with
/// `cancel()`, callable from any thread. It is made anew for every request.
template <typename Result, typename Progress = StopFlag>
class LatestJob {
public:
    /// Runs on a thread of the job's own pool and must not throw. What it returns once superseded is not used.
    using Work = std::function<Result(Progress &)>;
    using Receiver = std::function<void(Result)>;

    /// `receive` is called on the main thread with the result of the newest request. With one thread, work waits until
    /// what it supersedes has ended.
    explicit LatestJob(Receiver receive, int threads = 1) : m_receive(std::move(receive))
    {
        m_pool.setMaxThreadCount(threads);
    }
    /// Tells the work to stop and waits for its end.
    ~LatestJob()
    {
        close();
        m_pool.waitForDone();
    }
    LatestJob(const LatestJob &) = delete;
    LatestJob &operator=(const LatestJob &) = delete;

    /// A new request, which supersedes the one before.
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

    /// A further step of the newest request, for a result that needs more work before it can be used.
    void proceed(Work work)
    {
        if (m_request == nullptr || m_request->isSuperseded)
            return;
        m_isLoading = true;
        run(std::move(work));
    }

    /// The newest request is not wanted any more: it is superseded by none.
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

    /// Drops the newest request; none is started any more.
    void close()
    {
        m_isClosed = true;
        drop();
    }

    /// Work that is started from now on waits until release(); a request counts as loading all the same.
    void hold() { m_isHeld = true; }
    void release()
    {
        m_isHeld = false;
        if (Work work = std::exchange(m_heldWork, nullptr))
            run(std::move(work));
    }

    /// Whether a result is awaited.
    [[nodiscard]] bool isLoading() const { return m_isLoading; }
    /// The number of the newest request; grows with each.
    [[nodiscard]] int token() const { return m_token; }
    /// That of the newest request, also when its result is there; null before the first.
    [[nodiscard]] std::shared_ptr<Progress> progress() const
    {
        return m_request ? std::shared_ptr<Progress>(m_request, &m_request->progress) : nullptr;
    }

    /// Receives a result unless `token` is no longer that of the newest request. What the work returns takes this way.
    void finish(Result result, int token) { take(std::move(result), token == m_token); }
    /// The same with the request's progress for a token.
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
            // It may be too large to be freed on the main thread.
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
    std::shared_ptr<Request> m_request; // the newest
    int m_token = 0;
    bool m_isLoading = false;
    bool m_isClosed = false;
    bool m_isHeld = false;
    Work m_heldWork;      // of the newest request; empty while none waits
    QObject m_mainThread; // receives the queued calls; those under way are dropped with it
    QThreadPool m_pool;
};

} // namespace corvane
