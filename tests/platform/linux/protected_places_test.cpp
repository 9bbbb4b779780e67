#include "platform/protected_places.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::StartsWith;

TEST(LinuxProtectedPlaces, HoldWhatTheSystemNeedsToRun)
{
    const ProtectedPlaces &places = systemProtectedPlaces();
    EXPECT_THAT(places.prefixes,
                IsSupersetOf({"/boot", "/lib", "/lib32", "/lib64", "/proc", "/root", "/run", "/snap", "/sys"}));
    EXPECT_FALSE(places.ignoresCase);
}

TEST(LinuxProtectedPlaces, WhatLiesOnAVolumeOrInAHomeMayGo)
{
    const ProtectedPlaces &places = systemProtectedPlaces();
    EXPECT_THAT(places.exact, IsSupersetOf({"/home", "/mnt", "/media", "/srv"}));
    for (const char *place : {"/home", "/mnt", "/media", "/srv", "/"})
        EXPECT_THAT(places.prefixes, Not(Contains(place)));
}

TEST(LinuxProtectedPlaces, SingleFoldersInTheUsersDataMayGoButNotTheWhole)
{
    const ProtectedPlaces &places = systemProtectedPlaces();
    EXPECT_THAT(places.homeExact, IsSupersetOf({".local", ".local/share", ".cache", ".mozilla"}));
    EXPECT_THAT(places.homePrefixes, Contains(".local/share/keyrings"));
}

TEST(LinuxProtectedPlaces, AreWrittenAsTheirReaderExpects)
{
    const ProtectedPlaces &places = systemProtectedPlaces();
    for (const auto *list : {&places.exact, &places.prefixes}) {
        EXPECT_THAT(*list, Each(StartsWith("/")));
        EXPECT_THAT(*list, Each(Not(EndsWith("/"))));
    }
    for (const auto *list : {&places.homeExact, &places.homePrefixes}) {
        EXPECT_THAT(*list, Each(Not(StartsWith("/"))));
        EXPECT_THAT(*list, Each(Not(EndsWith("/"))));
    }
}

TEST(LinuxVirtualFolders, AreTheKernelsOwn)
{
    EXPECT_THAT(systemVirtualFolders(), IsSupersetOf({"/proc", "/sys"}));
}

} // namespace
} // namespace corvane
