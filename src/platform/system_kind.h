#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

/// The system whose files a root holds, whichever one this program was built for: on Linux, a root that is shaped like
/// a Mac's is a Mac's. What differs between the two is data; the tables are chosen by this value.
enum class SystemKind : std::uint8_t { mac, linuxSystem };

/// A root that holds this file is a Mac's; any other is a Linux system's.
inline constexpr std::string_view macSystemFile = "/System/Library/CoreServices/SystemVersion.plist";

} // namespace corvane
