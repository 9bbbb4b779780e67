#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "apps/installed_app.h"
#include "apps/leftover.h"
#include "apps/search_context.h"

namespace corvane {

// Rules for applications' data, wherever a system stores it. All names in lower case.

/// Names too generic to identify an application.
inline constexpr std::array<std::string_view, 18> genericNames{
    "google",   "microsoft", "adobe", "apple", "jetbrains", "mozilla", "electron", "crashpad", "sentry",
    "squirrel", "app",       "data",  "cache", "caches",    "logs",    "temp",     "tmp",      "default"};

/// First components of the names of data of deleted applications.
inline constexpr std::array<std::string_view, 29> orphanTLDs{
    "com", "org",  "net", "io", "app", "dev", "co", "de", "me", "ai", "us", "uk", "fr", "jp", "cn",
    "ru",  "info", "tv",  "so", "sh",  "nl",  "se", "ch", "at", "it", "es", "ca", "au", "id"};

/// Whether one of the identifiers is the name, or its prefix up to a dot.
[[nodiscard]] bool isClaimed(std::string_view name, std::span<const std::string> ids);

/// The application's names that are specific enough for a folder name: neither short nor generic; in lower case,
/// without duplicates.
[[nodiscard]] std::vector<std::string> candidateNames(std::vector<std::string> names);

/// The item without its size; nothing if it must never be removed.
[[nodiscard]] std::optional<Leftover> leftoverAt(std::string path, std::string_view location, Leftover::Match match,
                                                 const SearchContext &context);

/// Whether it has not changed for so long that it seems unused.
[[nodiscard]] bool isUntouched(const Leftover &leftover, Time now);

/// The vendors of these identifiers: the first two components of each.
[[nodiscard]] std::unordered_set<std::string> vendorsOf(const std::vector<std::string> &ids);

/// Whether a name without its suffixes may belong to a deleted application's item.
[[nodiscard]] bool isOrphanName(std::string_view name, const std::unordered_set<std::string> &vendors);

struct Orphan {
    Leftover item; ///< without its size
    std::string group;
};

/// The measured data of deleted applications, largest group first. The sum of all sizes does not overflow.
[[nodiscard]] std::vector<OrphanGroup> measuredGroups(std::vector<Orphan> orphans, const SearchContext &context);

/// The applications that are present, largest first. The sum of all sizes does not overflow.
[[nodiscard]] std::vector<InstalledApp> largestFirst(std::vector<std::optional<InstalledApp>> measured);

} // namespace corvane
