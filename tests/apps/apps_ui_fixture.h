#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "apps/app_inventory.h"
#include "shell/registered_store.h"
#include "shell/without_motion.h"

namespace corvane::test {

/// A store for tests of the applications' UI. Tests fill the inventory and then publish it; its paths exist on the fake
/// disk too.
class AppsFixture : public testing::Test, protected RegisteredStore, WithoutMotion {
protected:
    AppsFixture() : RegisteredStore(SystemKind::mac) { fake.files.setPackageExtensions({"app"}); }

    InstalledApp &addApp(const std::string &name, std::int64_t size, const std::string &bundleID = {})
    {
        InstalledApp app;
        app.path = "/Applications/" + name + ".app";
        app.name = name;
        app.bundleID = bundleID.empty() ? "com." + name + ".app" : bundleID;
        app.appSize = size;
        fake.files.addFile(app.path + "/Contents/MacOS/program", size);
        inventory.apps.push_back(std::move(app));
        return inventory.apps.back();
    }
    [[nodiscard]] Leftover leftover(const std::string &relative, std::int64_t size, Leftover::Match match)
    {
        Leftover item;
        item.path = at("Library/" + relative);
        item.kind = relative.ends_with(".plist") ? FileNode::Kind::file : FileNode::Kind::directory;
        item.size = size;
        item.location = std::string_view(relative).starts_with("Caches") ? "Caches" : "Application Support";
        item.match = match;
        fake.files.addFile(item.kind == FileNode::Kind::file ? item.path : item.path + "/data", size);
        return item;
    }
    void addOrphan(const std::string &id, const std::string &relative, std::int64_t size)
    {
        auto group = std::ranges::find(inventory.orphanGroups, id, &OrphanGroup::id);
        if (group == inventory.orphanGroups.end())
            group = inventory.orphanGroups.insert(group, OrphanGroup{id, {}});
        group->items.push_back(leftover(relative, size, Leftover::Match::orphan));
    }
    /// Signal Deck: 740 MB, with 6 GB of certain and 400 MB of possible leftovers.
    InstalledApp &addSignalDeck()
    {
        InstalledApp &app = addApp("Signal Deck", 740'000'000, "com.signaldeck.desktop");
        app.version = "5.4.1";
        app.leftovers = {
            leftover("Application Support/com.signaldeck.desktop", 4'000'000'000, Leftover::Match::exact),
            leftover("Caches/com.signaldeck.desktop", 2'000'000'000, Leftover::Match::exact),
            leftover("Application Support/Signal Deck", 400'000'000, Leftover::Match::name),
        };
        return app;
    }

    /// Publishes the current inventory.
    void publish() { store.setApps(inventory, store.appsToken()); }

    AppInventory::Result inventory;
};

} // namespace corvane::test
