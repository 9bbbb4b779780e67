#pragma once

#include <regex>
#include <string>

namespace corvane {

/// The first word in the text that only Mac users know: the name of a program, a folder or a key of that system.
/// Matches whole words, case-sensitively. Empty if there is none.
inline std::string macWordIn(const std::string &text)
{
    static const std::regex words(
        R"((\b(Finder|macOS|MacOS|OS X|Macs?|Macintosh|MacBook|iMac|Full Disk Access|APFS|Homebrew|Time Machine|)"
        R"(Xcode|Spotlight|iCloud|tmutil|diskutil)\b)|⌘|⌥|⌃|⇧|⌫)");
    std::smatch found;
    return std::regex_search(text, found, words) ? found.str() : std::string();
}

} // namespace corvane
