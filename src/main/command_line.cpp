#include "main/command_line.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/nearest_name.h"
#include "core/path_argument.h"

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

/// Whether the argument is one of these options, which Qt takes with one dash or two.
bool isOneOf(std::span<const std::string_view> options, std::string_view argument)
{
    if (!argument.starts_with('-'))
        return false;
    argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
    return std::ranges::find(options, argument) != options.end();
}

/// Whether Qt takes the argument after this one too.
bool isQtOptionWithValue(std::string_view argument)
{
    // The last six on X11 only.
    constexpr std::array<std::string_view, 16> options{"platform",      "platformpluginpath",
                                                       "platformtheme", "plugin",
                                                       "session",       "qwindowgeometry",
                                                       "qwindowtitle",  "qwindowicon",
                                                       "style",         "qmljsdebugger",
                                                       "geometry",      "title",
                                                       "icon",          "display",
                                                       "name",          "visual"};
    return isOneOf(options, argument);
}

bool isQtOption(std::string_view argument)
{
    constexpr std::array<std::string_view, 4> flags{"reverse", "nograb", "dograb", "testability"};
    const std::size_t equals = argument.find('=');
    if (equals == std::string_view::npos)
        return isOneOf(flags, argument);
    constexpr std::array<std::string_view, 2> withEquals{"style", "qmljsdebugger"};
    return isOneOf(withEquals, argument.substr(0, equals));
}

} // namespace

CommandLine CommandLine::parse(std::span<const std::string_view> arguments)
{
    CommandLine line;
    bool optionsEnded = false;
    bool hasFolder = false;
    bool isValueForQt = false;
    for (const std::string_view argument : arguments) {
        if (std::exchange(isValueForQt, false) || (!optionsEnded && isQtOption(argument)))
            continue;
        if (!optionsEnded && isQtOptionWithValue(argument)) {
            isValueForQt = true;
        } else if (!optionsEnded && argument == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && (argument == "--help" || argument == "-h")) {
            return {.request = Request::help, .folder = {}, .error = {}};
        } else if (!optionsEnded && (argument == "--version" || argument == "-v")) {
            return {.request = Request::version, .folder = {}, .error = {}};
        } else if (line.request == Request::wrong) {
            continue;
        } else if (!optionsEnded && argument.starts_with('-') && argument.size() > 1) {
            line = {.request = Request::wrong, .folder = {}, .error = unknownOption(argument)};
        } else if (argument.empty()) {
            line = {.request = Request::wrong, .folder = {}, .error = std::string(emptyPathText)};
        } else if (hasFolder) {
            line = {.request = Request::wrong, .folder = {}, .error = "expected at most one folder"};
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
