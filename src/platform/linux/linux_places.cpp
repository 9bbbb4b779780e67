#include "platform/linux/linux_places.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

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

/// The folder that one line of the user's folders names for downloads.
std::optional<std::string> downloadFolderIn(std::string_view line, const std::string &home)
{
    constexpr std::string_view key = "XDG_DOWNLOAD_DIR=";
    constexpr std::string_view homeMark = "$HOME";

    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(key))
        return std::nullopt;
    const std::optional<std::string> value = unquoted(line.substr(key.size()));
    if (!value)
        return std::nullopt;
    if (value->starts_with('/'))
        return withoutDots(*value);
    if (value->starts_with(homeMark) && (value->size() == homeMark.size() || (*value)[homeMark.size()] == '/'))
        return withoutDots(home + value->substr(homeMark.size()));
    return std::nullopt;
}

std::optional<std::string> downloadFolder(const std::string &home)
{
    std::ifstream file(joined(baseFolder("XDG_CONFIG_HOME", ".config", home), "user-dirs.dirs"), std::ios::binary);
    std::optional<std::string> folder;
    for (std::string line; std::getline(file, line);) {
        if (std::optional<std::string> named = downloadFolderIn(line, home))
            folder = std::move(named);
    }
    // The home folder itself stands for a user folder that is switched off.
    return folder == home ? std::nullopt : folder;
}

std::optional<std::string> folderOf(Base base, const std::string &home)
{
    switch (base) {
    case Base::home:
        return home;
    case Base::cacheFolder:
        return baseFolder("XDG_CACHE_HOME", ".cache", home);
    case Base::dataFolder:
        return baseFolder("XDG_DATA_HOME", ".local/share", home);
    case Base::downloadFolder:
        return downloadFolder(home);
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> linuxPlaceFor(std::string_view macPlace, const std::string &home)
{
    const auto *const place = std::ranges::find(places, macPlace, &Place::onAMac);
    if (place == std::ranges::end(places))
        return std::nullopt;
    std::optional<std::string> folder = folderOf(place->base, home);
    if (folder && !place->rest.empty())
        folder = joined(*folder, place->rest);
    return folder;
}

} // namespace corvane
