#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/path_guard.h"
#include "core/removal_condition.h"
#include "core/selected_entry.h"
#include "core/selection.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// The planned action for one entry.
struct RemovalStep {
    enum class Action { refuse, trash, erase };

    std::string path;
    std::int64_t size = 0;
    Action action = Action::refuse;
    /// Identity at the time of selection: any other item found by now is kept. Not compared if empty.
    std::optional<ItemIdentity> seen = std::nullopt;
    RemovalCondition condition = {};

    friend bool operator==(const RemovalStep &, const RemovalStep &) = default;
};

/// An entry that could not be removed.
struct RemovalFailure {
    /// What is at the entry's path now, as far as known.
    enum class Left {
        asItWas,
        somethingElse, ///< an item other than the selected one
        aPart,         ///< what could not be deleted of a folder
        nothing,       ///< it was already gone
    };

    std::string path;
    std::string line; ///< name, ": ", reason
    Left left = Left::asItWas;
    std::int64_t freed = 0; ///< bytes of the part that was deleted

    friend bool operator==(const RemovalFailure &, const RemovalFailure &) = default;
};

/// The actual result.
struct RemovalOutcome {
    std::vector<SelectedEntry> removed;
    std::vector<RemovalFailure> failures = {};
    bool isStopped = false; ///< the remaining steps were not started
};

/// The removal of a selection: first a plan, which touches nothing, then its execution.
struct Removal {
    /// What is at each path now, to be stored with a selection. Accesses the disk.
    [[nodiscard]] static SeenItems look(std::span<const SelectedEntry> entries, const ProtectedLocations &locations,
                                        const Host &host);

    /// One step per entry, ordered by path. An entry whose path is not absolute and standardized is refused: the system
    /// might resolve it to an item other than the one that was checked.
    [[nodiscard]] static std::vector<RemovalStep> plan(const Selection &entries, bool permanently,
                                                       const ProtectedLocations &locations,
                                                       const std::vector<std::string> &trashFolders,
                                                       const SeenItems &seen = {},
                                                       const RemovalConditions &conditions = {});

    /// Carries out the steps in order, checking each item again just before touching it: an item that turns out to be
    /// in the Trash already is erased. Blocks; off the main thread. Never falls back to deleting if the Trash failed.
    /// When stopped, it finishes the current item. Each step is announced before it is carried out.
    [[nodiscard]] static RemovalOutcome perform(const std::vector<RemovalStep> &steps,
                                                const ProtectedLocations &locations, const Host &host,
                                                const StopFlag &stop = neverStopped,
                                                const std::function<void(const RemovalStep &)> &announce = {});

    /// The short message shown to the user. What was deleted of a folder counts as freed.
    [[nodiscard]] static std::string message(const RemovalOutcome &outcome, bool permanently);

    /// The text for the system's log, or nothing if there was no failure.
    [[nodiscard]] static std::string logText(const RemovalOutcome &outcome);
};

} // namespace corvane
