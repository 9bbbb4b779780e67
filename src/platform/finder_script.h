#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The script that asks the Finder to put an item into the Trash, with the path as a string of that language:
/// backslashes and quotation marks in it are escaped, so that no name can end the string.
[[nodiscard]] inline std::string finderDeleteScript(std::string_view path)
{
    std::string script = "tell application \"Finder\" to delete (POSIX file \"";
    for (const char c : path) {
        if (c == '\\' || c == '"')
            script += '\\';
        script += c;
    }
    return script + "\" as alias)";
}

} // namespace corvane
