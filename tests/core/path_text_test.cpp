#include <gtest/gtest.h>

#include "core/path_guard.h"
#include "platform/path.h"

namespace corvane {
namespace {

constexpr const char *home = "/Users/me";

TEST(StandardizedPath, DotsAndSlashesAreResolved)
{
    EXPECT_EQ(standardizedPath("/a/./b/../c/", home), "/a/c");
    EXPECT_EQ(standardizedPath("//a///b//", home), "/a/b");
    EXPECT_EQ(standardizedPath("/", home), "/");
    EXPECT_EQ(standardizedPath("//", home), "/");
    EXPECT_EQ(standardizedPath("/.", home), "/");
    EXPECT_EQ(standardizedPath("/a", home), "/a");
}

TEST(StandardizedPath, NamesThatOnlyLookLikeDotsStay)
{
    EXPECT_EQ(standardizedPath("/a/.../..b/.c/d..", home), "/a/.../..b/.c/d..");
}

TEST(StandardizedPath, NothingLiesAboveTheRoot)
{
    EXPECT_EQ(standardizedPath("/..", home), "/");
    EXPECT_EQ(standardizedPath("/../../etc", home), "/etc");
    EXPECT_EQ(standardizedPath("/a/../../b", home), "/b");
}

TEST(StandardizedPath, TildeIsTheHomeFolder)
{
    EXPECT_EQ(standardizedPath("~", home), "/Users/me");
    EXPECT_EQ(standardizedPath("~/", home), "/Users/me");
    EXPECT_EQ(standardizedPath("~/Movies/../Music", home), "/Users/me/Music");
    EXPECT_EQ(standardizedPath("~/..", home), "/Users");
    EXPECT_EQ(standardizedPath("~/x", "/"), "/x");
}

TEST(StandardizedPath, TildeElsewhereIsAName)
{
    EXPECT_EQ(standardizedPath("~other/x", home), "~other/x");
    EXPECT_EQ(standardizedPath("/a/~", home), "/a/~");
    EXPECT_EQ(standardizedPath("/~/a", home), "/~/a");
    EXPECT_EQ(standardizedPath("./~", home), "~");
}

TEST(StandardizedPath, RelativePathStaysRelative)
{
    EXPECT_EQ(standardizedPath("a/./b/../c", home), "a/c");
    EXPECT_EQ(standardizedPath("../a/../../b", home), "../../b");
    EXPECT_EQ(standardizedPath(".", home), "");
    EXPECT_EQ(standardizedPath("", home), "");
}

TEST(LiesBeneath, AFolderDoesNotLieBeneathItselfNorItsNeighbour)
{
    EXPECT_TRUE(liesBeneath("/a/b", "/a"));
    EXPECT_TRUE(liesBeneath("/a/b/c", "/a"));
    EXPECT_TRUE(liesBeneath("/a", "/"));
    EXPECT_FALSE(liesBeneath("/a", "/a"));
    EXPECT_FALSE(liesBeneath("/ab", "/a"));
    EXPECT_FALSE(liesBeneath("/", "/"));
    EXPECT_FALSE(liesBeneath("/a", "/a/b"));
}

TEST(PathText, ContainingFolderAndLastComponent)
{
    EXPECT_EQ(containingFolder("/a/b"), "/a");
    EXPECT_EQ(containingFolder("/a"), "/");
    EXPECT_EQ(containingFolder("/"), "/");
    EXPECT_EQ(containingFolder("a"), "");
    EXPECT_EQ(lastPathComponent("/a/b"), "b");
    EXPECT_EQ(lastPathComponent("/"), "/");
    EXPECT_EQ(lastPathComponent("a"), "a");
    EXPECT_EQ(lastPathComponent(""), "");
}

TEST(PathText, JoinedHasOneSlashBetween)
{
    EXPECT_EQ(joined("/a", "b"), "/a/b");
    EXPECT_EQ(joined("/", "b"), "/b");
    EXPECT_EQ(joined("/a/", "b"), "/a/b");
}

TEST(PathText, ExtensionFollowsTheLastDotButTheFirstLetter)
{
    EXPECT_EQ(nameExtension("a.b.app"), "app");
    EXPECT_EQ(nameExtension(".hidden.rtfd"), "rtfd");
    for (const char *name : {"", "a", "a.", ".app", "."})
        EXPECT_EQ(nameExtension(name), "") << name;
}

} // namespace
} // namespace corvane
