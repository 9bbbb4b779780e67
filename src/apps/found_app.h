#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/desktop_entry.h"
#include "apps/installed_app.h"
#include "apps/linux_data.h"
#include "apps/search_context.h"

namespace corvane {

/// An application found on a Linux system, not yet measured.
struct FoundApp {
    InstalledApp app; ///< without size and data
    DataOwner owner;
    std::function<std::int64_t()> size;
};

/// Whether it is this program, which is never offered.
[[nodiscard]] bool isThisApplication(std::string_view id);

/// The names in a folder, sorted. If the user may not read it, sets `areAllKnown` to false.
[[nodiscard]] std::vector<std::string> sortedNames(const std::string &folder, const SearchContext &context,
                                                   bool &areAllKnown);

/// The visible desktop files of a folder, sorted by name.
[[nodiscard]] std::vector<DesktopEntry> entriesIn(const std::string &folder, const SearchContext &context);

/// The identifiers and names of an application, from its entries.
[[nodiscard]] DataOwner ownerOf(const std::vector<DesktopEntry> &entries, std::string place);

} // namespace corvane
