#include "core/removal.h"

#include <string>

#include <gtest/gtest.h>

#include "core/removal_fixture.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

TEST_F(RemovalOf, AnItemMovesItToTheTrash)
{
    fake.files.addFile("/Users/me/a", 5);
    const RemovalOutcome outcome = remove({{"/Users/me/a", 2'000'000}});
    EXPECT_EQ(outcome.removed, (Entries{{"/Users/me/a", 2'000'000}}));
    EXPECT_TRUE(outcome.failures.empty());
    EXPECT_EQ(deeds(), Lines{"trashItem /Users/me/a"});
    EXPECT_FALSE(fake.files.has("/Users/me/a"));
}

TEST_F(RemovalOf, AnItemPermanentlyErasesIt)
{
    fake.files.addFile("/Users/me/a", 5);
    const RemovalOutcome outcome = remove({{"/Users/me/a", 5}}, true);
    EXPECT_EQ(outcome.removed.size(), 1u);
    EXPECT_EQ(deeds(), Lines{"removeItem /Users/me/a"});
}

TEST_F(RemovalOf, AnItemThatIsAlreadyInTheTrashErasesItAndStillSaysMoved)
{
    fake.files.addFile("/Users/me/.Trash/a", 5);
    const RemovalOutcome outcome = remove({{"/Users/me/.Trash/a", 2'000'000}});
    EXPECT_EQ(deeds(), Lines{"removeItem /Users/me/.Trash/a"});
    EXPECT_EQ(Removal::message(outcome, false), "Moved 1 item (2 MB) to Trash — empty it to free the space");
}

TEST_F(RemovalOf, AFolderAndAFileInsideItRemovesTheFolderOnly)
{
    fake.files.addFile("/Users/me/x/a", 5);
    const RemovalOutcome outcome = remove(effectiveSelection({{"/Users/me/x", 7}, {"/Users/me/x/a", 5}}));
    EXPECT_EQ(outcome.removed, (Entries{{"/Users/me/x", 7}}));
    EXPECT_EQ(deeds(), Lines{"trashItem /Users/me/x"});
}

TEST_F(RemovalOf, AProtectedItemIsRefusedWithoutTouchingIt)
{
    fake.files.addFolder("/Users/me/Documents");
    for (const bool permanently : {false, true}) {
        const RemovalOutcome outcome = remove({{"/Users/me/Documents", 5}}, permanently);
        EXPECT_TRUE(outcome.removed.empty());
        EXPECT_EQ(failureLines(outcome), Lines{"Documents: protected location"});
    }
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AnItemThatVanishedIsAFailureThatSaysSo)
{
    for (const bool permanently : {false, true}) {
        const RemovalOutcome outcome = remove({{"/Users/me/a", 5}}, permanently);
        EXPECT_TRUE(outcome.removed.empty());
        EXPECT_EQ(failureLines(outcome), Lines{"a: No such file or directory"});
    }
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AnItemThatCannotBeLookedAtIsAFailure)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.files.failFacts("/Users/me/a", std::errc::permission_denied);
    EXPECT_EQ(failureLines(remove({{"/Users/me/a", 5}})), Lines{"a: Permission denied"});
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AnItemThatVanishesOnTheWayToTheTrashIsAFailure)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.log->observe([&](const std::string &line) {
        if (line.starts_with("trashItem "))
            fake.files.take("/Users/me/a");
    });
    const RemovalOutcome outcome = remove({{"/Users/me/a", 5}});
    EXPECT_TRUE(outcome.removed.empty());
    EXPECT_EQ(failureLines(outcome), Lines{"a: No such file or directory"});
    EXPECT_EQ(deeds(), Lines{"trashItem /Users/me/a"});
}

TEST_F(RemovalOf, AFolderThatIsOnlyPartlyDeletedIsAFailure)
{
    fake.files.addFile("/Users/me/x/a", 5);
    fake.files.failRemoval("/Users/me/x", std::errc::permission_denied, "“a” could not be deleted.");
    const RemovalOutcome outcome = remove({{"/Users/me/x", 5}}, true);
    EXPECT_TRUE(outcome.removed.empty());
    EXPECT_EQ(failureLines(outcome), Lines{"x: “a” could not be deleted."});
}

TEST_F(RemovalOf, AFolderNamesTheFirstItemInsideThatResistedAndDeletesTheRest)
{
    fake.files.addFile("/Users/me/x/a", 5);
    fake.files.addFile("/Users/me/x/b/keep", 7);
    fake.files.addFile("/Users/me/x/b/other", 3);
    fake.files.addFile("/Users/me/x/c", 4);
    fake.files.failRemoval("/Users/me/x/b/keep", std::errc::permission_denied);
    const RemovalOutcome outcome = remove({{"/Users/me/x", 19}}, true);
    EXPECT_TRUE(outcome.removed.empty());
    ASSERT_EQ(outcome.failures.size(), 1u);
    EXPECT_EQ(outcome.failures.front(),
              (RemovalFailure{"/Users/me/x", "x: b/keep: Permission denied; the rest was deleted",
                              RemovalFailure::Left::aPart, 12}));
    EXPECT_EQ(Removal::message(outcome, true), "Deleted 0 items · freed 12 bytes · 1 couldn't be removed (x: b/keep: "
                                               "Permission denied; the rest was deleted)");
    EXPECT_FALSE(fake.files.has("/Users/me/x/a"));
    EXPECT_FALSE(fake.files.has("/Users/me/x/b/other"));
    EXPECT_FALSE(fake.files.has("/Users/me/x/c"));
}

TEST_F(RemovalOf, AFolderInWhichNothingCouldBeDeletedDoesNotSayThatTheRestWas)
{
    fake.files.addFile("/Users/me/x/a", 5);
    fake.files.failRemoval("/Users/me/x/a", std::errc::read_only_file_system);
    const RemovalOutcome outcome = remove({{"/Users/me/x", 5}}, true);
    EXPECT_EQ(failureLines(outcome), Lines{"x: a: Read-only file system"});
    EXPECT_EQ(outcome.failures.front().left, RemovalFailure::Left::asItWas);
    EXPECT_TRUE(Removal::message(outcome, true).starts_with("Nothing was removed"));
}

TEST_F(RemovalOf, AFolderInTheTrashThatIsDeletedInPartIsReportedAsDeleted)
{
    fake.files.addFile("/Users/me/.Trash/x/a", 5);
    fake.files.addFile("/Users/me/.Trash/x/keep", 7);
    fake.files.failRemoval("/Users/me/.Trash/x/keep", std::errc::permission_denied);
    EXPECT_TRUE(
        Removal::message(remove({{"/Users/me/.Trash/x", 12}}), false).starts_with("Deleted 0 items · freed 5 bytes"));
    EXPECT_TRUE(fake.log->linesStartingWith("forget").empty());
}

TEST_F(RemovalOf, OneItemThatFailsDoesNotStopTheOthers)
{
    for (const char *path : {"/Users/me/a", "/Users/me/b", "/Users/me/d"})
        fake.files.addFile(path, 5);
    fake.files.failRemoval("/Users/me/b", std::errc::permission_denied);
    const RemovalOutcome outcome =
        remove({{"/Users/me/a", 1}, {"/Users/me/b", 2}, {"/Users/me/c", 3}, {"/Users/me/d", 4}, {"/usr", 5}}, true);
    EXPECT_EQ(outcome.removed, (Entries{{"/Users/me/a", 1}, {"/Users/me/d", 4}}));
    EXPECT_EQ(failureLines(outcome),
              (Lines{"b: Permission denied", "c: No such file or directory", "usr: protected location"}));
}

TEST_F(RemovalOf, ItemsFinishesTheOneAtHandWhenItIsStopped)
{
    for (const char *path : {"/Users/me/a", "/Users/me/b", "/Users/me/c"})
        fake.files.addFile(path, 5);
    StopFlag stop = false;
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/b")
            stop = true;
    });
    const auto steps = planFor({{"/Users/me/a", 1}, {"/Users/me/b", 2}, {"/Users/me/c", 3}}, false);
    const RemovalOutcome outcome = Removal::perform(steps, locations(), fake.host(), stop);
    EXPECT_TRUE(outcome.isStopped);
    EXPECT_EQ(outcome.removed, (Entries{{"/Users/me/a", 1}, {"/Users/me/b", 2}}));
    EXPECT_TRUE(outcome.failures.empty());
    EXPECT_TRUE(fake.files.has("/Users/me/c"));
}

TEST_F(RemovalOf, ItemsThatIsStoppedAfterTheLastOneIsWhole)
{
    fake.files.addFile("/Users/me/a", 5);
    StopFlag stop = false;
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/a")
            stop = true;
    });
    EXPECT_FALSE(Removal::perform(planFor({{"/Users/me/a", 1}}, false), locations(), fake.host(), stop).isStopped);
}

TEST_F(RemovalOf, ItemsOnARealDiskLeavesWhatTheirLinksLeadTo)
{
    const TemporaryFolder disk;
    disk.writeText("keep/thesis.txt", "x");
    disk.writeText("home/x/deep/a", "x");
    disk.link("home/x/deep/link", disk / "keep");
    disk.link("home/link", disk / "keep");
    disk.writeText("home/Documents/a", "x");
    const ProtectedLocations ofDisk(disk / "home", {});
    const Host host{systemHost().files, fake.trash, fake.volumes, fake.desktop, fake.applications};
    const Selection entries{
        {disk / "home/x", 5}, {disk / "home/link", 0}, {disk / "home/Documents", 7}, {disk / "home/missing", 9}};

    const RemovalOutcome outcome = Removal::perform(Removal::plan(entries, true, ofDisk, {}), ofDisk, host);
    EXPECT_EQ(outcome.removed, (Entries{{disk / "home/link", 0}, {disk / "home/x", 5}}));
    EXPECT_EQ(failureLines(outcome), (Lines{"Documents: protected location", "missing: No such file or directory"}));
    EXPECT_FALSE(disk.has("home/x"));
    EXPECT_FALSE(disk.has("home/link"));
    EXPECT_TRUE(disk.has("keep/thesis.txt"));
    EXPECT_TRUE(disk.has("home/Documents/a"));
    EXPECT_TRUE(deeds().empty()) << "the Trash has no part in it";
}

TEST(RemovalMessage, OfOneItemIsInTheSingular)
{
    EXPECT_EQ(Removal::message({.removed = {{"/a", 2'000'000}}, .failures = {}}, false),
              "Moved 1 item (2 MB) to Trash — empty it to free the space");
    EXPECT_EQ(Removal::message({.removed = {{"/a", 2'000'000}}, .failures = {}}, true), "Deleted 1 item · freed 2 MB");
}

TEST(RemovalMessage, OfSeveralItemsIsInThePluralAndAddsThemUp)
{
    const RemovalOutcome outcome{.removed = {{"/a", 2'000'000}, {"/b", 500'000}, {"/c", 0}}, .failures = {}};
    EXPECT_EQ(Removal::message(outcome, false), "Moved 3 items (2.5 MB) to Trash — empty it to free the space");
    EXPECT_EQ(Removal::message(outcome, true), "Deleted 3 items · freed 2.5 MB");
}

TEST(RemovalMessage, OfNothing)
{
    EXPECT_EQ(Removal::message({}, false), "Nothing was removed");
    EXPECT_EQ(Removal::message({}, true), "Nothing was removed");
}

TEST(RemovalMessage, NamesTheFirstFailureAndCountsThemAll)
{
    EXPECT_EQ(Removal::message({.removed = {}, .failures = {{"/a", "a: no"}}}, true),
              "Nothing was removed · 1 couldn't be removed (a: no)");
    EXPECT_EQ(Removal::message({.removed = {{"/x", 1000}}, .failures = {{"/a", "a: no"}, {"/b", "b: never"}}}, false),
              "Moved 1 item (1 KB) to Trash — empty it to free the space · 2 couldn't be removed (a: no)");
}

TEST(RemovalMessage, KeepsTextThatLooksLikeAFormat)
{
    EXPECT_EQ(Removal::message({.removed = {}, .failures = {{"/{0} %s", "{0} %s: no"}}}, false),
              "Nothing was removed · 1 couldn't be removed ({0} %s: no)");
}

TEST(RemovalLog, HoldsEveryFailureOnItsLine)
{
    EXPECT_EQ(Removal::logText({.removed = {}, .failures = {{"/a", "a: no"}, {"/b", "b: {}"}}}),
              "Corvane removal failures:\na: no\nb: {}");
    EXPECT_EQ(Removal::logText({.removed = {{"/a", 1}}, .failures = {}}), "");
}

} // namespace
} // namespace corvane
