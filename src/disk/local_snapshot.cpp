#include "disk/local_snapshot.h"

#include <algorithm>
#include <charconv>
#include <ctime>

#include "core/words/utf8.h"

namespace corvane {

namespace {

constexpr std::size_t stampLength = 17; // "2024-05-01-101500"

// The characters that count as blank: the tab and Unicode's space separators.
constexpr std::string_view blanks[] = {"\t",     " ",      "\u00A0", "\u1680", "\u2000", "\u2001",
                                       "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007",
                                       "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"};

std::string_view trimmed(std::string_view text)
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
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; }));
}

std::optional<int> number(std::string_view digits)
{
    int value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size() || digits.front() == '-')
        return std::nullopt;
    return value;
}

// "yyyy-MM-dd-HHmmss" in local time.
std::optional<Time> timeFromStamp(std::string_view stamp)
{
    if (stamp.size() != stampLength || stamp[4] != '-' || stamp[7] != '-' || stamp[10] != '-')
        return std::nullopt;
    const auto year = number(stamp.substr(0, 4));
    const auto month = number(stamp.substr(5, 2));
    const auto day = number(stamp.substr(8, 2));
    const auto hour = number(stamp.substr(11, 2));
    const auto minute = number(stamp.substr(13, 2));
    const auto second = number(stamp.substr(15, 2));
    if (!year || !month || !day || !hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    if (!date.ok())
        return std::nullopt;
    std::tm local{};
    local.tm_year = *year - 1900;
    local.tm_mon = *month - 1;
    local.tm_mday = *day;
    local.tm_hour = *hour;
    local.tm_min = *minute;
    local.tm_sec = *second;
    local.tm_isdst = -1;
    return Time(std::chrono::seconds(std::mktime(&local)));
}

// The first dot-separated piece that looks like a stamp decides, whether it can be read or not.
std::optional<Time> timeFromName(std::string_view name)
{
    while (!name.empty()) {
        const std::string_view piece = name.substr(0, name.find('.'));
        if (characterCount(piece) == stampLength && piece.front() >= '0' && piece.front() <= '9')
            return timeFromStamp(piece);
        name.remove_prefix(std::min(piece.size() + 1, name.size()));
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
        const std::string_view rawLine = listing.substr(0, listing.find('\n'));
        listing.remove_prefix(std::min(rawLine.size() + 1, listing.size()));
        const std::string_view line = trimmed(rawLine);
        if (line.starts_with("com.apple"))
            snapshots.push_back({std::string(line), timeFromName(line)});
    }
    return snapshots;
}

} // namespace corvane
