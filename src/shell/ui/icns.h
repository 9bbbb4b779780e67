#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The bytes of one of the PNG images in a macOS icon file: the smallest that is at least `pixels` wide, or else the
/// largest. Empty if there is none; images of other formats and of sizes that no icon has are skipped. Any thread.
///
/// The file is "icns", its length in bytes, and then entries: a four-character type, the length of the entry including
/// these eight bytes, the image. Lengths are 32-bit big-endian. Safe for malformed input: never reads out of bounds.
[[nodiscard]] std::string_view findPng(std::string_view icns, int pixels);

/// The image itself if it is a PNG of an icon size; empty otherwise. Any thread.
[[nodiscard]] std::string_view iconPng(std::string_view picture);

/// The same PNG with only the chunks that define its pixels. An image may contain thousands of text chunks, each of
/// which expands to megabytes when decoded. Stops at the first malformed chunk. Any thread.
[[nodiscard]] std::string pixelsAlone(std::string_view png);

} // namespace corvane
