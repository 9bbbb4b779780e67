#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QThreadPool>

#include "core/file_node.h"
#include "core/installed_tree.h"
#include "core/path_guard.h"
#include "core/removal.h"
#include "core/scan_progress.h"
#include "core/selection.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// Runs at most one removal at a time. Main thread only, except for the work itself.
class RemovalJob {
public:
    /// Gets the outcome, and a rescan of what is left of each item that was removed in part or had been replaced by
    /// another item.
    using Receiver = std::function<void(const RemovalOutcome &, bool permanently, const std::vector<MeasuredTree> &)>;

    /// `locations` and the objects that `host` refers to must outlive this one. `receive` is called on the main thread.
    RemovalJob(const Host &host, const ProtectedLocations &locations, Receiver receive);
    ~RemovalJob();
    RemovalJob(const RemovalJob &) = delete;
    RemovalJob &operator=(const RemovalJob &) = delete;

    /// True from `start` to `end`.
    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    /// The removal will end after the current item.
    [[nodiscard]] bool isStopping() const { return m_isRunning && m_stop; }

    /// Removes the entries; an item recorded in `seen` must still be the same, and its condition must hold. Returns
    /// false and does nothing if there is nothing to remove or a removal is running.
    bool start(const Selection &entries, bool permanently, const SeenItems &seen,
               const RemovalConditions &conditions = {});
    /// Ends the removal after the current item; returns false if it is already stopping or none is running.
    bool stop();
    /// Call when the received result has been processed.
    void end() { m_isRunning = false; }
    /// Stops after the current item, waits for it, and delivers the outcome. No removal can be started afterwards.
    void close();

private:
    [[nodiscard]] std::vector<MeasuredTree> remainsOf(RemovalOutcome &outcome);
    [[nodiscard]] std::optional<MeasuredTree> measuredAnew(const std::string &path);

    const Host m_host;
    const ProtectedLocations &m_locations;
    const Receiver m_receive;
    bool m_isRunning = false;
    StopFlag m_stop = false; // of the running removal
    StopFlag m_isClosing = false;
    std::mutex m_lock;
    std::shared_ptr<ScanProgress> m_rescan; // of what is left of an item; guarded by the lock
    QObject m_mainThread;                   // receives the queued calls
    QThreadPool m_pool;
};

} // namespace corvane
