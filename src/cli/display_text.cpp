#include "cli/display_text.h"

#include <algorithm>

#include <fmt/format.h>

#include "cli/character_width.h"
#include "cli/utf8.h"
#include "core/byte_count.h"

namespace corvane {

namespace {

constexpr std::string_view ellipsis = "…";
constexpr char32_t replacement = 0xFFFD;
constexpr char32_t controlPictures = 0x2400;
constexpr char32_t deletePicture = 0x2421;

bool turnsDirection(char32_t codePoint)
{
    return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F ||
           (codePoint >= 0x202A && codePoint <= 0x202E) || (codePoint >= 0x2066 && codePoint <= 0x2069);
}

char32_t shown(char32_t codePoint)
{
    if (codePoint < 0x20)
        return controlPictures + codePoint;
    if (codePoint == 0x7F)
        return deletePicture;
    const bool isUpperControl = codePoint >= 0x80 && codePoint < 0xA0;
    const bool breaksLine = codePoint == 0x2028 || codePoint == 0x2029;
    const bool isNoCharacter = (codePoint & 0xFFFEU) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
    if (isUpperControl || breaksLine || isNoCharacter || turnsDirection(codePoint))
        return replacement;
    return codePoint;
}

} // namespace

std::string displayText(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const DecodedCharacter character = decodeUtf8(bytes, i);
        appendUtf8(text, character.isValid ? shown(character.codePoint) : replacement);
        i += character.length;
    }
    return text;
}

std::size_t displayWidth(std::string_view text)
{
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const Cluster cluster = nextCluster(text, i);
        width += cluster.width;
        i += cluster.length;
    }
    return width;
}

std::string elided(std::string_view text, std::size_t columns)
{
    if (displayWidth(text) <= columns)
        return std::string(text);
    if (columns == 0)
        return {};
    std::size_t kept = 0;
    for (std::size_t width = 0; kept < text.size();) {
        const Cluster cluster = nextCluster(text, kept);
        if (width + cluster.width > columns - 1)
            break;
        width += cluster.width;
        kept += cluster.length;
    }
    return std::string(text.substr(0, kept)) + std::string(ellipsis);
}

std::string elidedAtFront(std::string_view text, std::size_t columns)
{
    std::size_t width = displayWidth(text);
    if (width <= columns)
        return std::string(text);
    if (columns == 0)
        return {};
    while (width > columns - 1) {
        const Cluster cluster = nextCluster(text, 0);
        width -= cluster.width;
        text.remove_prefix(cluster.length);
    }
    return std::string(ellipsis) + std::string(text);
}

std::string rightAligned(std::string_view text, std::size_t columns)
{
    const std::size_t width = displayWidth(text);
    return std::string(columns - std::min(columns, width), ' ') + std::string(text);
}

std::string leftAligned(std::string_view text, std::size_t columns)
{
    const std::size_t width = displayWidth(text);
    return std::string(text) + std::string(columns - std::min(columns, width), ' ');
}

std::string countText(std::int64_t count, std::string_view one, std::string_view many)
{
    return fmt::format("{} {}", formatCount(count), count == 1 ? one : many);
}

std::string percentText(std::int64_t part, std::int64_t whole)
{
    const double share = whole > 0 ? static_cast<double>(part) / static_cast<double>(whole) : 0;
    return fmt::format("{:.1f}%", share * 100);
}

std::string pathText(std::string_view path, std::string_view home)
{
    const bool isHome = path == home;
    const bool isInHome = path.size() > home.size() && path.starts_with(home) && path[home.size()] == '/';
    if (home.size() > 1 && (isHome || isInHome))
        return "~" + displayText(path.substr(home.size()));
    return displayText(path);
}

} // namespace corvane
