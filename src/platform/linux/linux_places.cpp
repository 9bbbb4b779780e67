#include "platform/linux/linux_places.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <fcntl.h>

#include "platform/linux/place_settings.h"
#include "platform/path.h"
#include "platform/posix/regular_file.h"
#include "platform/text.h"

namespace corvane {

namespace {

/// The location of a folder; its contents are mapped to the same location.
struct Place {
    std::string_view onAMac;
    PlaceBase base;
    std::string_view rest; ///< relative to the base; empty for the base itself
};

constexpr Place places[] = {
    {"Library/Caches", PlaceBase::cacheFolder, ""},
    {".Trash", PlaceBase::dataFolder, "Trash/files"},
    {"Library/Android/sdk/system-images", PlaceBase::home, "Android/Sdk/system-images"},
    {"Library/pnpm/store", PlaceBase::dataFolder, "pnpm/store"},
    {"Library/Containers/com.docker.docker/Data/vms", PlaceBase::home, ".local/share/docker"}, // rootless Docker
    {"Downloads", PlaceBase::downloadFolder, ""},
    {".cache", PlaceBase::cacheFolder, ""},
    {".config", PlaceBase::configFolder, ""},
    {".local/share", PlaceBase::dataFolder, ""},
    {".local/state", PlaceBase::stateFolder, ""},
};

/// A base folder from its variable; a relative path counts as not set.
std::string baseFolder(const char *variable, std::string_view usual, const std::string &home)
{
    const char *const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? withoutDots(value) : joined(home, usual);
}

/// A whole configuration file; empty if it cannot be read, is not a regular file or is implausibly large.
std::string textOf(const std::string &path)
{
    constexpr std::size_t most = 1'000'000; // bytes
    return RegularFile::open(AT_FDCWD, path.c_str(), path, LinkRule::follow)
        .and_then([](const auto &file) { return file->readAll(most); })
        .value_or(std::string());
}

struct UserFolder {
    std::string key; ///< "XDG_DOWNLOAD_DIR" and the like
    std::string path;
};

/// Parses one line of the user's list of folders. Its format allows only double-quoted values.
std::optional<UserFolder> userFolderIn(std::string_view line, const std::string &home)
{
    constexpr std::string_view prefix = "XDG_";
    constexpr std::string_view suffix = "_DIR";
    constexpr std::string_view homeMark = "$HOME";

    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    const std::string_view key = trimmed(line.substr(0, equals));
    if (!key.starts_with(prefix) || !key.ends_with(suffix))
        return std::nullopt;
    const std::string_view quoted = trimmed(line.substr(equals + 1));
    if (!quoted.starts_with('"'))
        return std::nullopt;
    const std::string value = shellUnquoted(quoted);
    if (value.starts_with('/'))
        return UserFolder{std::string(key), withoutDots(value)};
    if (value.starts_with(homeMark) && (value.size() == homeMark.size() || value[homeMark.size()] == '/'))
        return UserFolder{std::string(key), withoutDots(home + value.substr(homeMark.size()))};
    return std::nullopt;
}

/// In file order; a later line replaces an earlier one with the same key.
std::vector<UserFolder> readUserFolders(const std::string &home)
{
    std::vector<UserFolder> folders;
    const std::string text = textOf(joined(baseFolder("XDG_CONFIG_HOME", ".config", home), "user-dirs.dirs"));
    for (std::string_view rest = text; !rest.empty();) {
        std::optional<UserFolder> named = userFolderIn(takeLine(rest), home);
        if (!named)
            continue;
        std::erase_if(folders, [&](const UserFolder &earlier) { return earlier.key == named->key; });
        folders.push_back(*std::move(named));
    }
    // A user folder set to the home folder itself is disabled.
    std::erase_if(folders, [&](const UserFolder &folder) { return folder.path == home; });
    return folders;
}

std::optional<std::string> downloadFolder(const std::string &home)
{
    const std::vector<UserFolder> folders = readUserFolders(home);
    const auto found = std::ranges::find(folders, "XDG_DOWNLOAD_DIR", &UserFolder::key);
    return found == folders.end() ? std::nullopt : std::optional(found->path);
}

std::optional<OwnPlace> folderOf(PlaceBase base, const std::string &home)
{
    constexpr std::string_view usualCache = ".cache";
    constexpr std::string_view usualConfig = ".config";
    constexpr std::string_view usualData = ".local/share";
    constexpr std::string_view usualState = ".local/state";
    switch (base) {
    case PlaceBase::home:
        return OwnPlace{home, home};
    case PlaceBase::cacheFolder:
        return OwnPlace{baseFolder("XDG_CACHE_HOME", usualCache, home), joined(home, usualCache)};
    case PlaceBase::configFolder:
        return OwnPlace{baseFolder("XDG_CONFIG_HOME", usualConfig, home), joined(home, usualConfig)};
    case PlaceBase::dataFolder:
        return OwnPlace{baseFolder("XDG_DATA_HOME", usualData, home), joined(home, usualData)};
    case PlaceBase::stateFolder:
        return OwnPlace{baseFolder("XDG_STATE_HOME", usualState, home), joined(home, usualState)};
    case PlaceBase::downloadFolder:
        if (std::optional<std::string> folder = downloadFolder(home))
            return OwnPlace{*std::move(folder), joined(home, "Downloads")};
        return std::nullopt;
    }
    return std::nullopt;
}

/// Expands a configuration value to an absolute path; empty for anything else.
std::string absolutePath(std::string value, const std::string &home)
{
    for (const std::string_view mark : {"~", "$HOME", "${HOME}", "${user.home}"}) {
        if (value == mark || (value.starts_with(mark) && value[mark.size()] == '/'))
            value.replace(0, mark.size(), home);
    }
    return value.starts_with('/') && value.find("${") == std::string::npos ? value : std::string();
}

/// The folder configured by the user; nothing if it is not set or not absolute.
std::optional<std::string> folderSetIn(const PlaceSetting &setting, const std::string &home)
{
    std::string value;
    if (setting.variable != nullptr) {
        const char *const variable = std::getenv(setting.variable);
        value = variable != nullptr ? variable : "";
    } else if (const std::optional<OwnPlace> base = folderOf(setting.base, home)) {
        std::string text = textOf(joined(base->path, setting.file));
        value = absolutePath(settingIn(std::move(text), setting.notation, setting.key), home);
    }
    if (setting.listMark != 0)
        value = value.substr(0, value.find(setting.listMark));
    if (!value.starts_with('/'))
        return std::nullopt;
    std::string folder = withoutDots(value);
    return setting.rest.empty() ? folder : joined(folder, setting.rest);
}

/// The location if no tool is configured otherwise.
std::optional<OwnPlace> placeByItself(std::string_view macPlace, const std::string &home)
{
    const auto *const place =
        std::ranges::find_if(places, [&](const Place &each) { return isOrLiesBeneath(macPlace, each.onAMac); });
    if (place == std::ranges::end(places))
        return std::nullopt;
    std::optional<OwnPlace> folder = folderOf(place->base, home);
    const std::string_view beneath = macPlace.substr(std::min(place->onAMac.size() + 1, macPlace.size()));
    for (const std::string_view part : {place->rest, beneath}) {
        if (folder && !part.empty())
            folder = OwnPlace{joined(folder->path, part), joined(folder->usual, part)};
    }
    return folder;
}

} // namespace

std::optional<OwnPlace> linuxPlaceFor(std::string_view macPlace, const std::string &home)
{
    std::optional<OwnPlace> place = placeByItself(macPlace, home);
    for (const PlaceSetting &setting : placeSettings) {
        if (setting.place != macPlace)
            continue;
        if (std::optional<std::string> folder = folderSetIn(setting, home))
            return OwnPlace{*std::move(folder), place ? place->usual : joined(home, macPlace)};
    }
    return place;
}

std::vector<std::string> linuxSharedDataFolders()
{
    constexpr std::size_t most = 32;
    const char *const variable = std::getenv("XDG_DATA_DIRS");
    std::string_view list = variable != nullptr ? variable : "";
    std::vector<std::string> folders;
    while (!list.empty() && folders.size() < most) {
        const std::string_view part = takePart(list, ':');
        if (!part.starts_with('/'))
            continue;
        std::string folder = withoutDots(part);
        if (std::ranges::find(folders, folder) == folders.end())
            folders.push_back(std::move(folder));
    }
    if (folders.empty())
        folders = {"/usr/local/share", "/usr/share"};
    return folders;
}

std::vector<std::string> linuxUserFolders(const std::string &home)
{
    std::vector<std::string> paths;
    for (UserFolder &folder : readUserFolders(home))
        paths.push_back(std::move(folder.path));
    return paths;
}

} // namespace corvane
