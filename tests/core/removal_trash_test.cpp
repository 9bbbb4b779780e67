#include <string>

#include <gtest/gtest.h>

#include "core/removal_fixture.h"

namespace corvane {
namespace {

TEST_F(RemovalOf, ItemsInATrashThatIsReachedThroughALinkErasesThem)
{
    fake.files.addFile("/disk/trash/folder/a", 5);
    fake.files.addLink("/Users/me/.Trash", "/disk/trash");
    const RemovalOutcome outcome = remove({{"/Users/me/.Trash/folder/a", 1}});
    EXPECT_EQ(outcome.removed.size(), 1u);
    EXPECT_EQ(outcome.removed, (Entries{{"/Users/me/.Trash/folder/a", 1}}));
    EXPECT_EQ(deeds(), Lines{"removeItem /disk/trash/folder/a"});
}

TEST_F(RemovalOf, AnItemInTheTrashOfAHomeThatIsALinkErasesItByEitherPath)
{
    for (const char *path : {"/home/u/data/Trash/files/a", "/disk/u/data/Trash/files/a", "/short/Trash/files/a"}) {
        FakeHost system;
        system.files.addFile("/disk/u/data/Trash/files/a", 5);
        system.files.addLink("/home/u", "/disk/u");
        system.files.addLink("/short", "/home/u/data");
        system.trash.setTrashFolders({"/home/u/data/Trash"});
        const ProtectedLocations ofHome("/home/u", {}, "/disk/u");
        const auto steps = Removal::plan({{path, 1}}, false, ofHome, system.trash.trashFolders());
        const RemovalOutcome outcome = Removal::perform(steps, ofHome, system.host());
        EXPECT_EQ(outcome.removed, (Entries{{path, 1}}));
        EXPECT_EQ(system.log->linesStartingWith("removeItem"), Lines{"removeItem /disk/u/data/Trash/files/a"});
        EXPECT_TRUE(system.log->linesStartingWith("trashItem").empty());
    }
}

TEST_F(RemovalOf, AnItemInAFolderThatATrashFolderLinksToTrashesIt)
{
    fake.files.addFile("/Users/me/Downloads/a", 5);
    fake.files.addLink("/Users/me/.Trash", "/Users/me/Downloads");
    EXPECT_EQ(remove({{"/Users/me/Downloads/a", 1}}).removed.size(), 1u);
    EXPECT_EQ(deeds(), Lines{"trashItem /Users/me/Downloads/a"});
}

TEST_F(RemovalOf, AnItemAsksNothingOfAMountInsideTheHomeThatIsNotItsOwn)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.files.addFile("/Users/me/.Trash/b", 5);
    fake.files.addFolder("/Users/me/mnt/.Trash-1000");
    fake.files.setMountPoints({{"/", "/Users/me/mnt"}});
    fake.trash.setTrashFolders({"/Users/me/.Trash", "/Users/me/mnt/.Trash-1000", "/Users/me/mnt/.Trash/1000"});
    for (const bool permanently : {false, true})
        (void)remove({{"/Users/me/a", 1}, {"/Users/me/.Trash/b", 1}}, permanently);
    EXPECT_FALSE(fake.files.has("/Users/me/a"));
    EXPECT_FALSE(fake.files.has("/Users/me/.Trash/b"));
    for (const std::string &line : fake.log->lines())
        EXPECT_EQ(line.find("/Users/me/mnt"), std::string::npos) << line;
}

TEST_F(RemovalOf, AnItemOfAMountInsideTheHomeAsksNothingOfTheOthers)
{
    fake.files.addFile("/Users/me/usb/work/a", 5);
    fake.files.addFile("/Users/me/usb/.Trash-1000/files/b", 5);
    fake.files.addFolder("/Users/me/mnt/.Trash-1000");
    fake.files.addFolder("/Users/me/Documents");
    fake.files.setMountPoints({{"/", "/Users/me/mnt", "/Users/me/usb", "/Users/me/Documents"}});
    fake.trash.setTrashFolders({"/Users/me/.Trash", "/Users/me/mnt/.Trash-1000", "/Users/me/usb/.Trash-1000"});
    EXPECT_EQ(remove({{"/Users/me/usb/work/a", 1}, {"/Users/me/usb/.Trash-1000/files/b", 1}}).removed.size(), 2u);
    EXPECT_EQ(deeds(), (Lines{"removeItem /Users/me/usb/.Trash-1000/files/b", "trashItem /Users/me/usb/work/a"}));
    for (const std::string &line : fake.log->lines()) {
        EXPECT_EQ(line.find("/Users/me/mnt"), std::string::npos) << line;
        EXPECT_EQ(line.find("/Users/me/Documents"), std::string::npos) << line;
    }
}

TEST_F(RemovalOf, AnItemAsksNothingOfTheTrashOnOtherVolumes)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.files.addFolder("/Volumes/dead/.Trashes/501");
    fake.trash.setTrashFolders({"/Volumes/dead/.Trashes/501"});
    for (const bool permanently : {false, true})
        (void)remove({{"/Users/me/a", 1}}, permanently);
    for (const std::string &line : fake.log->lines())
        EXPECT_EQ(line.find("/Volumes"), std::string::npos) << line;
}

TEST_F(RemovalOf, AnItemInTheTrashHasItsRecordForgottenOnceItIsErased)
{
    fake.files.addFile("/Users/me/.Trash/a", 5);
    fake.files.addFile("/Users/me/.Trash/stays", 5);
    fake.files.failRemoval("/Users/me/.Trash/stays", std::errc::permission_denied);
    fake.files.addFile("/Users/me/b", 5);
    for (const bool permanently : {false, true})
        (void)remove({{"/Users/me/.Trash/a", 1}, {"/Users/me/.Trash/stays", 1}, {"/Users/me/b", 1}}, permanently);
    EXPECT_EQ(fake.log->linesStartingWith("forget"), Lines{"forget /Users/me/.Trash/a"});
}

TEST_F(RemovalOf, AnItemThatTheTrashTookFromAnotherFolderIsPutBackThere)
{
    fake.files.addFile("/Users/me/work/key", 5);
    fake.files.addFile("/Users/me/.ssh/key", 7);
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/work/key") {
            fake.files.move("/Users/me/work", "/Users/me/aside");
            fake.files.addLink("/Users/me/work", "/Users/me/.ssh");
        }
    });
    const RemovalOutcome outcome = remove({{"/Users/me/work/key", 1}});
    EXPECT_TRUE(outcome.removed.empty());
    EXPECT_EQ(failureLines(outcome), Lines{"key: it was replaced while it was being removed"});
    EXPECT_EQ(fake.files.facts("/Users/me/.ssh/key")->allocated, 7);
    EXPECT_EQ(fake.files.facts("/Users/me/aside/key")->allocated, 5);
    EXPECT_EQ(fake.log->linesStartingWith("forget").size(), 1u) << "the Trash must not note what it no longer holds";
}

TEST_F(RemovalOf, AnItemThatTheTrashTookInAnotherOnesPlaceIsPutBackThere)
{
    fake.files.addFile("/Users/me/work/a", 5);
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/work/a") {
            fake.files.move("/Users/me/work/a", "/Users/me/work/old");
            fake.files.addFile("/Users/me/work/a", 7);
        }
    });
    EXPECT_EQ(failureLines(remove({{"/Users/me/work/a", 1}})), Lines{"a: it was replaced while it was being removed"});
    EXPECT_EQ(fake.files.facts("/Users/me/work/a")->allocated, 7);
    EXPECT_EQ(fake.files.facts("/Users/me/work/old")->allocated, 5);
}

TEST_F(RemovalOf, AnItemThatCannotBePutBackReplacesNothingAndIsNamedAsTrashed)
{
    fake.files.addFile("/Users/me/work/a", 5);
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/work/a") {
            fake.files.move("/Users/me/work/a", "/Users/me/work/old");
            fake.files.addFile("/Users/me/work/a", 7);
        } else if (line.starts_with("moveItem ")) {
            fake.files.addFile("/Users/me/work/a", 9);
        }
    });
    EXPECT_EQ(failureLines(remove({{"/Users/me/work/a", 1}})),
              Lines{"a: it was replaced while it was being removed, and what took its place is in the Trash"});
    EXPECT_EQ(fake.files.facts("/Users/me/work/a")->allocated, 9);
    EXPECT_TRUE(fake.log->linesStartingWith("forget").empty()) << "the Trash still holds it";
}

TEST_F(RemovalOf, AnApplicationThatTheWorkspaceTookFromAnotherFolderIsPutBackThere)
{
    fake.files.addFolder("/Users/me/work/A.app");
    fake.files.addFile("/Users/me/precious/A.app/thesis", 7);
    fake.trash.fail(Operation::trashItem, "/Users/me/work/A.app", "No.");
    fake.log->observe([&](const std::string &line) {
        if (line == "recycle /Users/me/work/A.app") {
            fake.files.move("/Users/me/work", "/Users/me/aside");
            fake.files.addLink("/Users/me/work", "/Users/me/precious");
        }
    });
    EXPECT_EQ(failureLines(remove({{"/Users/me/work/A.app", 1}})),
              Lines{"A.app: it was replaced while it was being removed"});
    EXPECT_TRUE(fake.files.has("/Users/me/precious/A.app/thesis"));
    EXPECT_TRUE(fake.files.has("/Users/me/aside/A.app"));
}

TEST_F(RemovalOf, AnItemWhosePathLeadsElsewhereIsNotHandedToTheFinder)
{
    fake.files.addFile("/Users/me/work/key", 5);
    fake.files.addFile("/Users/me/.ssh/key", 7);
    fake.trash.fail(Operation::trashItem, "/Users/me/work/key", "No.");
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/work/key") {
            fake.files.move("/Users/me/work", "/Users/me/aside");
            fake.files.addLink("/Users/me/work", "/Users/me/.ssh");
        }
    });
    EXPECT_EQ(failureLines(remove({{"/Users/me/work/key", 1}})),
              Lines{"key: it was replaced while it was being removed"});
    EXPECT_TRUE(fake.log->linesStartingWith("trashThroughFinder").empty());
}

TEST_F(RemovalOf, ALinkTakesTheLinkAndNotItsTarget)
{
    fake.files.addFile("/Users/me/Documents/a", 5);
    fake.files.addLink("/Users/me/link", "/Users/me/Documents");
    EXPECT_EQ(remove({{"/Users/me/link", 0}}).removed.size(), 1u);
    EXPECT_FALSE(fake.files.has("/Users/me/link"));
    EXPECT_TRUE(fake.files.has("/Users/me/Documents/a"));
}

TEST_F(RemovalOf, AnItemThatTheTrashRefusesAsksTheFinder)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.trash.fail(Operation::trashItem, "/Users/me/a", "No.");
    const RemovalOutcome outcome = remove({{"/Users/me/a", 5}});
    EXPECT_EQ(outcome.removed.size(), 1u);
    EXPECT_TRUE(outcome.failures.empty());
    EXPECT_EQ(deeds(), (Lines{"trashItem /Users/me/a", "trashThroughFinder /Users/me/a"}));
}

TEST_F(RemovalOf, AnItemThatTheFinderLeavesWhereItIsFails)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.trash.fail(Operation::trashItem, "/Users/me/a", "The volume has no Trash.");
    fake.trash.pretend(Operation::trashThroughFinder, "/Users/me/a");
    const RemovalOutcome outcome = remove({{"/Users/me/a", 5}});
    EXPECT_TRUE(outcome.removed.empty());
    EXPECT_EQ(failureLines(outcome), Lines{"a: The volume has no Trash."});
}

TEST_F(RemovalOf, AnItemThatTheFinderTookWorkedWhateverItAnswered)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.trash.fail(Operation::trashItem, "/Users/me/a", "No.");
    fake.trash.fail(Operation::trashThroughFinder, "/Users/me/a", "Timed out.");
    fake.log->observe([&](const std::string &line) {
        if (line.starts_with("trashThroughFinder "))
            fake.files.take("/Users/me/a");
    });
    EXPECT_EQ(remove({{"/Users/me/a", 5}}).removed.size(), 1u);
}

TEST_F(RemovalOf, AnItemThatCannotBeLookedAtAfterTheFinderFails)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.trash.fail(Operation::trashItem, "/Users/me/a", "No.");
    fake.trash.pretend(Operation::trashThroughFinder, "/Users/me/a");
    fake.log->observe([&](const std::string &line) {
        if (line.starts_with("trashThroughFinder "))
            fake.files.failFacts("/Users/me/a");
    });
    EXPECT_TRUE(remove({{"/Users/me/a", 5}}).removed.empty());
}

TEST_F(RemovalOf, AnItemOnASystemWithoutOtherWaysSaysWhatTheTrashSaid)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.files.addFolder("/Users/me/A.app");
    fake.trash.lack(Operation::recycle);
    fake.trash.lack(Operation::trashThroughFinder);
    fake.trash.fail(Operation::trashItem, "/Users/me/a", "Trashing on this disk is not supported.");
    fake.trash.fail(Operation::trashItem, "/Users/me/A.app", "Trashing on this disk is not supported.");
    EXPECT_EQ(failureLines(remove({{"/Users/me/a", 5}, {"/Users/me/A.app", 5}})),
              (Lines{"A.app: Trashing on this disk is not supported.", "a: Trashing on this disk is not supported."}));
}

TEST_F(RemovalOf, AnApplicationThatTheTrashRefusesIsRecycled)
{
    fake.files.addFolder("/Applications/A.app");
    fake.trash.fail(Operation::trashItem, "/Applications/A.app", "No.");
    const RemovalOutcome outcome = remove({{"/Applications/A.app", 5}});
    EXPECT_EQ(outcome.removed.size(), 1u);
    EXPECT_EQ(deeds(), (Lines{"trashItem /Applications/A.app", "recycle /Applications/A.app"}));
}

TEST_F(RemovalOf, AnApplicationThatCannotBeRecycledDoesNotAskTheFinder)
{
    fake.files.addFolder("/Applications/A.app");
    fake.trash.fail(Operation::trashItem, "/Applications/A.app", "Permission is missing.");
    fake.trash.fail(Operation::recycle, "/Applications/A.app", "Other.");
    const RemovalOutcome outcome = remove({{"/Applications/A.app", 5}});
    EXPECT_EQ(failureLines(outcome), Lines{"A.app: Permission is missing."});
    EXPECT_EQ(deeds(), (Lines{"trashItem /Applications/A.app", "recycle /Applications/A.app"}));
}

TEST_F(RemovalOf, AnItemNeverTurnsFromTheTrashToDeleting)
{
    for (const char *path : {"/Users/me/a", "/Users/me/A.app", "/Users/me/link"})
        fake.trash.fail(Operation::trashItem, path, "No.");
    fake.trash.lack(Operation::recycle);
    fake.trash.lack(Operation::trashThroughFinder);
    fake.files.addFile("/Users/me/a", 5);
    fake.files.addFolder("/Users/me/A.app");
    fake.files.addLink("/Users/me/link", "/Users/me/a");
    EXPECT_EQ(remove({{"/Users/me/a", 5}, {"/Users/me/A.app", 5}, {"/Users/me/link", 5}}).failures.size(), 3u);
    EXPECT_TRUE(fake.log->linesStartingWith("removeItem").empty());
    for (const char *path : {"/Users/me/a", "/Users/me/A.app", "/Users/me/link"})
        EXPECT_TRUE(fake.files.has(path)) << path;
}

TEST_F(RemovalOf, ALinkIsNeverHandedToTheFinderWhichWouldFollowIt)
{
    fake.files.addFolder("/Users/me/Documents");
    fake.files.addLink("/Users/me/link", "/Users/me/Documents");
    fake.trash.fail(Operation::trashItem, "/Users/me/link", "No.");
    EXPECT_EQ(failureLines(remove({{"/Users/me/link", 0}})), Lines{"link: No."});
    EXPECT_EQ(deeds(), Lines{"trashItem /Users/me/link"});
}

} // namespace
} // namespace corvane
