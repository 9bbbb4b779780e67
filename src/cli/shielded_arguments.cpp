#include "cli/shielded_arguments.h"

namespace corvane {

namespace {

constexpr char mark = ':';

std::string marked(std::string_view text)
{
    return std::string(1, mark).append(text);
}

/// "--svg=FILE" with the mark before the value.
std::string withValueMarked(const std::string &option)
{
    const std::size_t equals = option.find('=');
    if (equals == std::string::npos)
        return option;
    return option.substr(0, equals + 1) + marked(std::string_view(option).substr(equals + 1));
}

} // namespace

bool isOption(std::string_view argument)
{
    return argument.size() > 1 && argument.front() == '-';
}

std::vector<std::string> shieldedArguments(const std::vector<std::string> &arguments)
{
    std::vector<std::string> shielded;
    shielded.reserve(arguments.size());
    bool optionsMayFollow = true;
    bool hasCommand = false;
    for (const std::string &argument : arguments) {
        if (optionsMayFollow && argument == "--") {
            optionsMayFollow = false;
        } else if (optionsMayFollow && isOption(argument)) {
            shielded.push_back(withValueMarked(argument));
        } else if (!hasCommand) {
            hasCommand = true;
            shielded.push_back(argument);
        } else {
            shielded.push_back(marked(argument));
        }
    }
    return shielded;
}

std::string unshielded(std::string_view argument)
{
    if (argument.starts_with(mark))
        argument.remove_prefix(1);
    return std::string(argument);
}

} // namespace corvane
