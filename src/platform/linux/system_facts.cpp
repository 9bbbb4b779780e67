#include "platform/system_facts.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include <sys/utsname.h>

#include "platform/ascii_case.h"
#include "platform/file_system.h"

namespace corvane {

namespace {

constexpr std::size_t mostBytes = 64UL * 1024;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(space) - first + 1);
}

// A value as a shell reads it: in quotes of either kind or none, a backslash before what is special.
std::string unquoted(std::string_view value)
{
    const char quote = value.empty() ? '\0' : value.front();
    const bool isQuoted = value.size() >= 2 && (quote == '"' || quote == '\'') && value.back() == quote;
    if (isQuoted)
        value = value.substr(1, value.size() - 2);
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] == '\\' && quote != '\'' && at + 1 < value.size())
            ++at;
        text += value[at];
    }
    return text;
}

std::map<std::string, std::string, std::less<>> assignments(std::string_view text)
{
    std::map<std::string, std::string, std::less<>> found;
    while (!text.empty()) {
        const std::string_view line = trimmed(text.substr(0, text.find('\n')));
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos && !line.starts_with('#'))
            found[std::string(line.substr(0, equals))] = unquoted(line.substr(equals + 1));
        const std::size_t end = text.find('\n');
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return found;
}

std::string kernelName()
{
    utsname name{};
    return ::uname(&name) == 0 ? std::string(name.sysname) + " " + name.release : "Linux";
}

// What makers of boards leave in the field when nobody fills it in.
bool isPlaceholder(std::string_view model)
{
    constexpr std::array<std::string_view, 12> placeholders{"to be filled by o.e.m.",
                                                            "to be filled by o.e.m",
                                                            "system product name",
                                                            "system name",
                                                            "default string",
                                                            "not specified",
                                                            "not applicable",
                                                            "none",
                                                            "n/a",
                                                            "o.e.m.",
                                                            "product name",
                                                            "unknown"};
    return std::ranges::find(placeholders, lowerAscii(std::string(model))) != placeholders.end();
}

} // namespace

std::string SystemFacts::system(FileSystem &files)
{
    for (const char *path : {"/etc/os-release", "/usr/lib/os-release"}) {
        const Expected<std::string> text = files.readFile(path, mostBytes);
        if (!text)
            continue;
        const auto values = assignments(*text);
        const auto value = [&](std::string_view key) {
            const auto found = values.find(key);
            return found == values.end() ? std::string{} : std::string(trimmed(found->second));
        };
        if (std::string pretty = value("PRETTY_NAME"); !pretty.empty())
            return pretty;
        const std::string version = value("VERSION").empty() ? value("VERSION_ID") : value("VERSION");
        if (std::string name = value("NAME"); !name.empty())
            return version.empty() ? name : name + " " + version;
    }
    return kernelName();
}

std::string SystemFacts::model(FileSystem &files)
{
    // The second is that of boards without a BIOS, and ends with a NUL.
    for (const char *path : {"/sys/class/dmi/id/product_name", "/sys/firmware/devicetree/base/model"}) {
        const Expected<std::string> text = files.readFile(path, mostBytes);
        const std::string_view model = text ? trimmed(text->c_str()) : std::string_view{};
        if (!model.empty() && !isPlaceholder(model))
            return std::string(model);
    }
    return {};
}

std::string SystemFacts::architecture()
{
    utsname name{};
    return ::uname(&name) == 0 ? name.machine : "unknown";
}

} // namespace corvane
