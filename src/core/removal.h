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

/// What is to happen to one entry.
struct RemovalStep {
    enum class Action { refuse, trash, erase };

    std::string path;
    std::int64_t size = 0;
    Action action = Action::refuse;
    /// What was selected: anything else by now stays. Not compared where there is none.
    std::optional<ItemIdentity> seen = std::nullopt;
    RemovalCondition condition = {};

    friend bool operator==(const RemovalStep &, const RemovalStep &) = default;
};

/// An entry that could not be removed.
struct RemovalFailure {
    /// What is at the entry's path now, as far as the removal knows.
    enum class Left {
        asItWas,
        somethingElse, ///< another item than the one that was selected
        aPart,         ///< of a folder that was to be deleted, what resisted
        nothing,       ///< it was gone before
    };

    std::string path;
    std::string line; ///< name, ": ", reason
    Left left = Left::asItWas;
    std::int64_t freed = 0; ///< bytes of the part that was deleted

    friend bool operator==(const RemovalFailure &, const RemovalFailure &) = default;
};

/// What really happened.
struct RemovalOutcome {
    std::vector<SelectedEntry> removed;
    std::vector<RemovalFailure> failures = {};
    bool isStopped = false; ///< further steps were not begun
};

/// The removal of a selection: first the list of what would happen, which touches nothing, then the doing.
struct Removal {
    /// What is at each path now, to be remembered with a selection. Asks the disk.
    [[nodiscard]] static SeenItems look(std::span<const SelectedEntry> entries, const ProtectedLocations &locations,
                                        const Host &host);

    /// One step for each entry, in the order of their paths. An entry whose path is not absolute and standardized
    /// is refused: the system might take it for another item than the one that was judged.
    [[nodiscard]] static std::vector<RemovalStep> plan(const Selection &entries, bool permanently,
                                                       const ProtectedLocations &locations,
                                                       const std::vector<std::string> &trashFolders,
                                                       const SeenItems &seen = {},
                                                       const RemovalConditions &conditions = {});

    /// Carries the steps out one after another, looking at each item again just before it is touched: what turns out
    /// to lie in the Trash already is erased. Blocks; off the main thread. Never turns to deleting where the Trash
    /// failed. Once stopped, it finishes the item that it is at. Each step is announced before it is carried out.
    [[nodiscard]] static RemovalOutcome perform(const std::vector<RemovalStep> &steps,
                                                const ProtectedLocations &locations, const Host &host,
                                                const StopFlag &stop = neverStopped,
                                                const std::function<void(const RemovalStep &)> &announce = {});

    /// The one short message for people. What was deleted of a folder counts as freed.
    [[nodiscard]] static std::string message(const RemovalOutcome &outcome, bool permanently);

    /// What the system's log gets, or nothing when there was no failure.
    [[nodiscard]] static std::string logText(const RemovalOutcome &outcome);
};

} // namespace corvane
