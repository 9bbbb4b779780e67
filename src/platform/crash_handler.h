#pragma once

#include <optional>
#include <string>

namespace corvane {

/// Where `installCrashHandler` has reports written; nothing on a system that writes them itself.
[[nodiscard]] std::optional<std::string> crashReportsFolder();

} // namespace corvane
