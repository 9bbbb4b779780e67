#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/leftover.h"
#include "core/calendar.h"
#include "platform/time.h"

namespace corvane {

/// An installed application, measured. Identified by its path.
struct InstalledApp {
    std::string path; ///< of the bundle; bytes
    std::string name; ///< the bundle's file name without ".app"; bytes
    std::string bundleID;
    std::string version; ///< empty where unknown
    bool isAppStore = false;
    std::int64_t appSize = 0;        ///< allocated bytes of the bundle
    std::optional<Time> lastUsed;    ///< absent where the system does not tell
    std::vector<Leftover> leftovers; ///< exact and name matches, largest first

    /// The sum of the exact matches.
    [[nodiscard]] std::int64_t exactLeftoverSize() const;

    /// Whether a leftover is proposed to go with the application: an exact match, unless the identifier is a single
    /// word, as "com" with which half a Library may begin, or the item bears the name of the system's own.
    [[nodiscard]] bool proposes(const Leftover &leftover) const;

    /// The whole calendar months since its last use; absent below 6, and where the last use is not known.
    [[nodiscard]] std::optional<int> unusedForMonths(Time now, const Calendar &calendar) const;

    friend bool operator==(const InstalledApp &, const InstalledApp &) = default;
};

} // namespace corvane
