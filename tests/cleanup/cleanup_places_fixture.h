#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "cleanup/cleanup_catalog.h"
#include "cleanup/cleanup_items.h"
#include "cleanup/cleanup_places.h"
#include "platform/fake_file_system.h"

namespace corvane {

/// A Linux system with a user "me".
class CleanupPlacesTest : public testing::Test {
protected:
    CleanupPlacesTest()
    {
        files.setHome("/home/me");
        for (const char *folder : {"/home/me/Documents/thesis", "/home/me/.ssh", "/home/me/.cache", "/etc", "/data"})
            files.addFolder(folder);
        files.setOwnPlace("Library/Caches", {"/home/me/.cache", "/home/me/.cache"});
        files.setOwnPlace(".Trash", {"/home/me/.local/share/Trash/files", "/home/me/.local/share/Trash/files"});
    }

    /// As if the user had configured a tool to keep its data elsewhere.
    void set(const std::string &place, const std::string &path)
    {
        files.setOwnPlace(place, {path, "/home/me/" + place});
    }

    void measure() { items = CleanupCatalog::measureAll(files); }
    [[nodiscard]] const CleanupItem &item(std::string_view id) const
    {
        return *std::ranges::find_if(items, [&](const CleanupItem &each) { return each.def->id == id; });
    }
    [[nodiscard]] std::vector<std::string> paths(std::string_view id) const
    {
        std::vector<std::string> result;
        for (const CleanupEntry &entry : item(id).entries)
            result.push_back(entry.path);
        return result;
    }

    FakeFileSystem files;
    std::vector<CleanupItem> items;
};

} // namespace corvane
