#include "platform/folder_chain.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>

#include <fcntl.h>

#include <gtest/gtest.h>

#include "platform/host.h"
#include "platform/open_file_limit.h"
#include "support/few_open_files.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

/// A chain of real folders "0/1/2/…", deeper than the number kept open.
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

// To check an object's type the sanitizer opens a pipe, and reports an invalid object if that fails.
#ifdef __SANITIZE_ADDRESS__
#define SKIP_UNDER_SANITIZER() GTEST_SKIP() << "the sanitizer needs a file number of its own"
#else
#define SKIP_UNDER_SANITIZER()
#endif

TEST_F(FolderChainTest, GivesBackFileNumbersWhereTheyHaveRunOut)
{
    SKIP_UNDER_SANITIZER();
    temporary.makeFolder(pathOf(levels - 1).substr(temporary.path().size() + 1) + "/inside");
    {
        const FewOpenFiles limit(0);
        EXPECT_TRUE(chain.openChild("inside"));
    }
    for (std::size_t level = levels; level-- > 0; chain.pop()) {
        ASSERT_NE(chain.innermost(), nullptr) << level;
        EXPECT_EQ(chain.innermost()->identity(), identities[level]);
    }
}

int openFileCount()
{
    int count = 0;
    for (int number = 0; number < 1'024; ++number)
        count += ::fcntl(number, F_GETFD) >= 0 ? 1 : 0;
    return count;
}

TEST_F(FolderChainTest, GivesBackFileNumbersThatAnotherThreadWaitsFor)
{
    temporary.makeFolder(pathOf(levels - 1).substr(temporary.path().size() + 1) + "/inside");
    std::atomic<bool> isWaiting = false;
    std::atomic<bool> isServed = false;
    std::thread other([&] {
        const auto open = [&]() -> Expected<int> {
            if (isServed)
                return 1;
            return tl::unexpected(Error{"open", "/a", std::make_error_code(std::errc::too_many_files_open), {}});
        };
        (void)openPatiently(open, [&] { isWaiting = true; });
    });
    while (!isWaiting)
        std::this_thread::yield();
    const int before = openFileCount();
    EXPECT_TRUE(chain.openChild("inside"));
    EXPECT_EQ(openFileCount(), before - static_cast<int>(FolderChain::openLimit) + 1);
    isServed = true;
    other.join();
    for (std::size_t level = levels; level-- > 0; chain.pop())
        ASSERT_NE(chain.innermost(), nullptr) << level;
}

TEST_F(FolderChainTest, WaitsForAFileNumberOnTheWayUp)
{
    SKIP_UNDER_SANITIZER();
    while (chain.size() > levels - FolderChain::openLimit + 1)
        chain.pop();
    auto limit = std::make_unique<FewOpenFiles>(0);
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        limit.reset();
    });
    chain.pop();
    other.join();
    ASSERT_NE(chain.innermost(), nullptr);
    EXPECT_EQ(chain.innermost()->identity(), identities[chain.size() - 1]);
}

TEST(FolderIdentity, ThatIsUnknownEqualsNone)
{
    EXPECT_NE(FolderIdentity{}, FolderIdentity{});
    EXPECT_EQ((FolderIdentity{.device = 0, .inode = 2}), (FolderIdentity{.device = 0, .inode = 2}));
    EXPECT_NE((FolderIdentity{.device = 1, .inode = 2}), (FolderIdentity{.device = 3, .inode = 2}));
}

TEST(PatientOpen, FailsAtOnceForAnyOtherReasonAndInTheEndForThisOne)
{
    int calls = 0;
    int givenBack = 0;
    const auto failing = [&](std::errc code) {
        return [&calls, code]() -> Expected<int> {
            ++calls;
            return tl::unexpected(Error{"open", "/a", std::make_error_code(code), {}});
        };
    };
    EXPECT_FALSE(openPatiently(failing(std::errc::permission_denied), [&] { ++givenBack; }));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(givenBack, 0);
    EXPECT_FALSE(openPatiently(failing(std::errc::too_many_files_open_in_system), [&] { ++givenBack; }));
    EXPECT_GT(calls, 100);
    EXPECT_EQ(givenBack, 1);
}

TEST(OpenFileLimit, IsRaisedAsFarAsTheSystemAllows)
{
    (void)systemHost();
    const FewOpenFiles limit(4);
    raiseOpenFileLimit();
    rlimit raised{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &raised), 0);
    EXPECT_EQ(raised.rlim_cur, std::min<rlim_t>(raised.rlim_max, 8192));
    raiseOpenFileLimit();
    EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &raised), 0);
    EXPECT_EQ(raised.rlim_cur, std::min<rlim_t>(raised.rlim_max, 8192));
}

TEST_F(FolderChainTest, AParentThatIsNoLongerTheSameIsOutOfReachAndSoIsAllAboveIt)
{
    constexpr std::size_t moved = 5; // closed by this time
    temporary.makeFolder("stranger");
    std::filesystem::rename(pathOf(moved), temporary / "stranger/5");
    for (std::size_t level = levels; level-- > 0; chain.pop()) {
        ASSERT_EQ(chain.innermost() != nullptr, level >= moved) << level;
    }
    EXPECT_TRUE(chain.empty());
}

TEST_F(FolderChainTest, ASharedFolderStaysOpenWhenTheChainLeavesIt)
{
    EXPECT_EQ(chain.firstOpen(), levels - FolderChain::openLimit);
    EXPECT_EQ(chain.shared(0), nullptr) << "closed by now";
    const std::shared_ptr<OpenFolder> shared = chain.shared(levels - 2);
    ASSERT_NE(shared, nullptr);
    while (!chain.empty())
        chain.pop();
    EXPECT_EQ(shared->identity(), identities[levels - 2]);
    EXPECT_TRUE(shared->openChild(std::to_string(levels - 1)).has_value());
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
