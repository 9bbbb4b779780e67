#include "cli/help.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "cli/terminal_text.h"

namespace corvane {

namespace {

constexpr std::size_t indentation = 2;
constexpr std::size_t mostTermColumns = 24;

/// A term and its description.
using Entry = std::pair<std::string, std::string>;

/// A heading and the entries in two columns; on a narrow terminal, each description is below its term.
std::string section(std::string_view heading, const std::vector<Entry> &entries, std::size_t columns)
{
    std::size_t termColumns = 0;
    for (const auto &[term, meaning] : entries)
        termColumns = std::max(termColumns, std::min(displayWidth(term), mostTermColumns));
    const std::size_t besideTerm = indentation + termColumns + 2;
    const bool isNarrow = columns < 2 * besideTerm;
    const std::size_t start = isNarrow ? 2 * indentation : besideTerm;

    std::string text = fmt::format("{}:\n", heading);
    for (const auto &[term, meaning] : entries) {
        const std::string line = std::string(indentation, ' ') + term;
        const bool isApart = isNarrow || displayWidth(term) > termColumns;
        const std::string described = wrapped(meaning, columns, start);
        text += isApart ? line + "\n" + std::string(start, ' ') : leftAligned(line, start);
        text += described + "\n";
    }
    return text;
}

Entry entryOf(const Option &option)
{
    const std::string shortForm = option.letter != 0 ? fmt::format("-{}, ", option.letter) : std::string();
    const std::string value = option.value.empty() ? std::string() : fmt::format(" {}", option.value);
    return {fmt::format("{}--{}{}", shortForm, option.name, value), option.help};
}

void add(std::span<const Option> options, std::vector<Entry> &entries)
{
    std::ranges::transform(options, std::back_inserter(entries), entryOf);
}

std::string paragraph(std::string_view text, std::size_t columns)
{
    return wrapped(text, columns, 0) + "\n\n";
}

std::string pathsIn(const PathArguments &paths)
{
    if (paths.most == 0)
        return {};
    const std::string_view name = paths.most > 1 ? "PATH..." : "PATH";
    return paths.least == 0 ? fmt::format(" [{}]", name) : fmt::format(" {}", name);
}

} // namespace

std::string programHelp(std::size_t columns)
{
    std::vector<Entry> commands;
    for (const Command &command : allCommands())
        commands.emplace_back(command.name, command.summary);
    std::vector<Entry> options;
    add(commonOptions(), options);
    add(programOptions(), options);
    return paragraph("Explains where the space on a disk went and helps you reclaim it safely.", columns) +
           "Usage: corvane-cli COMMAND [OPTIONS] [PATH...]\n\n" + section("Commands", commands, columns) + "\n" +
           section("Options", options, columns) + "\n" +
           paragraph("\"corvane-cli help COMMAND\" tells more about a command; \"corvane-cli PATH\" scans that folder.",
                     columns) +
           wrapped("Exit status: 0 if all went well, 1 if something failed or was stopped, 2 if the command line is "
                   "wrong or a path does not exist.",
                   columns, 0) +
           "\n";
}

std::string commandHelp(const Command &command, std::size_t columns)
{
    std::vector<Entry> options;
    add(command.options, options);
    add(commonOptions(), options);
    std::string text = paragraph(command.summary, columns) +
                       fmt::format("Usage: corvane-cli {} [OPTIONS]{}\n\n", command.name, pathsIn(command.paths));
    if (!command.paths.help.empty())
        text += section("Arguments", {{"PATH", std::string(command.paths.help)}}, columns) + "\n";
    return text + section("Options", options, columns) + fmt::format("\nExample:\n  {}\n", command.example);
}

} // namespace corvane
