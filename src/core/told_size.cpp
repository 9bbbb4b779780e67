#include "core/told_size.h"

#include <charconv>

#include "core/foreign_sum.h"

namespace corvane {

std::optional<std::int64_t> toldSize(std::string_view text, int thousand)
{
    double figure = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), figure);
    if (failure != std::errc{} || !(figure >= 0))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    for (const std::string_view blank : {" ", "\xC2\xA0"}) { // the second does not break the line
        if (text.starts_with(blank))
            text.remove_prefix(blank.size());
    }
    constexpr std::string_view units = "BKMGTPE";
    constexpr std::string_view smallUnits = "bkmgtpe";
    std::size_t power = text.empty() ? std::string_view::npos : units.find(text.front());
    if (power == std::string_view::npos && !text.empty())
        power = smallUnits.find(text.front());
    if (power == std::string_view::npos)
        return std::nullopt;
    for (std::size_t i = 0; i < power; ++i)
        figure *= thousand;
    if (figure > static_cast<double>(foreignSumLimit))
        return std::nullopt;
    return static_cast<std::int64_t>(figure);
}

} // namespace corvane
