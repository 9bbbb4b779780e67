#include "cli/meant_command.h"

#include <algorithm>

#include "cli/path_argument.h"
#include "cli/shielded_arguments.h"

namespace corvane {

namespace {

bool isPath(const std::string &word, FileSystem &files)
{
    const bool isWritten = word == "." || word == ".." || word.find('/') != std::string::npos;
    return isWritten || existingItem(word, files).has_value();
}

} // namespace

std::vector<std::string> withMeantCommand(std::vector<std::string> arguments, std::span<const std::string> commands,
                                          FileSystem &files)
{
    const auto isCommand = [commands](const std::string &word) {
        return std::ranges::find(commands, word) != commands.end();
    };
    const auto word = std::ranges::find_if(
        arguments, [](const std::string &argument) { return argument == "--" || !isOption(argument); });
    if (word == arguments.end())
        return arguments;
    if (*word == "help") {
        const auto topic = std::find_if_not(word + 1, arguments.end(), isOption);
        if (topic == arguments.end())
            return {"--help"};
        return isCommand(*topic) ? std::vector<std::string>{*topic, "--help"} : std::vector<std::string>{*topic};
    }
    if (isCommand(*word))
        return arguments;
    if (*word == "--" ? word + 1 != arguments.end() : isPath(*word, files))
        arguments.insert(word, "scan");
    return arguments;
}

} // namespace corvane
