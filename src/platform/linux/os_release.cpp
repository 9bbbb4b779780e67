#include "platform/linux/os_release.h"

#include "platform/file_system.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr std::size_t mostBytes = 64UL * 1024;

} // namespace

OsRelease::OsRelease(std::string_view text)
{
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos && !line.starts_with('#'))
            m_values[std::string(line.substr(0, equals))] = shellUnquoted(line.substr(equals + 1));
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
    return found == m_values.end() ? std::string{} : std::string(trimmed(found->second));
}

} // namespace corvane
