#include "lists/listed_files.h"

#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ListedFilesTest : public ::testing::Test {
protected:
    ListedFilesTest()
    {
        add("Films", "beta.mov", 400, 30);
        add("Films", "Émile.zip", 300, 10);
        add("Archive", "alpha.zip", 200, 20);
        add("Films", "Alpine.mov", 200, 20);
        add("Archive", "delta", 100, 40);
    }

    void add(const std::string &folder, const std::string &name, std::int64_t megabytes, std::int64_t modified)
    {
        auto &parent = folders.try_emplace(folder, nullptr).first->second;
        if (!parent)
            parent = std::make_shared<FileNode>(root->pathForChildren(), folder, FileNode::Kind::directory, root);
        auto node = std::make_shared<FileNode>(parent->pathForChildren(), name, FileNode::Kind::file, parent);
        node->size = megabytes * 1'000'000;
        node->modified = Time(std::chrono::seconds(modified));
        files.push_back(node);
    }
    [[nodiscard]] ListedFiles listed() const
    {
        ListedFiles listed(files, Casing::usual, "/home/me");
        listed.prepare();
        return listed;
    }
    [[nodiscard]] std::vector<std::string> sorted(FileColumn column, bool descending) const
    {
        const ListedFiles all = listed();
        return namesOf(all.large({}, {column, descending}));
    }
    [[nodiscard]] static std::vector<std::string> namesOf(const FileRows &rows)
    {
        std::vector<std::string> names;
        for (const FileNode *file : rows.files)
            names.push_back(file->name);
        return names;
    }

    std::shared_ptr<FileNode> root = std::make_shared<FileNode>("/home/me", FileNode::Kind::directory);
    std::map<std::string, std::shared_ptr<FileNode>> folders;
    FileList files;
};

TEST_F(ListedFilesTest, BySizeTheOrderIsTheGivenOneAndTiesKeepItBothWays)
{
    EXPECT_THAT(sorted(FileColumn::size, true),
                ElementsAre("beta.mov", "Émile.zip", "alpha.zip", "Alpine.mov", "delta"));
    EXPECT_THAT(sorted(FileColumn::size, false),
                ElementsAre("delta", "alpha.zip", "Alpine.mov", "Émile.zip", "beta.mov"));
}

TEST_F(ListedFilesTest, ByNameCaseDoesNotMatter)
{
    EXPECT_THAT(sorted(FileColumn::name, false),
                ElementsAre("alpha.zip", "Alpine.mov", "beta.mov", "delta", "Émile.zip"));
    EXPECT_THAT(sorted(FileColumn::name, true),
                ElementsAre("Émile.zip", "delta", "beta.mov", "Alpine.mov", "alpha.zip"));
}

TEST_F(ListedFilesTest, NamesThatBeginAlikeAreToldApartByTheRest)
{
    files.clear();
    add("Films", "recording 10.mov", 300, 0);
    add("Films", "recording 1", 200, 0);
    add("Films", "recording 02.mov", 100, 0);
    EXPECT_THAT(sorted(FileColumn::name, false), ElementsAre("recording 02.mov", "recording 1", "recording 10.mov"));
}

TEST_F(ListedFilesTest, ByKindTheLabelsAreInOrderAndWithinOneTheLargestIsFirst)
{
    EXPECT_THAT(sorted(FileColumn::kind, false),
                ElementsAre("Émile.zip", "alpha.zip", "delta", "beta.mov", "Alpine.mov"));
    EXPECT_THAT(sorted(FileColumn::kind, true),
                ElementsAre("beta.mov", "Alpine.mov", "delta", "Émile.zip", "alpha.zip"));
}

TEST_F(ListedFilesTest, ByDateAndByLocationBothWays)
{
    EXPECT_THAT(sorted(FileColumn::modified, false),
                ElementsAre("Émile.zip", "alpha.zip", "Alpine.mov", "beta.mov", "delta"));
    EXPECT_THAT(sorted(FileColumn::modified, true),
                ElementsAre("delta", "beta.mov", "alpha.zip", "Alpine.mov", "Émile.zip"));
    EXPECT_THAT(sorted(FileColumn::location, false),
                ElementsAre("alpha.zip", "delta", "beta.mov", "Émile.zip", "Alpine.mov"));
    EXPECT_THAT(sorted(FileColumn::location, true),
                ElementsAre("beta.mov", "Émile.zip", "Alpine.mov", "alpha.zip", "delta"));
}

TEST_F(ListedFilesTest, TheFiltersAreThoseOfTheLists)
{
    add("Films", "one byte less", 0, 0);
    files.back()->size = 99'999'999;
    const ListedFiles all = listed();
    const SearchableNames names(files, Casing::usual);
    const auto expectSame = [&](const FileList &expected, const FileRows &rows) {
        std::vector<const FileNode *> nodes;
        for (const auto &file : expected)
            nodes.push_back(file.get());
        EXPECT_EQ(rows.files, nodes);
        EXPECT_EQ(rows.total, totalSize(expected));
    };
    for (const LargeFilesFilter &filter :
         {LargeFilesFilter(), LargeFilesFilter{.minSize = 0, .type = FileType::video, .query = {}},
          LargeFilesFilter{.minSize = 250'000'000, .type = {}, .query = {}},
          LargeFilesFilter{.minSize = 0, .type = {}, .query = "ALP"},
          LargeFilesFilter{.minSize = 0, .type = {}, .query = "e\u0301mi"}})
        expectSame(largeFiles(files, filter, names), all.large(filter, {}));
    const Time cutoff(std::chrono::seconds(30));
    for (const OldFilesFilter &filter : {OldFilesFilter(), OldFilesFilter{.months = 12, .minSize = 0, .query = "al"}})
        expectSame(oldFiles(files, filter, cutoff, names), all.old(filter, cutoff, {}));
}

TEST_F(ListedFilesTest, WithoutFilesThereAreNoRows)
{
    files.clear();
    const ListedFiles none = listed();
    EXPECT_THAT(none.large({}, {FileColumn::name, true}).files, IsEmpty());
    EXPECT_THAT(none.old({}, Time(), {FileColumn::size, false}).files, IsEmpty());
}

} // namespace
} // namespace corvane
