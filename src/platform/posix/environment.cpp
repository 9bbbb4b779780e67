#include "platform/environment.h"

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>
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

/// Calls `use` with the user's account record, which is valid during the call, and returns its result. Nothing if the
/// account does not exist or the account database cannot be read.
template <typename Use>
auto withAccount(uid_t user, const Use &use) -> std::optional<decltype(use(std::declval<const passwd &>()))>
{
    // Records from a directory service may exceed every size that the system suggests (_SC_GETPW_R_SIZE_MAX).
    constexpr std::size_t usual = 16UL * 1024;
    constexpr std::size_t most = 1024 * usual;
    std::vector<char> memory(usual);
    while (true) {
        passwd record{};
        passwd *found = nullptr;
        const int code = ::getpwuid_r(user, &record, memory.data(), memory.size(), &found);
        if (code == ERANGE && memory.size() < most)
            memory = std::vector<char>(2 * memory.size());
        else if (code == 0 && found != nullptr)
            return use(*found);
        else if (code != EINTR)
            return std::nullopt;
    }
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
    return withAccount(user, [](const passwd &account) { return std::string(account.pw_name); });
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
    const auto home = withAccount(::getuid(), [](const passwd &account) { return std::string(account.pw_dir); });
    return home && home->starts_with('/') ? withoutDots(*home) : "/";
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
