#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The syntax of a value in a tool's configuration file.
enum class SettingNotation {
    none,
    keyAndValue,  ///< "key = value"
    keyAndQuoted, ///< key "value"
    yamlValue,    ///< "key: value", or the first value of a list
    xmlElement,
};

/// The unquoted value of the key in the text of a configuration file; empty if not set. The last one is used, or the
/// first one in syntaxes with nesting.
[[nodiscard]] std::string settingIn(std::string text, SettingNotation notation, std::string_view key);

} // namespace corvane
