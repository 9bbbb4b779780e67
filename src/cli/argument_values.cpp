#include "cli/argument_values.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "lists/file_lists.h"

namespace corvane {

namespace {

constexpr std::int64_t mostBytes = std::numeric_limits<std::int64_t>::max();
constexpr int mostMonths = 12 * 1'000;
constexpr std::size_t mostLevels = 100;
constexpr std::size_t mostLines = 1'000'000'000;

template <typename Number>
std::optional<Number> numberIn(std::string_view text, Number least, Number most)
{
    Number number = 0;
    const char *const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number < least || number > most)
        return std::nullopt;
    return number;
}

template <typename Number>
std::string numberFrom(std::string_view noun, Number least, Number most)
{
    return fmt::format("a number of {}, from {} to {}", noun, least, most);
}

} // namespace

std::optional<std::int64_t> byteCount(std::string_view text)
{
    return numberIn<std::int64_t>(text, 0, mostBytes);
}

std::optional<int> monthCount(std::string_view text)
{
    return numberIn<int>(text, 1, mostMonths);
}

std::optional<std::size_t> lineCount(std::string_view text)
{
    return numberIn<std::size_t>(text, 1, mostLines);
}

std::optional<std::size_t> levelCount(std::string_view text)
{
    return numberIn<std::size_t>(text, 1, mostLevels);
}

std::string validBytes()
{
    return numberFrom<std::int64_t>("bytes without a unit", 0, mostBytes);
}

std::string validMonths()
{
    return numberFrom("months", 1, mostMonths);
}

std::string validLines(std::string_view noun)
{
    return numberFrom<std::size_t>(noun, 1, mostLines);
}

std::string validLevels()
{
    return numberFrom<std::size_t>("levels", 1, mostLevels);
}

std::optional<FileType> fileTypeNamed(std::string_view text)
{
    const auto found = std::ranges::find_if(FileType::allCases(),
                                            [&](FileType type) { return isOfFiles(type) && type.caseName() == text; });
    return found == FileType::allCases().end() ? std::nullopt : std::optional(*found);
}

std::string fileTypeNames()
{
    std::vector<std::string_view> names;
    for (const FileType type : FileType::allCases()) {
        if (isOfFiles(type))
            names.push_back(type.caseName());
    }
    return fmt::format("{}", fmt::join(names, ", "));
}

} // namespace corvane
