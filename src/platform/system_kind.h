#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

/// The system whose files a root contains, independent of the running one: on Linux, a root with a Mac's layout is
/// treated as a Mac's. The differences are in tables selected by this value.
enum class SystemKind : std::uint8_t { mac, linuxSystem };

/// A root that contains this file is a Mac's; any other is a Linux system's.
inline constexpr std::string_view macSystemFile = "/System/Library/CoreServices/SystemVersion.plist";

} // namespace corvane
