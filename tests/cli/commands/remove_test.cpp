#include <algorithm>
#include <chrono>
#include <csignal>
#include <iterator>
#include <string>
#include <thread>

#include "cli/commands/remove_fixture.h"

namespace corvane {
namespace {

using nlohmann::json;

TEST_F(RemoveCommandTest, AFileGoesToTheTrash)
{
    m_folder.writeFile("old.iso", 2'000'000);
    const std::int64_t size = m_folder.allocated("old.iso");

    const json removal = document({"remove", "--yes", "old.iso"});

    EXPECT_EQ(removal, (json{{"message", "Moved 1 item (2 MB) to Trash — empty it to free the space"},
                             {"removed", json::array({{{"path", m_folder / "old.iso"}, {"size", size}}})},
                             {"failures", json::array()}}));
    EXPECT_FALSE(m_folder.has("old.iso"));
    EXPECT_TRUE(isInTrash("old.iso"));
}

TEST_F(RemoveCommandTest, TheMessageIsTheWholeOutput)
{
    m_folder.writeFile("old.iso", 2'000'000);

    const ProgramResult result = run({"remove", "--yes", "old.iso"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.out, "Moved 1 item (2 MB) to Trash — empty it to free the space\n");
    EXPECT_EQ(result.errors, "");
}

TEST_F(RemoveCommandTest, AFolderGoesWithEverythingAndCountsWhatItHolds)
{
    m_folder.writeFile("build/a/big.o", 3'000'000);
    m_folder.writeFile("build/small.o", 8'000);
    const std::int64_t size = m_folder.allocated("build/a/big.o") + m_folder.allocated("build/small.o");

    const json removal = document({"remove", "-y", "build/"});

    EXPECT_EQ(removal["removed"][0]["size"], size);
    EXPECT_FALSE(m_folder.has("build"));
    EXPECT_TRUE(isInTrash("build/a/big.o"));
}

TEST_F(RemoveCommandTest, PermanentlyDeletesForGood)
{
    m_folder.writeFile("build/big.o", 2'000'000);

    const json removal = document({"remove", "--permanently", "--yes", "build"});

    EXPECT_EQ(removal["message"], "Deleted 1 item · freed 2 MB");
    EXPECT_FALSE(m_folder.has("build"));
    EXPECT_TRUE(trashIsEmpty());
}

TEST_F(RemoveCommandTest, ALinkIsRemovedItselfAlsoWithASlashBehindIt)
{
    m_folder.writeText("target/kept.txt", "x");

    for (const char *const argument : {"link", "link/", "link//"}) {
        m_folder.link("link", m_folder / "target");
        const json removal = document({"remove", "--yes", "--permanently", argument});
        EXPECT_EQ(removal["removed"], json::array({{{"path", m_folder / "link"}, {"size", 0}}}));
        EXPECT_FALSE(m_folder.has("link"));
        EXPECT_TRUE(m_folder.has("target/kept.txt"));
    }
    m_folder.link("link", m_folder / "target");
    EXPECT_EQ(run({"remove", "--yes", "link/"}).exitStatus, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "data/Trash/files/link"));
    EXPECT_TRUE(m_folder.has("target/kept.txt"));
}

TEST_F(RemoveCommandTest, ADanglingLinkCanBeRemoved)
{
    m_folder.link("link", "nowhere");

    EXPECT_EQ(run({"remove", "--yes", "link"}).exitStatus, 0);

    EXPECT_FALSE(m_folder.has("link"));
}

TEST_F(RemoveCommandTest, DotsAreFollowedAsTheSystemDoes)
{
    m_folder.writeText("real/inner/x", "");
    m_folder.writeText("real/file", "of the target's folder");
    m_folder.writeText("file", "of the link's folder");
    m_folder.link("link", m_folder / "real/inner");

    EXPECT_EQ(run({"remove", "--yes", "--permanently", "link/../file"}).exitStatus, 0);

    EXPECT_TRUE(m_folder.has("file"));
    EXPECT_FALSE(m_folder.has("real/file"));
}

TEST_F(RemoveCommandTest, NestedAndRepeatedArgumentsCountOnce)
{
    m_folder.writeFile("build/big.o", 2'000'000);
    const std::int64_t size = m_folder.allocated("build/big.o");

    const json removal = document({"remove", "--yes", "build/big.o", "build", "./build/", m_folder / "build"});

    EXPECT_EQ(removal["removed"], json::array({{{"path", m_folder / "build"}, {"size", size}}}));
    EXPECT_EQ(removal["failures"], json::array());
}

TEST_F(RemoveCommandTest, OnePathThatDoesNotExistKeepsEverything)
{
    m_folder.writeText("kept.txt", "x");

    const ProgramResult result = run({"remove", "--yes", "kept.txt", "gone.txt"});

    expectRefused(result);
    EXPECT_EQ(result.errors, "corvane-cli: " + m_folder / "gone.txt" +
                                 " does not exist; the nearest folder that does is " + m_folder.path() + "\n");
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(RemoveCommandTest, WithoutATerminalItNeedsYes)
{
    m_folder.writeText("kept.txt", "x");

    const ProgramResult result = run({"remove", "kept.txt"});

    expectRefused(result);
    EXPECT_EQ(result.errors, "corvane-cli: there is no terminal to ask on; --yes removes without asking\n");
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(RemoveCommandTest, YesWithAValueIsNotYes)
{
    m_folder.writeText("kept.txt", "x");

    expectRefused(run({"remove", "--yes=no", "kept.txt"}));
    expectRefused(run({"remove", "--yes", "--permanently=false", "kept.txt"}));
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(RemoveCommandTest, NamesThatLookLikeListsOrOptionsAreTakenLiterally)
{
    for (const char *const name : {"a", "b", "[a,b]", "[a]", "{}", "%%", "++", "--yes", "-rf", "remove", ":a", "~"})
        m_folder.writeText(name, "x");

    EXPECT_EQ(run({"remove", "--yes", "[a,b]", "[a]", "{}", "%%", "++", "remove", ":a", "~", "--", "--yes", "-rf"})
                  .exitStatus,
              0);

    EXPECT_TRUE(m_folder.has("a"));
    EXPECT_TRUE(m_folder.has("b"));
    for (const char *const name : {"[a,b]", "[a]", "{}", "%%", "++", "--yes", "-rf", "remove", ":a", "~"}) {
        EXPECT_FALSE(m_folder.has(name)) << name;
        EXPECT_TRUE(isInTrash(name)) << name;
    }
}

TEST_F(RemoveCommandTest, NamesOfAnyBytesAreRemoved)
{
    m_folder.writeText("caf\xE9", "x");
    m_folder.writeText("line\nbreak\x1b[31m", "x");

    const ProgramResult result = run({"remove", "--yes", "--json", "caf\xE9", "line\nbreak\x1b[31m"});

    const json removed = parsed(result)["removed"];
    ASSERT_EQ(removed.size(), 2u);
    EXPECT_TRUE(removed[0]["pathHex"].get<std::string>().ends_with("636166e9"));
    EXPECT_FALSE(m_folder.has("caf\xE9"));
    EXPECT_FALSE(m_folder.has("line\nbreak\x1b[31m"));
    EXPECT_TRUE(isInTrash("caf\xE9"));
}

TEST_F(RemoveCommandTest, WhatIsInTheTrashAlreadyIsDeleted)
{
    m_folder.writeText("old.txt", "x");
    ASSERT_EQ(run({"remove", "--yes", "old.txt"}).exitStatus, 0);
    ASSERT_TRUE(isInTrash("old.txt"));

    const json removal = document({"remove", "--yes", "data/Trash/files/old.txt"});

    EXPECT_TRUE(removal["message"].get<std::string>().starts_with("Moved 1 item ("));
    EXPECT_FALSE(isInTrash("old.txt"));
}

TEST_F(RemoveCommandTest, ATrashThatCannotBeWrittenFailsAndDeletesNothing)
{
    m_folder.writeText("kept.txt", "x");
    m_folder.writeText("other.txt", "x");
    openToOrdinaryUser();
    ASSERT_EQ(chmod((m_folder / "data").c_str(), 0500), 0);

    const ProgramResult result = program({"remove", "--yes", "--json", "kept.txt", "other.txt"}).asOrdinaryUser().run();

    ASSERT_EQ(chmod((m_folder / "data").c_str(), 0700), 0);
    const json removal = parsed(result, 1);
    EXPECT_EQ(removal["removed"], json::array());
    ASSERT_EQ(removal["failures"].size(), 2u);
    EXPECT_TRUE(removal["failures"][0].get<std::string>().starts_with("kept.txt: ")) << removal;
    EXPECT_TRUE(removal["message"].get<std::string>().starts_with("Nothing was removed · 2 couldn't be removed (kept"));
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 2) << result.errors;
    EXPECT_NE(result.errors.find("corvane-cli: other.txt: "), std::string::npos) << result.errors;
    EXPECT_TRUE(m_folder.has("kept.txt"));
    EXPECT_TRUE(m_folder.has("other.txt"));
}

TEST_F(RemoveCommandTest, AFolderThatCannotBeChangedKeepsItsItems)
{
    m_folder.writeText("locked/kept.txt", "x");
    openToOrdinaryUser();
    ASSERT_EQ(chmod((m_folder / "locked").c_str(), 0500), 0);

    const ProgramResult result =
        program({"remove", "--yes", "--permanently", "--json", "locked/kept.txt"}).asOrdinaryUser().run();

    ASSERT_EQ(chmod((m_folder / "locked").c_str(), 0700), 0);
    EXPECT_EQ(parsed(result, 1)["failures"], json::array({"kept.txt: Permission denied"}));
    EXPECT_TRUE(m_folder.has("locked/kept.txt"));
}

#ifdef __linux__

TEST_F(RemoveCommandTest, AReadOnlyFolderOfTheUsersOwnGoesToTheTrashAsItIs)
{
    m_folder.writeText("modules/one@v1/source.go", "package");
    m_folder.writeText("modules/one@v1/inner/source.go", "package");
    openToOrdinaryUser();
    ASSERT_EQ(chmod((m_folder / "modules/one@v1/inner").c_str(), 0555), 0);
    ASSERT_EQ(chmod((m_folder / "modules/one@v1").c_str(), 0555), 0);

    const ProgramResult result = program({"remove", "--yes", "--json", "modules/one@v1"}).asOrdinaryUser().run();

    EXPECT_EQ(parsed(result)["failures"], json::array());
    ASSERT_TRUE(isInTrash("one@v1"));
    struct stat facts {};
    ASSERT_EQ(stat((m_folder / "data/Trash/files/one@v1").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0555u);
    EXPECT_TRUE(m_folder.has("data/Trash/files/one@v1/source.go"));
    EXPECT_FALSE(m_folder.has("modules/one@v1"));

    const ProgramResult emptied =
        program({"remove", "--yes", "--json", "data/Trash/files/one@v1"}).asOrdinaryUser().run();
    EXPECT_EQ(parsed(emptied)["failures"], json::array());
    EXPECT_FALSE(m_folder.has("data/Trash/files/one@v1"));
    EXPECT_FALSE(m_folder.has("data/Trash/info/one@v1.trashinfo"));
}

TEST_F(RemoveCommandTest, AReadOnlyFolderOfAnotherUserStays)
{
    m_folder.writeText("modules/theirs/source.go", "package");
    openToOrdinaryUser();
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give a folder to another user";
    ASSERT_EQ(chown((m_folder / "modules/theirs").c_str(), 0, 0), 0);
    ASSERT_EQ(chmod((m_folder / "modules/theirs").c_str(), 0555), 0);

    const ProgramResult result = program({"remove", "--yes", "--json", "modules/theirs"}).asOrdinaryUser().run();

    EXPECT_EQ(parsed(result, 1)["removed"], json::array());
    EXPECT_TRUE(m_folder.has("modules/theirs/source.go"));
}

#endif

TEST_F(RemoveCommandTest, AnItemBehindAClosedFolderIsRefused)
{
    m_folder.writeText("closed/kept.txt", "x");
    m_folder.makeUnreadable("closed");
    openToOrdinaryUser();

    expectRefused(program({"remove", "--yes", "closed/kept.txt"}).asOrdinaryUser().run());
}

TEST_F(RemoveCommandTest, OnAReadOnlyDiskNothingIsRemoved)
{
    m_folder.writeText("disk/kept.txt", "x");
    const std::string disk = m_folder / "disk";
    const std::vector<std::string> launcher{"bwrap", "--dev-bind", "/", "/", "--ro-bind", disk, disk, "--"};
    if (Program({"--version"}).through(launcher).run().exitStatus != 0)
        GTEST_SKIP() << "bubblewrap cannot make a read-only disk here";

    for (const char *const way : {"--permanently", "--yes"}) {
        const ProgramResult result =
            program({"remove", "--yes", way, "--json", "disk/kept.txt"}).through(launcher).run();
        const json removal = parsed(result, 1);
        EXPECT_EQ(removal["removed"], json::array());
        ASSERT_EQ(removal["failures"].size(), 1u);
        EXPECT_TRUE(removal["failures"][0].get<std::string>().starts_with("kept.txt: ")) << removal;
        EXPECT_TRUE(m_folder.has("disk/kept.txt"));
    }
}

TEST_F(RemoveCommandTest, AFailureCarriesTheWholePathAndItsBytes)
{
    m_folder.writeText("home/Documents/x", "x");
    m_folder.link("caf\xE9", m_folder / "home");

    const json removal = document({"remove", "--yes", "caf\xE9/Documents"}, 1);

    ASSERT_EQ(removal["failedItems"].size(), 1u);
    const json &item = removal["failedItems"][0];
    EXPECT_EQ(item["path"], m_folder / "caf\uFFFD/Documents");
    EXPECT_TRUE(item["pathHex"].get<std::string>().ends_with("636166e92f446f63756d656e7473")) << item;
    EXPECT_EQ(item["line"], "Documents: protected location");
    EXPECT_EQ(removal["failures"], json::array({"Documents: protected location"}));
}

TEST_F(RemoveCommandTest, AFolderThatIsDeletedInPartSaysWhatResistedAndWhatWasFreed)
{
    m_folder.writeFile("build/a.o", 2'000'000);
    m_folder.writeFile("build/z.o", 1'000'000);
    m_folder.writeText("build/locked/kept.txt", "x");
    openToOrdinaryUser();
    ASSERT_EQ(chmod((m_folder / "build/locked").c_str(), 0500), 0);

    const ProgramResult result =
        program({"remove", "--yes", "--permanently", "--json", "build"}).asOrdinaryUser().run();

    ASSERT_EQ(chmod((m_folder / "build/locked").c_str(), 0700), 0);
    const json removal = parsed(result, 1);
    const std::string line = "build: locked/kept.txt: Permission denied; the rest was deleted";
    EXPECT_EQ(removal["failures"], json::array({line}));
    EXPECT_EQ(removal["message"], "Deleted 0 items · freed 3 MB · 1 couldn't be removed (" + line + ")");
    EXPECT_EQ(removal["removed"], json::array());
    EXPECT_GE(removal["failedItems"][0]["freed"].get<std::int64_t>(), 3'000'000);
    EXPECT_FALSE(m_folder.has("build/a.o"));
    EXPECT_FALSE(m_folder.has("build/z.o"));
    EXPECT_TRUE(m_folder.has("build/locked/kept.txt"));
}

TEST_F(RemoveCommandTest, AStopFinishesTheItemAtHandAndTellsWhatWasDone)
{
    constexpr int count = 8'000; // takes about a tenth of a second
    std::vector<std::string> arguments{"remove", "--yes", "--json"};
    for (int i = 0; i < count; ++i) {
        m_folder.writeText("many/" + std::to_string(i), "x");
        arguments.push_back("many/" + std::to_string(i));
    }
    const auto removedSome = [&] { return m_folder.has("data/Trash/info"); };
    for (const int signal : {SIGINT, SIGTERM}) {
        std::filesystem::remove_all(m_folder / "data");
        m_folder.makeFolder("data");
        for (int i = 0; i < count; ++i)
            m_folder.writeText("many/" + std::to_string(i), "x");

        const ProgramResult result = program(arguments)
                                         .meanwhile([&](pid_t child) {
                                             while (!removedSome() && kill(child, 0) == 0)
                                                 std::this_thread::sleep_for(std::chrono::microseconds(200));
                                             kill(child, signal);
                                         })
                                         .run();

        const json removal = parsed(result, 1);
        EXPECT_EQ(removal["cancelled"], true);
        const auto removed = removal["removed"].size();
        EXPECT_GT(removed, 0u);
        EXPECT_LT(removed, static_cast<std::size_t>(count));
        for (const json &item : removal["removed"])
            EXPECT_FALSE(std::filesystem::exists(item["path"].get<std::string>()));
        const auto entriesIn = [&](const std::string &folder) {
            return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_folder / folder), {}));
        };
        EXPECT_EQ(entriesIn("many"), count - removed);
        EXPECT_EQ(entriesIn("data/Trash/files"), removed);
        EXPECT_EQ(entriesIn("data/Trash/info"), removed) << "no record is left without its item";
        EXPECT_NE(result.errors.find("corvane-cli: stopped; "), std::string::npos) << result.errors;
    }
}

TEST_F(RemoveCommandTest, WhereAFolderCannotBeMeasuredNothingIsRemoved)
{
    m_folder.writeFile("tree/a/b/c/d/e/film.mov", 1'200'000);
    const ProgramResult result = program({"remove", "--yes", "--json", "tree"})
                                     .through({"/bin/sh", "-c", "ulimit -n 6; exec \"$0\" \"$@\""})
                                     .run();
    EXPECT_EQ(result.exitStatus, 1);
    const json removal = json::parse(result.out);
    EXPECT_EQ(removal["message"], "Nothing was removed");
    EXPECT_EQ(removal["removed"], json::array());
    EXPECT_TRUE(result.errors.ends_with("; nothing was removed\n")) << result.errors;
    EXPECT_TRUE(m_folder.has("tree/a/b/c/d/e/film.mov"));
}

TEST_F(RemoveCommandTest, AnEmptyPathIsRefused)
{
    expectRefused(run({"remove", "--yes", ""}));
}

} // namespace
} // namespace corvane
