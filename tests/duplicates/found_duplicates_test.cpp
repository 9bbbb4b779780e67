#include "duplicates/found_duplicates.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A group of files of this size at these paths, each older than the previous one.
DuplicateGroup groupOf(const std::string &id, std::int64_t size, const std::vector<std::string> &paths)
{
    DuplicateGroup group{.id = id, .size = size, .files = {}, .seen = {}};
    for (const std::string &path : paths) {
        group.files.push_back(std::make_shared<FileNode>(path, FileNode::Kind::file));
        group.files.back()->size = size;
        group.files.back()->modified = Time(std::chrono::seconds(100 - static_cast<std::int64_t>(group.files.size())));
        group.seen.push_back({.length = size, .modified = {}, .identity = {}});
    }
    return group;
}

Selection selectionOf(const std::vector<std::string> &paths)
{
    Selection selection;
    for (const std::string &path : paths)
        selection[path] = 10;
    return selection;
}

std::vector<std::string> pathsOf(const std::vector<SelectedEntry> &entries)
{
    std::vector<std::string> paths;
    for (const SelectedEntry &entry : entries)
        paths.push_back(entry.path);
    return paths;
}

class FoundDuplicatesTest : public ::testing::Test {
protected:
    FoundDuplicatesTest()
    {
        found.replace({groupOf("g", 10, {"/x/a", "/x/b", "/x/c"}), groupOf("h", 8, {"/y/a", "/y/b"})});
    }

    /// Whether removing all selected entries would keep this one back.
    [[nodiscard]] bool isHeldBack(const Selection &selected, const std::string &path) const
    {
        const RemovalConditions conditions = found.conditionsOf(selected, selected);
        const auto condition = conditions.find(path);
        return condition != conditions.end() && condition->second.holdsKeptCopy;
    }

    /// Removes the files at these paths from the groups.
    bool remove(const std::vector<std::string> &paths)
    {
        return found.remove([&](const FileNode &file) { return std::ranges::find(paths, file.path()) != paths.end(); });
    }

    FoundDuplicates found;
};

TEST_F(FoundDuplicatesTest, ARuleSelectsAllButTheNewestOrTheOldestOfEachGroup)
{
    EXPECT_THAT(pathsOf(found.copiesToSelect(KeepRule::newest, {})), ElementsAre("/x/b", "/x/c", "/y/b"));
    EXPECT_THAT(pathsOf(found.copiesToSelect(KeepRule::oldest, {})), ElementsAre("/x/a", "/x/b", "/y/a"));
}

TEST_F(FoundDuplicatesTest, TheCopyThatARuleKeepsStaysWhateverElseIsSelected)
{
    const Selection all = selectionOf({"/x/a", "/x/b", "/x/c"});
    EXPECT_FALSE(isHeldBack(all, "/x/a")) << "selected by hand";
    static_cast<void>(found.copiesToSelect(KeepRule::newest, {}));
    EXPECT_TRUE(isHeldBack(all, "/x/a"));
    EXPECT_FALSE(isHeldBack(all, "/x/b"));
    static_cast<void>(found.copiesToSelect(KeepRule::oldest, all));
    EXPECT_TRUE(isHeldBack(all, "/x/c")) << "the last rule counts";
    EXPECT_FALSE(isHeldBack(all, "/x/a"));
}

TEST_F(FoundDuplicatesTest, ARuleAlsoHoldsAfterAnotherSearch)
{
    static_cast<void>(found.copiesToSelect(KeepRule::newest, {}));
    found.replace({groupOf("new", 10, {"/z/a", "/z/b"})});
    const Selection all = selectionOf({"/x/a", "/x/b", "/x/c"});
    EXPECT_TRUE(isHeldBack(all, "/x/a"));
    static_cast<void>(found.copiesToSelect(KeepRule::newest, all));
    EXPECT_TRUE(isHeldBack(all, "/x/a")) << "copies that it selected are still selected";
}

TEST_F(FoundDuplicatesTest, ARuleEndsOnceNoneOfItsCopiesIsSelected)
{
    static_cast<void>(found.copiesToSelect(KeepRule::newest, {}));
    EXPECT_FALSE(isHeldBack(selectionOf({"/x/a"}), "/x/a"));
    found.replace({});
    static_cast<void>(found.copiesToSelect(KeepRule::newest, selectionOf({"/x/a"})));
    EXPECT_FALSE(isHeldBack(selectionOf({"/x/a", "/x/b", "/x/c"}), "/x/a")) << "the rule was dropped";
}

TEST_F(FoundDuplicatesTest, RemovedFilesLeaveTheirGroupsWhichStayOrderedByWaste)
{
    EXPECT_FALSE(remove({"/elsewhere"}));
    EXPECT_EQ(found.waste(), 28);
    found.replace({groupOf("g", 10, {"/x/a", "/x/b", "/x/c"}), groupOf("h", 15, {"/y/a", "/y/b"})});
    EXPECT_TRUE(remove({"/x/a"}));
    ASSERT_EQ(found.groups().size(), 2U);
    EXPECT_EQ(found.groups()[0].id, "h");
    EXPECT_EQ(found.groups()[1].id, "g");
    EXPECT_EQ(found.groups()[1].files.size(), 2U);
    EXPECT_EQ(found.groups()[1].seen.size(), 2U);
    EXPECT_TRUE(remove({"/y/b"}));
    ASSERT_EQ(found.groups().size(), 1U) << "one file is no group";
    EXPECT_EQ(found.waste(), 10);
    EXPECT_TRUE(remove({"/x/b", "/x/c"}));
    EXPECT_THAT(found.groups(), IsEmpty());
}

} // namespace
} // namespace corvane
