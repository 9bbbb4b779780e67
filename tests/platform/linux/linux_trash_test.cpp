#include "platform/linux/probe_home.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <ostream>
#include <sstream>

#include <glib.h>
#include <gmock/gmock.h>
#include <unistd.h>

namespace corvane {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

#define REQUIRE_SANDBOX()                                                                                              \
    if (!ProbeHome::canSandbox())                                                                                      \
    GTEST_SKIP() << "bwrap cannot make a sandbox here"

std::string contents(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string linkTarget(const std::string &path)
{
    std::string target(4096, '\0');
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    target.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return target;
}

/// The original path, as bytes, in a Trash record.
std::string originalPath(const std::string &record)
{
    std::istringstream lines(contents(record));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Path=")) {
            char *const path = g_uri_unescape_string(line.c_str() + 5, nullptr);
            const std::string result = path != nullptr ? path : "";
            g_free(path);
            return result;
        }
    }
    return {};
}

std::string startOfFailure(int code)
{
    return std::to_string(code) + " ";
}

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

/// The original paths of the items in the Trash, keyed by contents; "none" if there is no record.
std::map<std::string, std::string> waysBack(const std::string &trash)
{
    std::map<std::string, std::string> ways;
    for (const auto &each : std::filesystem::directory_iterator(trash + "/files")) {
        const std::string record = trash + "/info/" + each.path().filename().string() + ".trashinfo";
        ways.emplace(contents(each.path()), std::filesystem::exists(record) ? originalPath(record) : "none");
    }
    return ways;
}

TEST(LinuxTrash, EachOfManyItemsOfARequestHasItsWayBack)
{
    const ProbeHome home;
    std::map<std::string, std::string> expected;
    // A record's suffix takes ten of the 255 bytes that file systems allow for a name.
    const std::vector<std::string> names{"a",
                                         "a.txt",
                                         "not utf-8 \xff",
                                         "two\nlines",
                                         "100%20 %",
                                         "-rf",
                                         " ",
                                         ".hidden",
                                         "\xd7\xa9\xd7\x9c",
                                         std::string(239, 'n'),
                                         std::string(244, 'n'),
                                         std::string(245, 'n')};
    for (const std::string &name : names)
        expected["text of " + name] = home.folder.writeText("home/many/" + name, "text of " + name);
    EXPECT_EQ(home.ask("trash-contents", home.folder / "home/many"), std::to_string(names.size()) + " done");
    EXPECT_TRUE(std::filesystem::is_empty(home.folder / "home/many"));
    EXPECT_EQ(waysBack(home.folder / "home/data/Trash"), expected);
}

TEST(LinuxTrash, NamesTooLongForARecordStayWhereTheyAreAndTheOthersGo)
{
    const ProbeHome home;
    const std::string first = home.folder.writeText("home/many/a", "first");
    for (const std::size_t length : {246, 255})
        home.folder.writeText("home/many/" + std::string(length, 'n'), "kept");
    const std::string last = home.folder.writeText("home/many/z", "last");
    EXPECT_THAT(home.ask("trash-contents", home.folder / "home/many"), StartsWith("2 done\n"));
    for (const std::size_t length : {246, 255})
        EXPECT_EQ(contents(home.folder / ("home/many/" + std::string(length, 'n'))), "kept");
    EXPECT_EQ(waysBack(home.folder / "home/data/Trash"),
              (std::map<std::string, std::string>{{"first", first}, {"last", last}}));
}

TEST(LinuxTrash, ItemsOfARequestGoOverNothingThatLiesThere)
{
    const ProbeHome home;
    const std::string info = "[Trash Info]\nPath=/elsewhere\nDeletionDate=2020-01-01T00:00:00\n";
    home.folder.writeText("home/data/Trash/files/b.txt", "without a record");
    home.folder.writeText("home/data/Trash/files/c.txt", "other");
    home.folder.writeText("home/data/Trash/info/c.txt.trashinfo", info);
    home.folder.writeText("home/data/Trash/info/d.txt.trashinfo", info); // of no item
    std::map<std::string, std::string> expected{{"without a record", "none"}, {"other", "/elsewhere"}};
    for (const char *name : {"a.txt", "b.txt", "c.txt", "d.txt"})
        expected[name] = home.folder.writeText(std::string("home/many/") + name, name);
    EXPECT_EQ(home.ask("trash-contents", home.folder / "home/many"), "4 done");
    EXPECT_EQ(waysBack(home.folder / "home/data/Trash"), expected);
    EXPECT_EQ(contents(home.folder / "home/data/Trash/files/d.2.txt"), "d.txt");
    EXPECT_EQ(contents(home.folder / "home/data/Trash/info/d.txt.trashinfo"), info);
}

TEST(LinuxTrash, RecordsOfARequestAreLikeThoseOfASingleItem)
{
    const ProbeHome home;
    for (const char *name : {"first", "second"})
        home.folder.writeText(std::string("home/many/") + name, name);
    EXPECT_EQ(home.ask("trash-contents", home.folder / "home/many"), "2 done");
    const std::string info = home.folder / "home/data/Trash/info/";
    const auto withoutTimes = [](std::string text, const std::string &name) {
        for (std::size_t i = text.find("DeletionDate="); i < text.size(); ++i)
            text[i] = text[i] >= '0' && text[i] <= '9' ? '0' : text[i];
        return text.replace(text.find(name), name.size(), "name");
    };
    EXPECT_EQ(withoutTimes(contents(info + "second.trashinfo"), "second"),
              withoutTimes(contents(info + "first.trashinfo"), "first"));
    const auto permissions = [&](const char *name) { return std::filesystem::status(info + name).permissions(); };
    EXPECT_EQ(permissions("second.trashinfo"), permissions("first.trashinfo"));
}

TEST(LinuxTrash, ReadOnlyFoldersOfARequestGoToo)
{
    const ProbeHome home;
    for (const char *name : {"first", "second"}) {
        home.folder.writeText(std::string("home/many/") + name + "/file", name);
        std::filesystem::permissions(home.folder / ("home/many/" + std::string(name)),
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    }
    EXPECT_EQ(home.ask("trash-contents", home.folder / "home/many"), "2 done");
    const std::string second = home.folder / "home/data/Trash/files/second";
    EXPECT_EQ(contents(second + "/file"), "second");
    EXPECT_EQ(std::filesystem::status(second).permissions() & std::filesystem::perms::owner_write,
              std::filesystem::perms::none);
    for (const char *name : {"first", "second"}) // to be removed with the test's folder
        std::filesystem::permissions(home.folder / ("home/data/Trash/files/" + std::string(name)),
                                     std::filesystem::perms::owner_all);
}

/// The outcome for "home/many/second" when a script changes the Trash after "home/many/first" was moved there in the
/// same request. The script runs in the Trash folder.
class TrashChangedWithinARequest : public ::testing::Test {
protected:
    std::string trashTwoWith(const std::string &script)
    {
        home.setVariable("MEANWHILE", "cd '" + home.folder / "home/data/Trash" + "' && " + script);
        return home.ask("trash-two", home.folder / "home/many");
    }
    [[nodiscard]] std::map<std::string, std::string> waysBackFrom(const std::string &trash) const
    {
        return waysBack(home.folder / ("home/data/" + trash));
    }

    using Ways = std::map<std::string, std::string>;
    ProbeHome home;
    const std::string first = home.folder.writeText("home/many/first", "1");
    const std::string second = home.folder.writeText("home/many/second", "2");
};

TEST_F(TrashChangedWithinARequest, AnEmptiedOneTakesTheNextItem)
{
    EXPECT_EQ(trashTwoWith("rm files/* info/*"), "done\ndone");
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"2", second}}));
}

TEST_F(TrashChangedWithinARequest, ADeletedOneIsMadeAnew)
{
    EXPECT_EQ(trashTwoWith("rm -r ../Trash"), "done\ndone");
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"2", second}}));
}

TEST_F(TrashChangedWithinARequest, NothingFollowsOneThatWasMovedAway)
{
    EXPECT_EQ(trashTwoWith("mv ../Trash ../old"), "done\ndone");
    EXPECT_EQ(waysBackFrom("old"), (Ways{{"1", first}}));
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"2", second}}));
}

TEST_F(TrashChangedWithinARequest, NothingFollowsItsItemsThatWereMovedAwayToBeDeleted)
{
    EXPECT_EQ(trashTwoWith("mv files ../expunged && mkdir files && rm info/*"), "done\ndone");
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"2", second}}));
    EXPECT_FALSE(home.folder.has("home/data/expunged/second"));
}

TEST_F(TrashChangedWithinARequest, WhatAnotherProgramPutThereStaysWithItsRecord)
{
    EXPECT_EQ(
        trashTwoWith("echo other > files/second && printf '[Trash Info]\\nPath=/other\\n' > info/second.trashinfo"),
        "done\ndone");
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"1", first}, {"other\n", "/other"}, {"2", second}}));
}

TEST_F(TrashChangedWithinARequest, NothingIsKeptOpenAfterwards)
{
    EXPECT_EQ(home.ask("trash-contents", home.folder / "home/many"), "2 done");
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"1", first}, {"2", second}}));
}

/// Of 200 items, counts those in their original places and those in the Trash after a request for all of them was
/// killed; each must be in exactly one of the two, and in the Trash with a record.
TEST(LinuxTrash, RequestThatIsKilledLosesNothing)
{
    constexpr int items = 200;
    int atPlace = 0;
    int inTrash = 0;
    const char *const wanted = std::getenv("CORVANE_KILLED_REQUESTS");
    const int requests = wanted != nullptr ? std::stoi(wanted) : 20;
    for (int request = 0; request < requests; ++request) {
        const ProbeHome home;
        for (int i = 0; i < items; ++i)
            home.folder.writeText("home/many/item" + std::to_string(i), std::to_string(i));
        const std::string many = home.folder / "home/many";
        // Covers the time from before the first item is moved to after the last.
        const std::string moment = "0.0" + std::to_string(10 + request * 40 / requests);
        (void)home.runOther({"/bin/sh", "-c",
                             "\"$probe\" trash-contents '" + many + "' > /dev/null & sleep " + moment +
                                 "; kill -9 $! 2> /dev/null; wait"});
        const std::string trash = home.folder / "home/data/Trash";
        const auto ways =
            std::filesystem::exists(trash + "/files") ? waysBack(trash) : std::map<std::string, std::string>{};
        for (int i = 0; i < items; ++i) {
            const std::string text = std::to_string(i);
            const std::string path = many + "/item" + text;
            const auto way = ways.find(text);
            const bool isAtPlace = contents(path) == text;
            EXPECT_NE(isAtPlace, way != ways.end()) << path;
            EXPECT_EQ(way == ways.end() ? path : way->second, path);
            ++(isAtPlace ? atPlace : inTrash);
        }
    }
    RecordProperty("atPlace", atPlace);
    RecordProperty("inTrash", inTrash);
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

std::vector<std::string> lines(const std::string &text)
{
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        result.push_back(line);
    return result;
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

class LinuxTrashOfAVolume : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!m_home.canMountDisks())
            GTEST_SKIP() << "this user or machine cannot mount a disk image";
    }

    const ProbeHome m_home;
    const std::string m_user = std::to_string(::getuid());
};

TEST_F(LinuxTrashOfAVolume, LiesAtItsTopAndTakesItsItems)
{
    EXPECT_EQ(m_home.runOnDisk(R"(
        mkdir folder; echo kept > folder/item
        $probe trash "$PWD/folder/item"
        ls folder; cat .Trash-$user/files/item; grep Path .Trash-$user/info/item.trashinfo)"),
              "done\nkept\nPath=folder/item");
    EXPECT_FALSE(m_home.folder.has("home/data/Trash"));
}

TEST_F(LinuxTrashOfAVolume, NotesWhereEachItemOfARequestLayBelowItsTop)
{
    EXPECT_EQ(m_home.runOnDisk(R"(
        mkdir -p folder/many; for name in a b 'c d'; do echo "$name" > "folder/many/$name"; done
        $probe trash-contents "$PWD/folder/many"
        ls folder/many; cd .Trash-$user/info; grep -h Path *)"),
              "3 done\nPath=folder/many/a\nPath=folder/many/b\nPath=folder/many/c%20d");
}

/// GIO decides which Trash it uses; our code must ask again once the facts behind that decision have changed.
class TrashOfAVolumeChangedWithinARequest : public LinuxTrashOfAVolume {
protected:
    [[nodiscard]] std::string trashTwo(const std::string &before, const std::string &meanwhile) const
    {
        return m_home.runOnDisk("mkdir many; echo 1 > many/first; echo 2 > many/second\n" + before + "\nMEANWHILE='" +
                                meanwhile + "' $probe trash-two \"$PWD/many\" | cut -d: -f1\n" +
                                R"(ls many; for trash in .Trash-$user .Trash/$user; do
                                       [ ! -e $trash/files/second ] || grep -l Path=many/second $trash/info/*
                                   done)");
    }
};

TEST_F(TrashOfAVolumeChangedWithinARequest, ALinkInItsPlaceTakesNothing)
{
    const std::string answer = trashTwo("", "mv .Trash-$(id -u) elsewhere && ln -s elsewhere .Trash-$(id -u)");
    EXPECT_THAT(answer, StartsWith("done\n" + startOfFailure(ENOTSUP)));
    EXPECT_THAT(answer, EndsWith("\nsecond"));
}

TEST_F(TrashOfAVolumeChangedWithinARequest, OneThatBelongsToAnotherUserTakesNothing)
{
    const std::string answer = trashTwo("", "chown 12345 .Trash-$(id -u)");
    EXPECT_THAT(answer, StartsWith("done\n" + startOfFailure(ENOTSUP)));
    EXPECT_THAT(answer, EndsWith("\nsecond"));
}

TEST_F(TrashOfAVolumeChangedWithinARequest, ASharedOneWithoutTheStickyBitTakesNothing)
{
    EXPECT_EQ(trashTwo("mkdir .Trash; chmod 1777 .Trash", "ls .Trash/*/files/first > /dev/null && chmod -t .Trash"),
              "done\ndone\n.Trash-" + m_user + "/info/second.trashinfo");
}

TEST_F(LinuxTrashOfAVolume, OfAFullDiskTakesItemsOfARequestAsLongAsTheirRecordsFit)
{
    EXPECT_EQ(m_home.runOnDisk(R"(
        mkdir many; for i in $(seq 100 160); do echo $i > many/$i; done
        echo x > x; $probe trash "$PWD/x"
        dd if=/dev/zero of=filler bs=1024 2> /dev/null; truncate -s -30K filler
        answer=$($probe trash-contents "$PWD/many")
        [ $(ls many | wc -l) -gt 0 ] && echo some stay
        [ $(ls .Trash-$user/files | wc -l) -gt 1 ] && echo some go
        echo "$answer" | grep -v done | cut -d: -f2- | sort -u
        for i in $(seq 100 160); do
            if [ -e many/$i ]; then
                [ $(cat many/$i) = $i ] && [ ! -e .Trash-$user/files/$i ] && [ ! -e .Trash-$user/info/$i.trashinfo ]
            else
                [ $(cat .Trash-$user/files/$i) = $i ] && grep -q "^Path=many/$i$" .Trash-$user/info/$i.trashinfo
            fi || echo $i is lost
        done)"),
              "done\nsome stay\nsome go\n The disk is full: the Trash cannot record where the item came from.");
}

TEST_F(LinuxTrashOfAVolume, KeepsWhatLiesThereWithoutARecord)
{
    EXPECT_EQ(m_home.runOnDisk(R"(
        mkdir -p folder/inner .Trash-$user/files; echo first > .Trash-$user/files/item; echo second > folder/inner/item
        $probe trash "$PWD/folder/inner/item"
        cat .Trash-$user/files/item .Trash-$user/files/item.2; ls .Trash-$user/info)"),
              "done\nfirst\nsecond\nitem.2.trashinfo");
}

TEST_F(LinuxTrashOfAVolume, IsNamedAmongTheTrashFoldersAndNotMade)
{
    const std::vector<std::string> folders = lines(m_home.runOnDisk("$probe trash-folders; ls -A"));
    EXPECT_THAT(folders, Contains(m_home.folder / ("disk/.Trash-" + m_user)));
    EXPECT_THAT(folders, Contains(m_home.folder / ("disk/.Trash/" + m_user)));
    EXPECT_THAT(folders, Each(StartsWith("/")));
}

TEST_F(LinuxTrashOfAVolume, IsFoundAndEmptiedWithItsRecords)
{
    EXPECT_EQ(m_home.runOnDisk(R"(
        echo old > item; $probe trash "$PWD/item"
        $probe volume-trashes | grep "^$PWD/"
        $probe remove "$PWD/.Trash-$user/files/item"
        ls .Trash-$user/files .Trash-$user/info)"),
              "done\n" + m_home.folder / ("disk/.Trash-" + m_user + "/files") + "\ndone\n.Trash-" + m_user +
                  "/files:\n\n.Trash-" + m_user + "/info:");
}

TEST_F(LinuxTrashOfAVolume, FailsOnAFullDiskAndTheItemStays)
{
    const std::string answer = m_home.runOnDisk(R"(
        echo kept > item
        dd if=/dev/zero of=filler bs=1024 2> /dev/null
        $probe trash "$PWD/item"
        cat item)");
    EXPECT_THAT(answer, StartsWith(startOfFailure(ENOSPC)));
    EXPECT_THAT(answer, EndsWith("\nkept"));
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
