#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "apps/app_inventory.h"

namespace corvane {

// Rules for applications' data, wherever a system stores it. All names in lower case.

/// Whether one of the identifiers is the name, or its prefix up to a dot.
[[nodiscard]] bool isClaimed(std::string_view name, std::span<const std::string> ids);

/// The application's names that are specific enough for a folder name: neither short nor generic; in lower case,
/// without duplicates.
[[nodiscard]] std::vector<std::string> candidateNames(std::vector<std::string> names);

/// The item without its size; nothing if it must never be removed.
[[nodiscard]] std::optional<Leftover> leftoverAt(std::string path, std::string_view location, Leftover::Match match,
                                                 const AppInventory::Surroundings &surroundings);

/// Whether it has not changed for so long that it seems unused.
[[nodiscard]] bool isUntouched(const Leftover &leftover, Time now);

/// Whether a name without its suffixes may belong to a deleted application's item.
[[nodiscard]] bool isOrphanName(std::string_view name, const std::unordered_set<std::string> &vendors);

struct Orphan {
    Leftover item; ///< without its size
    std::string group;
};

/// The measured data of deleted applications, largest group first. The sum of all sizes does not overflow.
[[nodiscard]] std::vector<OrphanGroup> measuredGroups(std::vector<Orphan> orphans,
                                                      const AppInventory::Surroundings &surroundings);

/// The applications that are present, largest first. The sum of all sizes does not overflow.
[[nodiscard]] std::vector<InstalledApp> largestFirst(std::vector<std::optional<InstalledApp>> measured);

} // namespace corvane
