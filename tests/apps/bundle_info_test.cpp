#include "apps/bundle_info.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "apps/app_fixture.h"

namespace corvane {
namespace {

using test::infoPlist;

std::optional<BundleInfo> parsed(const std::string &plist)
{
    return BundleInfo::parse("/Applications/Sea Chart.app", plist);
}

TEST(BundleInfo, HasWhatTheInfoPlistSays)
{
    const auto info = parsed(infoPlist({{"CFBundleIdentifier", "org.SeaChart.viewer"},
                                        {"CFBundleName", "Chart"},
                                        {"CFBundleShortVersionString", "2.1"}}));
    ASSERT_TRUE(info);
    EXPECT_EQ(*info, (BundleInfo{.path = "/Applications/Sea Chart.app",
                                 .name = "Sea Chart",
                                 .altName = "Chart",
                                 .bundleID = "org.SeaChart.viewer",
                                 .version = "2.1",
                                 .isAppStore = false}));
}

TEST(BundleInfo, ReadsABinaryInfoPlist)
{
    const std::string bytes("bplist00"
                            "\xd2\x01\x02\x03\x04"
                            "\x5f\x10\x12"
                            "CFBundleIdentifier"
                            "\x5c"
                            "CFBundleName"
                            "\x57"
                            "com.a.b"
                            "\x51"
                            "N"
                            "\x08\x0d\x22\x2f\x37"
                            "\0\0\0\0\0\0\x01\x01"
                            "\0\0\0\0\0\0\0\x05"
                            "\0\0\0\0\0\0\0\0"
                            "\0\0\0\0\0\0\0\x39",
                            8 + 5 + 3 + 18 + 1 + 12 + 1 + 7 + 1 + 1 + 5 + 8 + 8 + 8 + 8);
    const auto info = parsed(bytes);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->bundleID, "com.a.b");
    EXPECT_EQ(info->altName, "N");
}

TEST(BundleInfo, WithoutAVersionItIsEmpty)
{
    EXPECT_EQ(parsed(infoPlist({{"CFBundleIdentifier", "a.b"}}))->version, "");
}

TEST(BundleInfo, WithoutANameItIsTheFilesName)
{
    EXPECT_EQ(parsed(infoPlist({{"CFBundleIdentifier", "a.b"}}))->altName, "Sea Chart");
}

TEST(BundleInfo, ANameThatIsEmptyIsStillAText)
{
    EXPECT_EQ(parsed(infoPlist({{"CFBundleIdentifier", "a.b"}, {"CFBundleName", ""}}))->altName, "");
}

TEST(BundleInfo, ValuesOfAnotherTypeCountAsAbsent)
{
    const auto info = parsed("<plist><dict><key>CFBundleIdentifier</key><string>a.b</string>"
                             "<key>CFBundleName</key><integer>7</integer>"
                             "<key>CFBundleShortVersionString</key><array><string>1.0</string></array></dict></plist>");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->altName, "Sea Chart");
    EXPECT_EQ(info->version, "");
    EXPECT_FALSE(parsed("<plist><dict><key>CFBundleIdentifier</key><integer>7</integer></dict></plist>"));
    EXPECT_FALSE(parsed("<plist><dict><key>CFBundleIdentifier</key><true/></dict></plist>"));
}

TEST(BundleInfo, WithoutAnIdentifierThereIsNone)
{
    EXPECT_FALSE(parsed(infoPlist({{"CFBundleName", "Chart"}})));
    EXPECT_FALSE(parsed(infoPlist({{"CFBundleIdentifier", ""}})));
}

TEST(BundleInfo, WhatIsNoDictionaryIsNone)
{
    EXPECT_FALSE(parsed(""));
    EXPECT_FALSE(parsed("CFBundleIdentifier = a.b"));
    EXPECT_FALSE(parsed("<plist><array><string>CFBundleIdentifier</string></array></plist>"));
    EXPECT_FALSE(parsed("<plist><string>CFBundleIdentifier</string></plist>"));
}

TEST(BundleInfo, OnlyTheLastExtensionLeavesTheName)
{
    const std::string plist = infoPlist({{"CFBundleIdentifier", "a.b"}});
    EXPECT_EQ(BundleInfo::parse("/Applications/Fo\xff.app.app", plist)->name, "Fo\xff.app");
    EXPECT_EQ(BundleInfo::parse("/Applications/Plain", plist)->name, "Plain");
}

} // namespace
} // namespace corvane
