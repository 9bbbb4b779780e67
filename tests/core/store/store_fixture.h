#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "cleanup/dev_junk_rule.h"
#include "core/store/store_over_a_home.h"

namespace corvane {

/// A store over a small fake home folder.
class StorageStoreTest : public testing::Test, protected StoreOverAHome {
protected:
    StorageStoreTest()
    {
        addFile("Movies/a.mov", 3'000'000);
        addFile("Movies/b.mov", 2'000'000);
        addFile("Projects/deep/c.zip", 4'000'000);
        addFile("Projects/small.txt", 5'000);
    }

    std::int64_t sizeOf(const std::string &relative) const
    {
        const FileNode *node = store.node(at(relative));
        return node == nullptr ? -1 : node->size;
    }
};

inline std::shared_ptr<StorageStore::ScanResult> resultNamed(const std::string &path)
{
    auto result = std::make_shared<StorageStore::ScanResult>();
    result->root = std::make_shared<FileNode>(path, FileNode::Kind::directory);
    result->summary = ScanSummary::make(result->root, DevJunkRule::match);
    return result;
}

} // namespace corvane
