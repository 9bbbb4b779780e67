#include "main/command_line.h"

#include <algorithm>
#include <array>

#include "core/nearest_name.h"

namespace corvane {

namespace {

std::string unknownOption(std::string_view argument)
{
    static const std::array<std::string, 2> names{"help", "version"};
    std::string error = "unknown option " + std::string(argument);
    argument.remove_prefix(std::min(argument.find_first_not_of('-'), argument.size()));
    if (const auto nearest = nearestName(argument, names))
        error += "; did you mean --" + *nearest + "?";
    return error;
}

} // namespace

CommandLine CommandLine::parse(std::span<const std::string_view> arguments)
{
    CommandLine line;
    bool optionsEnded = false;
    bool hasFolder = false;
    for (const std::string_view argument : arguments) {
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && (argument == "--help" || argument == "-h")) {
            return {.request = Request::help, .folder = {}, .error = {}};
        } else if (!optionsEnded && (argument == "--version" || argument == "-v")) {
            return {.request = Request::version, .folder = {}, .error = {}};
        } else if (line.request == Request::wrong) {
            continue;
        } else if (!optionsEnded && argument.starts_with('-') && argument.size() > 1) {
            line = {.request = Request::wrong, .folder = {}, .error = unknownOption(argument)};
        } else if (hasFolder || argument.empty()) {
            line = {.request = Request::wrong, .folder = {}, .error = "give one folder or none"};
        } else {
            line.folder = argument;
            hasFolder = true;
        }
    }
    return line;
}

std::string_view CommandLine::helpText()
{
    return "Usage: corvane [FOLDER]\n"
           "\n"
           "Opens the window. With a folder, scans it at once; without, nothing is scanned until you ask.\n"
           "\n"
           "  -h, --help     show this text\n"
           "  -v, --version  show the version\n";
}

} // namespace corvane
