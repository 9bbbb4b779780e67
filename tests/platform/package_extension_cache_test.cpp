#include "platform/package_extension_cache.h"

#include <atomic>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PackageExtensionCache, AsksOnceForEachExtensionInAnyCase)
{
    std::vector<std::string> asked;
    PackageExtensionCache cache([&](const std::string &extension) {
        asked.push_back(extension);
        return extension == "app";
    });
    EXPECT_TRUE(cache.isPackageExtension("app"));
    EXPECT_TRUE(cache.isPackageExtension("APP"));
    EXPECT_FALSE(cache.isPackageExtension("d"));
    EXPECT_FALSE(cache.isPackageExtension("D"));
    EXPECT_THAT(asked, ElementsAre("app", "d"));
}

TEST(PackageExtensionCache, NeverAsksForANameWithoutAnExtension)
{
    std::vector<std::string> asked;
    PackageExtensionCache cache([&](const std::string &extension) {
        asked.push_back(extension);
        return true;
    });
    for (const char *name : {"", "folder", ".git", "folder."})
        EXPECT_FALSE(cache.isPackageName(name)) << name;
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_TRUE(cache.isPackageName("a.b.app"));
    EXPECT_TRUE(cache.isPackageName(".hidden.rtfd"));
    EXPECT_THAT(asked, ElementsAre("app", "rtfd"));
}

TEST(PackageExtensionCache, ManyThreadsAskOnce)
{
    std::atomic<int> asked = 0;
    PackageExtensionCache cache([&](const std::string &extension) {
        ++asked;
        return extension.size() % 2 == 1;
    });
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < 200; ++round) {
                for (const char *extension : {"app", "d", "git", "ab"})
                    wrong += cache.isPackageExtension(extension) != (std::string_view(extension).size() % 2 == 1);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(asked, 4);
}

} // namespace
} // namespace corvane
