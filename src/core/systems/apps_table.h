#pragma once

#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// Texts and display choices of one system's uninstaller.
struct AppsTable {
    bool tellsLastUse;           ///< the system records when an application was last opened
    bool tellsIdentifier;        ///< beside the version, because the data is named after it
    bool showsWholePaths;        ///< of the data, which is in many places; otherwise only its name
    std::string_view dataTitle;  ///< heading for data that certainly belongs to an application
    std::string_view invitation; ///< placeholder until an application is chosen
    std::string_view noApps;     ///< where the program looks for applications
};

/// Static storage.
[[nodiscard]] const AppsTable &appsTableOf(SystemKind kind);

} // namespace corvane
