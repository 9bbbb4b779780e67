#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/file_type.h"

namespace corvane {

// Parsers for option values shared by several commands. They return nothing for invalid text. The `valid…` functions
// describe what a parser accepts, for the message about invalid text: "a number of levels, from 1 to 100".

/// A number of bytes.
[[nodiscard]] std::optional<std::int64_t> byteCount(std::string_view text);
[[nodiscard]] std::string validBytes();

/// A number of months, from 1 to 12,000.
[[nodiscard]] std::optional<int> monthCount(std::string_view text);
[[nodiscard]] std::string validMonths();

/// A number of lines, from 1 to a billion.
[[nodiscard]] std::optional<std::size_t> lineCount(std::string_view text);

/// `noun` is what a line shows: "files".
[[nodiscard]] std::string validLines(std::string_view noun = "lines");

/// A number of levels, from 1 to 100.
[[nodiscard]] std::optional<std::size_t> levelCount(std::string_view text);
[[nodiscard]] std::string validLevels();

/// The choice with that name.
template <typename Choice, std::size_t count>
[[nodiscard]] std::optional<Choice> choiceNamed(std::string_view text,
                                                const std::array<std::pair<std::string_view, Choice>, count> &choices)
{
    const auto found = std::ranges::find(choices, text, &std::pair<std::string_view, Choice>::first);
    return found == choices.end() ? std::nullopt : std::optional(found->second);
}

/// The file type with that command line name; only types that files can have.
[[nodiscard]] std::optional<FileType> fileTypeNamed(std::string_view text);

/// The names of those types, separated by commas.
[[nodiscard]] std::string fileTypeNames();

} // namespace corvane
