#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <ostream>

#include <gmock/gmock.h>

#include "platform/linux/trash_records.h"

namespace corvane {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(LinuxTrash, ItemLiesInTheTrashWithARecordOfWhereItCameFrom)
{
    const ProbeHome home;
    const std::string path = home.folder.writeText("home/Documents/letter.txt", "Dear");
    EXPECT_EQ(home.ask("trash", path), "done");
    EXPECT_FALSE(home.folder.has("home/Documents/letter.txt"));
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/letter.txt"), "Dear");
    EXPECT_EQ(originalPath(home.folder / "home/data/Trash/info/letter.txt.trashinfo"), path);
}

TEST(LinuxTrash, FolderGoesWithEverythingInIt)
{
    const ProbeHome home;
    home.folder.writeText("home/project/src/main.c", "int");
    home.folder.link("home/project/link", "src");
    EXPECT_EQ(home.ask("trash", home.folder / "home/project"), "done");
    EXPECT_FALSE(home.folder.has("home/project"));
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/project/src/main.c"), "int");
    EXPECT_EQ(linkTarget(home.folder / "home/data/Trash/files/project/link"), "src");
}

TEST(LinuxTrash, LinkIsTrashedItselfAndItsTargetStays)
{
    const ProbeHome home;
    const std::string target = home.folder.writeText("home/photos/a.jpg", "picture");
    const std::string link = home.folder.link("home/shortcut", home.folder / "home/photos");
    EXPECT_EQ(home.ask("trash", link), "done");
    EXPECT_FALSE(home.folder.has("home/shortcut"));
    EXPECT_EQ(linkTarget(home.folder / "home/data/Trash/files/shortcut"), home.folder / "home/photos");
    EXPECT_EQ(contents(target), "picture");
}

TEST(LinuxTrash, LinkWithASlashBehindItIsStillTheLink)
{
    const ProbeHome home;
    home.folder.writeText("home/photos/a.jpg", "picture");
    const std::string link = home.folder.link("home/shortcut", "photos");
    EXPECT_EQ(home.ask("trash", link + "/"), "done");
    EXPECT_EQ(linkTarget(home.folder / "home/data/Trash/files/shortcut"), "photos");
    EXPECT_TRUE(home.folder.has("home/photos/a.jpg"));
}

TEST(LinuxTrash, DanglingLinkIsTrashed)
{
    const ProbeHome home;
    EXPECT_EQ(home.ask("trash", home.folder.link("home/dangling", "/nowhere/at/all")), "done");
    EXPECT_FALSE(home.folder.has("home/dangling"));
    EXPECT_EQ(linkTarget(home.folder / "home/data/Trash/files/dangling"), "/nowhere/at/all");
}

/// The outcome for "home/letter.txt" when a script changes the Trash while the item is being moved there. The script
/// runs in the Trash folder.
class TrashChangedMeanwhile : public ::testing::Test {
protected:
    TrashChangedMeanwhile() : letter(home.folder.writeText("home/letter.txt", "Dear")) {}

    std::string trashWhile(const std::string &script)
    {
        home.setVariable("MEANWHILE", "cd '" + home.folder / "home/data/Trash" + "' && " + script);
        return home.ask("trash-interrupted", letter);
    }

    ProbeHome home;
    const std::string letter;
};

TEST_F(TrashChangedMeanwhile, AnEmptiedOneLeavesTheItemInItsPlace)
{
    EXPECT_THAT(trashWhile("rm files/* info/*"), HasSubstr("Another program has changed the Trash in the meantime."));
    EXPECT_EQ(contents(letter), "Dear");
    EXPECT_FALSE(home.folder.has("home/data/Trash/info/letter.txt.trashinfo"));
}

TEST_F(TrashChangedMeanwhile, WhatSomebodyElsePutThereUnderThatNameStaysWithItsRecord)
{
    EXPECT_THAT(trashWhile("rm files/* info/* && echo other > files/letter.txt && "
                           "echo record > info/letter.txt.trashinfo"),
                HasSubstr("Another program has changed the Trash in the meantime."));
    EXPECT_EQ(contents(letter), "Dear");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/letter.txt"), "other\n");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/info/letter.txt.trashinfo"), "record\n");
}

TEST_F(TrashChangedMeanwhile, WhatSomebodyElsePutThereStaysAlsoUnderTheFileNumberOfWhatWasDeleted)
{
    // Many file systems reuse the inode number that was freed last.
    static constexpr const char *script = R"sh(
        refill() {
            freed=$(stat -c %i "$1"); rm "$1"
            for attempt in $(seq 200); do
                echo other > refill
                [ "$(stat -c %i refill)" = "$freed" ] && break
                mv refill ../taken.$attempt
            done
            [ -e refill ] || echo other > refill
            mv refill "$1"
        }
        refill files/letter.txt; refill info/letter.txt.trashinfo)sh";
    EXPECT_THAT(trashWhile(script), HasSubstr("Another program has changed the Trash in the meantime."));
    EXPECT_EQ(contents(letter), "Dear");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/letter.txt"), "other\n");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/info/letter.txt.trashinfo"), "other\n");
}

TEST_F(TrashChangedMeanwhile, AMissingOneLeavesTheItemInItsPlace)
{
    EXPECT_THAT(trashWhile("rm -r ../Trash"), HasSubstr("Another program has changed the Trash in the meantime."));
    EXPECT_EQ(contents(letter), "Dear");
}

TEST_F(TrashChangedMeanwhile, ALinkInItsPlaceLeadsNothingElsewhere)
{
    home.folder.makeFolder("home/project/files");
    home.folder.makeFolder("home/project/info");
    EXPECT_EQ(trashWhile("mv ../Trash ../moved && ln -s ../project ../Trash"), "done");
    EXPECT_FALSE(home.folder.has("home/project/files/letter.txt"));
    EXPECT_EQ(contents(home.folder / "home/data/moved/files/letter.txt"), "Dear");
    EXPECT_EQ(originalPath(home.folder / "home/data/moved/info/letter.txt.trashinfo"), letter);
}

struct OddName {
    std::string title;
    std::string bytes;

    friend std::ostream &operator<<(std::ostream &out, const OddName &name) { return out << name.title; }
};

class LinuxTrashNames : public ::testing::TestWithParam<OddName> {};

TEST_P(LinuxTrashNames, AreKeptByteForByte)
{
    const ProbeHome home;
    const std::string &name = GetParam().bytes;
    const std::string path = home.folder.writeText("home/" + name, "kept");
    EXPECT_EQ(home.ask("trash", path), "done");
    EXPECT_FALSE(home.folder.has("home/" + name));
    EXPECT_EQ(contents(home.folder / ("home/data/Trash/files/" + name)), "kept");
    EXPECT_EQ(originalPath(home.folder / ("home/data/Trash/info/" + name + ".trashinfo")), path);
}

INSTANTIATE_TEST_SUITE_P(Odd, LinuxTrashNames,
                         ::testing::Values(OddName{"NotUtf8", "not utf-8 \xff\xfe"}, OddName{"LineBreak", "two\nlines"},
                                           OddName{"PercentSign", "100%20 %"}, OddName{"Option", "-rf"},
                                           OddName{"UriPunctuation", "#?&;*"}, OddName{"Blank", " "},
                                           OddName{"EmojiAndHebrew",
                                                   "\xf0\x9f\x93\xa6 \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"}),
                         [](const auto &name) { return name.param.title; });

TEST(LinuxTrash, ItemsOfTheSameNameAreAllKept)
{
    const ProbeHome home;
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/a/note", "first")), "done");
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/b/note", "second")), "done");
    std::vector<std::string> kept;
    for (const auto &each : std::filesystem::directory_iterator(home.folder / "home/data/Trash/files"))
        kept.push_back(contents(each.path()));
    EXPECT_THAT(kept, ::testing::UnorderedElementsAre("first", "second"));
}

class LinuxTrashWithAnUnrecordedItem : public ::testing::TestWithParam<std::string> {};

TEST_P(LinuxTrashWithAnUnrecordedItem, KeepsItAndTheNewOne)
{
    const ProbeHome home;
    const std::string &name = GetParam();
    home.folder.writeText("home/data/Trash/files/" + name, "left without a record");
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/a/" + name, "first")), "done");
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/b/" + name, "second")), "done");
    std::vector<std::string> kept;
    for (const auto &each : std::filesystem::directory_iterator(home.folder / "home/data/Trash/files"))
        kept.push_back(contents(each.path()));
    EXPECT_THAT(kept, ::testing::UnorderedElementsAre("left without a record", "first", "second"));
    EXPECT_EQ(contents(home.folder / ("home/data/Trash/files/" + name)), "left without a record");
    EXPECT_FALSE(home.folder.has("home/data/Trash/info/" + name + ".trashinfo"))
        << "the record of nothing must not stay";
    std::vector<std::string> origins;
    for (const auto &each : std::filesystem::directory_iterator(home.folder / "home/data/Trash/info"))
        origins.push_back(originalPath(each.path()));
    EXPECT_THAT(origins,
                ::testing::UnorderedElementsAre(home.folder / ("home/a/" + name), home.folder / ("home/b/" + name)));
}

INSTANTIATE_TEST_SUITE_P(Names, LinuxTrashWithAnUnrecordedItem,
                         ::testing::Values("note", "note.txt", "archive.tar.gz", ".hidden"),
                         [](const auto &name) { return "Number" + std::to_string(name.index); });

TEST(LinuxTrash, UnrecordedItemWithALaterNumberIsKeptToo)
{
    const ProbeHome home;
    home.folder.writeText("home/data/Trash/files/note.2.txt", "left without a record");
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/a/note.txt", "first")), "done");
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/b/note.txt", "second")), "done");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/note.txt"), "first");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/note.2.txt"), "left without a record");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/note.3.txt"), "second");
}

TEST(LinuxTrash, ItemThatLeadsOverAnUnrecordedFolderKeepsBoth)
{
    const ProbeHome home;
    home.folder.makeFolder("home/data/Trash/files/project"); // empty: a folder could be moved over it
    home.folder.writeText("home/project/main.c", "int");
    EXPECT_EQ(home.ask("trash", home.folder / "home/project"), "done");
    EXPECT_TRUE(std::filesystem::is_empty(home.folder / "home/data/Trash/files/project"));
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/project.2/main.c"), "int");
}

TEST(LinuxTrash, MissingItemFails)
{
    const ProbeHome home;
    EXPECT_THAT(home.ask("trash", home.folder / "home/none"), StartsWith(startOfFailure(ENOENT)));
}

TEST(LinuxTrash, FileInTheTrashsPlaceFailsAndTheItemStays)
{
    const ProbeHome home;
    home.folder.writeText("home/data", "not a folder");
    const std::string path = home.folder.writeText("home/item", "kept");
    const std::string answer = home.ask("trash", path);
    EXPECT_THAT(answer, StartsWith(startOfFailure(ENOTDIR)));
    EXPECT_THAT(answer, HasSubstr("trash"));
    EXPECT_EQ(contents(path), "kept");
    EXPECT_EQ(contents(home.folder / "home/data"), "not a folder");
}

TEST(LinuxTrash, NameTooLongForARecordFailsAndTheItemStays)
{
    const ProbeHome home;
    const std::string path = home.folder.writeText("home/" + std::string(255, 'n'), "kept");
    EXPECT_THAT(home.ask("trash", path), StartsWith(startOfFailure(ENAMETOOLONG)));
    EXPECT_EQ(contents(path), "kept");
}

TEST(LinuxTrash, TrashIsNotMovedIntoItself)
{
    const ProbeHome home;
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/old", "kept")), "done");
    EXPECT_NE(home.ask("trash", home.folder / "home/data/Trash"), "done");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/old"), "kept");
}

TEST(LinuxTrash, TrashThatCannotBeWrittenFailsAndTheItemStays)
{
    REQUIRE_SANDBOX();
    const ProbeHome home;
    const std::string data = home.folder.makeFolder("home/data");
    const std::string path = home.folder.writeText("home/item", "kept");
    const std::string answer = home.runSandboxed({"--ro-bind", data, data}, "$probe trash '" + path + "'");
    EXPECT_THAT(answer, StartsWith(startOfFailure(EROFS)));
    EXPECT_EQ(contents(path), "kept");
}

TEST(LinuxTrash, ReadOnlyDiskFailsAndTheItemStays)
{
    REQUIRE_SANDBOX();
    const ProbeHome home;
    const std::string path = home.folder.writeText("home/item", "kept");
    const std::string answer =
        home.runSandboxed({"--ro-bind", home.folder / "home", home.folder / "home"}, "$probe trash '" + path + "'");
    EXPECT_THAT(answer, StartsWith(startOfFailure(EROFS)));
    EXPECT_EQ(contents(path), "kept");
}

TEST(LinuxTrash, FullDiskFailsAndTheItemStaysWithNothingLeftBehind)
{
    REQUIRE_SANDBOX();
    const ProbeHome home;
    // The Trash already exists and its first item fits: only space for one more record is missing.
    const std::string answer = home.runSandboxed({"--size", "131072", "--tmpfs", home.folder / "home"}, R"(
        cd "$HOME"; echo first > first; echo second > second
        $probe trash "$HOME/first"
        dd if=/dev/zero of=filler bs=4096 2> /dev/null
        $probe trash "$HOME/second"
        cat second
        ls data/Trash/files data/Trash/info
        rm filler
        $probe trash "$HOME/second")");
    EXPECT_EQ(answer, "done\n" + std::to_string(ENOSPC) +
                          " The disk is full: the Trash cannot record where the item came from.\n"
                          "second\n"
                          "data/Trash/files:\nfirst\n\ndata/Trash/info:\nfirst.trashinfo\n"
                          "done");
}

TEST(LinuxTrash, DiskWithoutRoomForTheTrashFolderFailsAndTheItemStays)
{
    REQUIRE_SANDBOX();
    const ProbeHome home;
    const std::string answer = home.runSandboxed({"--size", "65536", "--tmpfs", home.folder / "home"}, R"(
        cd "$HOME"; echo kept > item
        dd if=/dev/zero of=filler bs=4096 2> /dev/null
        $probe trash "$HOME/item"
        cat item)");
    EXPECT_THAT(answer, StartsWith(startOfFailure(ENOSPC)));
    EXPECT_THAT(answer, EndsWith("\nkept"));
}

TEST(LinuxTrash, VolumeThatHasNoTrashFailsAndTheItemStays)
{
    REQUIRE_SANDBOX();
    const ProbeHome home;
    const std::string volume = home.folder.makeFolder("volume");
    const std::string answer = home.runSandboxed({"--tmpfs", volume}, "cd '" + volume + R"('
        echo kept > item
        $probe trash "$PWD/item"
        ls -A; cat item)");
    EXPECT_THAT(answer, StartsWith(startOfFailure(ENOTSUP)));
    EXPECT_THAT(answer, EndsWith("\nitem\nkept"));
}

TEST(LinuxTrash, ItemThatWouldHaveToBeCopiedToTheTrashFailsAndStays)
{
    REQUIRE_SANDBOX();
    const ProbeHome home;
    const std::string path = home.folder.writeText("home/bound/item", "kept");
    const std::string bound = home.folder / "home/bound";
    const std::string answer = home.runSandboxed({"--bind", bound, bound}, "$probe trash '" + path + "'");
    EXPECT_THAT(answer, StartsWith(startOfFailure(ENOTSUP)));
    EXPECT_EQ(contents(path), "kept");
    EXPECT_TRUE(std::filesystem::is_empty(home.folder / "home/data/Trash/info"));
}

TEST(LinuxTrash, ServicesOfAnotherSystemFailWithASentence)
{
    const ProbeHome home;
    const std::string path = home.folder.writeText("home/X.app/file", "kept");
    const std::string answer = startOfFailure(ENOTSUP) + "There is no such service on this system.";
    EXPECT_EQ(home.ask("recycle", home.folder / "home/X.app"), answer);
    EXPECT_EQ(home.ask("finder", home.folder / "home/X.app"), answer);
    EXPECT_EQ(contents(path), "kept");
}

TEST(LinuxTrash, FoldersAreTheOnesInTheHomeFirst)
{
    const ProbeHome home;
    const std::vector<std::string> folders = lines(home.ask("trash-folders"));
    ASSERT_GE(folders.size(), 2U);
    EXPECT_EQ(folders[0], home.folder / "home/.Trash");
    EXPECT_EQ(folders[1], home.folder / "home/data/Trash");
}

TEST(LinuxTrash, DataFolderWithNeedlessSlashesIsTheSame)
{
    for (const char *slashes : {"/", "//"}) {
        ProbeHome home;
        home.setVariable("XDG_DATA_HOME", home.folder / "home/data" + slashes);
        home.folder.makeFolder("home/data");
        const std::vector<std::string> folders = lines(home.ask("trash-folders"));
        ASSERT_GE(folders.size(), 2U);
        EXPECT_EQ(folders[1], home.folder / "home/data/Trash");
        EXPECT_EQ(std::ranges::count(folders, folders[1]), 1);
        EXPECT_THAT(lines(home.ask("exact-places")), Contains(home.folder / "home/data/Trash/files"));
    }
}

TEST(LinuxTrash, DataFolderBehindALinkIsNamedByBothPaths)
{
    ProbeHome home;
    home.folder.makeFolder("home/real/share");
    home.folder.link("home/link", "real");
    home.setVariable("XDG_DATA_HOME", home.folder / "home/link/share");
    const std::vector<std::string> folders = lines(home.ask("trash-folders"));
    const std::vector<std::string> places = lines(home.ask("exact-places"));
    for (const char *data : {"home/link/share", "home/real/share"}) {
        const std::string trash = home.folder / data + "/Trash";
        EXPECT_THAT(folders, Contains(trash));
        for (const char *part : {"", "/files", "/info"})
            EXPECT_THAT(places, Contains(trash + part));
    }
}

TEST(LinuxTrash, RecordOfAnErasedItemIsForgotten)
{
    const ProbeHome home;
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/gone", "x")), "done");
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/kept", "x")), "done");
    EXPECT_EQ(home.ask("erase", home.folder / "home/data/Trash/files/gone"), "done");
    EXPECT_EQ(home.ask("forget", home.folder / "home/data/Trash/files/gone"), "");
    EXPECT_FALSE(home.folder.has("home/data/Trash/info/gone.trashinfo"));
    EXPECT_TRUE(home.folder.has("home/data/Trash/info/kept.trashinfo"));
    EXPECT_TRUE(home.folder.has("home/data/Trash/files/kept"));
}

TEST(LinuxTrash, ForgettingDropsNothingButTheRecordOfAnItemThatIsGone)
{
    const ProbeHome home;
    home.folder.writeText("home/data/Trash/files/here", "x");
    home.folder.writeText("home/data/Trash/files/folder/files/x", "x");
    const std::vector<std::string> records{"home/data/Trash/info/here.trashinfo", // its item still exists
                                           "home/data/Trash/info/inner.trashinfo",
                                           "home/data/Trash/files/folder/info/inner.trashinfo",
                                           "home/project/info/inner.trashinfo"};
    for (const std::string &record : records)
        home.folder.writeText(record, "x");
    for (const char *path : {"home/data/Trash/files/here", "home/data/Trash/files/folder/inner",
                             "home/data/Trash/files/folder/files/inner", "home/project/files/inner",
                             "home/data/Trash/info/inner", "home/data/Trash/inner"})
        EXPECT_EQ(home.ask("forget", home.folder / path), "");
    for (const std::string &record : records)
        EXPECT_TRUE(home.folder.has(record)) << record;
}

TEST(LinuxTrash, ForgettingDoesNotFollowALinkInTheRecordsPlace)
{
    const ProbeHome home;
    home.folder.writeText("home/elsewhere/gone.trashinfo", "x");
    home.folder.makeFolder("home/data/Trash/files");
    home.folder.link("home/data/Trash/info", home.folder / "home/elsewhere");
    EXPECT_EQ(home.ask("forget", home.folder / "home/data/Trash/files/gone"), "");
    EXPECT_TRUE(home.folder.has("home/elsewhere/gone.trashinfo"));
}

TEST(LinuxTrash, DataFolderIsTheUsualOneWhereNoneIsSet)
{
    ProbeHome home;
    home.setVariable("XDG_DATA_HOME", {});
    EXPECT_THAT(lines(home.ask("trash-folders")), Contains(home.folder / "home/.local/share/Trash"));
    EXPECT_EQ(home.ask("trash", home.folder.writeText("home/item", "kept")), "done");
    EXPECT_EQ(contents(home.folder / "home/.local/share/Trash/files/item"), "kept");
}

} // namespace
} // namespace corvane
