#pragma once

#include <span>

#include <QString>

#include "core/store/storage_store.h"

namespace corvane {

/// The texts and icon of one screen. Constant data; any thread.
struct SidebarItemInfo {
    enum class Section { storage, findAndRemove };

    StorageStore::SidebarItem item;
    QString key; ///< the item's raw value, such as "explorer"
    QString title;
    QString symbol;
    Section section;
    bool needsScan;
    QString scanPrompt; ///< why the screen needs a scan; empty if it does not
};

/// All eight screens, in the order of the sidebar.
[[nodiscard]] std::span<const SidebarItemInfo> sidebarItems();

[[nodiscard]] const SidebarItemInfo &sidebarItemInfo(StorageStore::SidebarItem item);

[[nodiscard]] QString sectionTitle(SidebarItemInfo::Section section);

} // namespace corvane
