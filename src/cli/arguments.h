#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// An option that a command takes.
struct Option {
    std::string_view name;       ///< the long one, without its dashes
    std::string_view value = {}; ///< what the help calls its value; empty for a flag, which has none
    std::string help = {};
    char letter = 0; ///< the short name, if there is one
};

/// What is wrong with a command line, in a sentence without its end.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What a command was given: its paths as they were written, and its options.
class Arguments {
public:
    std::vector<std::string> paths;

    void add(std::string_view option, std::string_view value) { m_options.emplace_back(option, value); }

    [[nodiscard]] bool has(std::string_view option) const { return text(option).has_value(); }

    /// An option's value. Of one that is given several times the last counts.
    [[nodiscard]] std::optional<std::string> text(std::string_view option) const;

    /// All values of an option that may be given several times.
    [[nodiscard]] std::vector<std::string> texts(std::string_view option) const;

    /// What `read` makes of an option's value; nothing where the option is not given. Throws a `UsageError` that
    /// names what would be `valid` where `read` makes nothing of it. `noun` is what the value is called there.
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

    std::vector<std::pair<std::string, std::string>> m_options; // in the order of the line
};

} // namespace corvane
