#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QObject>
#include <QThreadPool>

#include "core/file_node.h"
#include "core/path_guard.h"
#include "core/removal.h"
#include "core/selection.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// The removal under way, of which there is one at most. Main thread only, but for the work itself.
class RemovalJob {
public:
    /// What was done, and what is left where an item was removed in part or was another one than expected, each
    /// scanned anew.
    using Receiver =
        std::function<void(const RemovalOutcome &, bool permanently, const std::vector<std::shared_ptr<FileNode>> &)>;

    /// What `host` refers to, and `locations`, must outlive the object. `receive` is called on the main thread.
    RemovalJob(const Host &host, const ProtectedLocations &locations, Receiver receive);
    ~RemovalJob();
    RemovalJob(const RemovalJob &) = delete;
    RemovalJob &operator=(const RemovalJob &) = delete;

    /// True from `start` to `end`.
    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    /// It ends after the item that it is at.
    [[nodiscard]] bool isStopping() const { return m_isRunning && m_stop; }

    /// Removes the entries; a seen one must still be the item that was seen, and its condition must hold. False, and
    /// nothing happens, where there is nothing to remove or a removal is under way.
    bool start(const Selection &entries, bool permanently, const SeenItems &seen,
               const RemovalConditions &conditions = {});
    /// Ends the removal after the item that it is at; false where that is so already, or there is none.
    bool stop();
    /// What was received has been dealt with.
    void end() { m_isRunning = false; }
    /// Touches no further item, waits for the end of the one at hand, and hands over what was done. None is started
    /// any more.
    void close();

private:
    [[nodiscard]] std::vector<std::shared_ptr<FileNode>> remainsOf(RemovalOutcome &outcome) const;

    const Host m_host;
    const ProtectedLocations &m_locations;
    const Receiver m_receive;
    bool m_isRunning = false;
    StopFlag m_stop = false; // of the removal under way
    StopFlag m_isClosing = false;
    QObject m_mainThread; // receives the queued calls
    QThreadPool m_pool;
};

} // namespace corvane
