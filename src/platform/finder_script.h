#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// A script that tells the Finder to move an item to the Trash. Backslashes and quotation marks in the path are
/// escaped, so that no name can end the string literal.
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
