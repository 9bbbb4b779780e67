#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "core/removal_fixture.h"

namespace corvane {
namespace {

TEST_F(RemovalOf, AnItemBehindALinkToAProtectedPlaceIsRefused)
{
    fake.files.addFolder("/usr/lib");
    fake.files.addLink("/Users/me/link-to-usr", "/usr");
    for (const bool permanently : {false, true})
        EXPECT_EQ(failureLines(remove({{"/Users/me/link-to-usr/lib", 5}}, permanently)),
                  Lines{"lib: protected location"});
    EXPECT_TRUE(deeds().empty());
    EXPECT_TRUE(fake.files.has("/usr/lib"));
}

TEST_F(RemovalOf, AnItemWhoseFolderBecameALinkSinceThePlanIsRefused)
{
    for (const bool permanently : {false, true}) {
        FakeHost system;
        system.files.addFile("/Users/me/work/lib", 5);
        system.files.addFolder("/usr/lib");
        const auto steps = planFor({{"/Users/me/work/lib", 5}}, permanently);
        system.files.take("/Users/me/work");
        system.files.addLink("/Users/me/work", "/usr");

        const RemovalOutcome outcome = Removal::perform(steps, locations(), system.host());
        EXPECT_TRUE(outcome.removed.empty());
        EXPECT_EQ(failureLines(outcome), Lines{"lib: protected location"});
        EXPECT_TRUE(system.files.has("/usr/lib"));
    }
}

TEST_F(RemovalOf, EachItemIsLookedAtJustBeforeItIsTouched)
{
    fake.files.addFile("/Users/me/a", 5);
    fake.files.addFile("/Users/me/work/lib", 5);
    fake.files.addFolder("/usr/lib");
    // A change made while the first item is moved affects the second.
    fake.log->observe([&](const std::string &line) {
        if (line == "trashItem /Users/me/a") {
            fake.files.take("/Users/me/work");
            fake.files.addLink("/Users/me/work", "/usr");
        }
    });
    const RemovalOutcome outcome = remove({{"/Users/me/a", 1}, {"/Users/me/work/lib", 2}});
    EXPECT_EQ(outcome.removed, (Entries{{"/Users/me/a", 1}}));
    EXPECT_EQ(failureLines(outcome), Lines{"lib: protected location"});
}

TEST_F(RemovalOf, AnItemBehindALinkInTheTrashDeletesNothing)
{
    fake.files.addFile("/Users/me/Documents/thesis.pdf", 5);
    fake.files.addLink("/Users/me/.Trash/link", "/Users/me/Documents");
    const RemovalOutcome outcome = remove({{"/Users/me/.Trash/link/thesis.pdf", 5}});
    EXPECT_EQ(failureLines(outcome), Lines{"thesis.pdf: not in the Trash"});
    EXPECT_TRUE(deeds().empty());

    EXPECT_EQ(remove({{"/Users/me/.Trash/link", 1}}).removed.size(), 1u) << "the link itself is in the Trash";
    EXPECT_TRUE(fake.files.has("/Users/me/Documents/thesis.pdf"));
}

TEST_F(RemovalOf, AnItemWhosePathIsNotPlainTouchesNothing)
{
    fake.files.addFile("/Users/me/x/y/a", 5);
    fake.files.addFolder("/srv/z");
    fake.files.addLink("/Users/me/x/link", "/srv/z");
    // Even if the plan comes from elsewhere.
    for (const Action action : {Action::refuse, Action::trash, Action::erase}) {
        const RemovalOutcome outcome =
            Removal::perform({{"/Users/me/x/y/.", 1, action}, {"/Users/me/x/link/../y", 1, action}, {"~/x", 1, action}},
                             locations(), fake.host());
        EXPECT_TRUE(outcome.removed.empty());
        EXPECT_EQ(failureLines(outcome), (Lines{"y: not a plain path", "y: not a plain path", "x: not a plain path"}));
    }
    EXPECT_TRUE(fake.log->lines().empty());
}

TEST_F(RemovalOf, AnItemWhoseFolderCannotBeResolvedFailsAndIsNotTouched)
{
    fake.files.addLink("/Users/me/loop", "/Users/me/loop");
    for (const bool permanently : {false, true}) {
        const RemovalOutcome outcome = remove({{"/Users/me/loop/a", 1}, {"/Users/me/none/b", 1}}, permanently);
        EXPECT_EQ(failureLines(outcome),
                  (Lines{"a: Too many levels of symbolic links", "b: No such file or directory"}));
    }
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AnItemReachedThroughALinkActsOnWhereItLiesAndReportsTheGivenPath)
{
    fake.files.addFile("/srv/work/a", 5);
    fake.files.addFile("/srv/work/b", 5);
    fake.files.addLink("/Users/me/link", "/srv/work");
    EXPECT_EQ(remove({{"/Users/me/link/a", 1}}).removed, (Entries{{"/Users/me/link/a", 1}}));
    EXPECT_EQ(remove({{"/Users/me/link/b", 1}}, true).removed, (Entries{{"/Users/me/link/b", 1}}));
    EXPECT_EQ(deeds(), (Lines{"trashItem /srv/work/a", "removeItem /srv/work/b"}));
}

TEST_F(RemovalOf, AnItemWhoseFolderIsReplacedAfterItsJudgementActsOnTheOneJudged)
{
    fake.files.addFile("/srv/work/lib", 5);
    fake.files.addFolder("/usr/lib");
    fake.files.addLink("/Users/me/link", "/srv/work");
    fake.log->observe([&](const std::string &line) {
        if (line == "facts /srv/work/lib") {
            fake.files.take("/Users/me/link");
            fake.files.addLink("/Users/me/link", "/usr");
        }
    });
    EXPECT_EQ(remove({{"/Users/me/link/lib", 1}}, true).removed.size(), 1u);
    EXPECT_EQ(deeds(), Lines{"removeItem /srv/work/lib"});
    EXPECT_TRUE(fake.files.has("/usr/lib"));
}

TEST_F(RemovalOf, AnItemThatIsReplacedAfterItsJudgementIsNotErased)
{
    fake.files.addFile("/Users/me/work/a", 5);
    fake.log->observe([&](const std::string &line) {
        if (line == "removeItem /Users/me/work/a") {
            fake.files.move("/Users/me/work/a", "/Users/me/work/old");
            fake.files.addFile("/Users/me/work/a", 7);
        }
    });
    EXPECT_EQ(failureLines(remove({{"/Users/me/work/a", 1}}, true)),
              Lines{"a: it was replaced while it was being removed"});
    EXPECT_TRUE(fake.files.has("/Users/me/work/a"));
    EXPECT_TRUE(fake.files.has("/Users/me/work/old"));
}

TEST_F(RemovalOf, WhatIsAtThePathAfterAFailedDeedIsToldApartFromTheItemJudged)
{
    using Left = RemovalFailure::Left;
    fake.files.addFolder("/Users/me/work");
    std::function<void()> meanwhile;
    fake.log->observe([&](const std::string &line) {
        if (line == "removeItem /Users/me/work/a" || line == "trashItem /Users/me/work/a")
            meanwhile();
    });
    const auto leftAfter = [&](bool permanently, std::function<void()> event) {
        fake.files.take("/Users/me/work");
        fake.files.addFile("/Users/me/work/a", 5);
        meanwhile = std::move(event);
        const RemovalOutcome outcome = remove({{"/Users/me/work/a", 1}}, permanently);
        EXPECT_EQ(outcome.failures.size(), 1u);
        return outcome.failures.empty() ? Left::aPart : outcome.failures.front().left;
    };
    for (const bool permanently : {false, true}) {
        EXPECT_EQ(leftAfter(permanently,
                            [&] {
                                fake.files.take("/Users/me/work/a");
                                fake.files.addFile("/Users/me/work/a", 7);
                            }),
                  Left::somethingElse);
        EXPECT_EQ(leftAfter(permanently, [&] { fake.files.take("/Users/me/work/a"); }), Left::nothing);
    }
    fake.trash.fail(Operation::trashItem, "/Users/me/work/a", "No.");
    fake.trash.lack(Operation::trashThroughFinder);
    EXPECT_EQ(leftAfter(false, [] {}), Left::asItWas);
    EXPECT_EQ(leftAfter(true, [&] { fake.files.failRemoval("/Users/me/work/a", std::errc::permission_denied); }),
              Left::asItWas);
}

TEST_F(RemovalOf, AFolderThatIsOrHoldsAMountPointIsRefusedAndAFileIsNot)
{
    fake.files.addFolder("/Users/me/usb/disk/inner");
    fake.files.addFile("/Users/me/usb/other", 5);
    fake.files.addFolder("/Users/me/us");
    fake.files.setMountPoints({{"/", "/Users/me/usb/disk", "/Users/me/usb/other"}});
    for (const bool permanently : {false, true}) {
        EXPECT_EQ(failureLines(remove({{"/Users/me/usb/disk", 1}}, permanently)),
                  Lines{"disk: Another disk is mounted there."});
        EXPECT_EQ(failureLines(remove({{"/Users/me/usb", 1}}, permanently)),
                  Lines{"usb: Another disk is mounted inside it."});
    }
    EXPECT_TRUE(deeds().empty());
    EXPECT_EQ(remove({{"/Users/me/us", 1}, {"/Users/me/usb/other", 1}}).removed.size(), 2u)
        << "a name that only begins alike, and a file, which the system itself keeps";
}

TEST_F(RemovalOf, AMountPointIsRecognisedInAnyLetterCaseWhereTheSystemIgnoresIt)
{
    fake.files.addFolder("/Users/me/usb/Disk");
    fake.files.setMountPoints({{"/", "/Users/me/USB/disk"}});
    const ProtectedLocations ignoringCase(
        home, {.exact = {}, .prefixes = {}, .homeExact = {}, .homePrefixes = {}, .ignoresCase = true});
    for (const auto &[item, reason] : {std::pair("usb/Disk", "Disk: Another disk is mounted there."),
                                       std::pair("usb", "usb: Another disk is mounted inside it.")}) {
        const auto steps = Removal::plan({{std::string("/Users/me/") + item, 1}}, true, ignoringCase, {});
        EXPECT_EQ(failureLines(Removal::perform(steps, ignoringCase, fake.host())), Lines{reason});
    }
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AFileInThePlaceOfAFolderOnTheWayMeansThatTheItemIsGone)
{
    fake.files.addFile("/Users/me/work", 5);
    const RemovalOutcome outcome = remove({{"/Users/me/work/file", 1}});
    ASSERT_EQ(outcome.failures.size(), 1u);
    EXPECT_EQ(outcome.failures.front().left, RemovalFailure::Left::nothing);
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AFolderIsRefusedWhereTheMountsCannotBeToldAndAFileIsNot)
{
    fake.files.addFolder("/Users/me/x");
    fake.files.addFile("/Users/me/a", 5);
    fake.files.setMountPoints(std::nullopt);
    EXPECT_EQ(failureLines(remove({{"/Users/me/a", 1}, {"/Users/me/x", 1}})), Lines{"x: Input/output error"});
    EXPECT_EQ(deeds(), Lines{"trashItem /Users/me/a"});
}

TEST_F(RemovalOf, AnItemOfAProtectedPlaceThatIsMountedASecondTimeIsRefused)
{
    fake.files.addFile("/Users/me/.ssh/key", 5);
    fake.files.addFile("/second/keys/key", 5);
    fake.files.identify("/second/keys", "/Users/me/.ssh");
    fake.files.setMountPoints({{"/", "/second/keys"}});
    for (const bool permanently : {false, true}) {
        EXPECT_EQ(failureLines(remove({{"/second/keys/key", 1}}, permanently)), Lines{"key: protected location"});
    }
    EXPECT_TRUE(deeds().empty());
}

TEST_F(RemovalOf, AHomeThatIsMountedASecondTimeIsProtectedThereAsInItsOwnPlace)
{
    for (const char *folder : {"Documents", "Library/Preferences", ".ssh"})
        fake.files.addFolder(std::string("/Users/me/") + folder);
    for (const char *file : {"Documents/a", "Library/Preferences/b", ".ssh/key"})
        fake.files.addFile(std::string("/second/me/") + file, 5);
    fake.files.identify("/second/me", "/Users/me");
    fake.files.setMountPoints({{"/", "/second"}});
    EXPECT_EQ(failureLines(remove({{"/second/me", 1},
                                   {"/second/me/.ssh/key", 1},
                                   {"/second/me/Documents", 1},
                                   {"/second/me/Library/Preferences", 1}})),
              (Lines{"me: protected location", "key: protected location", "Documents: protected location",
                     "Preferences: protected location"}));
    EXPECT_TRUE(deeds().empty());
    EXPECT_EQ(remove({{"/second/me/Documents/a", 1}, {"/second/me/Library/Preferences/b", 1}}).removed.size(), 2u);
}

TEST_F(RemovalOf, ManyItemsOfAHomeOnADiskOfItsOwnAskForProtectedPlacesOnce)
{
    fake.files.addFile("/Users/me/.ssh/key", 5);
    fake.files.setMountPoints({{"/", "/Users"}});
    Selection entries;
    for (const char *name : {"a", "b", "c", "d"}) {
        fake.files.addFile(std::string("/Users/me/films/") + name, 5);
        entries[std::string("/Users/me/films/") + name] = 5;
    }
    EXPECT_EQ(remove(entries).removed.size(), 4u);
    EXPECT_EQ(std::ranges::count(fake.log->lines(), "facts /Users/me/.ssh"), 1);
}

TEST_F(RemovalOf, AProtectedPlaceThatIsMountedASecondTimeBetweenTwoItemsIsRefusedThere)
{
    fake.files.addFile("/Users/me/.ssh/key", 5);
    fake.files.addFile("/Users/me/films/a", 5);
    fake.files.addFile("/second/keys/key", 5);
    fake.files.setMountPoints({{"/", "/Users"}});
    fake.log->observe([&](const std::string &line) {
        if (line != "trashItem /Users/me/films/a")
            return;
        fake.files.identify("/second/keys", "/Users/me/.ssh");
        fake.files.setMountPoints({{"/", "/Users", "/second/keys"}});
    });
    const RemovalOutcome outcome = remove({{"/Users/me/films/a", 5}, {"/second/keys/key", 5}});
    EXPECT_EQ(failureLines(outcome), Lines{"key: protected location"});
    EXPECT_EQ(outcome.removed.size(), 1u);
}

TEST_F(RemovalOf, AnItemAsksNothingOfProtectedPlacesWhereNothingIsMountedASecondTime)
{
    fake.files.addFolder("/Users/me/.ssh");
    fake.files.addFile("/Users/me/a", 5);
    (void)remove({{"/Users/me/a", 1}}, true);
    EXPECT_EQ(fake.log->lines(), (Lines{"holdFolder /Users/me", "facts /Users/me/a", "removeItem /Users/me/a"}));
}

TEST_F(RemovalOf, AnItemThatTookThePlaceOfTheSelectedOneStaysAndSaysSo)
{
    for (const bool permanently : {false, true}) {
        FakeHost system;
        system.files.addFile("/Users/me/file", 4'096);
        system.files.addFile("/Users/me/folder/a", 5);
        const Selection entries{{"/Users/me/file", 4'096}, {"/Users/me/folder", 5}};
        const SeenItems seen = Removal::look(selectedEntries(entries), locations(), system.host());
        system.files.take("/Users/me/file");
        system.files.addFile("/Users/me/file/precious", 9);
        system.files.take("/Users/me/folder");
        system.files.addFile("/Users/me/folder/b", 9); // the same kind, but another item
        const auto steps = Removal::plan(entries, permanently, locations(), {}, seen);
        const RemovalOutcome outcome = Removal::perform(steps, locations(), system.host());
        EXPECT_TRUE(outcome.removed.empty());
        EXPECT_EQ(failureLines(outcome), (Lines{"file: it has changed since you selected it",
                                                "folder: it has changed since you selected it"}));
        EXPECT_EQ(outcome.failures.front().left, RemovalFailure::Left::somethingElse);
        EXPECT_TRUE(system.files.has("/Users/me/file/precious"));
        EXPECT_TRUE(system.files.has("/Users/me/folder/b"));
    }
}

TEST_F(RemovalOf, AnItemThatCameAfterNothingWasSeenThereStays)
{
    const Selection entries{{"/Users/me/a", 5}};
    const SeenItems seen = Removal::look(selectedEntries(entries), locations(), fake.host());
    fake.files.addFile("/Users/me/a", 5);
    const auto steps = Removal::plan(entries, false, locations(), {}, seen);
    EXPECT_EQ(failureLines(Removal::perform(steps, locations(), fake.host())),
              Lines{"a: it has changed since you selected it"});
    EXPECT_TRUE(fake.files.has("/Users/me/a"));
}

TEST_F(RemovalOf, AnItemThatIsStillTheSelectedOneGoes)
{
    fake.files.addFile("/Users/me/x/a", 5);
    const Selection entries{{"/Users/me/x", 5}};
    const SeenItems seen = Removal::look(selectedEntries(entries), locations(), fake.host());
    fake.files.addFile("/Users/me/x/b", 5); // a folder's contents may change
    const auto steps = Removal::plan(entries, false, locations(), {}, seen);
    EXPECT_EQ(Removal::perform(steps, locations(), fake.host()).removed.size(), 1u);
}

TEST_F(RemovalOf, AnItemThatIsGoneLeavesNothing)
{
    const RemovalOutcome outcome = remove({{"/Users/me/a", 5}, {"/Users/me/none/b", 5}});
    for (const RemovalFailure &failure : outcome.failures)
        EXPECT_EQ(failure.left, RemovalFailure::Left::nothing) << failure.path;
}

} // namespace
} // namespace corvane
