#include "core/volume_info.h"

#include <gtest/gtest.h>

#include "platform/fake_host.h"

namespace corvane {
namespace {

TEST(VolumeInfo, IsThatOfTheVolumeThatHoldsTheRootInOneRequest)
{
    FakeHost fake;
    fake.volumes.set("/", {.name = "Startup", .total = 500, .available = 100, .availableForImportantUse = 130});
    EXPECT_EQ(VolumeInfo::current(fake.volumes), (VolumeInfo{.name = "Startup", .total = 500, .available = 130}));
    EXPECT_EQ(fake.log->lines(), std::vector<std::string>{"volume /"});
}

TEST(VolumeInfo, AvailableIsTheLargerOfTheTwoFigures)
{
    FakeHost fake;
    fake.volumes.set("/", {.name = "Startup", .total = 500, .available = 150, .availableForImportantUse = 130});
    EXPECT_EQ(VolumeInfo::current(fake.volumes).available, 150);
    fake.volumes.set("/", {.name = {}, .total = {}, .available = 150, .availableForImportantUse = {}});
    EXPECT_EQ(VolumeInfo::current(fake.volumes).available, 150);
    fake.volumes.set("/", {.name = {}, .total = {}, .available = {}, .availableForImportantUse = 130});
    EXPECT_EQ(VolumeInfo::current(fake.volumes).available, 130);
}

TEST(VolumeInfo, WhatTheSystemDoesNotTellIsNothingAndMacintoshHD)
{
    FakeHost fake;
    EXPECT_EQ(VolumeInfo::current(fake.volumes), (VolumeInfo{.name = "Macintosh HD", .total = 0, .available = 0}));
}

} // namespace
} // namespace corvane
