#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// How a tool's configuration file writes a value.
enum class SettingNotation {
    none,
    keyAndValue,  ///< "key = value"
    keyAndQuoted, ///< key "value"
    yamlValue,    ///< "key: value", or the first of a list of values
    xmlElement,
};

/// The value that the text of a configuration file gives the key, without the quotes around it; empty where it gives
/// none. The last one counts, but the first one in the notations of values that may be nested.
[[nodiscard]] std::string settingIn(std::string text, SettingNotation notation, std::string_view key);

} // namespace corvane
