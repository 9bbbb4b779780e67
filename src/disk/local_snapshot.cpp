#include "disk/local_snapshot.h"

#include <algorithm>

#include "core/words/utf8.h"
#include "disk/snapshot_date.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr std::string_view stampPattern = "yyyy-MM-dd-HHmmss";

// White space: the tab and Unicode's space separators.
constexpr std::string_view blanks[] = {"\t",     " ",      "\u00A0", "\u1680", "\u2000", "\u2001",
                                       "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007",
                                       "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"};

/// The text without leading and trailing white space.
std::string_view withoutBlanks(std::string_view text)
{
    const auto *const end = std::ranges::end(blanks);
    for (auto blank = blanks; blank != end;) {
        blank = std::ranges::find_if(blanks, [&](std::string_view each) { return text.starts_with(each); });
        if (blank != end)
            text.remove_prefix(blank->size());
    }
    for (auto blank = blanks; blank != end;) {
        blank = std::ranges::find_if(blanks, [&](std::string_view each) { return text.ends_with(each); });
        if (blank != end)
            text.remove_suffix(blank->size());
    }
    return text;
}

std::size_t characterCount(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); position += decodeUtf8(text, position).length)
        ++count;
    return count;
}

// Only the first dot-separated part that looks like a stamp is tried, even if it does not parse.
std::optional<Time> timeFromName(std::string_view name)
{
    while (!name.empty()) {
        const std::string_view piece = takePart(name, '.');
        if (characterCount(piece) == stampPattern.size() && piece.front() >= '0' && piece.front() <= '9')
            return timeOf(piece, stampPattern, WrittenIn::localTime);
    }
    return std::nullopt;
}

} // namespace

std::vector<LocalSnapshot> LocalSnapshot::parse(std::string_view listing)
{
    std::vector<LocalSnapshot> snapshots;
    if (!isValidUtf8(listing))
        return snapshots;
    while (!listing.empty()) {
        const std::string_view line = withoutBlanks(takeLine(listing));
        if (line.starts_with("com.apple"))
            snapshots.push_back({.name = std::string(line), .date = timeFromName(line)});
    }
    return snapshots;
}

} // namespace corvane
