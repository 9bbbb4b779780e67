#include "platform/protected_places.h"

#include <gmock/gmock.h>

#include "platform/linux/probe_home.h"

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
    EXPECT_THAT(places.homeExact,
                IsSupersetOf({".local", ".local/bin", ".local/share", ".local/state", ".cache", ".mozilla",
                              ".thunderbird", ".var/app", "snap", "Templates", "Videos"}));
    EXPECT_THAT(places.homePrefixes, Contains(".local/share/keyrings"));
}

TEST(LinuxProtectedPlaces, HoldTheFoldersThatTheUserHasNamed)
{
    const ProbeHome home;
    home.folder.writeText("home/config/user-dirs.dirs",
                          "XDG_VIDEOS_DIR=\"$HOME/Filme\"\nXDG_MUSIC_DIR=\"/data/music\"\n");
    const std::string places = "\n" + home.ask("exact-places") + "\n";
    EXPECT_NE(places.find("\n" + home.folder / "home/Filme" + "\n"), std::string::npos) << places;
    EXPECT_NE(places.find("\n/data/music\n"), std::string::npos) << places;
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
