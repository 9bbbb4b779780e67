#include "cli/argument_reader.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "core/nearest_name.h"
#include "core/path_argument.h"

namespace corvane {

namespace {

constexpr std::string_view helpName = "help";
constexpr std::string_view versionName = "version";

const Command *commandNamed(std::string_view name)
{
    const auto found = std::ranges::find(allCommands(), name, &Command::name);
    return found == allCommands().end() ? nullptr : &*found;
}

/// "-" alone is not an option.
bool isOption(std::string_view argument)
{
    return argument.size() > 1 && argument.front() == '-';
}

/// A suggestion for a mistyped word, to append to an error message.
std::string suggestion(std::string_view word, const std::vector<std::string> &names, std::string_view dashes = {})
{
    const std::optional<std::string> nearest = nearestName(word, names);
    return nearest ? fmt::format(" (did you mean \"{}{}\"?)", dashes, *nearest) : std::string();
}

class Reader {
public:
    explicit Reader(FileSystem &files) : m_files(files) {}

    CommandLine read(const std::vector<std::string> &arguments)
    {
        for (const std::string &argument : arguments) {
            if (m_optionsMayFollow && argument == "--")
                m_optionsMayFollow = false;
            else if (m_optionsMayFollow && isOption(argument) && !isValue(argument))
                takeOption(argument);
            else if (m_needsValue != nullptr)
                m_line.arguments.add(std::exchange(m_needsValue, nullptr)->name, argument);
            else
                takeWord(argument);
        }
        missValue();
        if (m_line.wish == CommandLine::Wish::run)
            checkPaths();
        // An option for help takes effect even if the rest of the line is wrong.
        if (m_line.wish == CommandLine::Wish::run || m_isOfHelp) {
            // Report an unknown option first: it may be the missing path, one that starts with "-".
            m_line.fault = m_unknownOption ? m_unknownOption : m_fault;
        }
        return std::move(m_line);
    }

private:
    /// Whether an argument that begins with a dash is the value of the option before it, such as "-1". Two dashes are
    /// more likely a mistyped option.
    [[nodiscard]] bool isValue(std::string_view argument) const
    {
        return m_needsValue != nullptr && !argument.starts_with("--") && optionWritten(argument) == nullptr;
    }

    void takeWord(const std::string &word)
    {
        if (m_line.command != nullptr) {
            m_line.arguments.paths.push_back(word);
        } else if (m_optionsMayFollow && word == helpName) {
            m_line.wish = CommandLine::Wish::help;
            m_isOfHelp = true;
        } else if (m_optionsMayFollow && commandNamed(word) != nullptr) {
            m_line.command = commandNamed(word);
        } else if (!m_optionsMayFollow || (!m_isOfHelp && isPath(word))) {
            m_line.command = commandNamed("scan");
            m_line.arguments.paths.push_back(word);
        } else {
            note(fmt::format("unknown command \"{}\"", word) + suggestion(word, commandNames()));
        }
    }

    void takeOption(const std::string &argument)
    {
        missValue();
        const std::size_t equals = argument.find('=');
        const Option *const option = optionWritten(argument.substr(0, equals));
        if (option == nullptr) {
            if (!m_unknownOption)
                m_unknownOption = unknownOption(argument);
        } else if (option->value.empty() && equals != std::string::npos) {
            note(fmt::format("--{} takes no value", option->name));
        } else if (option->name == helpName) {
            m_line.wish = CommandLine::Wish::help;
        } else if (option->name == versionName) {
            m_line.wish = CommandLine::Wish::version;
        } else if (option->value.empty()) {
            m_line.arguments.add(option->name, {});
        } else if (equals != std::string::npos) {
            m_line.arguments.add(option->name, argument.substr(equals + 1));
        } else {
            m_needsValue = option;
        }
    }

    void missValue()
    {
        if (m_needsValue != nullptr)
            note(fmt::format("--{} needs a value", std::exchange(m_needsValue, nullptr)->name));
    }

    void checkPaths()
    {
        if (m_line.command == nullptr) {
            note("no command given");
            return;
        }
        const std::vector<std::string> &paths = m_line.arguments.paths;
        if (paths.size() < m_line.command->paths.least)
            note("a PATH is needed");
        if (paths.size() > m_line.command->paths.most)
            note(fmt::format("unexpected argument \"{}\"", paths[m_line.command->paths.most]));
    }

    /// The options that are valid here.
    [[nodiscard]] std::vector<const Option *> options() const
    {
        std::vector<const Option *> options;
        const auto add = [&](std::span<const Option> more) {
            std::ranges::transform(more, std::back_inserter(options), [](const Option &option) { return &option; });
        };
        if (m_line.command == nullptr)
            add(programOptions());
        else
            add(m_line.command->options);
        add(commonOptions());
        return options;
    }

    [[nodiscard]] const Option *optionWritten(std::string_view text) const
    {
        for (const Option *const option : options()) {
            const bool isLong = text.starts_with("--") && text.substr(2) == option->name;
            const bool isShort = text.size() == 2 && option->letter != 0 && text[1] == option->letter;
            if (isLong || isShort)
                return option;
        }
        return nullptr;
    }

    [[nodiscard]] std::string unknownOption(const std::string &argument) const
    {
        if (existingItem(argument, m_files))
            return fmt::format("\"{0}\" is treated as an option; to name the item, write \"./{0}\"", argument);
        const std::string option = argument.substr(0, argument.find('='));
        std::vector<std::string> names;
        for (const Option *const known : options())
            names.emplace_back(known->name);
        const std::string_view word =
            std::string_view(option).substr(std::min(option.find_first_not_of('-'), option.size()));
        return fmt::format("unknown option \"{}\"", option) + suggestion(word, names, "--");
    }

    [[nodiscard]] bool isPath(const std::string &word) const
    {
        const bool isWritten = word == "." || word == ".." || word.find('/') != std::string::npos;
        return isWritten || existingItem(word, m_files).has_value();
    }

    static std::vector<std::string> commandNames()
    {
        std::vector<std::string> names{std::string(helpName)};
        for (const Command &command : allCommands())
            names.emplace_back(command.name);
        return names;
    }

    /// Only the first error is kept.
    void note(std::string fault)
    {
        if (!m_fault)
            m_fault = std::move(fault);
    }

    FileSystem &m_files;
    CommandLine m_line;
    const Option *m_needsValue = nullptr;
    bool m_optionsMayFollow = true;
    bool m_isOfHelp = false; // the command "help"
    std::optional<std::string> m_unknownOption;
    std::optional<std::string> m_fault;
};

} // namespace

CommandLine readArguments(const std::vector<std::string> &arguments, FileSystem &files)
{
    return Reader(files).read(arguments);
}

} // namespace corvane
