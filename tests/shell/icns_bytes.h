#pragma once

#include <cstdint>
#include <string>

namespace corvane::test {

/// A 32-bit big-endian number, as in icon files.
inline std::string number(std::size_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xff);
    return bytes;
}

/// One entry of an icon file.
inline std::string icnsEntry(const std::string &type, const std::string &picture)
{
    return type + number(picture.size() + 8) + picture;
}

/// An icon file with these entries.
inline std::string icnsFile(const std::string &entries)
{
    return "icns" + number(entries.size() + 8) + entries;
}

} // namespace corvane::test
