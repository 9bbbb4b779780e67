#include "core/told_size.h"

#include <algorithm>
#include <cmath>

#include "core/foreign_sum.h"

namespace corvane {

namespace {

/// Consumes a figure such as "12.5" from the start of the text; nothing if there is none. The decimal point is always
/// ".", whatever the user's locale. Not every standard library implements from_chars for floating point.
std::optional<double> takeFigure(std::string_view &text)
{
    double figure = 0;
    double scale = 1;
    bool hasDigit = false;
    bool hasPoint = false;
    while (!text.empty()) {
        const char each = text.front();
        if (each >= '0' && each <= '9') {
            hasDigit = true;
            figure = figure * 10 + (each - '0');
            scale *= hasPoint ? 10 : 1;
        } else if (each == '.' && !hasPoint) {
            hasPoint = true;
        } else {
            break;
        }
        text.remove_prefix(1);
    }
    return hasDigit ? std::optional(figure / scale) : std::nullopt;
}

/// Consumes an exponent such as "e+03" from the start of the text; 0 if there is none. "5e" without digits is a unit.
int takeExponent(std::string_view &text)
{
    constexpr int most = 400; // beyond the range of double
    if (!text.starts_with('e'))
        return 0;
    std::string_view rest = text.substr(1);
    const bool isNegative = rest.starts_with('-');
    if (isNegative || rest.starts_with('+'))
        rest.remove_prefix(1);
    const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    if (digits == 0)
        return 0;
    int exponent = 0;
    for (const char digit : rest.substr(0, digits))
        exponent = std::min(most, exponent * 10 + (digit - '0'));
    text = rest.substr(digits);
    return isNegative ? -exponent : exponent;
}

} // namespace

std::optional<std::int64_t> toldSize(std::string_view text, int thousand)
{
    const std::optional<double> told = takeFigure(text);
    if (!told)
        return std::nullopt;
    double figure = *told * std::pow(10, takeExponent(text));
    if (std::isnan(figure)) // digits or an exponent out of range
        return std::nullopt;
    for (const std::string_view blank : {" ", "\xC2\xA0"}) { // the second one is a no-break space
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
