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

/// An installed application, measured. Identified by its path.
struct InstalledApp {
    /// How it came here, where a system has several ways.
    enum class Source : std::uint8_t { none, flatpak, snap, package, appImage };

    std::string path; ///< of the bundle, or of the file or folder that stands for the application; bytes
    std::string name; ///< the bundle's file name without ".app", or what the application is called; bytes
    std::string bundleID;
    std::string version; ///< empty where unknown
    bool isAppStore = false;
    std::int64_t appSize = 0;        ///< allocated bytes of the bundle, or of all that was installed
    std::optional<Time> lastUsed;    ///< absent where the system does not tell
    std::vector<Leftover> leftovers; ///< exact and name matches, largest first

    Source source = Source::none;
    std::string removeCommand = {}; ///< for the user to run; where it is empty, the application itself can be removed
    std::string launcher = {};      ///< a file of the user's that starts it, and goes with it; empty for none
    std::string icon = {};          ///< the path of its picture; empty where the bundle brings it along
    std::vector<std::string> programs = {}; ///< as `ProgramMarks` has them

    /// The sum of the exact matches.
    [[nodiscard]] std::int64_t exactLeftoverSize() const;

    /// The sum of the exact and the possible matches, as the data is shown.
    [[nodiscard]] std::int64_t dataSize() const;

    /// What it takes with that data.
    [[nodiscard]] std::int64_t totalSize() const;

    /// Whether a leftover is proposed to go with the application: an exact match, unless the identifier is a single
    /// word, as "com" with which half a Library may begin, or the item bears the name of the system's own. A Snap's
    /// identifier is a word.
    [[nodiscard]] bool proposes(const Leftover &leftover) const;

    /// The whole calendar months since its last use; absent below 6, and where the last use is not known.
    [[nodiscard]] std::optional<int> unusedForMonths(Time now, const Calendar &calendar) const;

    friend bool operator==(const InstalledApp &, const InstalledApp &) = default;
};

/// What its processes are told by.
[[nodiscard]] ProgramMarks marksOf(const InstalledApp &app);

/// The name of the case as people read it, empty for none.
[[nodiscard]] std::string_view rawValue(InstalledApp::Source source);

} // namespace corvane
