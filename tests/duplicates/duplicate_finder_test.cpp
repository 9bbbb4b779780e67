#include "duplicates/duplicate_finder.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::UnorderedElementsAre;

constexpr std::size_t kib = 1024;
constexpr std::size_t partLimit = 128 * kib;

class DuplicateFinderTest : public ::testing::Test {
protected:
    /// Creates a real file with this content, and its node as after a scan.
    std::shared_ptr<FileNode> add(const std::string &name, const std::string &contents, std::int64_t modified = 1'000)
    {
        folder.writeText(name, contents);
        return addNode(name, static_cast<std::int64_t>(contents.size()), modified);
    }

    std::shared_ptr<FileNode> addNode(const std::string &name, std::int64_t size, std::int64_t modified = 1'000,
                                      FileNode::Kind kind = FileNode::Kind::file)
    {
        auto node = std::make_shared<FileNode>(root->pathForChildren(), name, kind, root);
        node->size = size;
        node->modified = Time(std::chrono::seconds(modified));
        nodes.push_back(node);
        return node;
    }

    std::vector<DuplicateGroup> find()
    {
        return DuplicateFinder::find(nodes, [this](double fraction) { progress.push_back(fraction); });
    }

    /// The names in each group.
    std::vector<std::vector<std::string>> findNames()
    {
        std::vector<std::vector<std::string>> names;
        for (const DuplicateGroup &group : find()) {
            names.emplace_back();
            for (const auto &file : group.files)
                names.back().push_back(file->name);
        }
        return names;
    }

    TemporaryFolder folder;
    std::shared_ptr<FileNode> root = std::make_shared<FileNode>(folder.path(), FileNode::Kind::directory);
    std::vector<std::shared_ptr<FileNode>> nodes;
    std::vector<double> progress;
};

std::string text(std::size_t length, char letter = 'x')
{
    return std::string(length, letter);
}

std::string changedAt(std::string contents, std::size_t place)
{
    contents[place] = '!';
    return contents;
}

TEST_F(DuplicateFinderTest, OfNoFilesThereAreNoGroupsAndNoProgress)
{
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(progress, IsEmpty());
}

TEST_F(DuplicateFinderTest, FilesThatAllHaveSizesOfTheirOwnAreNotEvenOpened)
{
    addNode("not there 1", 100);
    addNode("not there 2", 200);
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(progress, IsEmpty());
}

TEST_F(DuplicateFinderTest, EqualContentsOfEqualSizeAreAGroup)
{
    add("a", text(300 * kib));
    add("b", text(300 * kib));
    add("other contents", text(300 * kib, 'y'));
    add("other size", text(301 * kib));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "b")));
}

TEST_F(DuplicateFinderTest, CopiesThatOccupyDifferentAmountsOfSpaceAreNotCompared)
{
    add("a", text(300 * kib));
    add("sparse or compressed", text(300 * kib))->size = 100 * kib;
    EXPECT_THAT(findNames(), IsEmpty());
}

TEST_F(DuplicateFinderTest, FilesThatDifferOnlyInTheMiddleAreToldApart)
{
    const std::string contents = text(400 * kib);
    add("a", contents);
    add("b", changedAt(contents, 200 * kib));
    add("c", contents);
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "c")));
}

TEST_F(DuplicateFinderTest, FilesThatDifferOnlyInTheFirstOrTheLastByteAreToldApart)
{
    const std::string contents = text(400 * kib);
    add("a", contents);
    add("b", changedAt(contents, 0));
    add("c", changedAt(contents, contents.size() - 1));
    EXPECT_THAT(findNames(), IsEmpty());
}

/// The number of reports shows how far each file got: one for each partial and one for each full fingerprint.
TEST_F(DuplicateFinderTest, OfAFileOf128KiBOnlyTheFirst64KiBAreReadAtFirst)
{
    const std::string contents = text(partLimit);
    add("a", contents);
    add("b", changedAt(contents, 64 * kib));
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(progress, ElementsAre(0.25, 0.5, 0.75, 1.0)) << "the wholes were compared, too";
}

TEST_F(DuplicateFinderTest, OfAFileOneByteLongerTheLast64KiBAreReadAtFirstToo)
{
    const std::string contents = text(partLimit + 1);
    add("a", contents);
    add("b", changedAt(contents, partLimit));
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(progress, ElementsAre(0.25, 0.5)) << "told apart without their wholes";
}

TEST_F(DuplicateFinderTest, TheByteBeforeTheLast64KiBIsNotReadAtFirst)
{
    const std::string contents = text(300 * kib);
    add("a", contents);
    add("b", changedAt(contents, contents.size() - 64 * kib - 1));
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(progress, ElementsAre(0.25, 0.5, 0.75, 1.0));
}

TEST_F(DuplicateFinderTest, ThreeCopiesWasteTwiceTheSize)
{
    for (const char *name : {"a", "b", "c"})
        add(name, text(200 * kib));
    const std::vector<DuplicateGroup> groups = find();
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].size, 200 * kib);
    EXPECT_EQ(groups[0].waste(), 400 * kib);
    EXPECT_EQ(totalReclaimable(groups), 400 * kib);
}

TEST_F(DuplicateFinderTest, TheMostWastefulGroupComesFirst)
{
    add("two large 1", text(500 * kib));
    add("two large 2", text(500 * kib));
    for (const char *name : {"four 1", "four 2", "four 3", "four 4"})
        add(name, text(200 * kib, 'y'));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("four 1", "four 2", "four 3", "four 4"),
                                         ElementsAre("two large 1", "two large 2")));
}

TEST_F(DuplicateFinderTest, TheNewestComesFirstAndEqualDatesKeepTheirOrder)
{
    add("old", text(kib), 1'000);
    add("new 1", text(kib), 3'000);
    addNode("undated", kib);
    folder.writeText("undated", text(kib));
    nodes.back()->modified = distantPast;
    add("new 2", text(kib), 3'000);
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("new 1", "new 2", "old", "undated")));
}

TEST_F(DuplicateFinderTest, FilesOfDifferentAllocatedSizesAreNeverCompared)
{
    // Same contents with different allocated sizes, as when one of them is compressed by the file system.
    add("a", text(kib));
    add("b", text(kib));
    nodes[1]->size = 2 * kib;
    EXPECT_THAT(find(), IsEmpty());
}

TEST_F(DuplicateFinderTest, FoldersAndPackagesTakeNoPart)
{
    add("a", text(kib));
    folder.writeText("b", text(kib));
    addNode("b", kib, 1'000, FileNode::Kind::package);
    folder.writeText("c", text(kib));
    addNode("c", kib, 1'000, FileNode::Kind::directory);
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(progress, IsEmpty());
}

TEST_F(DuplicateFinderTest, AFileThatIsGoneIsLeftOutAndCounted)
{
    add("a", text(kib));
    addNode("gone", kib);
    add("b", text(kib));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "b")));
    EXPECT_EQ(progress.size(), 5U) << "three parts and two wholes";
}

TEST_F(DuplicateFinderTest, AFileThatMayNotBeReadIsLeftOut)
{
    if (!TemporaryFolder::canMakeUnreadable())
        GTEST_SKIP() << "root may read everything";
    add("a", text(kib));
    add("locked", text(kib));
    ASSERT_EQ(::chmod((folder / "locked").c_str(), 0), 0);
    add("b", text(kib));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "b")));
}

TEST_F(DuplicateFinderTest, AFileThatWasCutShortCountsWithWhatIsLeft)
{
    add("a", text(300 * kib));
    add("b", text(300 * kib));
    add("c", text(300 * kib));
    folder.writeText("c", text(100 * kib));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "b")));
}

TEST_F(DuplicateFinderTest, HolesAreReadAsTheZerosThatTheyStandFor)
{
    folder.writeSparse("hole", static_cast<std::int64_t>(300 * kib));
    addNode("hole", 300 * kib);
    add("zeros", text(300 * kib, '\0'));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("hole", "zeros")));
}

TEST_F(DuplicateFinderTest, ALinkThatTookAFilesPlaceIsNotFollowed)
{
    add("a", text(kib));
    add("b", text(kib));
    folder.link("link", "a");
    addNode("link", kib);
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "b")));
}

TEST_F(DuplicateFinderTest, APipeAndADeviceAreNeverOpened)
{
    // Opening the pipe would block until there is a writer.
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    addNode("pipe", kib);
    if (::mknod((folder / "device").c_str(), S_IFCHR | 0600, makedev(1, 5)) == 0)
        addNode("device", kib);
    add("a", text(kib));
    add("b", text(kib));
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "b")));
}

TEST_F(DuplicateFinderTest, UnreadableFilesAreNotDuplicatesOfEachOther)
{
    // The start of a process's address space is unmapped: reading there fails.
    const std::string own = "/proc/" + std::to_string(::getpid());
    if (::access((own + "/mem").c_str(), R_OK) != 0)
        GTEST_SKIP() << "the system has no such file";
    for (const std::string &process : {own, std::string("/proc/self")}) {
        const auto parent = std::make_shared<FileNode>(process, FileNode::Kind::directory);
        nodes.push_back(std::make_shared<FileNode>(parent->pathForChildren(), "mem", FileNode::Kind::file, parent));
        nodes.back()->size = kib;
    }
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_EQ(progress.size(), 2U) << "they did not get to the wholes";
}

TEST_F(DuplicateFinderTest, TwoNamesOfOneFileAreDuplicatesThatFreeNothing)
{
    add("a", text(kib), 3'000);
    folder.hardLink("second name of a", "a");
    addNode("second name of a", kib, 2'000);
    add("copy", text(kib), 1'000);
    const std::vector<DuplicateGroup> groups = find();
    ASSERT_EQ(groups.size(), 1U);
    ASSERT_EQ(groups[0].files.size(), 3U);
    EXPECT_EQ(groups[0].waste(), 2 * kib);
    EXPECT_EQ(groups[0].reclaimable(), kib);
    EXPECT_THAT(groups[0].sharedStorage(), ElementsAre(std::nullopt, 0U, std::nullopt));
}

TEST_F(DuplicateFinderTest, WhatEachFileWasWhenItWasComparedIsRemembered)
{
    add("a", text(300 * kib));
    add("b", text(300 * kib));
    folder.setModified("a", 1'700'000'000);
    const std::vector<DuplicateGroup> groups = find();
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].seen[0].length, static_cast<std::int64_t>(300 * kib));
    EXPECT_EQ(groups[0].seen[0].modified, Time(std::chrono::seconds(1'700'000'000)));
    EXPECT_NE(groups[0].seen[0].identity, groups[0].seen[1].identity);
}

TEST_F(DuplicateFinderTest, EveryGroupHasAnIdOfItsOwn)
{
    for (const char letter : {'x', 'y'}) {
        add(std::string("first ") + letter, text(kib, letter));
        add(std::string("second ") + letter, text(kib, letter));
    }
    const std::vector<DuplicateGroup> groups = find();
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_THAT(groups[0].id,
                ::testing::MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
    EXPECT_NE(groups[0].id, groups[1].id);
}

TEST_F(DuplicateFinderTest, ProgressIsReportedInStepsOfAHundredthAndStaysBelowOneWhereFilesDropOut)
{
    for (int i = 0; i < 1'000; ++i)
        add("file " + std::to_string(i), text(kib) + std::to_string(i));
    for (const auto &node : nodes)
        node->size = kib;
    find();
    EXPECT_THAT(progress, Each(AllOf(Ge(0.01), Le(0.5))));
    EXPECT_LE(progress.size(), 50U);
    EXPECT_GE(progress.size(), 49U);
    for (std::size_t i = 1; i < progress.size(); ++i)
        EXPECT_GE(progress[i] - progress[i - 1], 0.01 - 1e-9);
}

TEST_F(DuplicateFinderTest, ALargeFileIsReadToItsEnd)
{
    const std::string contents = text(5 * kib * kib + 17);
    add("a", contents);
    add("b", changedAt(contents, 4 * kib * kib + 1));
    add("c", contents);
    EXPECT_THAT(findNames(), ElementsAre(ElementsAre("a", "c")));
}

TEST_F(DuplicateFinderTest, OnceStoppedItReadsNoFurtherAndMakesUpNoGroup)
{
    add("a", text(300 * kib));
    add("b", text(300 * kib));
    StopFlag stop = false;
    const auto groups = DuplicateFinder::find(
        nodes,
        [&](double fraction) {
            progress.push_back(fraction);
            stop = fraction >= 0.75; // between the two full fingerprints
        },
        systemHost().files, stop);
    EXPECT_THAT(groups, IsEmpty());
    EXPECT_EQ(progress.size(), 3U);
}

TEST_F(DuplicateFinderTest, NamesAreBytes)
{
    add("caf\xe9", text(kib));
    add("b", text(kib));
    EXPECT_THAT(findNames(), ElementsAre(UnorderedElementsAre("caf\xe9", "b")));
}

} // namespace
} // namespace corvane
