#include "core/scan_bounds.h"

#include <algorithm>

#include <gmock/gmock.h>

#include "core/scanner.h"
#include "platform/fake_file_system.h"
#include "platform/path.h"

namespace corvane {
namespace {

/// A Linux system; file system 1 is that of "/".
class ScanBoundsTest : public testing::Test {
protected:
    ScanBoundsTest()
    {
        files.setSystemKind(SystemKind::linuxSystem);
        files.setHome("/home/me");
        files.addMount({"/", 1, "/"});
    }

    /// Whether a walk of `root` enters the folder when it reaches it.
    bool enters(const std::string &path, const std::string &root = "/")
    {
        const ScanBounds bounds = ScanBounds::of(root, files);
        const auto names = bounds.skippedIn(containingFolder(path));
        return std::ranges::find(names, lastPathComponent(path)) == names.end();
    }

    FakeFileSystem files;
};

TEST_F(ScanBoundsTest, AWholeDiskScanEntersTheFileSystemsOfTheRootAndOfTheHomeAlone)
{
    files.addMount({"/home", 2, "/"});
    files.addMount({"/boot", 3, "/"});
    files.addMount({"/media/me/Stick", 4, "/"});
    files.addMount({"/run", 5, "/"});
    EXPECT_TRUE(enters("/home"));
    for (const char *other : {"/boot", "/media/me/Stick", "/run"})
        EXPECT_FALSE(enters(other)) << other;
    for (const char *folder : {"/Volumes", "/dev", "/net", "/cores", "/System/Volumes", "/media", "/media/me"})
        EXPECT_TRUE(enters(folder)) << folder;
}

TEST_F(ScanBoundsTest, WithTheMountsFilterNoMountBelowTheRootIsEntered)
{
    files.addMount({"/home", 2, "/"});
    files.addFile("/file", 2'000'000);
    files.addFile("/home/me/file", 3'000'000);
    files.setMountPoints({{"/", "/home"}});
    EXPECT_TRUE(enters("/home"));
    ScanProgress progress;
    EXPECT_EQ(Scanner::scan("/", progress, files)->size, 5'000'000);
    const ScanFilter filter{.mounts = ScanFilter::Mounts::none};
    EXPECT_EQ(Scanner::scan("/", progress, files, filter)->size, 2'000'000);
    EXPECT_EQ(Scanner::scan("/home", progress, files, filter)->size, 3'000'000);
    files.addLink("/link", "/");
    EXPECT_EQ(Scanner::scan("/link", progress, files, filter)->size, 2'000'000);
}

TEST_F(ScanBoundsTest, NothingOfWhatIsMountedFromElsewhereIsTouched)
{
    files.addFile("/home/me/file", 2'000'000);
    files.addFile("/home/me/mnt/dead/file", 3'000'000);
    files.addFile("/srv/net/file", 4'000'000);
    files.addMount({"/home/me/mnt/dead", 7, "/"});
    files.addMount({"/srv/net", 8, "/"});
    ScanProgress progress;
    EXPECT_EQ(Scanner::scan("/", progress, files)->size, 2'000'000);
    for (const std::string &line : files.log()->lines()) {
        EXPECT_FALSE(line.ends_with("/home/me/mnt/dead")) << line;
        EXPECT_FALSE(line.ends_with("/srv/net")) << line;
    }
    EXPECT_EQ(progress.counters().denied, 0);
}

TEST_F(ScanBoundsTest, AHomeOnTheRootsFileSystemIsEntered)
{
    files.addFile("/home/me/file", 2'000'000);
    ScanProgress progress;
    EXPECT_EQ(Scanner::scan("/", progress, files)->size, 2'000'000);
}

TEST_F(ScanBoundsTest, OfTwoMountsThatShowTheSameTheHomesIsEntered)
{
    files.addMount({"/backup", 2, "/"});
    files.addMount({"/home", 2, "/"});
    EXPECT_TRUE(enters("/home"));
    EXPECT_FALSE(enters("/backup"));
    // If neither contains the home, the shorter path is preferred.
    files.setHome("/root/me");
    files.addMount({"/root", 2, "/root"});
    EXPECT_TRUE(enters("/root"));
    EXPECT_TRUE(enters("/home"));
    EXPECT_FALSE(enters("/home/root"));
    EXPECT_FALSE(enters("/backup"));
}

TEST_F(ScanBoundsTest, AFolderThatIsMountedASecondTimeIsEnteredOnce)
{
    files.addMount({"/mnt/again", 1, "/srv/data"});
    files.addMount({"/mnt/whole", 1, "/"});
    EXPECT_FALSE(enters("/mnt/again"));
    EXPECT_FALSE(enters("/mnt/whole"));
    EXPECT_TRUE(enters("/srv/data"));
}

TEST_F(ScanBoundsTest, AHomeThatIsMountedASecondTimeIsEnteredWhereItsUserKnowsIt)
{
    files.addMount({"/home/me", 1, "/srv/homes/me"});
    EXPECT_TRUE(enters("/home/me"));
    EXPECT_FALSE(enters("/srv/homes/me"));
    EXPECT_TRUE(enters("/srv/homes"));
    // Scans of other folders are not affected.
    EXPECT_TRUE(enters("/srv/homes/me", "/srv"));
}

TEST_F(ScanBoundsTest, VolumesOfOneFileSystemAreEnteredEach)
{
    FakeFileSystem disk;
    disk.setSystemKind(SystemKind::linuxSystem);
    disk.setHome("/home/me");
    disk.addMount({"/", 1, "/@"});
    disk.addMount({"/home", 1, "/@home"});
    disk.addMount({"/var/log", 1, "/@log"});
    const ScanBounds bounds = ScanBounds::of("/", disk);
    EXPECT_TRUE(bounds.skippedIn("/var").empty());
    EXPECT_TRUE(std::ranges::find(bounds.skippedIn("/"), "home") == bounds.skippedIn("/").end());
}

TEST_F(ScanBoundsTest, TheSnapshotsOfAVolumeAreNotEntered)
{
    files.addMount({"/home", 1, "/@home"});
    for (const char *folder : {"/.snapshots", "/home/.snapshots", "/home/me/.snapshots"}) {
        files.addFolder(folder);
        EXPECT_TRUE(enters(folder)) << folder << " is a folder like any other";
        files.setDevice(folder, 9); // like the volumes of a btrfs file system
        EXPECT_FALSE(enters(folder)) << folder;
    }
    files.addMount({"/.snapshots", 1, "/@snapshots"});
    EXPECT_FALSE(enters("/.snapshots"));
    EXPECT_FALSE(enters("/home/.snapshots", "/home"));
    EXPECT_TRUE(enters("/.snapshots/1", "/.snapshots")) << "who asks for them gets them";
}

TEST_F(ScanBoundsTest, NoSnapshotsAreLookedForOnADiskThatIsNotEntered)
{
    files.setHome("/net/home/me");
    files.addMount({"/net", 5, "/"});
    files.addMount({"/.snapshots", 6, "/"});
    files.addMount({"/net/home/me", 7, "/"});
    files.addFolder("/net/home/me/.snapshots");
    files.addFolder("/.snapshots");
    EXPECT_FALSE(enters("/net"));
    for (const std::string &line : files.log()->lines()) {
        EXPECT_NE(line, "facts /net/home/.snapshots");
        EXPECT_NE(line, "facts /.snapshots");
    }
}

TEST_F(ScanBoundsTest, AMountBehindOneThatIsNotEnteredDecidesNothing)
{
    files.addMount({"/mnt", 9, "/"});
    files.addMount({"/mnt/home", 2, "/"}); // unreachable, so it must not replace the home
    files.addMount({"/home", 2, "/"});
    EXPECT_FALSE(enters("/mnt"));
    EXPECT_TRUE(enters("/home"));
}

TEST_F(ScanBoundsTest, AFolderOnAnotherDiskIsScannedWithinThatDisk)
{
    files.addFolder("/media/me/Disk/inner");
    files.addMount({"/media/me/Disk", 4, "/"});
    files.addMount({"/media/me/Disk/other", 5, "/"});
    files.addMount({"/media/me/Disk/root", 1, "/"}); // the system volume a second time
    files.addMount({"/media/me/Disk/part", 4, "/inner"});
    const std::string disk = "/media/me/Disk";
    EXPECT_FALSE(enters(disk + "/other", disk));
    EXPECT_FALSE(enters(disk + "/root", disk));
    EXPECT_FALSE(enters(disk + "/part", disk));
    EXPECT_TRUE(enters(disk + "/inner", disk));
}

TEST_F(ScanBoundsTest, AHomeScanKeepsToTheDisk)
{
    files.addMount({"/home", 2, "/"});
    files.addMount({"/home/me/mnt", 3, "/"});
    files.addMount({"/home/me/bound", 1, "/srv"});
    EXPECT_FALSE(enters("/home/me/mnt", "/home/me"));
    EXPECT_TRUE(enters("/home/me/bound", "/home/me")) << "on the disk, and seen nowhere else in this scan";
}

TEST_F(ScanBoundsTest, ARootBehindALinkIsJudgedByWhereItLies)
{
    files.addFolder("/data/pictures");
    files.addLink("/pictures", "/data/pictures");
    files.addMount({"/data/pictures/mounted", 6, "/"});
    EXPECT_FALSE(enters("/pictures/mounted", "/pictures"));
    EXPECT_TRUE(enters("/pictures/other", "/pictures"));
}

TEST_F(ScanBoundsTest, WhereNothingIsKnownOfMountsNothingIsSkippedForThem)
{
    FakeFileSystem disk;
    disk.setSystemKind(SystemKind::linuxSystem);
    EXPECT_TRUE(ScanBounds::of("/home", disk).skippedIn("/home").empty());
}

TEST_F(ScanBoundsTest, OnAMacTheFoldersSkippedByNameHold)
{
    files.setSystemKind(SystemKind::mac);
    files.addMount({"/Users", 2, "/"});
    for (const std::string_view folder : Scanner::skipPaths)
        EXPECT_FALSE(enters(std::string(folder))) << folder;
    EXPECT_TRUE(enters("/Users"));
}

} // namespace
} // namespace corvane
