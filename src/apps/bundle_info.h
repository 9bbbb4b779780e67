#pragma once

#include <string>

namespace corvane {

/// What an application's bundle says of itself.
struct BundleInfo {
    std::string path;     ///< of the bundle; bytes
    std::string name;     ///< the bundle's file name without ".app"; bytes
    std::string altName;  ///< its "CFBundleName"; equal to `name` where it has none
    std::string bundleID; ///< the identifier, its case kept; never empty
    std::string version;  ///< its "CFBundleShortVersionString"; empty where it has none
    bool isAppStore = false;

    friend bool operator==(const BundleInfo &, const BundleInfo &) = default;
};

} // namespace corvane
