#include "cli/arguments.h"

#include <fmt/format.h>

namespace corvane {

std::optional<std::string> Arguments::text(std::string_view option) const
{
    std::vector<std::string> all = texts(option);
    return all.empty() ? std::nullopt : std::optional(std::move(all.back()));
}

std::vector<std::string> Arguments::texts(std::string_view option) const
{
    std::vector<std::string> values;
    for (const auto &[name, value] : m_options) {
        if (name == option)
            values.push_back(value);
    }
    return values;
}

std::string Arguments::invalid(std::string_view option, std::string_view value, std::string_view valid,
                               std::string_view noun)
{
    const std::string what = noun.empty() ? fmt::format("--{}", option) : std::string(noun);
    return fmt::format("\"{}\" is not a valid {}; use {}", value, what, valid);
}

} // namespace corvane
