#include "platform/linux/linux_places.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/path.h"

namespace corvane {

namespace {

/// What a place is relative to.
enum class Base { home, cacheFolder, configFolder, dataFolder, stateFolder, downloadFolder };

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
    {".cache", Base::cacheFolder, ""},
    {".config", Base::configFolder, ""},
    {".local/share", Base::dataFolder, ""},
    {".local/state", Base::stateFolder, ""},
    {".cache/thumbnails", Base::cacheFolder, "thumbnails"},
    {".cache/drkonqi", Base::cacheFolder, "drkonqi"},
    {".cache/abrt", Base::cacheFolder, "abrt"},
    {".config/google-chrome/Crash Reports", Base::configFolder, "google-chrome/Crash Reports"},
    {".local/share/Steam/steamapps/shadercache", Base::dataFolder, "Steam/steamapps/shadercache"},
    {".cache/yarn", Base::cacheFolder, "yarn"},
    {".cache/pip", Base::cacheFolder, "pip"},
    {".cache/uv", Base::cacheFolder, "uv"},
    {".cache/go-build", Base::cacheFolder, "go-build"},
    {".cache/ccache", Base::cacheFolder, "ccache"},
    {".cache/sccache", Base::cacheFolder, "sccache"},
    {".cache/JetBrains", Base::cacheFolder, "JetBrains"},
    {".cache/huggingface", Base::cacheFolder, "huggingface"},
    {".cache/huggingface/hub", Base::cacheFolder, "huggingface/hub"},
    {".local/share/containers/storage", Base::dataFolder, "containers/storage"},
    {".local/share/gnome-boxes/images", Base::dataFolder, "gnome-boxes/images"},
    {".local/share/libvirt/images", Base::dataFolder, "libvirt/images"},
};

/// How a tool's configuration names a folder.
enum class Notation { none, keyAndValue, xmlElement };

/// Where the user may have told a tool to keep something: in a variable, or in a file.
struct Setting {
    std::string_view place; ///< as above
    const char *variable;   ///< null for a file
    std::string_view rest;  ///< beneath the folder that it names
    char listMark = 0;      ///< between several folders, of which the first counts
    Notation notation = Notation::none;
    Base base = Base::home;
    std::string_view file = {}; ///< beneath the base
    std::string_view key = {};
};

constexpr Setting inFile(std::string_view place, std::string_view rest, Base base, std::string_view file,
                         std::string_view key, Notation notation = Notation::keyAndValue, char listMark = 0)
{
    return {place, nullptr, rest, listMark, notation, base, file, key};
}

/// Of several for one place the first that names an absolute path counts.
constexpr Setting settings[] = {
    {".gradle/caches", "GRADLE_USER_HOME", "caches"},
    {".gradle/wrapper/dists", "GRADLE_USER_HOME", "wrapper/dists"},
    {".android/avd", "ANDROID_AVD_HOME", ""},
    {".android/avd", "ANDROID_USER_HOME", "avd"},
    {"Library/Android/sdk/system-images", "ANDROID_HOME", "system-images"},
    {"Library/Android/sdk/system-images", "ANDROID_SDK_ROOT", "system-images"},
    {".npm/_cacache", "npm_config_cache", "_cacache"},
    {".npm/_cacache", "NPM_CONFIG_CACHE", "_cacache"},
    inFile(".npm/_cacache", "_cacache", Base::home, ".npmrc", "cache"),
    {"Library/pnpm/store", "npm_config_store_dir", ""},
    inFile("Library/pnpm/store", "", Base::home, ".npmrc", "store-dir"),
    {"Library/pnpm/store", "PNPM_HOME", "store"},
    {".cache/yarn", "YARN_CACHE_FOLDER", ""},
    {".yarn/berry/cache", "YARN_GLOBAL_FOLDER", "cache"},
    {".cache/pip", "PIP_CACHE_DIR", ""},
    inFile(".cache/pip", "", Base::configFolder, "pip/pip.conf", "cache-dir"),
    {".cache/uv", "UV_CACHE_DIR", ""},
    inFile(".cache/uv", "", Base::configFolder, "uv/uv.toml", "cache-dir"),
    {".cargo/registry", "CARGO_HOME", "registry"},
    {".cache/go-build", "GOCACHE", ""},
    inFile(".cache/go-build", "", Base::configFolder, "go/env", "GOCACHE"),
    {"go/pkg/mod", "GOMODCACHE", ""},
    inFile("go/pkg/mod", "", Base::configFolder, "go/env", "GOMODCACHE"),
    {"go/pkg/mod", "GOPATH", "pkg/mod", ':'},
    inFile("go/pkg/mod", "pkg/mod", Base::configFolder, "go/env", "GOPATH", Notation::keyAndValue, ':'),
    inFile(".m2/repository", "", Base::home, ".m2/settings.xml", "localRepository", Notation::xmlElement),
    {".cache/ccache", "CCACHE_DIR", ""},
    inFile(".cache/ccache", "", Base::configFolder, "ccache/ccache.conf", "cache_dir"),
    {".cache/sccache", "SCCACHE_DIR", ""},
    {".conda/pkgs", "CONDA_PKGS_DIRS", "", ','},
    {".cache/huggingface", "HF_HOME", ""},
    {".cache/huggingface/hub", "HF_HUB_CACHE", ""},
    {".cache/huggingface/hub", "HF_HOME", "hub"},
    {".ollama/models", "OLLAMA_MODELS", ""},
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
    constexpr std::string_view usualConfig = ".config";
    constexpr std::string_view usualData = ".local/share";
    constexpr std::string_view usualState = ".local/state";
    switch (base) {
    case Base::home:
        return OwnPlace{home, home};
    case Base::cacheFolder:
        return OwnPlace{baseFolder("XDG_CACHE_HOME", usualCache, home), joined(home, usualCache)};
    case Base::configFolder:
        return OwnPlace{baseFolder("XDG_CONFIG_HOME", usualConfig, home), joined(home, usualConfig)};
    case Base::dataFolder:
        return OwnPlace{baseFolder("XDG_DATA_HOME", usualData, home), joined(home, usualData)};
    case Base::stateFolder:
        return OwnPlace{baseFolder("XDG_STATE_HOME", usualState, home), joined(home, usualState)};
    case Base::downloadFolder:
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

/// The value of the last line "key = value", without the quotes around it; empty where there is none.
std::string valueOfKey(std::string_view text, std::string_view key)
{
    std::string_view found;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || trimmed(line.substr(0, equals)) != key)
            continue;
        found = trimmed(line.substr(equals + 1));
        if (found.size() >= 2 && (found.front() == '"' || found.front() == '\'') && found.back() == found.front())
            found = found.substr(1, found.size() - 2);
    }
    return std::string(found);
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

/// The folder that the user has set; nothing where none is, or it is not absolute.
std::optional<std::string> folderSetIn(const Setting &setting, const std::string &home)
{
    std::string value;
    if (setting.variable != nullptr) {
        const char *const variable = std::getenv(setting.variable);
        value = variable != nullptr ? variable : "";
    } else if (const std::optional<OwnPlace> base = folderOf(setting.base, home)) {
        std::string text = readSettings(joined(base->path, setting.file));
        value = setting.notation == Notation::xmlElement ? textOfElement(std::move(text), std::string(setting.key))
                                                         : valueOfKey(text, setting.key);
        value = absolutePath(std::move(value), home);
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
    for (const Setting &setting : settings) {
        if (setting.place != macPlace)
            continue;
        if (std::optional<std::string> folder = folderSetIn(setting, home))
            return OwnPlace{*std::move(folder), place ? place->usual : joined(home, macPlace)};
    }
    return place;
}

std::vector<std::string> linuxUserFolders(const std::string &home)
{
    std::vector<std::string> paths;
    for (UserFolder &folder : readUserFolders(home))
        paths.push_back(std::move(folder.path));
    return paths;
}

} // namespace corvane
