#include <cstdlib>
#include <filesystem>
#include <map>

#include <gmock/gmock.h>

#include "platform/linux/trash_records.h"

namespace corvane {
namespace {

using ::testing::StartsWith;

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

TEST_F(TrashChangedWithinARequest, ADeletedTrashIsCreatedAgain)
{
    EXPECT_EQ(trashTwoWith("rm -r ../Trash"), "done\ndone");
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"2", second}}));
}

TEST_F(TrashChangedWithinARequest, NothingIsPutIntoATrashThatWasMovedAway)
{
    EXPECT_EQ(trashTwoWith("mv ../Trash ../old"), "done\ndone");
    EXPECT_EQ(waysBackFrom("old"), (Ways{{"1", first}}));
    EXPECT_EQ(waysBackFrom("Trash"), (Ways{{"2", second}}));
}

TEST_F(TrashChangedWithinARequest, NothingIsPutIntoAFilesFolderThatWasMovedAway)
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

} // namespace
} // namespace corvane
