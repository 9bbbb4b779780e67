#pragma once

#include <array>
#include <string_view>

namespace corvane {

/// A folder of the user's Library in which applications keep data.
struct LeftoverLocation {
    /// How the name of an exact match is derived from the application's identifier.
    enum class Naming {
        plain,          ///< the identifier, or followed by further components
        groupContainer, ///< preceded by further components
        savedState,     ///< the identifier with ".savedState"
        propertyList,   ///< the identifier, or followed by further components, with ".plist" or ".binarycookies"
    };

    std::string_view folder; ///< relative to the Library
    std::string_view label;
    Naming naming = Naming::plain;
    bool hasNameMatches = false; ///< whether applications also use their name there
    bool hasOrphans = true;      ///< whether data of deleted applications can be recognized there
};

/// In search order.
inline constexpr std::array<LeftoverLocation, 13> leftoverLocations{{
    {.folder = "Application Support", .label = "Application Support", .hasNameMatches = true},
    {.folder = "Caches", .label = "Caches", .hasNameMatches = true},
    {.folder = "Containers", .label = "Containers"},
    {.folder = "Group Containers",
     .label = "Group Containers",
     .naming = LeftoverLocation::Naming::groupContainer,
     .hasOrphans = false},
    {.folder = "Preferences", .label = "Preferences", .naming = LeftoverLocation::Naming::propertyList},
    {.folder = "Preferences/ByHost", .label = "Preferences", .naming = LeftoverLocation::Naming::propertyList},
    {.folder = "Saved Application State", .label = "Saved State", .naming = LeftoverLocation::Naming::savedState},
    {.folder = "Logs", .label = "Logs", .hasNameMatches = true},
    {.folder = "HTTPStorages", .label = "HTTP Storage"},
    {.folder = "WebKit", .label = "WebKit Data"},
    {.folder = "Cookies", .label = "Cookies", .naming = LeftoverLocation::Naming::propertyList},
    {.folder = "Application Scripts", .label = "App Scripts"},
    {.folder = "LaunchAgents",
     .label = "Launch Agents",
     .naming = LeftoverLocation::Naming::propertyList,
     .hasOrphans = false},
}};

} // namespace corvane
