#include "duplicates/kept_copies.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A group of files at these paths, each newer than the previous one.
DuplicateGroup groupOf(const std::string &id, const std::vector<std::string> &paths)
{
    DuplicateGroup group{.id = id, .size = 10, .files = {}, .seen = {}};
    for (const std::string &path : paths) {
        group.files.push_back(std::make_shared<FileNode>(path, FileNode::Kind::file));
        group.files.back()->modified = Time(std::chrono::seconds(static_cast<std::int64_t>(group.files.size())));
        group.seen.push_back({.length = static_cast<std::int64_t>(group.files.size()), .modified = {}, .identity = {}});
    }
    return group;
}

Selection entries(const std::vector<std::string> &paths)
{
    Selection selection;
    for (const std::string &path : paths)
        selection[path] = 10;
    return selection;
}

std::vector<std::string> copiesFor(const RemovalConditions &conditions, const std::string &path)
{
    std::vector<std::string> paths;
    if (const auto found = conditions.find(path); found != conditions.end()) {
        for (const KeptCopies &copies : found->second.copies) {
            for (const KeptCopy &copy : *copies)
                paths.push_back(copy.path);
        }
    }
    return paths;
}

bool isHeldBack(const RemovalConditions &conditions, const std::string &path)
{
    const auto found = conditions.find(path);
    return found != conditions.end() && found->second.holdsKeptCopy;
}

TEST(KeptFile, IsTheFirstAmongTheNewestOrTheOldest)
{
    DuplicateGroup group = groupOf("g", {"/a", "/b", "/c", "/d"});
    EXPECT_EQ(keptFile(group, KeepRule::newest), 3U);
    EXPECT_EQ(keptFile(group, KeepRule::oldest), 0U);
    group.files[3]->modified = group.files[2]->modified;
    group.files[1]->modified = distantPast;
    group.files[0]->modified = distantPast;
    EXPECT_EQ(keptFile(group, KeepRule::newest), 2U);
    EXPECT_EQ(keptFile(group, KeepRule::oldest), 0U);
}

TEST(KeptCopies, ACopyThatGoesNeedsOneThatStays)
{
    const std::vector groups{groupOf("g", {"/x/a", "/x/b", "/x/c"})};
    const auto conditions = conditionsOf(entries({"/x/a"}), groups, {});
    EXPECT_THAT(copiesFor(conditions, "/x/a"), ElementsAre("/x/b", "/x/c"));
    EXPECT_EQ(conditions.at("/x/a").copies[0]->at(1).seen, groups[0].seen[2]);
    EXPECT_EQ(conditions.at("/x/a").itself, groups[0].seen[0]);
    EXPECT_EQ(conditions.size(), 1U);
}

TEST(KeptCopies, WhatIsNoDuplicateNeedsNothing)
{
    const std::vector groups{groupOf("g", {"/x/a", "/x/b"})};
    EXPECT_THAT(conditionsOf(entries({"/y", "/x/other"}), groups, {}), IsEmpty());
}

TEST(KeptCopies, ACopyInAFolderThatGoesDoesNotStay)
{
    const std::vector groups{groupOf("g", {"/x/a", "/y/b", "/z/c"})};
    const auto conditions = conditionsOf(entries({"/x/a", "/y"}), groups, {});
    EXPECT_THAT(copiesFor(conditions, "/x/a"), ElementsAre("/z/c"));
    EXPECT_THAT(copiesFor(conditions, "/y"), IsEmpty()) << "a folder is not picked as a copy";
}

TEST(KeptCopies, AFolderAroundACopyThatARuleSelectedNeedsOneThatStays)
{
    const std::vector groups{groupOf("g", {"/x/a", "/x/b", "/y/c"}), groupOf("h", {"/x/d", "/y/e"})};
    const auto conditions = conditionsOf(entries({"/x"}), groups, {{"g", "/y/c"}});
    EXPECT_THAT(copiesFor(conditions, "/x"), ElementsAre("/y/c"));
}

TEST(KeptCopies, OfTwoGroupsWithTheSameFileTheLaterOneCounts)
{
    std::vector groups{groupOf("g", {"/x/a", "/x/b"}), groupOf("h", {"/x/a", "/x/b"})};
    groups[1].seen[1].length = 77;
    const auto conditions = conditionsOf(entries({"/x/a"}), groups, {{"g", "/x/b"}});
    ASSERT_EQ(conditions.at("/x/a").copies.size(), 1U);
    EXPECT_EQ(conditions.at("/x/a").copies[0]->at(0).seen.length, 77);
}

TEST(KeptCopies, SelectingAllCopiesByHandIsAllowed)
{
    const std::vector groups{groupOf("g", {"/x/a", "/x/b"})};
    EXPECT_THAT(conditionsOf(entries({"/x/a", "/x/b"}), groups, {}), IsEmpty());
}

TEST(KeptCopies, OfCopiesThatARuleSelectedOneStaysThoughItIsSelectedToo)
{
    const std::vector groups{groupOf("g", {"/x/a", "/x/b", "/x/c"})};
    const auto conditions = conditionsOf(entries({"/x/a", "/x/b", "/x/c"}), groups, {{"g", "/x/b"}});
    EXPECT_TRUE(isHeldBack(conditions, "/x/b"));
    EXPECT_FALSE(isHeldBack(conditions, "/x/a"));
    EXPECT_THAT(copiesFor(conditions, "/x/a"), ElementsAre("/x/b"));
    EXPECT_THAT(copiesFor(conditions, "/x/c"), ElementsAre("/x/b"));
}

TEST(KeptCopies, AFolderAroundTheCopyThatTheRuleKeepsStaysAndEveryFileInIt)
{
    const std::vector groups{groupOf("g", {"/x/deep/a", "/y/b"}), groupOf("h", {"/x/deep/c", "/y/d"})};
    const auto conditions = conditionsOf(entries({"/x", "/y/b", "/y/d"}), groups, {{"g", "/x/deep/a"}});
    EXPECT_TRUE(isHeldBack(conditions, "/x"));
    EXPECT_THAT(copiesFor(conditions, "/y/b"), ElementsAre("/x/deep/a"));
    EXPECT_THAT(copiesFor(conditions, "/y/d"), ElementsAre("/x/deep/c"));
}

TEST(KeptCopies, AnEntryAroundAnotherOneIsHeldBackWithIt)
{
    const std::vector groups{groupOf("g", {"/x/a", "/y/b"})};
    const auto conditions = conditionsOf(entries({"/x", "/x/a", "/y/b"}), groups, {{"g", "/x/a"}});
    EXPECT_TRUE(isHeldBack(conditions, "/x"));
    EXPECT_TRUE(isHeldBack(conditions, "/x/a"));
    EXPECT_THAT(copiesFor(conditions, "/y/b"), ElementsAre("/x/a"));
}

/// Regardless of other selections: in each group whose copies a rule selected, one file remains outside the selection.
TEST(KeptCopies, OneCopyOfEveryGroupThatARuleSelectedSurvivesWhateverElseIsSelected)
{
    const std::vector<std::string> folders{"/a", "/a/b", "/a/b/c", "/d", "/d/e"};
    std::vector<DuplicateGroup> groups;
    CopiesKeptByRule kept;
    Selection byRule;
    for (int i = 0; i < 12; ++i) {
        const std::string name = "/file " + std::to_string(i);
        const std::string id = std::to_string(i);
        const std::size_t first = static_cast<std::size_t>(i) % folders.size();
        const std::size_t second = static_cast<std::size_t>(i * 2 + 1) % folders.size();
        groups.push_back(groupOf(id, {folders[first] + name, folders[second] + name + " copy"}));
        const std::size_t stays = keptFile(groups.back(), i % 2 == 0 ? KeepRule::newest : KeepRule::oldest);
        kept[id] = groups.back().files[stays]->path();
        byRule[groups.back().files[1 - stays]->path()] = 10;
    }
    for (unsigned picked = 0; picked < 32; ++picked) {
        Selection selection = byRule;
        for (std::size_t i = 0; i < folders.size(); ++i) {
            if ((picked >> i & 1U) != 0)
                selection[folders[i]] = 10;
        }
        if (picked % 3 == 0)
            selection.merge(Selection(entries({kept.at("0"), kept.at("5")})));
        for (const Selection &removed : {selection, effectiveSelection(selection)}) {
            const auto conditions = conditionsOf(removed, groups, kept);
            Selection taken = removed;
            std::erase_if(taken, [&](const auto &entry) { return isHeldBack(conditions, entry.first); });
            for (const DuplicateGroup &group : groups) {
                EXPECT_TRUE(
                    std::ranges::any_of(group.files, [&](const auto &file) { return !isCovered(taken, file->path()); }))
                    << "group " << group.id << ", folders " << picked;
            }
        }
    }
}

} // namespace
} // namespace corvane
