#pragma once

#include <array>
#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// The sentences that are written differently for the users of the two systems.
struct SystemWords {
    std::string_view invitation;   ///< to the first scan
    std::string_view reveal;       ///< an item, in the file manager
    std::string_view revealFolder; ///< a whole folder
    std::string_view diskSubtitle; ///< of the breakdown
    std::string_view nudgeTitle;   ///< over the breakdown, before a scan
    std::string_view nudgeText;
    std::string_view needsAccess;     ///< in the place of a count, of a folder that cannot be read
    std::string_view blockedFolder;   ///< why one cannot be read, with "{}" for its owner where that matters
    std::string_view belongsTo;       ///< in the place of `needsAccess`, with "{}" for the owner; empty to tell none
    std::string_view deniedTo;        ///< behind the reason why a folder cannot be read, likewise
    std::string_view orphansText;     ///< what deleted applications have left
    std::string_view uninstallAdvice; ///< the end of the question before an uninstall
    std::string_view snapshotsTitle;
    std::string_view snapshotsText;
    std::string_view snapshotsNote;
    std::string_view listSnapshots; ///< a command; empty where each snapshot has one of its own
    std::string_view thinSnapshots; ///< likewise
    std::string_view welcomeLine;   ///< beneath "Welcome to Corvane"
    std::string_view accessTitle;   ///< what the program must be granted to see everything
    std::string_view accessMissing; ///< what it is for, or what is wrong
    std::string_view accessGranted;
    /// Whether the access is granted in the system's settings, which the user has to be led to.
    bool accessIsInSettings;
    std::array<std::string_view, 3> accessSteps; ///< of granting it there, the names of what is pressed between "**"
    std::string_view dragHelp;                   ///< of the program's icon beside these steps
    std::string_view settingsFailure;            ///< the settings could not be opened
    std::string_view bannerTitle;                ///< over the overview while the access is missing
    std::string_view bannerText;
    std::string_view includeSystemInfo; ///< the feedback form's choice
    std::string_view crashReportContent;
};

/// Of static storage.
[[nodiscard]] const SystemWords &wordsOf(SystemKind kind);

} // namespace corvane
