#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Facts from an application bundle's Info.plist.
struct BundleInfo {
    std::string path;     ///< of the bundle; bytes
    std::string name;     ///< the bundle's file name without ".app"; bytes
    std::string altName;  ///< its "CFBundleName"; equal to `name` if missing
    std::string bundleID; ///< the identifier in its original case; never empty
    std::string version;  ///< its "CFBundleShortVersionString"; empty if missing
    bool isAppStore = false;

    /// Parses the bytes of the Info.plist, XML or binary, of the bundle at that path; nothing if it has no identifier.
    /// A value that is not a string counts as missing. The plist does not say where the application came from.
    [[nodiscard]] static std::optional<BundleInfo> parse(std::string_view path, std::string_view infoPlist);

    friend bool operator==(const BundleInfo &, const BundleInfo &) = default;
};

} // namespace corvane
