#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// An option accepted by a command.
struct Option {
    std::string_view name;       ///< the long name, without dashes
    std::string_view value = {}; ///< placeholder of the value in the help; empty for a flag
    std::string help = {};
    char letter = 0; ///< the short name, if there is one
};

/// An error in the command line; the message has no final period.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The parsed arguments of a command: its paths as typed, and its options.
class Arguments {
public:
    std::vector<std::string> paths;

    void add(std::string_view option, std::string_view value) { m_options.emplace_back(option, value); }

    [[nodiscard]] bool has(std::string_view option) const { return text(option).has_value(); }

    /// An option's value. If the option is repeated, the last value counts.
    [[nodiscard]] std::optional<std::string> text(std::string_view option) const;

    /// All values of a repeatable option.
    [[nodiscard]] std::vector<std::string> texts(std::string_view option) const;

    /// An option's value converted by `read`; nothing if the option is not given. If `read` returns nothing, throws a
    /// `UsageError` that describes what is `valid`; `noun` is the name of the value in that message.
    template <typename Read>
    [[nodiscard]] auto value(std::string_view option, Read read, std::string_view valid,
                             std::string_view noun = {}) const -> decltype(read(std::string_view()))
    {
        const std::optional<std::string> given = text(option);
        if (!given)
            return std::nullopt;
        auto result = read(*given);
        if (!result)
            throw UsageError(invalid(option, *given, valid, noun));
        return result;
    }

private:
    static std::string invalid(std::string_view option, std::string_view value, std::string_view valid,
                               std::string_view noun);

    std::vector<std::pair<std::string, std::string>> m_options; // in command line order
};

} // namespace corvane
