#include "platform/linux/linux_places.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/linux/place_settings.h"
#include "platform/path.h"

namespace corvane {

namespace {

struct Place {
    std::string_view onAMac;
    PlaceBase base;
    std::string_view rest; ///< beneath the base; empty for the base itself
};

constexpr Place places[] = {
    {"Library/Caches", PlaceBase::cacheFolder, ""},
    {".Trash", PlaceBase::dataFolder, "Trash/files"},
    {"Library/Android/sdk/system-images", PlaceBase::home, "Android/Sdk/system-images"},
    {"Library/pnpm/store", PlaceBase::dataFolder, "pnpm/store"},
    {"Library/Containers/com.docker.docker/Data/vms", PlaceBase::home, ".local/share/docker"}, // Docker without root
    {"Downloads", PlaceBase::downloadFolder, ""},
    {".cache", PlaceBase::cacheFolder, ""},
    {".config", PlaceBase::configFolder, ""},
    {".local/share", PlaceBase::dataFolder, ""},
    {".local/state", PlaceBase::stateFolder, ""},
    {".cache/thumbnails", PlaceBase::cacheFolder, "thumbnails"},
    {".cache/drkonqi", PlaceBase::cacheFolder, "drkonqi"},
    {".cache/abrt", PlaceBase::cacheFolder, "abrt"},
    {".config/google-chrome/Crash Reports", PlaceBase::configFolder, "google-chrome/Crash Reports"},
    {".local/share/Steam/steamapps/shadercache", PlaceBase::dataFolder, "Steam/steamapps/shadercache"},
    {".cache/yarn", PlaceBase::cacheFolder, "yarn"},
    {".cache/pip", PlaceBase::cacheFolder, "pip"},
    {".cache/uv", PlaceBase::cacheFolder, "uv"},
    {".cache/go-build", PlaceBase::cacheFolder, "go-build"},
    {".cache/ccache", PlaceBase::cacheFolder, "ccache"},
    {".cache/sccache", PlaceBase::cacheFolder, "sccache"},
    {".cache/JetBrains", PlaceBase::cacheFolder, "JetBrains"},
    {".cache/huggingface", PlaceBase::cacheFolder, "huggingface"},
    {".cache/huggingface/hub", PlaceBase::cacheFolder, "huggingface/hub"},
    {".local/share/containers/storage", PlaceBase::dataFolder, "containers/storage"},
    {".local/share/gnome-boxes/images", PlaceBase::dataFolder, "gnome-boxes/images"},
    {".local/share/libvirt/images", PlaceBase::dataFolder, "libvirt/images"},
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

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// A whole configuration file; empty where it is none that a person writes.
std::string readSettings(const std::string &path)
{
    constexpr std::uintmax_t most = 1'000'000; // bytes
    std::error_code failure;
    // Reading a pipe or a device might never end.
    if (!std::filesystem::is_regular_file(path, failure) || std::filesystem::file_size(path, failure) > most || failure)
        return {};
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string_view withoutQuotes(std::string_view text)
{
    const bool isQuoted =
        text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

/// The line at the start of a text, which it is taken from.
std::string_view takeLine(std::string_view &text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

/// The value of the last line "key = value", without the quotes around it; empty where there is none.
std::string valueOfKey(std::string_view text, std::string_view key)
{
    std::string_view found;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key)
            found = withoutQuotes(trimmed(line.substr(equals + 1)));
    }
    return std::string(found);
}

/// The value of the last line "key value"; empty where there is none.
std::string valueBehindKey(std::string_view text, std::string_view key)
{
    std::string_view found;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (line.starts_with(key) && line.size() > key.size() && (line[key.size()] == ' ' || line[key.size()] == '\t'))
            found = withoutQuotes(trimmed(line.substr(key.size())));
    }
    return std::string(found);
}

/// The value of the first "key: value" that is not indented, or the first of its list; empty where there is none.
std::string valueInYaml(std::string_view text, std::string_view key)
{
    const auto plain = [](std::string_view value) {
        const std::size_t comment = value.find(" #");
        return std::string(withoutQuotes(trimmed(value.substr(0, comment))));
    };
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (!line.starts_with(key) || line.size() == key.size() || line[key.size()] != ':')
            continue;
        std::string value = plain(line.substr(key.size() + 1));
        if (value.starts_with('['))
            return plain(std::string_view(value).substr(1, value.find_first_of(",]") - 1));
        if (!value.empty())
            return value;
        while (!text.empty()) {
            const std::string_view item = trimmed(takeLine(text));
            if (item.starts_with("- "))
                return plain(item.substr(1));
            if (!item.empty() && !item.starts_with('#'))
                break;
        }
        return {};
    }
    return {};
}

/// What stands in the first element of that name that is not in a comment; empty where there is none.
std::string textOfElement(std::string text, const std::string &name)
{
    constexpr std::string_view opens = "<!--";
    constexpr std::string_view closes = "-->";
    for (std::size_t start = 0; (start = text.find(opens, start)) != std::string::npos;) {
        const std::size_t end = text.find(closes, start);
        text.erase(start, end == std::string::npos ? end : end + closes.size() - start);
    }
    const std::string tag = "<" + name + ">";
    const std::size_t start = text.find(tag);
    const std::size_t end = start == std::string::npos ? start : text.find("</" + name + ">", start);
    if (end == std::string::npos)
        return {};
    return std::string(trimmed(std::string_view(text).substr(start + tag.size(), end - start - tag.size())));
}

/// The absolute path that a configuration file's value means; empty for anything else.
std::string absolutePath(std::string value, const std::string &home)
{
    for (const std::string_view mark : {"~", "$HOME", "${HOME}", "${user.home}"}) {
        if (value == mark || (value.starts_with(mark) && value[mark.size()] == '/'))
            value.replace(0, mark.size(), home);
    }
    return value.starts_with('/') && value.find("${") == std::string::npos ? value : std::string();
}

std::string valueIn(std::string text, const PlaceSetting &setting)
{
    switch (setting.notation) {
    case SettingNotation::none:
        break;
    case SettingNotation::keyAndValue:
        return valueOfKey(text, setting.key);
    case SettingNotation::keyAndQuoted:
        return valueBehindKey(text, setting.key);
    case SettingNotation::yamlValue:
        return valueInYaml(text, setting.key);
    case SettingNotation::xmlElement:
        return textOfElement(std::move(text), std::string(setting.key));
    }
    return {};
}

/// The folder that the user has set; nothing where none is, or it is not absolute.
std::optional<std::string> folderSetIn(const PlaceSetting &setting, const std::string &home)
{
    std::string value;
    if (setting.variable != nullptr) {
        const char *const variable = std::getenv(setting.variable);
        value = variable != nullptr ? variable : "";
    } else if (const std::optional<OwnPlace> base = folderOf(setting.base, home)) {
        std::string text = readSettings(joined(base->path, setting.file));
        value = absolutePath(valueIn(std::move(text), setting), home);
    }
    if (setting.listMark != 0)
        value = value.substr(0, value.find(setting.listMark));
    if (!value.starts_with('/'))
        return std::nullopt;
    std::string folder = withoutDots(value);
    return setting.rest.empty() ? folder : joined(folder, setting.rest);
}

/// Where it lies as long as no tool is told anything else.
std::optional<OwnPlace> placeByItself(std::string_view macPlace, const std::string &home)
{
    const auto *const place = std::ranges::find(places, macPlace, &Place::onAMac);
    if (place == std::ranges::end(places))
        return std::nullopt;
    std::optional<OwnPlace> folder = folderOf(place->base, home);
    if (folder && !place->rest.empty())
        folder = OwnPlace{joined(folder->path, place->rest), joined(folder->usual, place->rest)};
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
        const std::string_view part = list.substr(0, list.find(':'));
        list.remove_prefix(std::min(part.size() + 1, list.size()));
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
