#include "core/folder_path.h"

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(FolderPath, IsPutTogetherFromTheTopAndTheNames)
{
    const FolderPath top("/home/u");
    const FolderPath inner(FolderPath(top, "Movies"), "2020");
    EXPECT_EQ(top.text(), "/home/u");
    EXPECT_EQ(inner.text(), "/home/u/Movies/2020");
    EXPECT_EQ(inner.textOf("a.mp4"), "/home/u/Movies/2020/a.mp4");
}

TEST(FolderPath, RootOfTheDiskAddsNoSecondSlash)
{
    const FolderPath root("/");
    EXPECT_EQ(root.text(), "/");
    EXPECT_EQ(root.textOf("opt"), "/opt");
    EXPECT_EQ(FolderPath(root, "opt").textOf("x"), "/opt/x");
}

TEST(FolderPath, FolderNamedLikeASlashCannotBeTakenForTheRoot)
{
    // No real folder has this name, but the separator must depend on the position in the tree, not on the name alone.
    EXPECT_EQ(FolderPath(FolderPath("/a"), "/").textOf("b"), "/a///b");
}

TEST(FolderPath, HashIsThatOfTheText)
{
    for (const char *top : {"/", "/home", ""}) {
        FolderPath path{std::string_view(top)};
        for (const char *name : {"a", "Movies", "\xff\n"}) {
            path = FolderPath(path, name);
            EXPECT_EQ(path.hash(), hashPath(path.text())) << path.text();
            EXPECT_EQ(path.hashOf("x"), hashPath(path.textOf("x"))) << path.text();
        }
    }
}

TEST(FolderPath, IsTheTextAndNothingElse)
{
    for (const char *top : {"/", "/home"}) {
        const FolderPath path(FolderPath(FolderPath(std::string_view(top)), "ab"), "c");
        const std::string text = path.text();
        EXPECT_TRUE(path.is(text));
        EXPECT_TRUE(path.isFolderOf("d", text + "/d"));
        for (std::size_t i = 0; i < text.size(); ++i) {
            std::string other = text;
            other[i] = other[i] == '/' ? 'x' : '/';
            EXPECT_FALSE(path.is(other)) << other;
            EXPECT_FALSE(path.isFolderOf("d", other + "/d")) << other;
            EXPECT_FALSE(path.is(text.substr(0, i))) << i;
            EXPECT_FALSE(path.is(text.substr(i + 1))) << i;
        }
        EXPECT_FALSE(path.is(text + "/"));
        EXPECT_FALSE(path.is("/" + text));
        EXPECT_FALSE(path.isFolderOf("d", text + "d"));
        EXPECT_FALSE(path.isFolderOf("d", text + "xd"));
        EXPECT_FALSE(path.isFolderOf("d", text));
        EXPECT_FALSE(path.isFolderOf("d", "d"));
    }
}

TEST(FolderPath, OutlivesTheFoldersAboveAndItsCopies)
{
    FolderPath kept;
    EXPECT_FALSE(kept);
    {
        const FolderPath top("/home/u");
        const FolderPath folder(top, "Movies");
        kept = folder;
        const FolderPath copy = kept;
        kept = copy;
    }
    EXPECT_TRUE(kept);
    EXPECT_EQ(kept.text(), "/home/u/Movies");
    FolderPath moved = std::move(kept);
    EXPECT_EQ(moved.text(), "/home/u/Movies");
    kept = FolderPath(moved, "2020");
    moved = FolderPath("/");
    EXPECT_EQ(kept.text(), "/home/u/Movies/2020");
}

TEST(FolderPath, OfAHundredThousandLevelsIsLetGoWithoutRecursion)
{
    FolderPath path("/deep");
    for (int level = 0; level < 100'000; ++level)
        path = FolderPath(std::move(path), "d");
    EXPECT_EQ(path.text().size(), 5u + 200'000u);
    path = FolderPath();
    EXPECT_FALSE(path);
}

TEST(FolderPath, CopiesMayBeTakenAndDroppedByManyThreads)
{
    const FolderPath shared(FolderPath("/home/u"), "Movies");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 20'000; ++round) {
                const FolderPath own(shared, "x");
                const FolderPath copy = own;
                ASSERT_EQ(copy.hash(), own.hash());
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(shared.text(), "/home/u/Movies");
}

TEST(HashPath, CanBeContinued)
{
    EXPECT_EQ(hashPath("/a/b"), hashPath("/b", hashPath("/a")));
    EXPECT_NE(hashPath("/a/b"), hashPath("/b/a"));
}

} // namespace
} // namespace corvane
