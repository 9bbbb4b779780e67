#include "platform/fake_host.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Operation = FakeTrash::Operation;

/// Opens and holds the item's folder.
std::unique_ptr<HeldFolder> hold(FakeHost &fake, const std::string &folder)
{
    return std::move(*fake.files.holdFolder(folder));
}

TEST(FakeTrash, TrashedItemLeavesTheTree)
{
    FakeHost fake;
    fake.files.addFile("/a/f", 1);
    EXPECT_TRUE(fake.trash.trashItem(*hold(fake, "/a"), "f"));
    EXPECT_FALSE(fake.files.has("/a/f"));
    EXPECT_THAT(fake.trash.trashed(), ElementsAre("/a/f"));
}

TEST(FakeTrash, FailsOnlyForTheOperationAndPathNamed)
{
    FakeHost fake;
    fake.files.addFolder("/a/X.app");
    fake.trash.fail(Operation::trashItem, "/a/X.app", "No.");
    EXPECT_EQ(fake.trash.trashItem(*hold(fake, "/a"), "X.app").error().description(), "No.");
    EXPECT_TRUE(fake.files.has("/a/X.app"));
    EXPECT_TRUE(fake.trash.recycle(*hold(fake, "/a"), "X.app"));
    EXPECT_FALSE(fake.files.has("/a/X.app"));
}

TEST(FakeTrash, PretendedSuccessLeavesTheItem)
{
    FakeHost fake;
    fake.files.addFile("/a/f", 1);
    fake.trash.pretend(Operation::trashThroughFinder, "/a/f");
    EXPECT_TRUE(fake.trash.trashThroughFinder("/a/f"));
    EXPECT_TRUE(fake.files.has("/a/f"));
    EXPECT_THAT(fake.trash.trashed(), IsEmpty());
}

TEST(FakeTrash, LackingServiceFailsForEveryPath)
{
    FakeHost fake;
    fake.files.addFile("/a/f", 1);
    fake.trash.lack(Operation::recycle);
    EXPECT_EQ(fake.trash.recycle(*hold(fake, "/a"), "f").error().code, std::errc::not_supported);
}

TEST(FakeTrash, MissingItemCannotBeTrashed)
{
    FakeHost fake;
    EXPECT_EQ(fake.trash.trashItem(*hold(fake, "/"), "none").error().code, std::errc::no_such_file_or_directory);
}

TEST(FakeHost, CallsOfAllFakesStandInOneLog)
{
    FakeHost fake;
    fake.files.addFile("/a/f", 1);
    const Host host = fake.host();
    EXPECT_TRUE(host.files.facts("/a/f"));
    EXPECT_TRUE(host.trash.trashItem(*hold(fake, "/a"), "f"));
    EXPECT_EQ(host.volumes.facts("/"), VolumeFacts{});
    host.desktop.log("done");
    EXPECT_THAT(fake.log->lines(),
                ElementsAre("facts /a/f", "holdFolder /a", "trashItem /a/f", "volume /", "log done"));
    EXPECT_THAT(fake.desktop.logged(), ElementsAre("done"));
}

TEST(FakeHost, DesktopFailsForWhatTheTestNames)
{
    FakeHost fake;
    fake.desktop.fail("/a", "Nothing to show it with.");
    EXPECT_EQ(fake.desktop.reveal("/a", {}).error().text, "Nothing to show it with.");
    EXPECT_TRUE(fake.desktop.reveal("/b", {}));
}

} // namespace
} // namespace corvane
