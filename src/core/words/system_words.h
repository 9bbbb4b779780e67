#pragma once

#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// The sentences that are written differently for the users of the two systems.
struct SystemWords {
    std::string_view welcomeLine;   ///< beneath "Welcome to Corvane"
    std::string_view accessTitle;   ///< what the program must be granted to see everything
    std::string_view accessMissing; ///< what it is for, or what is wrong
    std::string_view accessGranted;
    /// Whether the access is granted in the system's settings, which the user has to be led to.
    bool accessIsInSettings;
    std::string_view bannerTitle; ///< over the overview while the access is missing
    std::string_view bannerText;
    std::string_view includeSystemInfo; ///< the feedback form's choice
    std::string_view crashReportContent;
};

/// Of static storage.
[[nodiscard]] const SystemWords &wordsOf(SystemKind kind);

} // namespace corvane
