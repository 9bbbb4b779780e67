#include <deque>
#include <string>

#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "cleanup/dev_junk_rule.h"
#include "core/scan_summary.h"
#include "platform/fake_file_system.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::makeRoot;
using test::NodePtr;

// A home folder has tens of thousands of folders, most of which contain only small files.
TEST(TreeMemory, FolderTakesAtMost250BytesWithItsPathAndItsPlaceInTheIndex)
{
#if !defined(__GLIBC__) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the allocator of this build does not tell how much is in use";
#else
    constexpr std::size_t folderCount = 40'000;
    constexpr std::size_t inEach = 4;
    const auto inUse = [] {
        const struct mallinfo2 info = ::mallinfo2();
        return info.uordblks + info.hblkhd;
    };

    FakeFileSystem files;
    const std::size_t before = inUse();
    const NodePtr root = makeRoot("/home/someone");
    {
        std::deque<NodePtr> waiting{root};
        std::size_t made = 1;
        while (made < folderCount) {
            const NodePtr folder = waiting.front();
            waiting.pop_front();
            const FolderPath path = folder->pathForChildren();
            folder->children.reserve(inEach);
            for (std::size_t i = 0; i < inEach; ++i, ++made) {
                std::string name = "folder " + std::to_string(made);
                auto child = std::make_shared<FileNode>(path, std::move(name), FileNode::Kind::directory, folder);
                waiting.push_back(child);
                folder->children.push_back(std::move(child));
            }
        }
    }
    const ScanSummary summary = ScanSummary::make(root, DevJunkRule::match, files);
    const std::size_t taken = inUse() - before;
    ASSERT_GE(summary.index.size(), folderCount);
    EXPECT_LE(taken / summary.index.size(), 250u);
    RecordProperty("bytesPerFolder", static_cast<int>(taken / summary.index.size()));
#endif
}

} // namespace
} // namespace corvane
