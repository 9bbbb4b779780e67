#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "apps/app_inventory.h"

namespace corvane {

// The rules that hold for what applications keep, wherever a system has them keep it. All names in lower case.

/// Whether one of the identifiers is the name or its beginning up to one of its dots.
[[nodiscard]] bool isClaimed(std::string_view name, std::span<const std::string> ids);

/// Those of an application's names that a folder of its own may bear: neither short nor generic; in lower case, each
/// once.
[[nodiscard]] std::vector<std::string> candidateNames(std::vector<std::string> names);

/// The item without its size; nothing for one that must never be removed.
[[nodiscard]] std::optional<Leftover> leftoverAt(std::string path, std::string_view location, Leftover::Match match,
                                                 const AppInventory::Surroundings &surroundings);

/// Whether it has been untouched for so long that it seems unused.
[[nodiscard]] bool isUntouched(const Leftover &leftover, Time now);

/// Whether a name without its suffixes may be that of a deleted application's item.
[[nodiscard]] bool isOrphanName(std::string_view name, const std::unordered_set<std::string> &vendors);

struct Orphan {
    Leftover item; ///< without its size
    std::string group;
};

/// What deleted applications have left, measured, largest group first. All the sizes together can be added up.
[[nodiscard]] std::vector<OrphanGroup> measuredGroups(std::vector<Orphan> orphans,
                                                      const AppInventory::Surroundings &surroundings);

/// The applications that are there, largest first. All their sizes together can be added up.
[[nodiscard]] std::vector<InstalledApp> largestFirst(std::vector<std::optional<InstalledApp>> measured);

} // namespace corvane
