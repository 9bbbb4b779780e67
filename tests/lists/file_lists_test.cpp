#include "lists/file_lists.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileListsTest : public ::testing::Test {
protected:
    void add(const std::string &name, std::int64_t size, std::int64_t modified = 0,
             FileNode::Kind kind = FileNode::Kind::file)
    {
        auto node = std::make_shared<FileNode>(root->pathForChildren(), name, kind, root);
        node->size = size;
        node->modified = Time(std::chrono::seconds(modified));
        files.push_back(node);
    }

    std::vector<std::string> large(const LargeFilesFilter &filter, Casing casing = Casing::usual) const
    {
        return namesOf(largeFiles(files, filter, SearchableNames(files, casing)));
    }
    std::vector<std::string> old(const OldFilesFilter &filter, std::int64_t cutoff) const
    {
        return namesOf(
            oldFiles(files, filter, Time(std::chrono::seconds(cutoff)), SearchableNames(files, Casing::usual)));
    }

    static std::vector<std::string> namesOf(const FileList &list)
    {
        std::vector<std::string> names;
        for (const auto &file : list)
            names.push_back(file->name);
        return names;
    }

    std::shared_ptr<FileNode> root = std::make_shared<FileNode>("/home/me", FileNode::Kind::directory);
    FileList files;
};

TEST_F(FileListsTest, LargeFilesBeginAt100MB)
{
    add("exactly", 100'000'000);
    add("one byte less", 99'999'999);
    EXPECT_THAT(large({}), ElementsAre("exactly"));
}

TEST_F(FileListsTest, TheOrderIsKept)
{
    add("b", 300'000'000);
    add("a", 500'000'000);
    add("c", 400'000'000);
    EXPECT_THAT(large({}), ElementsAre("b", "a", "c"));
}

TEST_F(FileListsTest, ATypeIsThatOfTheExtensionAndOfAFolderItsOwn)
{
    add("film.MOV", 100'000'000);
    add("Photos.photoslibrary", 100'000'000, 0, FileNode::Kind::package);
    add("Tool.app", 100'000'000, 0, FileNode::Kind::package);
    add("folder.mov", 100'000'000, 0, FileNode::Kind::directory);
    add("no extension", 100'000'000);
    EXPECT_THAT(large({.type = FileType::video, .query = {}}), ElementsAre("film.MOV"));
    EXPECT_THAT(large({.type = FileType::app, .query = {}}), ElementsAre("Tool.app"));
    EXPECT_THAT(large({.type = FileType::other, .query = {}}), ::testing::Contains("no extension"));
    EXPECT_EQ(large({}).size(), 5U);
}

TEST_F(FileListsTest, AFilterByNameTakesNoAccountOfCase)
{
    add("Straße.mov", 100'000'000);
    add("cafe\u0301.mov", 100'000'000);
    add("ISPARTA.mov", 100'000'000);
    add("caf\xe9 \xff", 100'000'000);
    EXPECT_THAT(large({.type = {}, .query = "STRASSE"}), ElementsAre("Straße.mov"));
    EXPECT_THAT(large({.type = {}, .query = "CAFÉ"}), ElementsAre("cafe\u0301.mov"));
    EXPECT_THAT(large({.type = {}, .query = "isparta"}), ElementsAre("ISPARTA.mov"));
    EXPECT_THAT(large({.type = {}, .query = "isparta"}, Casing::turkic), IsEmpty());
    EXPECT_THAT(large({.type = {}, .query = "ısparta"}, Casing::turkic), ElementsAre("ISPARTA.mov"));
    EXPECT_THAT(large({.type = {}, .query = "no such name"}), IsEmpty());
}

TEST_F(FileListsTest, ANameIsNotFoundAcrossTheEndOfAnother)
{
    add("ab", 100'000'000);
    add("cd", 100'000'000);
    EXPECT_THAT(large({.type = {}, .query = "bc"}), IsEmpty());
    EXPECT_THAT(large({.type = {}, .query = "b"}), ElementsAre("ab"));
    EXPECT_THAT(large({.type = {}, .query = "cd"}), ElementsAre("cd"));
}

TEST_F(FileListsTest, OldFilesAreThoseModifiedBeforeTheCutoff)
{
    add("before", 10'000'000, 999);
    add("at", 10'000'000, 1'000);
    add("small", 9'999'999, 1);
    EXPECT_THAT(old({}, 1'000), ElementsAre("before"));
}

TEST_F(FileListsTest, AFileOfUnknownDateIsNeverOld)
{
    add("unknown", 10'000'000);
    files.back()->modified = distantPast;
    EXPECT_THAT(old({}, 1'000), IsEmpty());
}

TEST_F(FileListsTest, TheAgeIsGivenInMonthsBelowAYearAndInWholeYearsFromThere)
{
    EXPECT_EQ(ageLabel(1), "1 month");
    EXPECT_EQ(ageLabel(6), "6 months");
    EXPECT_EQ(ageLabel(11), "11 months");
    EXPECT_EQ(ageLabel(12), "1 year");
    EXPECT_EQ(ageLabel(23), "1 year");
    EXPECT_EQ(ageLabel(24), "2 years");
    EXPECT_EQ(ageLabel(60), "5 years");
}

TEST_F(FileListsTest, TheSubtitleCounts)
{
    EXPECT_EQ(largeFilesSubtitle(files), "0 items · Zero KB");
    add("a", 100'000'000);
    EXPECT_EQ(largeFilesSubtitle(files), "1 item · 100 MB");
    EXPECT_EQ(oldFilesSubtitle(files, 12), "1 item untouched for 1 year · 100 MB");
    add("b", 200'000'000);
    EXPECT_EQ(largeFilesSubtitle(files), "2 items · 300 MB");
    EXPECT_EQ(oldFilesSubtitle(files, 36), "2 items untouched for 3 years · 300 MB");
}

} // namespace
} // namespace corvane
