#pragma once

#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <QTest>

#include "cleanup/dev_junk_rule.h"
#include "core/store/storage_store.h"
#include "platform/fake_host.h"

namespace corvane::test {

/// A store over a home folder in memory, "/home/studio", for tests of the explorer. The tests describe what the
/// home holds and then scan it.
class ExplorerFixture : public testing::Test {
protected:
    ExplorerFixture()
    {
        fake.files.setHome(home);
        fake.files.setPackageExtensions({"app", "fcpbundle", "photoslibrary"});
    }

    void addFile(const std::string &relative, std::int64_t size) { fake.files.addFile(at(relative), size); }
    void addFolder(const std::string &relative) { fake.files.addFolder(at(relative)); }

    void scan(const std::string &path)
    {
        store.scan(path);
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, 20'000));
    }
    void scanHome() { scan(home); }

    /// A tree made by hand takes the place of a scan of the home.
    void install(const std::shared_ptr<FileNode> &root)
    {
        store.scanHome();
        auto result = std::make_shared<StorageStore::ScanResult>();
        result->root = root;
        result->summary = ScanSummary::make(root, DevJunkRule::match, fake.files);
        store.finishScan(std::move(result), store.progress());
        ASSERT_EQ(store.root(), root);
    }

    /// As though the item had been moved to the Trash.
    void removeItem(const std::string &relative, std::int64_t size)
    {
        store.didRemove({.removed = {{at(relative), size}}, .failures = {}}, false);
    }

    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }
    [[nodiscard]] std::shared_ptr<FileNode> node(const std::string &relative) const
    {
        const FileNode *found = store.node(at(relative));
        if (!found)
            return nullptr;
        for (const auto &sibling : found->parent.lock()->children) {
            if (sibling.get() == found)
                return sibling;
        }
        return nullptr;
    }
    void open(const std::string &relative) { store.open(node(relative)); }
    void select(const std::string &relative) { store.setSelected(at(relative), node(relative)->size, true); }
    void deselect(const std::string &relative) { store.setSelected(at(relative), 0, false); }

    const std::string home = "/home/studio";
    FakeHost fake;
    Host host = fake.host();
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store{host, locations};
};

} // namespace corvane::test
