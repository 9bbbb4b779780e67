#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/leftover.h"
#include "core/calendar.h"
#include "platform/applications.h"
#include "platform/time.h"

namespace corvane {

/// A measured installed application. Identified by its path.
struct InstalledApp {
    /// How it was installed, on a system with several ways.
    enum class Source : std::uint8_t { none, flatpak, snap, package, appImage };

    std::string path; ///< of the bundle, or of the main file or folder of the application; bytes
    std::string name; ///< the bundle's file name without ".app", or the application's name; bytes
    std::string bundleID;
    std::string version; ///< empty if unknown
    bool isAppStore = false;
    std::int64_t appSize = 0;        ///< allocated bytes of the bundle, or of everything installed
    std::optional<Time> lastUsed;    ///< absent if unknown
    std::vector<Leftover> leftovers; ///< exact and name matches, largest first

    Source source = Source::none;
    std::string removeCommand = {}; ///< for the user to run; if empty, the program can remove the application itself
    std::string launcher = {};      ///< the user's file that starts it, removed with it; empty for none
    std::string icon = {};          ///< path of its icon; empty if the bundle contains it
    std::vector<std::string> programs = {}; ///< as in `ProgramMarks`

    /// The sum of the exact matches.
    [[nodiscard]] std::int64_t exactLeftoverSize() const;

    /// The size including the exact matches, by which the inventory is ordered.
    [[nodiscard]] std::int64_t sizeWithExactLeftovers() const;

    /// The sum of exact and possible matches, as shown for the data.
    [[nodiscard]] std::int64_t dataSize() const;

    /// The size including that data.
    [[nodiscard]] std::int64_t totalSize() const;

    /// Whether a leftover is preselected for removal with the application: an exact match, unless the identifier is a
    /// single word, such as "com", with which half of a Library may start, or the item has the name of a system item. A
    /// Snap's identifier is always one word.
    [[nodiscard]] bool proposes(const Leftover &leftover) const;

    /// The number of whole calendar months since its last use; absent if below 6 or unknown.
    [[nodiscard]] std::optional<int> unusedForMonths(Time now, const Calendar &calendar) const;

    friend bool operator==(const InstalledApp &, const InstalledApp &) = default;
};

/// Identifies its processes.
[[nodiscard]] ProgramMarks marksOf(const InstalledApp &app);

/// The name of the case, as in the output of the command line, JSON included, and in the badge of the window; empty for
/// none.
[[nodiscard]] std::string_view caseName(InstalledApp::Source source);

} // namespace corvane
