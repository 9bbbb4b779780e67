#pragma once

#include <array>
#include <string_view>

#include "platform/linux/setting_notation.h"

namespace corvane {

// Settings for where tools keep data that they can recreate.

/// The base of a relative location.
enum class PlaceBase { home, cacheFolder, configFolder, dataFolder, stateFolder, downloadFolder };

/// A setting that moves a tool's data: an environment variable, or a key in a file.
struct PlaceSetting {
    std::string_view place; ///< relative to the home folder, as on a Mac or by the tool's default
    const char *variable;   ///< null for a file
    std::string_view rest;  ///< relative to the configured folder
    char listMark = 0;      ///< separates several folders, of which the first is used
    SettingNotation notation = SettingNotation::none;
    PlaceBase base = PlaceBase::home;
    std::string_view file = {}; ///< relative to the base
    std::string_view key = {};
};

constexpr PlaceSetting inFile(std::string_view place, std::string_view rest, PlaceBase base, std::string_view file,
                              std::string_view key, SettingNotation notation = SettingNotation::keyAndValue,
                              char listMark = 0)
{
    return {place, nullptr, rest, listMark, notation, base, file, key};
}

/// Of several settings for one place, the first one with an absolute path is used.
inline constexpr auto placeSettings = std::to_array<PlaceSetting>({
    {".gradle/caches", "GRADLE_USER_HOME", "caches"},
    {".gradle/wrapper/dists", "GRADLE_USER_HOME", "wrapper/dists"},
    {".android/avd", "ANDROID_AVD_HOME", ""},
    {".android/avd", "ANDROID_USER_HOME", "avd"},
    {"Library/Android/sdk/system-images", "ANDROID_HOME", "system-images"},
    {"Library/Android/sdk/system-images", "ANDROID_SDK_ROOT", "system-images"},
    {".npm/_cacache", "npm_config_cache", "_cacache"},
    {".npm/_cacache", "NPM_CONFIG_CACHE", "_cacache"},
    inFile(".npm/_cacache", "_cacache", PlaceBase::home, ".npmrc", "cache"),
    {"Library/pnpm/store", "npm_config_store_dir", ""},
    inFile("Library/pnpm/store", "", PlaceBase::home, ".npmrc", "store-dir"),
    inFile("Library/pnpm/store", "", PlaceBase::configFolder, "pnpm/rc", "store-dir"),
    {"Library/pnpm/store", "PNPM_HOME", "store"},
    {".cache/yarn", "YARN_CACHE_FOLDER", ""},
    inFile(".cache/yarn", "", PlaceBase::home, ".yarnrc", "cache-folder", SettingNotation::keyAndQuoted),
    inFile(".yarn/berry/cache", "", PlaceBase::home, ".yarnrc.yml", "cacheFolder", SettingNotation::yamlValue),
    {".yarn/berry/cache", "YARN_GLOBAL_FOLDER", "cache"},
    inFile(".yarn/berry/cache", "cache", PlaceBase::home, ".yarnrc.yml", "globalFolder", SettingNotation::yamlValue),
    {".cache/pip", "PIP_CACHE_DIR", ""},
    inFile(".cache/pip", "", PlaceBase::configFolder, "pip/pip.conf", "cache-dir"),
    inFile(".cache/pip", "", PlaceBase::home, ".pip/pip.conf", "cache-dir"),
    {".cache/uv", "UV_CACHE_DIR", ""},
    inFile(".cache/uv", "", PlaceBase::configFolder, "uv/uv.toml", "cache-dir"),
    {".cargo/registry", "CARGO_HOME", "registry"},
    {".cache/go-build", "GOCACHE", ""},
    inFile(".cache/go-build", "", PlaceBase::configFolder, "go/env", "GOCACHE"),
    {"go/pkg/mod", "GOMODCACHE", ""},
    inFile("go/pkg/mod", "", PlaceBase::configFolder, "go/env", "GOMODCACHE"),
    {"go/pkg/mod", "GOPATH", "pkg/mod", ':'},
    inFile("go/pkg/mod", "pkg/mod", PlaceBase::configFolder, "go/env", "GOPATH", SettingNotation::keyAndValue, ':'),
    inFile(".m2/repository", "", PlaceBase::home, ".m2/settings.xml", "localRepository", SettingNotation::xmlElement),
    {".cache/ccache", "CCACHE_DIR", ""},
    inFile(".cache/ccache", "", PlaceBase::configFolder, "ccache/ccache.conf", "cache_dir"),
    inFile(".cache/ccache", "", PlaceBase::home, ".ccache/ccache.conf", "cache_dir"),
    {".cache/sccache", "SCCACHE_DIR", ""},
    inFile(".cache/sccache", "", PlaceBase::configFolder, "sccache/config", "dir"),
    {".conda/pkgs", "CONDA_PKGS_DIRS", "", ','},
    inFile(".conda/pkgs", "", PlaceBase::home, ".condarc", "pkgs_dirs", SettingNotation::yamlValue),
    inFile(".conda/pkgs", "", PlaceBase::home, ".conda/.condarc", "pkgs_dirs", SettingNotation::yamlValue),
    inFile(".conda/pkgs", "", PlaceBase::configFolder, "conda/.condarc", "pkgs_dirs", SettingNotation::yamlValue),
    inFile(".local/share/containers/storage", "", PlaceBase::configFolder, "containers/storage.conf", "graphroot"),
    {".cache/huggingface", "HF_HOME", ""},
    {".cache/huggingface/hub", "HF_HUB_CACHE", ""},
    {".cache/huggingface/hub", "HUGGINGFACE_HUB_CACHE", ""},
    {".cache/huggingface/hub", "HF_HOME", "hub"},
    {".ollama/models", "OLLAMA_MODELS", ""},
});

} // namespace corvane
