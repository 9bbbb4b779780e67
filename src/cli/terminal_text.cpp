#include "cli/terminal_text.h"

#include <algorithm>
#include <ctime>

#include <fmt/format.h>

#include "cli/character_width.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr std::string_view ellipsis = "…";

} // namespace

std::string dateText(Time time)
{
    const std::string moment = dateTimeText(time);
    return moment.substr(0, moment.find(' '));
}

std::string dateTimeText(Time time)
{
    const auto seconds = static_cast<std::time_t>(time.time_since_epoch().count());
    std::tm local{};
    if (time == distantPast || ::localtime_r(&seconds, &local) == nullptr)
        return "–";
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                       local.tm_hour, local.tm_min);
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

std::string wrapped(std::string_view text, std::size_t columns, std::size_t start)
{
    std::string lines;
    std::size_t column = start;
    while (!text.empty()) {
        const std::string_view word = takePart(text, ' ');
        const std::size_t width = displayWidth(word);
        if (column > start && width >= columns - std::min(columns, column)) {
            lines.append("\n").append(start, ' ');
            column = start;
        }
        if (column > start) {
            lines += ' ';
            ++column;
        }
        lines += word;
        column += width;
    }
    return lines;
}

std::string leftAligned(std::string_view text, std::size_t columns)
{
    const std::size_t width = displayWidth(text);
    return std::string(text) + std::string(columns - std::min(columns, width), ' ');
}

} // namespace corvane
