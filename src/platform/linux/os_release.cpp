#include "platform/linux/os_release.h"

#include "platform/file_system.h"

namespace corvane {

namespace {

constexpr std::size_t mostBytes = 64UL * 1024;

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

} // namespace

std::string_view withoutBlanksAround(std::string_view text)
{
    constexpr std::string_view space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(space) - first + 1);
}

OsRelease::OsRelease(std::string_view text)
{
    while (!text.empty()) {
        const std::string_view line = withoutBlanksAround(text.substr(0, text.find('\n')));
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos && !line.starts_with('#'))
            m_values[std::string(line.substr(0, equals))] = unquoted(line.substr(equals + 1));
        const std::size_t end = text.find('\n');
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

OsRelease OsRelease::load(FileSystem &files)
{
    for (const char *path : {"/etc/os-release", "/usr/lib/os-release"}) {
        if (const Expected<std::string> text = files.readFile(path, mostBytes))
            return OsRelease(*text);
    }
    return OsRelease({});
}

std::string OsRelease::value(std::string_view key) const
{
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::string{} : std::string(withoutBlanksAround(found->second));
}

} // namespace corvane
