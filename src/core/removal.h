#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/path_guard.h"
#include "core/selected_entry.h"
#include "core/selection.h"
#include "platform/host.h"

namespace corvane {

/// What is to happen to one entry.
struct RemovalStep {
    enum class Action { refuse, trash, erase };

    std::string path;
    std::int64_t size = 0;
    Action action = Action::refuse;

    friend bool operator==(const RemovalStep &, const RemovalStep &) = default;
};

/// What really happened.
struct RemovalOutcome {
    std::vector<SelectedEntry> removed;
    std::vector<std::string> failures; ///< one line each: name, ": ", reason
};

/// The removal of a selection: first the list of what would happen, which touches nothing, then the doing.
struct Removal {
    /// One step for each entry, in the order of their paths. An entry whose path is not absolute and standardized
    /// is refused: the system might take it for another item than the one that was judged.
    [[nodiscard]] static std::vector<RemovalStep> plan(const Selection &entries, bool permanently,
                                                       const ProtectedLocations &locations,
                                                       const std::vector<std::string> &trashFolders);

    /// Carries the steps out one after another, looking at each item again just before it is touched: what turns out
    /// to lie in the Trash already is erased. Blocks; off the main thread. Never turns to deleting where the Trash
    /// failed.
    [[nodiscard]] static RemovalOutcome perform(const std::vector<RemovalStep> &steps,
                                                const ProtectedLocations &locations, const Host &host);

    /// The one short message for people.
    [[nodiscard]] static std::string message(const RemovalOutcome &outcome, bool permanently);

    /// What the system's log gets, or nothing when there was no failure.
    [[nodiscard]] static std::string logText(const RemovalOutcome &outcome);
};

} // namespace corvane
