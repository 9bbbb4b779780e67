#include "apps/icon_search.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#include "apps/linux_data.h"
#include "platform/path.h"

namespace corvane {

namespace {

// Best first: the screens draw up to 128 pixels. A vector image is sharp at any size, but its format may not be
// supported.
constexpr std::array<std::string_view, 10> themeFolders{"128x128", "256x256", "192x192",  "512x512", "96x96",
                                                        "64x64",   "72x72",   "scalable", "48x48",   "32x32"};
// Desktop applications leave their icons to the theme. Themes use either of two folder layouts.
constexpr std::array<std::string_view, 6> desktopThemes{"Adwaita", "breeze", "Papirus", "Yaru", "Mint-Y", "oxygen"};
constexpr std::array<std::string_view, 8> desktopThemeFolders{
    "128x128/apps", "apps/128", "64x64/apps", "apps/64", "scalable/apps", "apps/scalable", "48x48/apps", "apps/48"};
constexpr std::array<std::string_view, 2> endings{".png", ".svg"};

/// Some desktop files contain a file name instead of an icon name.
std::string_view withoutEnding(std::string_view icon)
{
    for (const std::string_view ending : {".png", ".svg", ".xpm"}) {
        if (icon.ends_with(ending))
            return icon.substr(0, icon.size() - ending.size());
    }
    return icon;
}

} // namespace

IconSearch::IconSearch(FileSystem &files) : m_files(files)
{
    const std::string home = files.homeFolder();
    std::vector<std::string> shares{LinuxData::dataFolder(home, files)};
    std::ranges::move(files.sharedDataFolders(), std::back_inserter(shares));
    shares.push_back(joined(shares.front(), "flatpak/exports/share"));
    for (const char *const share :
         {"/var/lib/flatpak/exports/share", "/usr/local/share", "/usr/share", "/var/lib/snapd/desktop"})
        shares.emplace_back(share);
    std::vector<std::string> iconFolders{joined(home, ".icons")};
    for (const std::string &share : shares)
        iconFolders.push_back(joined(share, "icons"));
    for (const std::string &icons : iconFolders) {
        const std::string theme = joined(icons, "hicolor");
        if (!files.exists(theme))
            continue;
        for (const std::string_view size : themeFolders)
            addFolder(joined(joined(theme, size), "apps"));
    }
    for (const std::string &icons : iconFolders)
        addFolder(icons);
    for (const std::string &share : shares)
        addFolder(joined(share, "pixmaps"));
    for (const std::string_view theme : desktopThemes) {
        for (const std::string &icons : iconFolders) {
            const std::string folder = joined(icons, theme);
            if (!files.exists(folder))
                continue;
            for (const std::string_view each : desktopThemeFolders)
                addFolder(joined(folder, each));
        }
    }
}

void IconSearch::addFolder(std::string folder)
{
    if (m_files.exists(folder) && std::ranges::find(m_folders, folder) == m_folders.end())
        m_folders.push_back(std::move(folder));
}

std::string IconSearch::find(const std::string &icon) const
{
    if (icon.starts_with('/'))
        return icon;
    const std::string_view name = withoutEnding(icon);
    // A name must not be a path to somewhere else.
    if (name.empty() || name.find('/') != std::string_view::npos)
        return {};
    for (const std::string &folder : m_folders) {
        for (const std::string_view ending : endings) {
            std::string path = joined(folder, std::string(name).append(ending));
            if (m_files.exists(path))
                return path;
        }
    }
    return {};
}

} // namespace corvane
