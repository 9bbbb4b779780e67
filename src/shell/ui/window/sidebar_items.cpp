#include "shell/ui/window/sidebar_items.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

using Item = StorageStore::SidebarItem;
using Section = SidebarItemInfo::Section;

QString scanPrompt(const char *what)
{
    return QStringLiteral("Scan your home folder once and Corvane %1\nNothing is changed or removed.")
        .arg(QLatin1String(what));
}

} // namespace

std::span<const SidebarItemInfo> sidebarItems()
{
    static const std::array<SidebarItemInfo, 8> items{{
        {Item::overview, "overview", "Overview", "chart.pie", Section::storage, false, {}},
        {Item::breakdown, "breakdown", "Where's My Space", "chart.bar.doc.horizontal", Section::storage, false, {}},
        {Item::explorer, "explorer", "Space Map", "square.grid.2x2", Section::storage, true,
         scanPrompt("draws a map of all it holds.")},
        {Item::uninstaller, "uninstaller", "App Uninstaller", "xmark.bin", Section::findAndRemove, false, {}},
        {Item::large, "large", "Large Files", "scalemass", Section::findAndRemove, true,
         scanPrompt("lists every big file it holds.")},
        {Item::old, "old", "Old Files", "clock.arrow.circlepath", Section::findAndRemove, true,
         scanPrompt("finds the files you forgot about.")},
        {Item::duplicates, "duplicates", "Duplicates", "doc.on.doc", Section::findAndRemove, true,
         scanPrompt("finds what it holds twice.")},
        {Item::cleanup, "cleanup", "Cleanup", "sparkles", Section::findAndRemove, false, {}},
    }};
    return items;
}

const SidebarItemInfo &sidebarItemInfo(StorageStore::SidebarItem item)
{
    const auto items = sidebarItems();
    const auto found = std::ranges::find(items, item, &SidebarItemInfo::item);
    Q_ASSERT(found != items.end());
    return *found;
}

QString sectionTitle(SidebarItemInfo::Section section)
{
    return section == Section::storage ? QStringLiteral("Storage") : QStringLiteral("Find & Remove");
}

} // namespace corvane
