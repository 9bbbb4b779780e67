#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/desktop_entry.h"
#include "apps/installed_app.h"
#include "apps/linux_data.h"

namespace corvane {

/// An application of a Linux system that is to be measured.
struct FoundApp {
    InstalledApp app; ///< without size and data
    DataOwner owner;
    std::function<std::int64_t()> size;
};

/// Whether it is this application, which is never offered.
[[nodiscard]] bool isThisApplication(std::string_view id);

/// What is in a folder, in the order of the names. Where it is closed to the user, `areAllKnown` becomes false.
[[nodiscard]] std::vector<std::string> sortedNames(const std::string &folder,
                                                   const AppInventory::Surroundings &surroundings, bool &areAllKnown);

/// The desktop files of a folder that are shown, in the order of their names.
[[nodiscard]] std::vector<DesktopEntry> entriesIn(const std::string &folder,
                                                  const AppInventory::Surroundings &surroundings);

/// What an application goes by, as its entries tell.
[[nodiscard]] DataOwner ownerOf(const std::vector<DesktopEntry> &entries, std::string place);

} // namespace corvane
