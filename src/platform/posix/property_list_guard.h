#pragma once

#include <string_view>

namespace corvane {

/// Whether the property list library can safely parse the bytes. It recurses into nested lists and copies a shared
/// value for each reference to it, so a small file can exhaust the stack, memory or time; a NUL in a text aborts the
/// program. Bytes that are not a property list may pass: the library rejects those itself.
[[nodiscard]] bool isHarmlessPropertyList(std::string_view bytes);

/// Magic number of a binary property list.
inline constexpr std::string_view binaryPropertyListMark = "bplist00";

} // namespace corvane
