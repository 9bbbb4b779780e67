#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "core/removal_fixture.h"

namespace corvane {
namespace {

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

} // namespace
} // namespace corvane
