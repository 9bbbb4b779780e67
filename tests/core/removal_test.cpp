#include "core/removal.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using Action = RemovalStep::Action;
using Operation = FakeTrash::Operation;

constexpr const char *home = "/Users/me";

const ProtectedLocations &locations()
{
    static const ProtectedLocations instance(home, {});
    return instance;
}

std::vector<RemovalStep> planFor(const Selection &entries, bool permanently,
                                 const std::vector<std::string> &trashFolders = {})
{
    return Removal::plan(entries, permanently, locations(), trashFolders);
}

std::vector<Action> actions(const std::vector<RemovalStep> &steps)
{
    std::vector<Action> result;
    for (const RemovalStep &step : steps)
        result.push_back(step.action);
    return result;
}

class RemovalOf : public testing::Test {
protected:
    RemovalOutcome remove(const Selection &entries, bool permanently = false)
    {
        const auto steps = planFor(entries, permanently, fake.trash.trashFolders());
        return Removal::perform(steps, locations(), fake.host());
    }

    /// The operations on items, without the checks before them.
    std::vector<std::string> deeds() const
    {
        std::vector<std::string> result;
        for (const std::string &line : fake.log->lines()) {
            for (const char *deed : {"removeItem ", "trashItem ", "recycle ", "trashThroughFinder "}) {
                if (line.starts_with(deed))
                    result.push_back(line);
            }
        }
        return result;
    }

    FakeHost fake;
};

using Lines = std::vector<std::string>;
using Entries = std::vector<SelectedEntry>;

Lines failureLines(const RemovalOutcome &outcome)
{
    Lines lines;
    for (const RemovalFailure &failure : outcome.failures)
        lines.push_back(failure.line);
    return lines;
}

/// "/srv/a" is removed, which must not delete the last copy of the contents shared with "/srv/b" and "/srv/c".
class RemovalOfADuplicate : public RemovalOf {
protected:
    RemovalOfADuplicate()
    {
        for (const char *path : {"/srv/a", "/srv/b", "/srv/c"})
            fake.files.addText(path, "same", 4'096, Time(std::chrono::seconds(1'000)));
        keep({"/srv/b", "/srv/c"});
    }

    FileStatus statusOf(const std::string &path) { return (*fake.files.openFile(path))->status().value(); }

    /// Sets the copies that "/srv/a" is compared with, in their current state.
    void keep(const std::vector<std::string> &paths)
    {
        std::vector<KeptCopy> copies;
        for (const std::string &path : paths)
            copies.push_back({path, statusOf(path)});
        conditions["/srv/a"].copies = {std::make_shared<const std::vector<KeptCopy>>(std::move(copies))};
    }

    RemovalOutcome removeA(bool permanently = false)
    {
        const auto steps = Removal::plan({{"/srv/a", 4'096}}, permanently, locations(), {}, {}, conditions);
        return Removal::perform(steps, locations(), fake.host());
    }

    RemovalConditions conditions;
};

TEST_F(RemovalOfADuplicate, GoesWhereACopyStays)
{
    EXPECT_EQ(removeA().removed, (Entries{{"/srv/a", 4'096}}));
}

TEST_F(RemovalOfADuplicate, GoesWhereOneOfTheCopiesStays)
{
    fake.files.take("/srv/b");
    EXPECT_EQ(removeA().removed, (Entries{{"/srv/a", 4'096}}));
}

TEST_F(RemovalOfADuplicate, StaysWhereNoneOfTheCopiesIsThereAnyMore)
{
    fake.files.take("/srv/b");
    fake.files.take("/srv/c");
    for (const bool permanently : {false, true})
        EXPECT_EQ(failureLines(removeA(permanently)), (Lines{"a: the kept copy has changed"}));
    EXPECT_TRUE(deeds().empty());
    EXPECT_TRUE(fake.files.has("/srv/a"));
}

TEST_F(RemovalOfADuplicate, StaysWhereTheCopyWasWrittenMeanwhile)
{
    for (const auto &[content, modified] :
         {std::pair("other length", 1'000), std::pair("same", 1'001), std::pair("same", 1'000)}) {
        fake.files.take("/srv/b");
        fake.files.addText("/srv/b", "same", 4'096, Time(std::chrono::seconds(1'000)));
        keep({"/srv/b"});
        fake.files.take("/srv/b");
        fake.files.addText("/srv/b", content, 4'096, Time(std::chrono::seconds(modified)));
        EXPECT_EQ(failureLines(removeA()), (Lines{"a: the kept copy has changed"})) << content << modified;
    }
    EXPECT_TRUE(fake.files.has("/srv/a"));
}

TEST_F(RemovalOfADuplicate, StaysWhereItWasWrittenItselfMeanwhile)
{
    conditions["/srv/a"].itself = statusOf("/srv/a");
    fake.files.take("/srv/a");
    fake.files.addText("/srv/a", "the only file with this", 4'096, Time(std::chrono::seconds(2'000)));
    EXPECT_EQ(failureLines(removeA()), (Lines{"a: it has changed since it was compared"}));
    EXPECT_TRUE(fake.files.has("/srv/a"));
}

TEST_F(RemovalOfADuplicate, StaysWhereTheOnlyOtherCopyIsInTheTrash)
{
    const std::string trashed = std::string(home) + "/.Trash/b";
    fake.files.addText(trashed, "same", 4'096, Time(std::chrono::seconds(1'000)));
    keep({trashed});
    EXPECT_EQ(failureLines(removeA()), (Lines{"a: the only other copy is in the Trash"}));
    keep({trashed, "/srv/c"});
    EXPECT_EQ(removeA().removed.size(), 1U);
}

TEST_F(RemovalOfADuplicate, GoesOutOfTheTrashWhereACopyStaysThere)
{
    const std::string trash = std::string(home) + "/.Trash";
    for (const char *name : {"/a", "/b"})
        fake.files.addText(trash + name, "same", 4'096, Time(std::chrono::seconds(1'000)));
    keep({trash + "/b"});
    conditions[trash + "/a"] = conditions["/srv/a"];
    const auto steps = Removal::plan({{trash + "/a", 4'096}}, false, locations(), {}, {}, conditions);
    EXPECT_EQ(Removal::perform(steps, locations(), fake.host()).removed.size(), 1U);
}

TEST_F(RemovalOfADuplicate, NeedsACopyOfEachGroupThatAFolderHolds)
{
    keep({"/srv/c"});
    RemovalCondition both = conditions["/srv/a"];
    keep({"/srv/b"});
    both.copies.push_back(conditions["/srv/a"].copies.front());
    conditions["/srv/a"] = both;
    fake.files.take("/srv/b");
    EXPECT_EQ(failureLines(removeA()), (Lines{"a: the kept copy has changed"}));
}

TEST_F(RemovalOfADuplicate, StaysWhereTheCopyIsALinkByNow)
{
    keep({"/srv/b"});
    fake.files.take("/srv/b");
    fake.files.addLink("/srv/b", "/srv/c");
    EXPECT_EQ(failureLines(removeA()), (Lines{"a: the kept copy has changed"}));
}

TEST_F(RemovalOfADuplicate, StaysWhereTheCopyIsASecondPathToItself)
{
    // As if the folder were mounted a second time: the supposed copy would be removed as well.
    fake.files.addText("/mnt/again/a", "same", 4'096, Time(std::chrono::seconds(1'000)));
    fake.files.identify("/mnt/again/a", "/srv/a");
    fake.files.identify("/mnt/again", "/srv");
    keep({"/mnt/again/a"});
    EXPECT_EQ(failureLines(removeA()), (Lines{"a: the kept copy has changed"}));
    EXPECT_TRUE(fake.files.has("/srv/a"));
}

TEST_F(RemovalOfADuplicate, GoesWhereTheCopyIsAnotherNameOfIt)
{
    fake.files.identify("/srv/b", "/srv/a");
    keep({"/srv/b"});
    EXPECT_EQ(removeA().removed.size(), 1U);
}

TEST_F(RemovalOfADuplicate, StaysWhereItIsTheCopyToBeKept)
{
    conditions["/srv/a"].holdsKeptCopy = true;
    EXPECT_EQ(failureLines(removeA()), (Lines{"a: it holds the copy to keep"}));
    EXPECT_TRUE(deeds().empty());
}

TEST(RemovalPlan, HasOneStepForEachEntryInTheOrderOfTheirPaths)
{
    const auto steps = planFor({{"/srv/b", 2}, {"/srv/a", 1}, {"/usr/x", 3}}, false);
    const std::vector<RemovalStep> expected{
        {"/srv/a", 1, Action::trash}, {"/srv/b", 2, Action::trash}, {"/usr/x", 3, Action::refuse}};
    EXPECT_EQ(steps, expected);
}

TEST(RemovalPlan, PermanentRemovalErases)
{
    EXPECT_EQ(actions(planFor({{"/srv/a", 1}}, true)), std::vector{Action::erase});
}

TEST(RemovalPlan, ProtectedEntryIsRefusedEvenPermanently)
{
    EXPECT_EQ(actions(planFor({{"/Users/me/Documents", 1}}, false)), std::vector{Action::refuse});
    EXPECT_EQ(actions(planFor({{"/Users/me/Documents", 1}}, true)), std::vector{Action::refuse});
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash", 1}}, true)), std::vector{Action::refuse});
}

TEST(RemovalPlan, EntryInTheTrashIsErased)
{
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash/a", 1}}, false)), std::vector{Action::erase});
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash/a/b", 1}}, false)), std::vector{Action::erase});
    EXPECT_EQ(actions(planFor({{"/srv/trash/a", 1}}, false, {"/srv/trash"})), std::vector{Action::erase});
}

TEST(RemovalPlan, EntryWhoseNameOnlyBeginsLikeTheTrashIsTrashed)
{
    EXPECT_EQ(actions(planFor({{"/Users/me/.Trash2/a", 1}}, false)), std::vector{Action::trash});
    EXPECT_EQ(actions(planFor({{"/srv/trash", 1}}, false, {"/srv/trash"})), std::vector{Action::trash});
    EXPECT_EQ(actions(planFor({{"/Users/other/.Trash/a", 1}}, false)), std::vector{Action::trash});
}

TEST(RemovalPlan, PathThatIsNotAbsoluteIsRefused)
{
    for (const char *path : {"", "a", "~/a", "./a"})
        EXPECT_EQ(actions(planFor({{path, 1}}, true)), std::vector{Action::refuse}) << path;
}

TEST(RemovalPlan, PathThatIsNotStandardizedIsRefused)
{
    for (const char *path : {"/srv/x/", "/srv/x/.", "/srv/./x", "/srv//x", "//srv/x", "/srv/link/../x",
                             "/Users/me/.Trash/../a", "/Users/me/.Trash/."}) {
        for (const bool permanently : {false, true})
            EXPECT_EQ(actions(planFor({{path, 1}}, permanently)), std::vector{Action::refuse}) << path;
    }
}

TEST(RemovalPlan, TrashFolderWithNeedlessSlashesIsTheSame)
{
    for (const char *folder : {"/srv/trash/", "/srv/trash//", "//srv/./trash"})
        EXPECT_EQ(actions(planFor({{"/srv/trash/a", 1}}, false, {folder})), std::vector{Action::erase}) << folder;
}

TEST(RemovalPlan, OfNothingIsEmpty)
{
    EXPECT_TRUE(planFor({}, false).empty());
}

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

TEST_F(RemovalOf, AnItemThatIsSeenInTheTrashIsErasedAlsoWhereALinkLeadsThere)
{
    fake.files.addFile("/Users/me/.Trash/a", 5);
    fake.files.addFile("/Users/me/b", 5);
    fake.files.addLink("/srv/way", "/Users/me/.Trash");
    const Selection entries{{"/Users/me/.Trash/a", 5}, {"/Users/me/b", 5}, {"/srv/way/a", 5}};
    const SeenItems seen = Removal::look(selectedEntries(entries), locations(), fake.host());
    EXPECT_TRUE(seen.at("/Users/me/.Trash/a").isInTrash);
    EXPECT_FALSE(seen.at("/Users/me/b").isInTrash);
    EXPECT_TRUE(seen.at("/srv/way/a").isInTrash);
    EXPECT_EQ(actions(Removal::plan(entries, false, locations(), {}, seen)),
              (std::vector{Action::erase, Action::trash, Action::erase}));
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
