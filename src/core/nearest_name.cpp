#include "core/nearest_name.h"

#include <algorithm>
#include <vector>

#include "platform/ascii_case.h"

namespace corvane {

namespace {

/// The edit distance between two words, counting a transposition as one edit.
std::size_t slips(std::string_view from, std::string_view to)
{
    std::vector<std::size_t> beforeLast(to.size() + 1);
    std::vector<std::size_t> last(to.size() + 1);
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t j = 0; j <= to.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::swap(beforeLast, last);
        std::swap(last, row);
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t wrong = from[i - 1] == to[j - 1] ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + wrong});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row[to.size()];
}

} // namespace

std::optional<std::string> nearestName(std::string_view word, std::span<const std::string> names)
{
    constexpr std::size_t longestWord = 64; // longer than any name
    if (word.empty() || word.size() > longestWord)
        return std::nullopt;
    const std::string small = lowerAscii(std::string(word));
    const auto begun =
        std::ranges::find_if(names, [&small](const std::string &name) { return name.starts_with(small); });
    if (begun != names.end())
        return *begun;

    std::optional<std::string> nearest;
    std::size_t fewest = 0;
    for (const std::string &name : names) {
        // One edit per three letters: with more, most words would match some name.
        const std::size_t most = std::max<std::size_t>(1, std::min(name.size(), small.size()) / 3);
        const std::size_t count = slips(small, name);
        if (count > most || (nearest && count >= fewest))
            continue;
        nearest = name;
        fewest = count;
    }
    return nearest;
}

} // namespace corvane
