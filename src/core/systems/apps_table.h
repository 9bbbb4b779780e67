#pragma once

#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// What one system's uninstaller tells of applications, and in which words.
struct AppsTable {
    bool tellsLastUse;           ///< the system remembers when an application was opened last
    bool tellsIdentifier;        ///< beside the version: the data bears it
    bool showsWholePaths;        ///< of the data, which lies in many places; its name alone otherwise
    std::string_view dataTitle;  ///< over what belongs to an application for certain
    std::string_view invitation; ///< in the place of an application, as long as none is chosen
    std::string_view noApps;     ///< where the applications are looked for
};

/// Of static storage.
[[nodiscard]] const AppsTable &appsTableOf(SystemKind kind);

} // namespace corvane
