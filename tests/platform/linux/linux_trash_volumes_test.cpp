#include <cerrno>

#include <unistd.h>

#include <gmock/gmock.h>

#include "platform/linux/trash_records.h"

namespace corvane {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::StartsWith;

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

} // namespace
} // namespace corvane
