#include "disk/disk_places.h"

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "disk/disk_accountant.h"
#include "disk/disk_places_fixture.h"
#include "platform/path.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DiskPlacesTest, APlaceInsideAnotherCountsForItselfAlone)
{
    add("/usr/lib/libc.so", 100);
    add("/usr/local/bin/tool", 20);
    add("/var/lib/db", 1);
    add("/var/lib/flatpak/app", 2);
    add("/var/lib/snapd/snap", 4);
    add("/var/lib/docker/layer", 8);
    add("/var/lib/libvirt/images/vm", 16);
    add("/var/lib/libvirt/qemu.log", 32);
    add("/var/cache/apt", 64);
    add("/var/log/syslog", 128);
    add("/var/tmp/x", 256);
    add("/tmp/y", 512);
    measure();
    EXPECT_EQ(size("/usr"), 100);
    EXPECT_EQ(size("/usr/local"), 20);
    EXPECT_EQ(size("/var"), 33);
    EXPECT_EQ(size("/var/lib/flatpak"), 2);
    EXPECT_EQ(size("/var/lib/snapd"), 4);
    EXPECT_EQ(size("/var/lib/docker"), 8);
    EXPECT_EQ(size("/var/lib/libvirt/images"), 16);
    EXPECT_EQ(size("/var/cache"), 64);
    EXPECT_EQ(size("/var/log"), 128);
    EXPECT_EQ(size("/tmp"), 768);
    EXPECT_EQ(size("/"), 0);
}

TEST_F(DiskPlacesTest, EveryPlaceCountsWhatItHolds)
{
    const auto places = diskTableOf(SystemKind::linuxSystem).places;
    std::map<std::string_view, int> folders;
    for (const DiskPlace &place : places) {
        for (const std::string_view folder : place.folders) {
            if (folder.empty())
                continue;
            add(joined(folder == "~" ? "/home/me" : folder, "item"), 1);
            ++folders[place.id];
        }
    }
    measure();
    for (const DiskPlace &place : places)
        EXPECT_EQ(size(place.id), folders[place.id]) << place.id;
}

TEST_F(DiskPlacesTest, OtherUsersAreEverybodyButTheOwner)
{
    add("/home/me/mine", 100);
    add("/home/you/yours", 20);
    add("/root/secret", 3);
    measure();
    EXPECT_EQ(size("home"), 100);
    EXPECT_EQ(size("/home"), 23);
    EXPECT_THAT(segment("/home").children, ElementsAre(NamedSize{"you", 20 * mb}, NamedSize{"/root", 3 * mb}));

    fake.files.setHome("/root"); // the administrator's home
    measure();
    EXPECT_EQ(size("home"), 3);
    EXPECT_EQ(size("/home"), 120);
}

TEST_F(DiskPlacesTest, WhatIsNoPlaceOfItsOwnIsInTheRest)
{
    add("/etc/passwd", 1);
    add("/data/photos", 200);
    add("/vmlinuz.old", 30);
    measure();
    EXPECT_EQ(size("/"), 231);
    EXPECT_THAT(segment("/").children,
                ElementsAre(NamedSize{"data", 200 * mb}, NamedSize{"vmlinuz.old", 30 * mb}, NamedSize{"etc", mb}));
}

TEST_F(DiskPlacesTest, TheScannedFolderIsLeftOutExactly)
{
    add("/usr/lib/big/a", 100);
    add("/usr/lib/small/b", 20);
    add("/usr/share/c", 3);
    add("/home/me/d", 50);
    measure("/usr/lib/big");
    EXPECT_EQ(size("/usr"), 23);
    EXPECT_EQ(size("home"), 50);
    measure("/usr");
    EXPECT_EQ(size("/usr"), 0);
    measure("/home/me");
    EXPECT_EQ(size("home"), 0);
    EXPECT_EQ(size("/usr"), 123);
    measure("/");
    for (const BreakdownSegment &segment : segments)
        EXPECT_EQ(segment.size, 0) << segment.id;
}

TEST_F(DiskPlacesTest, AnotherDiskBelowAPlaceIsNotCounted)
{
    fake.files.addMount({"/", 1, "/"});
    fake.files.addMount({"/var/lib/docker", 2, "/"});
    fake.files.addMount({"/usr/share/media", 3, "/"});
    fake.files.addMount({"/home", 4, "/"});
    add("/var/lib/docker/layer", 8);
    add("/usr/share/media/film", 900);
    add("/usr/bin/sh", 1);
    add("/home/me/d", 50);
    add("/home/you/e", 5);
    measure();
    EXPECT_EQ(size("/var/lib/docker"), 0);
    EXPECT_EQ(size("/usr"), 1);
    EXPECT_EQ(size("home"), 50) << "the home folder's own file system is a part of the disk";
    EXPECT_EQ(size("/home"), 5);
}

TEST_F(DiskPlacesTest, AFolderMountedTwiceCountsOnce)
{
    fake.files.addMount({"/", 1, "/"});
    fake.files.addMount({"/srv/home", 1, "/home"});
    add("/home/you/e", 5);
    add("/srv/home/you/e", 5);
    measure();
    EXPECT_EQ(size("/home") + size("/srv"), 5);
}

TEST_F(DiskPlacesTest, TwoSubvolumesOfOneFileSystemAreOneDisk)
{
    fake.files.addMount({"/", 1, "/@"});
    fake.files.addMount({"/home", 1, "/@home"});
    fake.files.addMount({"/var/log", 1, "/@log"});
    fake.files.addMount({"/mnt/whole", 1, "/"}); // all three again
    const VolumeFacts facts{.name = {}, .total = 1'000 * mb, .available = 100 * mb, .availableForImportantUse = {}};
    for (const char *path : {"/", "/home/me", "/var/log", "/mnt/whole"})
        fake.volumes.set(path, facts);
    add("/usr/lib/libc.so", 600);
    add("/home/me/mine", 200);
    add("/var/log/syslog", 80);
    add("/mnt/whole/@/usr/lib/libc.so", 600);
    add("/mnt/whole/@home/me/mine", 200);
    add("/mnt/whole/@log/syslog", 80);
    const DiskBreakdown breakdown = DiskAccountant::compute({}, fake.host());
    EXPECT_EQ(breakdown.total, 1'000 * mb);
    EXPECT_EQ(breakdown.used(), 900 * mb);
    EXPECT_EQ(breakdown.overcount, 0);
    segments = breakdown.segments;
    EXPECT_EQ(size("/usr"), 600);
    EXPECT_EQ(size("home"), 200);
    EXPECT_EQ(size("/var/log"), 80);
    EXPECT_EQ(size("/"), -1) << "what is mounted again is no other data";
}

TEST_F(DiskPlacesTest, ASeparateHomeIsAddedToTheDisk)
{
    fake.files.addMount({"/", 1, "/"});
    fake.files.addMount({"/home", 2, "/"});
    fake.volumes.set("/", {.name = {}, .total = 300 * mb, .available = 50 * mb, .availableForImportantUse = {}});
    fake.volumes.set("/home/me",
                     {.name = {}, .total = 1'000 * mb, .available = 200 * mb, .availableForImportantUse = {}});
    add("/usr/lib/libc.so", 240);
    add("/home/me/mine", 600);
    add("/home/you/yours", 190);
    const DiskBreakdown breakdown = DiskAccountant::compute({}, fake.host());
    EXPECT_EQ(breakdown.total, 1'300 * mb);
    EXPECT_EQ(breakdown.free, 250 * mb);
    segments = breakdown.segments;
    EXPECT_EQ(size("/usr"), 240);
    EXPECT_EQ(size("home"), 600);
    EXPECT_EQ(size("/home"), 190);
    EXPECT_EQ(size("hidden"), -1) << "20 MB are not worth a row";
    EXPECT_EQ(breakdown.explainedPercentage(), 100);
}

TEST_F(DiskPlacesTest, ABindMountIsCountedInOnePlaceOnly)
{
    fake.files.addMount({"/", 1, "/"});
    fake.files.addMount({"/home/me/Shared", 1, "/srv/shared"});
    add("/srv/shared/film", 400);
    add("/home/me/Shared/film", 400);
    add("/home/me/mine", 100);
    measure();
    EXPECT_EQ(size("home") + size("/srv"), 500);
}

TEST_F(DiskPlacesTest, AFileWithNamesInTwoPlacesCountsOnce)
{
    add("/var/lib/flatpak/repo/object", 40);
    add("/var/lib/flatpak/app/file", 40);
    fake.files.identify("/var/lib/flatpak/app/file", "/var/lib/flatpak/repo/object");
    measure();
    EXPECT_EQ(size("/var/lib/flatpak"), 40);
}

TEST_F(DiskPlacesTest, APlaceThatIsALinkIsCountedWhereItLeads)
{
    add("/data/docker/layer", 8);
    fake.files.addLink("/var/lib/docker", "/data/docker");
    measure();
    EXPECT_EQ(size("/var/lib/docker"), 0);
    EXPECT_EQ(size("/"), 8);
}

TEST_F(DiskPlacesTest, SwapFilesHaveARowAndAreNotCountedAgain)
{
    add("/swapfile", 4'000);
    add("/var/swap/more", 2'000);
    add("/var/lib/x", 1);
    fake.volumes.addSwapFile({"/swapfile", 4'000 * mb});
    fake.volumes.addSwapFile({"/var/swap/more", 2'000 * mb});
    measure();
    EXPECT_EQ(size("swap"), 6'000);
    EXPECT_EQ(size("/"), 0);
    EXPECT_EQ(size("/var"), 1);
    measure("/var");
    EXPECT_EQ(size("swap"), 4'000) << "the other one has been scanned";
}

TEST_F(DiskPlacesTest, ASwapFileThatIsNotThereIsThatOfAnotherSystem)
{
    add("/swap/closed", 300);
    fake.files.failFacts("/swap/closed", std::errc::permission_denied);
    fake.files.addFolder("/swapfile");
    fake.volumes.addSwapFile({"/swap.img", 4'000 * mb});
    fake.volumes.addSwapFile({"/swapfile", 4'000 * mb});
    fake.volumes.addSwapFile({"/swap/closed", 300 * mb});
    fake.volumes.addSwapFile({"/swap/old (deleted)", 20 * mb});
    measure();
    EXPECT_EQ(size("swap"), 320);
}

TEST_F(DiskPlacesTest, ASwapFileOnAnotherDiskIsNotCounted)
{
    fake.files.addMount({"/", 1, "/@"});
    fake.files.addMount({"/mnt/fast", 2, "/"});
    fake.files.addMount({"/swap", 1, "/@swap"});
    add("/mnt/fast/swapfile", 300);
    add("/swap/swapfile", 200);
    fake.volumes.addSwapFile({"/mnt/fast/swapfile", 300 * mb});
    fake.volumes.addSwapFile({"/swap/swapfile", 200 * mb});
    measure();
    EXPECT_EQ(size("swap"), 200);
    EXPECT_EQ(size("/"), 0);
}

TEST_F(DiskPlacesTest, APlaceOnADiskOfItsOwnIsNoPartOfThisOne)
{
    fake.files.addMount({"/", 1, "/"});
    fake.files.addMount({"/var", 2, "/"});
    fake.files.addMount({"/usr/local", 3, "/"});
    add("/var/lib/db", 100);
    add("/var/log/syslog", 200);
    add("/var/log/journal/x", 300);
    fake.files.failOpening("/var/log/journal");
    answers["/usr/bin/journalctl"] = "Archived and active journals take up 512.0M in the file system.\n";
    add("/usr/local/bin/tool", 400);
    add("/usr/bin/sh", 1);
    measure();
    for (const BreakdownSegment &segment : segments)
        EXPECT_EQ(segment.size / mb, segment.id == "/usr" ? 1 : 0) << segment.id;
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(DiskPlacesTest, WhereNothingIsKnownOfMountsOtherDevicesAreLeftOut)
{
    add("/usr/bin/sh", 100);
    add("/var/lib/db", 20);
    add("/home/me/film", 500);
    fake.files.addFolder("/usr/share");
    fake.files.setDevice("/usr/share", 9);
    add("/usr/share/manual", 4'000);
    fake.files.addFolder("/opt");
    fake.files.setDevice("/opt", 9);
    add("/opt/app", 2'000);
    measure();
    EXPECT_EQ(size("/usr"), 100);
    EXPECT_EQ(size("/var"), 20);
    EXPECT_EQ(size("/opt"), 0);
    EXPECT_EQ(size("home"), 500);
}

TEST_F(DiskPlacesTest, AHomeFolderThatIsALinkToAnotherDiskIsCountedThere)
{
    fake.files.addMount({"/", 1, "/"});
    fake.files.addMount({"/data", 2, "/"});
    add("/data/home/me/film", 500);
    add("/data/home/you/song", 20);
    fake.files.addLink("/house", "/data/home");
    fake.files.setHome("/house/me");
    measure();
    EXPECT_EQ(size("home"), 500);
    EXPECT_EQ(size("/"), 20);
    EXPECT_EQ(size("/home"), 0);
}

TEST_F(DiskPlacesTest, ALinuxDiskWhoseSnapshotsAreSeenIsNotCountedSeveralTimes)
{
    fake.files.addMount({"/", 1, "/@"});
    fake.files.addMount({"/.snapshots", 1, "/@snapshots"});
    add("/usr/lib/a", 100);
    add("/.snapshots/1/snapshot/usr/lib/a", 100);
    fake.files.setDevice("/.snapshots", 7);
    measure();
    EXPECT_EQ(size("/usr"), 100);
    EXPECT_EQ(size("/"), 0);
}

TEST_F(DiskPlacesTest, DeletedFilesThatAreStillOpenAreListedByProgram)
{
    fake.volumes.addDeletedFiles({"browser", 300 * mb});
    fake.volumes.addDeletedFiles({"server", 700 * mb});
    measure();
    EXPECT_EQ(size("deleted"), 1'000);
    EXPECT_THAT(segment("deleted").children,
                ElementsAre(NamedSize{"server", 700 * mb}, NamedSize{"browser", 300 * mb}));
}

TEST_F(DiskPlacesTest, ThePlacesAreInTheTablesOrderAndEachIsShownInTheFileManager)
{
    add("/opt/app", 60);
    measure();
    EXPECT_EQ(segment("/opt").action, (BreakdownAction{BreakdownAction::Kind::reveal, "/opt"}));
    EXPECT_EQ(segment("/opt").actionTitle, "Show in File Manager");
    EXPECT_EQ(segments.front().id, "home");
    EXPECT_EQ(segments.back().id, "deleted");
}

TEST_F(DiskPlacesTest, TheHomeFolderOffersItsScan)
{
    add("/home/me/mine", 100);
    measure();
    EXPECT_EQ(segment("home").action, (BreakdownAction{BreakdownAction::Kind::scanHome, {}}));
    EXPECT_EQ(segment("home").actionTitle, "Scan Home Folder");
}

TEST_F(DiskPlacesTest, ABreakdownOfALinuxDiskAddsUpToWhatIsUsed)
{
    add("/usr/lib/a", 8'000);
    add("/home/me/b", 500);
    fake.volumes.set("/", {.name = {}, .total = 20'000 * mb, .available = 10'000 * mb, .availableForImportantUse = {}});
    fake.files.setDiskName("Debian GNU/Linux");
    const DiskBreakdown breakdown = DiskAccountant::compute({}, fake.host());
    EXPECT_EQ(breakdown.volumeName, "Debian GNU/Linux");
    EXPECT_EQ(breakdown.explainedPercentage(), 85);
    ASSERT_EQ(breakdown.segments.size(), 3u);
    EXPECT_EQ(breakdown.segments[0].title, "Installed Software (/usr)");
    EXPECT_EQ(breakdown.segments[1].title, "Not Measured");
    EXPECT_EQ(breakdown.segments[1].detail,
              "Deleted files that programs still hold open, snapshots and the file system's own records.");
    EXPECT_EQ(breakdown.segments[1].action, std::nullopt);
    EXPECT_EQ(breakdown.segments[2].title, "Your Home Folder");
    EXPECT_THAT(breakdown.footnotes(),
                ElementsAre("Sizes are the space files really occupy on disk, so they can differ slightly from the "
                            "sizes your file manager shows."));
}

TEST_F(DiskPlacesTest, FoldersThatOnlyTheAdministratorMayReadAreCountedInTheText)
{
    add("/var/lib/private/x", 8'000);
    fake.files.failOpening("/var/lib/private");
    fake.volumes.set("/", {.name = {}, .total = 20'000 * mb, .available = 10'000 * mb, .availableForImportantUse = {}});
    ScanContext scan;
    scan.rootPath = "/home/me";
    scan.unreadableCount = 1;
    scan.deniedCount = 1;
    const DiskBreakdown breakdown = DiskAccountant::compute(scan, fake.host());
    EXPECT_EQ(breakdown.segments[0].detail,
              "Folders only the administrator can read (3), deleted files that programs still hold open, snapshots and "
              "the file system's own records.");
}

TEST_F(DiskPlacesTest, ReservedSpaceIsNotedFromOnePercentOn)
{
    VolumeFacts facts{.name = {}, .total = 1'000 * mb, .available = 1'000 * mb, .availableForImportantUse = {}};
    facts.reserved = 10 * mb - 1;
    fake.volumes.set("/", facts);
    EXPECT_EQ(DiskAccountant::compute({}, fake.host()).footnotes().size(), 1u);
    facts.total = 1'000 * mb + 1;
    fake.volumes.set("/", facts);
    facts.reserved = 10 * mb;
    EXPECT_EQ(DiskAccountant::compute({}, fake.host()).footnotes().size(), 1u) << "not quite one percent";
    facts.total = 1'000 * mb;
    fake.volumes.set("/", facts);
    EXPECT_EQ(DiskAccountant::compute({}, fake.host()).footnotes().front(),
              "The file system keeps 10 MB back for the administrator, which counts as neither used nor free.");
}

} // namespace
} // namespace corvane
