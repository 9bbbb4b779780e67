#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The bytes of one of the PNG pictures in an icon file of macOS: of the smallest one that is at least `pixels` wide,
/// or else of the largest one. Empty where there is none; pictures of other formats and sizes that no icon has are left
/// out. Any thread.
///
/// The file is "icns", its length in bytes, and then entries: four characters of type, the entry's length with these
/// eight bytes, the picture. Lengths are of 32 bits, the highest byte first. Whatever the bytes are, none outside of
/// them is read.
[[nodiscard]] std::string_view findPng(std::string_view icns, int pixels);

/// The picture itself where it is a PNG of a size that icons have; empty for any other. Any thread.
[[nodiscard]] std::string_view iconPng(std::string_view picture);

/// The same PNG with nothing but what its pixels are made of. Texts, which a picture may carry by the thousand, unfold
/// to megabytes each when the picture is read. Ends where the bytes are no PNG any more. Any thread.
[[nodiscard]] std::string pixelsAlone(std::string_view png);

} // namespace corvane
