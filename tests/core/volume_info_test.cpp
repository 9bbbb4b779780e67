#include "core/volume_info.h"

#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "core/foreign_sum.h"
#include "platform/fake_host.h"

namespace corvane {
namespace {

TEST(VolumeInfo, IsThatOfTheVolumeThatHoldsTheRootInOneRequest)
{
    FakeHost fake;
    fake.volumes.set("/", {.name = "Startup", .total = 500, .available = 100, .availableForImportantUse = 130});
    EXPECT_EQ(VolumeInfo::current(fake.host()), (VolumeInfo{.name = "Startup", .total = 500, .available = 130}));
    EXPECT_EQ(fake.log->lines(), std::vector<std::string>{"volume /"});
}

TEST(VolumeInfo, AvailableIsTheLargerOfTheTwoFigures)
{
    FakeHost fake;
    fake.volumes.set("/", {.name = "Startup", .total = 500, .available = 150, .availableForImportantUse = 130});
    EXPECT_EQ(VolumeInfo::current(fake.host()).available, 150);
    fake.volumes.set("/", {.name = {}, .total = {}, .available = 150, .availableForImportantUse = {}});
    EXPECT_EQ(VolumeInfo::current(fake.host()).available, 150);
    fake.volumes.set("/", {.name = {}, .total = {}, .available = {}, .availableForImportantUse = 130});
    EXPECT_EQ(VolumeInfo::current(fake.host()).available, 130);
}

TEST(VolumeInfo, UsedFractionIsBetweenZeroAndOne)
{
    EXPECT_DOUBLE_EQ((VolumeInfo{.name = {}, .total = 500, .available = 130}.usedFraction()), 0.74);
    EXPECT_EQ((VolumeInfo{.name = {}, .total = 500, .available = 600}.usedFraction()), 0);
    EXPECT_EQ((VolumeInfo{.name = {}, .total = 0, .available = 130}.usedFraction()), 0);
}

TEST(VolumeInfo, UnknownFactsOfAMacHaveDefaults)
{
    FakeHost fake;
    fake.files.setSystemKind(SystemKind::mac);
    fake.files.setDiskName("not a Mac's");
    EXPECT_EQ(VolumeInfo::current(fake.host()), (VolumeInfo{.name = "Macintosh HD", .total = 0, .available = 0}));
}

TEST(VolumeInfo, InvalidFiguresCountAsUnknown)
{
    FakeHost fake;
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t absurd : {std::int64_t{-1}, foreignSumLimit + 1, largest, -largest}) {
        fake.volumes.set("/", {.name = "Disk", .total = absurd, .available = 5, .availableForImportantUse = {}});
        EXPECT_EQ(VolumeInfo::current(fake.host()), (VolumeInfo{.name = "Disk", .total = 0, .available = 0})) << absurd;
        fake.volumes.set("/", {.name = "Disk", .total = 5, .available = absurd, .availableForImportantUse = {}});
        EXPECT_EQ(VolumeInfo::current(fake.host()), (VolumeInfo{.name = "Disk", .total = 0, .available = 0})) << absurd;
        fake.volumes.set("/", {.name = "Disk", .total = 5, .available = 5, .availableForImportantUse = absurd});
        EXPECT_EQ(VolumeInfo::current(fake.host()), (VolumeInfo{.name = "Disk", .total = 0, .available = 0})) << absurd;
    }
}

/// A Linux system with a home folder on a separate file system.
class LinuxDisk : public testing::Test {
protected:
    LinuxDisk()
    {
        fake.files.setSystemKind(SystemKind::linuxSystem);
        fake.files.setHome("/home/me");
        fake.files.setDiskName("Debian");
        fake.files.addMount({"/", 1, "/"});
        fake.files.addMount({"/home", 2, "/"});
        fake.volumes.set("/", {.name = {}, .total = 500, .available = 100, .availableForImportantUse = {}});
        fake.volumes.set("/home/me", {.name = {}, .total = 3'000, .available = 900, .availableForImportantUse = {}});
    }

    VolumeInfo current() { return VolumeInfo::current(fake.host()); }

    FakeHost fake;
};

TEST_F(LinuxDisk, AHomeOnAFileSystemOfItsOwnIsAddedToTheDisk)
{
    EXPECT_EQ(current(), (VolumeInfo{.name = "Debian", .total = 3'500, .available = 1'000}));
}

TEST_F(LinuxDisk, IsCalledByTheSystemAndWithoutThatSimplyDisk)
{
    EXPECT_EQ(current().name, "Debian");
    FakeHost unknown;
    EXPECT_EQ(VolumeInfo::current(unknown.host()).name, "Disk");
}

TEST_F(LinuxDisk, TwoMountsOfOneFileSystemCountOnce)
{
    fake.files.addMount({"/home/me", 1, "/@home/me"});
    EXPECT_EQ(current(), (VolumeInfo{.name = "Debian", .total = 500, .available = 100}));
}

TEST_F(LinuxDisk, WhatIsFreeInAPoolIsThereOnce)
{
    FakeHost pooled;
    pooled.files.setHome("/home/me");
    pooled.files.addMount({"/", 1, "/", "rpool/ROOT/debian", "rpool"});
    pooled.files.addMount({"/home", 2, "/", "rpool/home", "rpool"});
    pooled.volumes.set("/", {.name = {}, .total = 500, .available = 100, .availableForImportantUse = {}});
    pooled.volumes.set("/home/me", {.name = {}, .total = 3'100, .available = 100, .availableForImportantUse = {}});
    const VolumeFacts facts = startupDiskFacts(pooled.host());
    EXPECT_EQ(facts.total, 3'500);
    EXPECT_EQ(facts.available, 100);
}

TEST_F(LinuxDisk, AHomeBehindALinkIsLookedForWhereItReallyLies)
{
    fake.files.addFolder("/data/me");
    fake.files.take("/home");
    fake.files.addLink("/home/me", "/data/me");
    EXPECT_EQ(current().total, 500); // not that of the volume at "/home"
    fake.files.addMount({"/data", 3, "/"});
    fake.volumes.set("/data/me", {.name = {}, .total = 20, .available = 5, .availableForImportantUse = {}});
    EXPECT_EQ(current(), (VolumeInfo{.name = "Debian", .total = 520, .available = 105}));
}

TEST_F(LinuxDisk, FiguresThatOverflowCountAsUnknown)
{
    fake.volumes.set("/home/me",
                     {.name = {}, .total = foreignSumLimit, .available = 900, .availableForImportantUse = {}});
    EXPECT_EQ(current().total, 0);
    EXPECT_EQ(current().available, 1'000);
}

TEST_F(LinuxDisk, OfAMacOnlyTheRootsVolumeIsAsked)
{
    fake.files.setSystemKind(SystemKind::mac);
    EXPECT_EQ(current().total, 500);
    EXPECT_EQ(fake.log->lines(), std::vector<std::string>{"volume /"});
}

} // namespace
} // namespace corvane
