#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// What an application's bundle says of itself.
struct BundleInfo {
    std::string path;     ///< of the bundle; bytes
    std::string name;     ///< the bundle's file name without ".app"; bytes
    std::string altName;  ///< its "CFBundleName"; equal to `name` where it has none
    std::string bundleID; ///< the identifier, its case kept; never empty
    std::string version;  ///< its "CFBundleShortVersionString"; empty where it has none
    bool isAppStore = false;

    /// Reads the bytes of the Info.plist, XML or binary, of the bundle at that path; nothing where they hold no
    /// identifier. A value that is no text counts as absent. Where the application is from is not told there.
    [[nodiscard]] static std::optional<BundleInfo> parse(std::string_view path, std::string_view infoPlist);

    friend bool operator==(const BundleInfo &, const BundleInfo &) = default;
};

} // namespace corvane
