#pragma once

#include <string>

namespace corvane {

/// Facts about the program. Constant; any thread.
struct AppInfo {
    /// The product's website.
    static constexpr const char *site = "https://corvane.app/";

    [[nodiscard]] static std::string privacyPage() { return std::string(site) + "privacy.html"; }
};

} // namespace corvane
