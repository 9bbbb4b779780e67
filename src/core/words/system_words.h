#pragma once

#include <array>
#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// Texts that differ between the two systems.
struct SystemWords {
    std::string_view invitation;   ///< to start the first scan
    std::string_view reveal;       ///< for showing an item in the file manager
    std::string_view revealFolder; ///< the same for a whole folder
    std::string_view diskSubtitle; ///< on the breakdown screen
    std::string_view nudgeTitle;   ///< above the breakdown, before a scan
    std::string_view nudgeText;
    std::string_view needsAccess;    ///< shown instead of a count for an unreadable folder
    std::string_view blockedFolder;  ///< why a folder cannot be read
    std::string_view blockedByOwner; ///< the same if it belongs to another user, "{}"; empty if that does not matter
    std::string_view belongsTo;   ///< used instead of `needsAccess`, with "{}" for the owner; empty to omit the owner
    std::string_view deniedTo;    ///< appended to the reason why a folder cannot be read, likewise
    std::string_view orphansText; ///< describes the data of deleted applications
    std::string_view uninstallAdvice; ///< the last part of the confirmation of an uninstall
    std::string_view snapshotsTitle;
    std::string_view snapshotsText;
    std::string_view snapshotsNote;
    std::string_view listSnapshots; ///< a command; empty if each snapshot has its own
    std::string_view thinSnapshots; ///< likewise
    std::string_view welcomeLine;   ///< below "Welcome to Corvane"
    std::string_view accessTitle;   ///< what the user must grant to see everything
    std::string_view accessMissing; ///< what it is for, or what the problem is
    std::string_view accessGranted;
    /// Whether the access is granted in the system's settings, to which the program guides the user.
    bool accessIsInSettings;
    std::array<std::string_view, 3> accessSteps; ///< of granting it there; names of controls between "**"
    std::string_view dragHelp;                   ///< for dragging the program's icon in these steps
    std::string_view settingsFailure;            ///< the settings could not be opened
    std::string_view bannerTitle;                ///< on the overview while the access is missing
    std::string_view bannerText;
    std::string_view automaticUpdates;  ///< the setting for updates without a question
    std::string_view includeSystemInfo; ///< the option in the feedback form
    std::string_view crashReportContent;
};

/// Static storage.
[[nodiscard]] const SystemWords &wordsOf(SystemKind kind);

} // namespace corvane
