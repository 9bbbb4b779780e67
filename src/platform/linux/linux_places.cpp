#include "platform/linux/linux_places.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/path.h"

namespace corvane {

namespace {

/// What a place is relative to.
enum class Base { home, cacheFolder, dataFolder, downloadFolder };

struct Place {
    std::string_view onAMac;
    Base base;
    std::string_view rest; ///< beneath the base; empty for the base itself
};

constexpr Place places[] = {
    {"Library/Caches", Base::cacheFolder, ""},
    {".Trash", Base::dataFolder, "Trash/files"},
    {"Library/Android/sdk/system-images", Base::home, "Android/Sdk/system-images"},
    {"Library/pnpm/store", Base::dataFolder, "pnpm/store"},
    {"Library/Containers/com.docker.docker/Data/vms", Base::home, ".local/share/docker"}, // Docker without root
    {"Downloads", Base::downloadFolder, ""},
};

/// A base folder by its variable; one that is not absolute counts as not set.
std::string baseFolder(const char *variable, std::string_view usual, const std::string &home)
{
    const char *const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? withoutDots(value) : joined(home, usual);
}

/// A value as the shell would read it between double quotes; nothing where it does not stand between them.
std::optional<std::string> unquoted(std::string_view text)
{
    if (!text.starts_with('"'))
        return std::nullopt;
    std::string value;
    for (std::size_t i = 1; i < text.size() && text[i] != '"'; ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        value += text[i];
    }
    return value;
}

struct UserFolder {
    std::string key; ///< "XDG_DOWNLOAD_DIR" and the like
    std::string path;
};

/// What one line of the user's list of folders says.
std::optional<UserFolder> userFolderIn(std::string_view line, const std::string &home)
{
    constexpr std::string_view prefix = "XDG_";
    constexpr std::string_view suffix = "_DIR";
    constexpr std::string_view homeMark = "$HOME";

    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    std::string_view key = line.substr(0, equals);
    key = key.substr(0, key.find_last_not_of(" \t") + 1);
    std::string_view rest = line.substr(equals + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    if (!key.starts_with(prefix) || !key.ends_with(suffix))
        return std::nullopt;
    const std::optional<std::string> value = unquoted(rest);
    if (!value)
        return std::nullopt;
    if (value->starts_with('/'))
        return UserFolder{std::string(key), withoutDots(*value)};
    if (value->starts_with(homeMark) && (value->size() == homeMark.size() || (*value)[homeMark.size()] == '/'))
        return UserFolder{std::string(key), withoutDots(home + value->substr(homeMark.size()))};
    return std::nullopt;
}

/// In the order of the file; a later line replaces an earlier one of the same key.
std::vector<UserFolder> readUserFolders(const std::string &home)
{
    std::vector<UserFolder> folders;
    const std::string list = joined(baseFolder("XDG_CONFIG_HOME", ".config", home), "user-dirs.dirs");
    // Reading a pipe or a device might never end.
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(list, unknown))
        return folders;
    std::ifstream file(list, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        std::optional<UserFolder> named = userFolderIn(line, home);
        if (!named)
            continue;
        std::erase_if(folders, [&](const UserFolder &earlier) { return earlier.key == named->key; });
        folders.push_back(*std::move(named));
    }
    // The home folder itself stands for a user folder that is switched off.
    std::erase_if(folders, [&](const UserFolder &folder) { return folder.path == home; });
    return folders;
}

std::optional<std::string> downloadFolder(const std::string &home)
{
    const std::vector<UserFolder> folders = readUserFolders(home);
    const auto found = std::ranges::find(folders, "XDG_DOWNLOAD_DIR", &UserFolder::key);
    return found == folders.end() ? std::nullopt : std::optional(found->path);
}

std::optional<OwnPlace> folderOf(Base base, const std::string &home)
{
    constexpr std::string_view usualCache = ".cache";
    constexpr std::string_view usualData = ".local/share";
    switch (base) {
    case Base::home:
        return OwnPlace{home, home};
    case Base::cacheFolder:
        return OwnPlace{baseFolder("XDG_CACHE_HOME", usualCache, home), joined(home, usualCache)};
    case Base::dataFolder:
        return OwnPlace{baseFolder("XDG_DATA_HOME", usualData, home), joined(home, usualData)};
    case Base::downloadFolder:
        if (std::optional<std::string> folder = downloadFolder(home))
            return OwnPlace{*std::move(folder), joined(home, "Downloads")};
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::optional<OwnPlace> linuxPlaceFor(std::string_view macPlace, const std::string &home)
{
    const auto *const place = std::ranges::find(places, macPlace, &Place::onAMac);
    if (place == std::ranges::end(places))
        return std::nullopt;
    std::optional<OwnPlace> folder = folderOf(place->base, home);
    if (folder && !place->rest.empty())
        folder = OwnPlace{joined(folder->path, place->rest), joined(folder->usual, place->rest)};
    return folder;
}

std::vector<std::string> linuxUserFolders(const std::string &home)
{
    std::vector<std::string> paths;
    for (UserFolder &folder : readUserFolders(home))
        paths.push_back(std::move(folder.path));
    return paths;
}

} // namespace corvane
