#pragma once

#include <string_view>

namespace corvane {

/// Whether the property list's library can be trusted with the bytes. It follows nested lists by recursion and makes
/// a copy of a shared value for each reference to it, so a small file can exhaust the stack, the memory or
/// anybody's patience; a text with the character zero in it ends the program. Bytes that are no property list at all
/// may pass: the library refuses those itself.
[[nodiscard]] bool isHarmlessPropertyList(std::string_view bytes);

/// How a binary property list begins.
inline constexpr std::string_view binaryPropertyListMark = "bplist00";

} // namespace corvane
