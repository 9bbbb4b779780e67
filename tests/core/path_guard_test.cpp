#include "core/path_guard.h"

#include <string>
#include <vector>

#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

constexpr const char *home = "/Users/me";

/// The places that are protected on every system, without those of a particular one.
ProtectedLocations standardLocations()
{
    return ProtectedLocations(home, {});
}

TEST(PathGuard, ExactPlacesAreProtectedAndWhatIsInsideIsNot)
{
    const ProtectedLocations locations = standardLocations();
    for (const char *place : {"/", "/Applications", "/Applications/Utilities", "/Users", "/Volumes", "/Users/me"})
        EXPECT_TRUE(locations.isProtected(place)) << place;
    for (const char *place : {"/Applications/A.app", "/Applications/Utilities/B.app", "/Users/other", "/Volumes/Disk",
                              "/Users/me/notes.txt", "/srv", "/Application", "/Applications2"})
        EXPECT_FALSE(locations.isProtected(place)) << place;
}

TEST(PathGuard, ExactPlacesOfTheHomeAreProtectedAndWhatIsInsideIsNot)
{
    const ProtectedLocations locations = standardLocations();
    for (const char *place : {"Library", "Documents", "Desktop", "Downloads", "Pictures", "Movies", "Music",
                              "Applications", "Public", ".Trash", ".ssh", ".config", "Library/Caches",
                              "Library/Developer", "Library/Developer/Xcode", "Library/Preferences/ByHost"})
        EXPECT_TRUE(locations.isProtected(std::string(home) + "/" + place)) << place;
    for (const char *place : {"Documents/a", "Desktop/a", "Downloads/a", "Pictures/a", "Movies/a", "Music/a",
                              "Applications/A.app", "Public/a", ".config/a", "Library/Caches/a", "Library/Developer/a",
                              "Library/Developer/Xcode/a", "Library/Preferences/ByHost/a", "Documents2", ".Trashes"})
        EXPECT_FALSE(locations.isProtected(std::string(home) + "/" + place)) << place;
}

TEST(PathGuard, SystemPrefixesAreProtectedWithEverythingBeneath)
{
    const ProtectedLocations locations = standardLocations();
    for (const std::string place :
         {"/System", "/usr", "/bin", "/sbin", "/private", "/etc", "/var", "/dev", "/cores", "/Library", "/opt"}) {
        EXPECT_TRUE(locations.isProtected(place)) << place;
        EXPECT_TRUE(locations.isProtected(place + "/x")) << place;
        EXPECT_TRUE(locations.isProtected(place + "/x/y/z")) << place;
        EXPECT_FALSE(locations.isProtected(place + "x")) << place;
        EXPECT_FALSE(locations.isProtected(home + place + "x")) << place;
    }
}

TEST(PathGuard, HomePrefixesAreProtectedWithEverythingBeneath)
{
    const ProtectedLocations locations = standardLocations();
    for (const std::string place :
         {"/Library/Keychains", "/Library/Mail", "/Library/Messages", "/Library/Accounts", "/.ssh", "/.gnupg"}) {
        EXPECT_TRUE(locations.isProtected(home + place)) << place;
        EXPECT_TRUE(locations.isProtected(home + place + "/x")) << place;
        EXPECT_TRUE(locations.isProtected(home + place + "/x/y")) << place;
        EXPECT_FALSE(locations.isProtected(home + place + "2/x")) << place;
        EXPECT_FALSE(locations.isProtected("/Users/other" + place + "/x")) << place;
    }
}

TEST(PathGuard, ItemDirectlyInsideTheHomeLibraryIsProtectedAndDeeperOnesAreNot)
{
    const ProtectedLocations locations = standardLocations();
    EXPECT_TRUE(locations.isProtected("/Users/me/Library"));
    EXPECT_TRUE(locations.isProtected("/Users/me/Library/Preferences"));
    EXPECT_TRUE(locations.isProtected("/Users/me/Library/anything"));
    EXPECT_FALSE(locations.isProtected("/Users/me/Library/Preferences/com.example.plist"));
    EXPECT_FALSE(locations.isProtected("/Users/me/Library/anything/x"));
    EXPECT_FALSE(locations.isProtected("/Users/other/Library/anything"));
}

TEST(PathGuard, FileInsideTheHomeKeychainsIsProtected)
{
    EXPECT_TRUE(standardLocations().isProtected("/Users/me/Library/Keychains/login.keychain-db"));
}

TEST(PathGuard, EverythingUnderTheSystemLibraryIsProtected)
{
    EXPECT_TRUE(standardLocations().isProtected("/Library/Caches/com.example/a"));
}

TEST(PathGuard, ApplicationDirectlyInsideApplicationsIsNotProtected)
{
    EXPECT_FALSE(standardLocations().isProtected("/Applications/Example.app"));
}

TEST(PathGuard, ContentsOfTheTrashAreNotProtected)
{
    EXPECT_TRUE(standardLocations().isProtected("/Users/me/.Trash"));
    EXPECT_FALSE(standardLocations().isProtected("/Users/me/.Trash/a"));
}

TEST(PathGuard, PathIsStandardizedFirst)
{
    const ProtectedLocations locations = standardLocations();
    for (const char *path : {"~", "~/Library", "/Users/me/", "/Users/me/./Documents/", "/Users/me/x/../Library",
                             "//usr//lib", "/Users/me/../../usr/x", "/srv/..", "/srv/../../etc/passwd"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    for (const char *path : {"~/a", "/usr/../srv/x", "/Users/me/Library/../a/"})
        EXPECT_FALSE(locations.isProtected(path)) << path;
}

TEST(PathGuard, WhatIsNotAnAbsolutePathIsProtected)
{
    const ProtectedLocations locations = standardLocations();
    for (const char *path : {"", ".", "a", "a/b", "../a", "~other/a"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    EXPECT_TRUE(locations.isProtected(std::string_view("/srv/a\0b", 8)));
    EXPECT_TRUE(locations.isProtected(std::string_view("/srv/a\0", 7)));
    EXPECT_FALSE(locations.isProtected(std::string_view("/srv/a", 6)));
}

TEST(PathGuard, EveryAncestorOfTheHomeIsProtected)
{
    const ProtectedLocations locations("/data/people/me", {});
    EXPECT_TRUE(locations.isProtected("/data"));
    EXPECT_TRUE(locations.isProtected("/data/people"));
    EXPECT_TRUE(locations.isProtected("/data/people/me"));
    EXPECT_FALSE(locations.isProtected("/data/people/you"));
    EXPECT_FALSE(locations.isProtected("/data/x"));
}

TEST(PathGuard, PlacesOfTheSystemJoinThoseThatHoldEverywhere)
{
    const ProtectedPlaces system{.exact = {"/srv"},
                                 .prefixes = {"/boot", "/snap"},
                                 .homeExact = {".local/share"},
                                 .homePrefixes = {".local/keys"}};
    const ProtectedLocations locations("/home/u", system);
    for (const char *path : {"/srv", "/boot", "/boot/x", "/snap/a/b", "/home/u/.local/share", "/home/u/.local/keys",
                             "/home/u/.local/keys/a", "/usr/x", "/home/u/Library/x"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    for (const char *path : {"/srv/x", "/boots", "/home/u/.local/share/x", "/home/u/.local/keys2"})
        EXPECT_FALSE(locations.isProtected(path)) << path;
}

TEST(PathGuard, FolderThatContainsAProtectedPlaceIsProtected)
{
    const ProtectedLocations locations(
        "/home/u",
        {.exact = {}, .prefixes = {"/srv/data/system"}, .homeExact = {".local/share/Trash"}, .homePrefixes = {}});
    EXPECT_TRUE(locations.isProtected("/srv"));
    EXPECT_TRUE(locations.isProtected("/srv/data"));
    EXPECT_TRUE(locations.isProtected("/home/u/.local"));
    EXPECT_TRUE(locations.isProtected("/home/u/.local/share"));
    EXPECT_FALSE(locations.isProtected("/srv/data/mine"));
    EXPECT_FALSE(locations.isProtected("/home/u/.local/share/app"));
}

TEST(PathGuard, PrefixOfTheSystemThatIsTheHomeLeavesItsContentsToTheUser)
{
    const ProtectedPlaces system{.exact = {}, .prefixes = {"/root"}, .homeExact = {}, .homePrefixes = {}};
    const ProtectedLocations forRoot("/root", system);
    EXPECT_TRUE(forRoot.isProtected("/root"));
    EXPECT_TRUE(forRoot.isProtected("/root/.ssh/id"));
    EXPECT_FALSE(forRoot.isProtected("/root/a"));
    EXPECT_TRUE(ProtectedLocations("/home/u", system).isProtected("/root/a"));
}

TEST(PathGuard, PrefixOfTheSystemThatContainsTheHomeLeavesItsContentsToTheUser)
{
    const ProtectedPlaces system{.exact = {}, .prefixes = {"/home", "/homes"}, .homeExact = {}, .homePrefixes = {}};
    const ProtectedLocations locations("/home/u", system);
    EXPECT_TRUE(locations.isProtected("/home"));
    EXPECT_TRUE(locations.isProtected("/home/u"));
    EXPECT_FALSE(locations.isProtected("/home/u/a"));
    EXPECT_TRUE(locations.isProtected("/homes/a"));
    EXPECT_FALSE(ProtectedLocations("/x", system, "/home/u").isProtected("/home/u/a"));
}

TEST(PathGuard, StandardPrefixHoldsWhateverTheHomeIs)
{
    EXPECT_TRUE(ProtectedLocations("/var/lib/service", {}).isProtected("/var/lib/service/a"));
}

TEST(PathGuard, LetterCaseIsIgnoredWhereTheSystemIgnoresIt)
{
    const ProtectedPlaces system{
        .exact = {}, .prefixes = {"/USERS"}, .homeExact = {}, .homePrefixes = {}, .ignoresCase = true};
    const ProtectedLocations locations("/Users/Me", system);
    for (const char *path :
         {"/users/me", "/USR/lib", "/library/x", "/Users/me/library/x", "/applications", "/users/ME/.SSH/id"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    EXPECT_FALSE(locations.isProtected("/users/me/a"));

    for (const char *path : {"/users/me", "/USR/lib", "/library/x"})
        EXPECT_FALSE(standardLocations().isProtected(path)) << path;
}

TEST(PathGuard, RealHomeBehindALinkIsProtectedAsWell)
{
    const ProtectedLocations locations("/home/u", {}, "/data/home/u");
    EXPECT_EQ(locations.home(), "/home/u");
    for (const char *path : {"/home/u", "/home/u/Documents", "/home/u/Library/x", "/data", "/data/home", "/data/home/u",
                             "/data/home/u/Documents", "/data/home/u/Library/x", "/data/home/u/.ssh/id"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    EXPECT_FALSE(locations.isProtected("/data/home/u/a"));
    EXPECT_FALSE(locations.isProtected("/home/u/a"));
}

TEST(PathGuard, ItemReachedThroughALinkIsJudgedByWhereItLies)
{
    FakeHost fake;
    fake.files.addFolder("/usr/lib");
    fake.files.addFolder("/Users/me/Library/Mail");
    fake.files.addFile("/srv/data/a", 1);
    fake.files.addLink("/Users/me/link-to-usr", "/usr");
    fake.files.addLink("/Users/me/up", "Library");
    fake.files.addLink("/Users/me/link-to-data", "/srv/data");
    fake.files.addLink("/Users/me/link-to-root", "/");
    const ProtectedLocations locations = standardLocations();

    EXPECT_FALSE(locations.isProtected("/Users/me/link-to-usr/lib"));
    EXPECT_TRUE(locations.isProtected("/Users/me/link-to-usr/lib", fake.files));
    EXPECT_TRUE(locations.isProtected("/Users/me/up/Mail", fake.files));
    EXPECT_TRUE(locations.isProtected("/Users/me/link-to-root/usr", fake.files));
    EXPECT_TRUE(locations.isProtected("~/link-to-usr/lib", fake.files));
    EXPECT_FALSE(locations.isProtected("/Users/me/link-to-data/a", fake.files));
}

TEST(PathGuard, LinkItselfIsNotFollowed)
{
    FakeHost fake;
    fake.files.addFolder("/usr");
    fake.files.addLink("/Users/me/link-to-usr", "/usr");
    EXPECT_FALSE(standardLocations().isProtected("/Users/me/link-to-usr", fake.files));
}

TEST(PathGuard, LinkThatTheTextAsksToFollowIsFollowed)
{
    FakeHost fake;
    fake.files.addFolder("/usr/share");
    fake.files.addLink("/Users/me/link", "/usr/share");
    const ProtectedLocations locations = standardLocations();
    EXPECT_TRUE(locations.isProtected("/Users/me/link/", fake.files));
    EXPECT_TRUE(locations.isProtected("/Users/me/link/.", fake.files));
    // The system resolves this to "/usr/lib", although it looks like an item of the home folder.
    EXPECT_TRUE(locations.isProtected("/Users/me/link/../lib", fake.files));
}

TEST(PathGuard, ProtectedTextIsProtectedWithoutAskingTheSystem)
{
    FakeHost fake;
    EXPECT_TRUE(standardLocations().isProtected("/usr/lib", fake.files));
    EXPECT_TRUE(fake.log->lines().empty());
}

TEST(PathGuard, ItemWhoseFolderIsMissingIsJudgedByItsText)
{
    FakeHost fake;
    EXPECT_FALSE(standardLocations().isProtected("/Users/me/missing/a", fake.files));
}

TEST(PathGuard, HomeBehindALinkBeneathAProtectedFolderIsStillTheUsers)
{
    FakeHost fake;
    fake.files.addFolder("/var/home/u/Library/Mail");
    fake.files.addFile("/var/home/u/work/a", 1);
    fake.files.addLink("/home", "/var/home");
    const ProtectedLocations locations("/home/u", {}, "/var/home/u");
    EXPECT_FALSE(locations.isProtected("/home/u/work/a", fake.files));
    EXPECT_TRUE(locations.isProtected("/home/u", fake.files));
    EXPECT_TRUE(locations.isProtected("/home/u/Library/Mail", fake.files));
    EXPECT_TRUE(locations.isProtected("/home/v", fake.files)) << "someone else's home, beneath /var";
}

TEST(PathGuard, HomeInVarHomeIsTheUsersAndNothingElseInVarIs)
{
    for (const ProtectedLocations &locations :
         {ProtectedLocations("/var/home/u", {}), ProtectedLocations("/home/u", {}, "/var/home/u")}) {
        for (const char *path :
             {"/var", "/var/home", "/var/home/u", "/var/home/u/Documents", "/var/home/u/.ssh/id",
              "/var/home/u/Library/Mail", "/var/home/v", "/var/home/v/a", "/var/home/uu/a", "/var/lib/a", "/usr/a"})
            EXPECT_TRUE(locations.isProtected(path)) << path;
        for (const char *path : {"/var/home/u/a", "/var/home/u/Documents/a", "/var/home/u/.cache/a"})
            EXPECT_FALSE(locations.isProtected(path)) << path;
    }
}

TEST(PathGuard, HomeDirectlyInAStandardPrefixIsProtectedWithItsContents)
{
    for (const std::string place : {"/var/u", "/var/homes/u", "/var/home", "/opt/home/u", "/usr/home/u"})
        EXPECT_TRUE(ProtectedLocations(place, {}).isProtected(place + "/a")) << place;
}

TEST(PathGuard, HomeThatIsALinkToTheRootDoesNotHandOverTheSystem)
{
    FakeHost fake;
    fake.files.addFolder("/usr/lib");
    fake.files.addFile("/srv/work/a", 1);
    fake.files.addLink("/home/u", "/");
    const ProtectedLocations locations("/home/u", {}, "/");
    EXPECT_TRUE(locations.isProtected("/home/u/usr/lib", fake.files));
    EXPECT_TRUE(locations.isProtected("/home/u/usr", fake.files));
    EXPECT_FALSE(locations.isProtected("/home/u/srv/work/a", fake.files));
}

TEST(PathGuard, TrashFoldersAndTheirPartsAreProtectedAndWhatIsInsideIsNot)
{
    ProtectedPlaces system;
    system.trashFolders = {".Trash-7", ".Trash/7"};
    system.trashParts = {"files", "info"};
    const ProtectedLocations locations("/home/u", system);
    for (const std::string top : {"", "/media/u/USB", "/mnt/a/b"}) {
        for (const char *place : {"/.Trash-7", "/.Trash-7/files", "/.Trash-7/info", "/.Trash", "/.Trash/7",
                                  "/.Trash/7/files", "/.Trash/7/info"})
            EXPECT_TRUE(locations.isProtected(top + place)) << top << place;
        for (const char *place : {"/.Trash-7/files/a", "/.Trash/7/files/a/b", "/.Trash-7/info/a.trashinfo",
                                  "/.Trash-7/expunged", "/.Trash-77/files", "/x.Trash-7", "/files", "/a/files"})
            EXPECT_FALSE(locations.isProtected(top + place)) << top << place;
    }
}

#ifdef __linux__
TEST(PathGuard, LinuxPlacesAreJudgedThroughTheRule)
{
    const ProtectedLocations locations("/home/u", systemProtectedPlaces());
    const std::string own = ".Trash-" + std::to_string(::getuid());
    for (const std::string &path : std::vector<std::string>{"/boot/x",
                                                            "/lib64/x",
                                                            "/nix/store/x",
                                                            "/proc/1",
                                                            "/root/x",
                                                            "/run/x",
                                                            "/snap/x/y",
                                                            "/home",
                                                            "/media",
                                                            "/mnt",
                                                            "/srv",
                                                            "/home/u/.cache",
                                                            "/home/u/.local/share",
                                                            "/home/u/.local/share/keyrings/x",
                                                            "/home/u/.local/share/Trash",
                                                            "/home/u/.local/share/Trash/files",
                                                            "/home/u/.local/share/Trash/info",
                                                            "/home/u/.gnupg/x",
                                                            "/media/u/USB/" + own,
                                                            "/media/u/USB/" + own + "/files"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    for (const std::string &path : std::vector<std::string>{
             "/home/v/x", "/media/u/USB/x", "/mnt/x", "/srv/x", "/home/u/.cache/x", "/home/u/.local/share/x",
             "/home/u/.local/share/Trash/files/x", "/media/u/USB/" + own + "/files/x", "/boots/x"})
        EXPECT_FALSE(locations.isProtected(path)) << path;
}
#endif

TEST(PathGuard, FollowsTheLinksOfARealDisk)
{
    const TemporaryFolder disk;
    disk.makeFolder("real/me/Library/Mail");
    disk.writeText("real/me/a", "x");
    disk.link("home", "real");
    disk.link("home/me/usr", "/usr");
    disk.link("home/me/up", "Library");
    FileSystem &files = systemHost().files;
    const ProtectedLocations locations(disk / "home/me", {}, files.realPath(disk / "home/me").value_or(""));

    EXPECT_TRUE(locations.isProtected(disk / "home/me/usr/lib", files));
    EXPECT_TRUE(locations.isProtected(disk / "home/me/up/Mail", files));
    EXPECT_TRUE(locations.isProtected(disk / "home/me/usr/", files));
    EXPECT_TRUE(locations.isProtected(disk / "home/me/usr/../etc", files));
    EXPECT_TRUE(locations.isProtected(disk / "real/me", files));
    EXPECT_TRUE(locations.isProtected(disk / "real", files));
    EXPECT_FALSE(locations.isProtected(disk / "home/me/usr", files));
    EXPECT_FALSE(locations.isProtected(disk / "home/me/a", files));
    EXPECT_FALSE(locations.isProtected(disk / "real/me/a", files));
}

TEST(ProtectedLocations, OtherHomesAreProtectedLikeTheUsersOwn)
{
    const ProtectedLocations locations("/tmp/pretended", {}, {}, {"/Users/me/", "/data/me"});
    for (const char *path : {"/Users/me", "/Users/me/Documents", "/Users/me/.ssh/id", "/Users/me/Library/Mail/x",
                             "/Users/me/Library/x", "/data/me", "/data", "/data/me/.gnupg/x"})
        EXPECT_TRUE(locations.isProtected(path)) << path;
    EXPECT_FALSE(locations.isProtected("/Users/me/Documents/letter.txt"));
    EXPECT_EQ(locations.home(), "/tmp/pretended");
}

TEST(PathGuard, UsesTheHomeOfTheCurrentUser)
{
    const std::string own = standardizedPath(systemHost().files.homeFolder(), {});
    EXPECT_EQ(PathGuard::home(), own);
    EXPECT_EQ(PathGuard::locations().home(), own);
    EXPECT_TRUE(PathGuard::isProtected(own));
    EXPECT_TRUE(PathGuard::isProtected(own + "/Library/Mail"));
    EXPECT_TRUE(PathGuard::isProtected("~/.ssh/id"));
    EXPECT_TRUE(PathGuard::isProtected("/usr/lib"));
    for (const std::string &place : systemProtectedPlaces().exact)
        EXPECT_TRUE(PathGuard::isProtected(place)) << place;
}

TEST(PathGuard, SettingsOpenAtTheirAddress)
{
    FakeHost fake;
    EXPECT_TRUE(PathGuard::openFullDiskAccessSettings(fake.desktop));
    EXPECT_EQ(
        fake.log->lines(),
        std::vector<std::string>{"openUrl x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"});
}

TEST(PathGuard, SettingsOpenAtTheirNewerAddressWhereTheFirstFails)
{
    FakeHost fake;
    fake.desktop.fail("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles", "unknown");
    EXPECT_TRUE(PathGuard::openFullDiskAccessSettings(fake.desktop));
    EXPECT_EQ(fake.log->lines().back(),
              "openUrl x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_AllFiles");
    EXPECT_TRUE(fake.desktop.logged().empty());

    fake.desktop.fail("x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_AllFiles", "no");
    EXPECT_FALSE(PathGuard::openFullDiskAccessSettings(fake.desktop));
    EXPECT_EQ(fake.desktop.logged().size(), 1u);
}

TEST(FullDiskAccess, IsGrantedWhenTheProbeFileOpens)
{
    FakeHost fake;
    fake.files.setSystemKind(SystemKind::mac);
    const std::string probe = PathGuard::accessProbePath(home);
    EXPECT_EQ(probe, "/Users/me/Library/Application Support/com.apple.TCC/TCC.db");
    fake.files.addFolder("/Users/me/Library");
    EXPECT_FALSE(PathGuard::probeFullDiskAccess(fake.files));
    fake.files.addFile(probe, 1);
    EXPECT_TRUE(PathGuard::probeFullDiskAccess(fake.files));
    fake.files.failOpening(probe);
    EXPECT_FALSE(PathGuard::probeFullDiskAccess(fake.files));
}

TEST(FullDiskAccess, OfALinuxSystemIsThatTheHomeOpensForReading)
{
    FakeHost fake;
    fake.files.setHome("/home/u");
    EXPECT_TRUE(PathGuard::probeFullDiskAccess(fake.files));
    EXPECT_TRUE(fake.log->linesStartingWith("list").empty()) << "a large home takes its time";
    fake.files.addFolder("/home/u/Library"); // a macOS folder on Linux
    EXPECT_TRUE(PathGuard::probeFullDiskAccess(fake.files));
    fake.files.failOpening("/home/u");
    EXPECT_FALSE(PathGuard::probeFullDiskAccess(fake.files));
}

TEST(FullDiskAccess, OfAMacIsMissingWhereTheHomeHasNoLibrary)
{
    FakeHost fake;
    fake.files.setSystemKind(SystemKind::mac);
    EXPECT_FALSE(PathGuard::probeFullDiskAccess(fake.files));
}

} // namespace
} // namespace corvane
