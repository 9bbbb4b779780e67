#pragma once

#include <memory>
#include <string>
#include <utility>

#include "cleanup/dev_junk_rule.h"
#include "shell/registered_store.h"

namespace corvane::test {

/// A store for tests of the explorer.
class ExplorerFixture : public testing::Test, protected RegisteredStore {
protected:
    ExplorerFixture() { fake.files.setPackageExtensions({"app", "fcpbundle", "photoslibrary"}); }

    void addFolder(const std::string &relative) { fake.files.addFolder(at(relative)); }

    /// Installs a hand-made tree as the result of a scan of the home.
    void install(const std::shared_ptr<FileNode> &root)
    {
        store.scanHome();
        auto result = std::make_shared<StorageStore::ScanResult>();
        result->root = root;
        result->summary = ScanSummary::make(root, DevJunkRule::match, fake.files);
        store.finishScan(std::move(result), store.progress());
        ASSERT_EQ(store.root(), root);
    }

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
    void select(const std::string &relative) { RegisteredStore::select(relative, node(relative)->size); }
    void deselect(const std::string &relative) { store.setSelected(at(relative), 0, false); }
};

} // namespace corvane::test
