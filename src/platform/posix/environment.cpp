#include "platform/environment.h"

#include <cstdlib>
#include <string_view>
#include <vector>

#include <pwd.h>
#include <unistd.h>

#include "platform/path.h"
#include "platform/text.h"

namespace corvane {

namespace {

/// The absolute paths of a colon-separated list, in the same format.
std::string absolutePartsOf(std::string_view list)
{
    std::string kept;
    while (!list.empty()) {
        const std::string_view part = takePart(list, ':');
        if (part.starts_with('/'))
            kept.append(kept.empty() ? "" : ":").append(part);
    }
    return kept;
}

} // namespace

std::optional<std::string> Environment::homeComplaint()
{
    const char *const home = std::getenv("HOME");
    if (home == nullptr || *home == '/')
        return std::nullopt;
    if (*home == '\0')
        return "HOME is empty; it must be an absolute path";
    return "HOME is \"" + std::string(home) + "\"; it must be an absolute path";
}

std::optional<std::string> Environment::accountName(unsigned int user)
{
    std::vector<char> memory(16 * 1024);
    passwd record{};
    passwd *found = nullptr;
    if (::getpwuid_r(user, &record, memory.data(), memory.size(), &found) == 0 && found != nullptr)
        return found->pw_name;
    return std::nullopt;
}

std::string Environment::locale(const char *category)
{
    for (const char *const name : {"LC_ALL", category, "LANG"}) {
        const char *const value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return {};
}

std::string Environment::accountHome()
{
    std::vector<char> memory(16 * 1024);
    passwd record{};
    passwd *found = nullptr;
    if (::getpwuid_r(::getuid(), &record, memory.data(), memory.size(), &found) == 0 && found != nullptr &&
        *found->pw_dir == '/')
        return withoutDots(found->pw_dir);
    return "/";
}

void Environment::useAccountHome()
{
    ::setenv("HOME", accountHome().c_str(), 1);
}

void Environment::ignoreRelativeBaseFolders()
{
    for (const char *const name :
         {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const char *const folder = std::getenv(name);
        if (folder != nullptr && *folder != '/')
            ::unsetenv(name);
    }
    for (const char *const name : {"XDG_DATA_DIRS", "XDG_CONFIG_DIRS"}) {
        const char *const folders = std::getenv(name);
        if (folders == nullptr)
            continue;
        const std::string kept = absolutePartsOf(folders);
        if (kept.empty())
            ::unsetenv(name);
        else if (kept != folders)
            ::setenv(name, kept.c_str(), 1);
    }
}

} // namespace corvane
