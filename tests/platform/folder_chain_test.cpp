#include "platform/folder_chain.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "platform/host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

/// A chain of real folders "0/1/2/…", deeper than it keeps open.
class FolderChainTest : public testing::Test {
protected:
    static constexpr std::size_t levels = FolderChain::openLimit + 10;

    FolderChainTest()
    {
        std::string path = "0";
        for (std::size_t level = 1; level < levels; ++level)
            path += "/" + std::to_string(level);
        temporary.makeFolder(path);
        chain.push(std::move(*systemHost().files.openFolder(pathOf(0))));
        identities.push_back(chain.innermost()->identity());
        for (std::size_t level = 1; level < levels; ++level) {
            chain.push(std::move(*chain.innermost()->openChild(std::to_string(level))));
            identities.push_back(chain.innermost()->identity());
        }
    }

    std::string pathOf(std::size_t level) const
    {
        std::string path = temporary.path();
        for (std::size_t i = 0; i <= level; ++i)
            path += "/" + std::to_string(i);
        return path;
    }

    TemporaryFolder temporary;
    FolderChain chain;
    std::vector<FolderIdentity> identities;
};

TEST_F(FolderChainTest, EveryFolderIsFoundAgainOnTheWayUp)
{
    for (std::size_t level = levels; level-- > 0;) {
        ASSERT_EQ(chain.size(), level + 1);
        ASSERT_NE(chain.innermost(), nullptr) << level;
        EXPECT_EQ(chain.innermost()->identity(), identities[level]);
        chain.pop();
    }
    EXPECT_TRUE(chain.empty());
}

TEST_F(FolderChainTest, GoingDownAgainAfterTheWayUpWorks)
{
    constexpr std::size_t turn = 4;
    while (chain.size() > turn)
        chain.pop();
    for (std::size_t level = turn; level < levels; ++level)
        chain.push(std::move(*chain.innermost()->openChild(std::to_string(level))));
    EXPECT_EQ(chain.innermost()->identity(), identities.back());
    for (std::size_t level = levels; level-- > 0; chain.pop())
        ASSERT_NE(chain.innermost(), nullptr) << level;
}

TEST_F(FolderChainTest, AParentThatIsNoLongerTheSameIsOutOfReachAndSoIsAllAboveIt)
{
    constexpr std::size_t moved = 5; // closed by now
    temporary.makeFolder("stranger");
    std::filesystem::rename(pathOf(moved), temporary / "stranger/5");
    for (std::size_t level = levels; level-- > 0; chain.pop()) {
        ASSERT_EQ(chain.innermost() != nullptr, level >= moved) << level;
    }
    EXPECT_TRUE(chain.empty());
}

TEST_F(FolderChainTest, FoldersStillOpenAreReachedThoughTheyWereMoved)
{
    temporary.makeFolder("stranger");
    std::filesystem::rename(pathOf(levels - 2), temporary / "stranger/inner");
    chain.pop();
    chain.pop();
    ASSERT_NE(chain.innermost(), nullptr);
    EXPECT_EQ(chain.innermost()->identity(), identities[levels - 3]);
}

} // namespace
} // namespace corvane
