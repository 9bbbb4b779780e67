#include "disk/snapshot_listing.h"

#include <algorithm>
#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/fake_host.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Time tenFifteen{std::chrono::seconds{1'714'558'500}}; // 1 May 2024 10:15:00 UTC

std::vector<std::string> namesOf(const std::vector<LocalSnapshot> &snapshots)
{
    std::vector<std::string> names;
    std::ranges::transform(snapshots, std::back_inserter(names), &LocalSnapshot::name);
    return names;
}

/// A fake Linux system whose tools give the test's output; every other call of a tool fails.
class SnapshotListingTest : public testing::Test {
protected:
    SnapshotListingTest() { fake.files.setHome("/home/me"); }

    [[nodiscard]] std::vector<LocalSnapshot> read()
    {
        const auto run = [this](const std::string &tool,
                                const std::vector<std::string> &arguments) -> std::optional<std::string> {
            std::string command = tool;
            for (const std::string &argument : arguments)
                command += " " + argument;
            asked.push_back(command);
            const auto answer = answers.find(command);
            return answer == answers.end() ? std::nullopt : std::optional(answer->second);
        };
        return SnapshotListing(fake.files, run).read(diskTableOf(SystemKind::linuxSystem).snapshotKeepers);
    }
    void answerSnapper(const std::string &configuration, const std::string &table)
    {
        answers["/usr/bin/snapper --csvout --utc --iso -c " + configuration +
                " list --disable-used-space --columns number,date"] = table;
    }

    FakeHost fake;
    std::map<std::string, std::string> answers;
    std::vector<std::string> asked;
};

const std::string snapperConfigs = "/usr/bin/snapper --csvout list-configs --columns config";
const std::string zfsList = "/usr/sbin/zfs list -H -p -t snapshot -o name,used,creation";

TEST_F(SnapshotListingTest, WhereNothingKeepsSnapshotsNothingIsAsked)
{
    fake.files.addMount({"/", 1, "/", "/dev/sda1"});
    EXPECT_THAT(read(), IsEmpty());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SnapshotListingTest, SnapperListsThoseOfEachConfigurationThatIsOpenToTheUser)
{
    fake.files.addFile("/usr/bin/snapper", 1);
    answers[snapperConfigs] = "config\nroot\nhome\nclosed\n";
    answerSnapper("root", "number,date\n0,\n1,2024-05-01 10:15:00\n27,\n");
    answerSnapper("home", "number,date\n0,\n3,2024-05-01 10:15:00\n");
    const auto snapshots = read();
    EXPECT_THAT(namesOf(snapshots), ElementsAre("snapper root 1", "snapper root 27", "snapper home 3"));
    EXPECT_EQ(snapshots[0].date, tenFifteen);
    EXPECT_EQ(snapshots[1].date, std::nullopt);
    EXPECT_EQ(snapshots[2].deleteCommand, "sudo snapper -c home delete 3");
    EXPECT_EQ(snapshots[2].listCommand, "sudo snapper list --all-configs");
}

TEST_F(SnapshotListingTest, WhereSnapperRefusesTheUserTheFilesBesideTheSnapshotsAreRead)
{
    fake.files.addFile("/usr/bin/snapper", 1);
    fake.files.addText("/.snapshots/12/info.xml",
                       "<?xml version=\"1.0\"?>\n<snapshot>\n  <type>single</type>\n  <num>12</num>\n"
                       "  <date>2024-05-01 10:15:00</date>\n</snapshot>\n");
    fake.files.addText("/.snapshots/9/info.xml", "<snapshot><date>2024-04-30 10:15:00</date></snapshot>");
    fake.files.addText("/.snapshots/x; reboot/info.xml", "<snapshot/>");
    fake.files.addFolder("/.snapshots/13/snapshot");
    const auto snapshots = read();
    EXPECT_THAT(namesOf(snapshots), ElementsAre("snapper root 9", "snapper root 12"));
    EXPECT_EQ(snapshots[1].date, tenFifteen);
    EXPECT_EQ(snapshots[1].deleteCommand, "sudo snapper -c root delete 12");
}

TEST_F(SnapshotListingTest, WhereNothingCanBeReadThereIsNone)
{
    fake.files.addFile("/usr/bin/snapper", 1);
    fake.files.addFile("/usr/sbin/zfs", 1);
    fake.files.addMount({"/", 1, "/", "rpool/ROOT/debian", "rpool"});
    fake.files.addFolder("/.snapshots/12");
    fake.files.failOpening("/.snapshots");
    fake.files.addFolder("/timeshift/snapshots/2024-05-01_10-15-00");
    fake.files.failOpening("/timeshift/snapshots");
    EXPECT_THAT(read(), IsEmpty());
    EXPECT_THAT(asked, ElementsAre(snapperConfigs, zfsList));
}

TEST_F(SnapshotListingTest, NoNameFromSnapperBecomesAnOptionOrACommand)
{
    EXPECT_THAT(SnapshotListing::snapperConfigurations("config\nroot\n-rf\n\na b\n$(reboot)\nx;y\nhome_2.old\n"),
                ElementsAre("root", "home_2.old"));
    EXPECT_THAT(SnapshotListing::ofSnapper("root", "number,date\n-1,\n1; reboot,\n99999999999999999999,\n 4,\n\n,\n"
                                                   "7,2024-13-01 10:15:00\n8,yesterday"),
                ElementsAre(testing::Field(&LocalSnapshot::name, "snapper root 7"),
                            testing::Field(&LocalSnapshot::name, "snapper root 8")));
    EXPECT_THAT(SnapshotListing::ofSnapper("root", ""), IsEmpty());
}

TEST_F(SnapshotListingTest, ADateThatCannotBeReadIsNone)
{
    for (const char *xml : {"", "<date>", "<date></date>", "<date>2024-02-30 10:15:00</date>",
                            "<date>2024-05-01 25:15:00</date>", "<date>2024-05-01</date>", "<DATE>x"})
        EXPECT_EQ(SnapshotListing::dateInInfo(xml), std::nullopt) << xml;
}

TEST_F(SnapshotListingTest, TimeshiftsFoldersOnTheDiskAreSnapshotsByTheirNames)
{
    fake.files.addMount({"/", 1, "/", "/dev/sda1"});
    fake.files.addFolder("/timeshift/snapshots/2024-05-02_10-15-00");
    fake.files.addFolder("/timeshift/snapshots/2024-05-01_10-15-00");
    fake.files.addFolder("/timeshift/snapshots/2024-05-01_10-15-00'; reboot #");
    fake.files.addFile("/timeshift/snapshots/2024-05-03_10-15-00", 1);
    const auto snapshots = read();
    EXPECT_THAT(namesOf(snapshots), ElementsAre("timeshift 2024-05-01_10-15-00", "timeshift 2024-05-02_10-15-00"));
    EXPECT_EQ(snapshots[0].deleteCommand, "sudo timeshift --delete --snapshot 2024-05-01_10-15-00");
    EXPECT_TRUE(snapshots[0].date.has_value());
}

TEST_F(SnapshotListingTest, ABackupOnAnotherDiskIsNotTouched)
{
    fake.files.addMount({"/", 1, "/", "/dev/sda1"});
    fake.files.addMount({"/run/timeshift/backup", 2, "/", "/dev/sdb1"});
    fake.files.addFolder("/run/timeshift/backup/timeshift/snapshots/2024-05-01_10-15-00");
    EXPECT_THAT(read(), IsEmpty());
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains(testing::HasSubstr("/run/timeshift"))));
}

TEST_F(SnapshotListingTest, ABackupOnAnotherVolumeOfTheDiskCounts)
{
    fake.files.addMount({"/", 1, "/@", "/dev/sda1"});
    fake.files.addMount({"/run/timeshift/backup", 1, "/", "/dev/sda1"});
    fake.files.addFolder("/run/timeshift/backup/timeshift-btrfs/snapshots/2024-05-01_10-15-00");
    EXPECT_THAT(namesOf(read()), ElementsAre("timeshift 2024-05-01_10-15-00"));
}

TEST_F(SnapshotListingTest, ZfsListsThoseOfThePoolsThatTheDiskIsMadeOf)
{
    fake.files.addFile("/usr/sbin/zfs", 1);
    fake.files.addMount({"/", 1, "/", "rpool/ROOT/debian", "rpool"});
    fake.files.addMount({"/home", 2, "/", "tank/home", "tank"});
    answers[zfsList] = "rpool/ROOT/debian@before update\t8192\t1714558500\n"
                       "tank/home@daily\t0\t1714558500\n"
                       "backup/home@daily\t1\t1714558500\n";
    const auto snapshots = read();
    ASSERT_THAT(namesOf(snapshots), ElementsAre("rpool/ROOT/debian@before update", "tank/home@daily"));
    EXPECT_EQ(snapshots[0].date, tenFifteen);
    EXPECT_EQ(snapshots[0].size, 8'192);
    EXPECT_EQ(snapshots[0].deleteCommand, "sudo zfs destroy 'rpool/ROOT/debian@before update'");
    EXPECT_EQ(snapshots[1].deleteCommand, "sudo zfs destroy tank/home@daily");
    EXPECT_EQ(snapshots[1].listCommand, "zfs list -t snapshot");
}

TEST_F(SnapshotListingTest, ZfsIsNotAskedWhereTheDiskIsNoneOfIts)
{
    fake.files.addFile("/usr/sbin/zfs", 1);
    fake.files.addMount({"/", 1, "/", "/dev/sda1"});
    EXPECT_THAT(read(), IsEmpty());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SnapshotListingTest, OnlyASnapshotsNameMakesACommandThatDestroys)
{
    for (const char *line : {"rpool/home\t1\t1", "rpool@\t1\t1", "rpool@a@b\t1\t1", "rpool@a,b\t1\t1",
                             "rpool@a%b\t1\t1", "-r rpool@a\t1\t1", "rpool@a'b\t1\t1", "rpool@$(x)\t1\t1",
                             "rpool@\xff\t1\t1", "@a\t1\t1", "", "\t\t", "rpool2/x@a\t1\t1"})
        EXPECT_THAT(SnapshotListing::ofZfs(line, {"rpool"}), IsEmpty()) << line;
    const auto absurd = SnapshotListing::ofZfs("rpool@a\t-1\t-1\nrpool@b\t9223372036854775807\t9223372036854775807\n"
                                               "rpool@c\t1e30\tx\nrpool@d",
                                               {"rpool"});
    ASSERT_EQ(absurd.size(), 4u);
    for (const LocalSnapshot &snapshot : absurd) {
        EXPECT_EQ(snapshot.size, std::nullopt) << snapshot.name;
        EXPECT_EQ(snapshot.date, std::nullopt) << snapshot.name;
    }
}

TEST_F(SnapshotListingTest, AListWithoutEndIsCutOff)
{
    std::string table = "number,date\n";
    for (int i = 1; i <= 20'000; ++i)
        table += std::to_string(i) + ",\n";
    EXPECT_EQ(SnapshotListing::ofSnapper("root", table).size(), 10'000u);
}

TEST(ShellWord, IsOneWordWhateverItHolds)
{
    EXPECT_EQ(shellWord("rpool/home@a_b:1"), "rpool/home@a_b:1");
    EXPECT_EQ(shellWord("a b"), "'a b'");
    EXPECT_EQ(shellWord("it's $(here)"), "'it'\\''s $(here)'");
    EXPECT_EQ(shellWord(""), "''");
}

} // namespace
} // namespace corvane
