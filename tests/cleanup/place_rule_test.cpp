#include "cleanup/place_rule.h"

#include <gtest/gtest.h>

#include "platform/environment.h"
#include "platform/fake_file_system.h"

namespace corvane {
namespace {

constexpr const char *caches = "Library/Caches";
constexpr const char *downloads = "Downloads";

/// A user of a Linux system, with a second disk at "/data".
class PlaceRuleTest : public testing::Test {
protected:
    PlaceRuleTest()
    {
        files.setSystemKind(SystemKind::linuxSystem);
        files.setHome("/home/me");
        for (const char *folder :
             {"/home/me/Documents/thesis", "/home/me/.ssh", "/home/me/.config", "/home/me/Videos", "/home/me/Bilder",
              "/home/me/src", "/home/you", "/data/cache", "/tmp/mine", "/etc", "/usr/share"})
            files.addFolder(folder);
        files.setUserFolders({"/home/me/Bilder"});
    }

    std::optional<std::string> placeWhereCachesAre(const std::string &path)
    {
        files.setOwnPlace(caches, {path, "/home/me/.cache"});
        return PlaceRule(files).placeFor(caches);
    }

    FakeFileSystem files;
};

TEST_F(PlaceRuleTest, TheUsualPlaceHolds)
{
    files.addFolder("/home/me/.cache");
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), "/home/me/.cache");
}

TEST_F(PlaceRuleTest, APlaceThatIsMissingHolds)
{
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), "/home/me/.cache");
}

TEST_F(PlaceRuleTest, AFolderThatIsNotTheUsersOwnHolds)
{
    for (const char *folder : {"/data/cache", "/tmp/mine", "/home/me/src"})
        EXPECT_EQ(placeWhereCachesAre(folder), folder);
}

TEST_F(PlaceRuleTest, TheHomeAndWhatContainsItAreRefused)
{
    for (const char *folder : {"/home/me", "/home", "/"})
        EXPECT_EQ(placeWhereCachesAre(folder), std::nullopt) << folder;
}

TEST_F(PlaceRuleTest, AMainFolderThatIsMountedOnTheUsualPlaceIsRefused)
{
    files.addFolder("/home/me/.cache");
    files.addMount({"/", 1, "/"});
    files.addMount({"/home/me/.cache", 1, "/home/me/Documents"});
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), std::nullopt);
}

TEST_F(PlaceRuleTest, AProtectedFolderThatIsMountedOnTheUsualPlaceIsRefused)
{
    files.addFolder("/home/me/.cache");
    files.addMount({"/", 1, "/"});
    files.addMount({"/home/me/.cache", 1, "/home/me/.ssh"});
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), std::nullopt);
}

TEST_F(PlaceRuleTest, AFolderOfItsOwnThatIsMountedOnTheUsualPlaceHolds)
{
    files.addFolder("/home/me/.cache");
    files.addMount({"/", 1, "/"});
    files.addMount({"/data", 2, "/"});
    files.addMount({"/home/me/.cache", 2, "/cache"});
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), "/home/me/.cache");
}

TEST_F(PlaceRuleTest, AHomeThatIsSeenInASystemPlaceAsWellKeepsItsUsualPlaces)
{
    files.addFolder("/home/me/.cache");
    files.addMount({"/", 1, "/"});
    files.addMount({"/home", 1, "/var/home"});
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), "/home/me/.cache");
}

TEST_F(PlaceRuleTest, TheHomeOfTheAccountIsRefusedWhereHomeIsSetElsewhere)
{
    const std::string account = Environment::accountHome();
    files.addFolder(account);
    EXPECT_EQ(placeWhereCachesAre(account), std::nullopt);
}

TEST_F(PlaceRuleTest, AMainFolderAndWhatLiesInOneAreRefused)
{
    for (const char *folder : {"/home/me/Documents", "/home/me/Documents/thesis", "/home/me/Videos", "/home/me/Bilder"})
        EXPECT_EQ(placeWhereCachesAre(folder), std::nullopt) << folder;
}

TEST_F(PlaceRuleTest, AFolderThatContainsAMainFolderIsRefused)
{
    files.addFolder("/data/me/Pictures");
    files.addLink("/home/me/Pictures", "/data/me/Pictures");
    EXPECT_EQ(placeWhereCachesAre("/data/me"), std::nullopt);
}

TEST_F(PlaceRuleTest, ProtectedFoldersAndTheFolderForTemporaryFilesAreRefused)
{
    for (const char *folder : {"/home/me/.ssh", "/home/me/.config", "/etc", "/usr/share", "/tmp"})
        EXPECT_EQ(placeWhereCachesAre(folder), std::nullopt) << folder;
}

TEST_F(PlaceRuleTest, ALinkIsJudgedByWhereItLeads)
{
    files.addLink("/home/me/.cache", "/home/me/Documents");
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), std::nullopt);
    files.take("/home/me/.cache");
    files.addLink("/home/me/.cache", "/data/cache");
    EXPECT_EQ(placeWhereCachesAre("/home/me/.cache"), "/home/me/.cache");
}

TEST_F(PlaceRuleTest, ALinkOnTheWayIsJudgedByWhereItLeads)
{
    files.addLink("/home/me/.npm", "/home/me/Documents");
    files.addFolder("/home/me/Documents/_cacache");
    EXPECT_EQ(PlaceRule(files).placeFor(".npm/_cacache"), std::nullopt);
}

TEST_F(PlaceRuleTest, AHomeBehindALinkKeepsItsUsualPlaces)
{
    files.addFolder("/data/me/.cache");
    files.addLink("/home/linked", "/data/me");
    files.setHome("/home/linked");
    files.setOwnPlace(caches, {"/home/linked/.cache", "/home/linked/.cache"});
    EXPECT_EQ(PlaceRule(files).placeFor(caches), "/home/linked/.cache");
    files.setOwnPlace(caches, {"/data/me", "/home/linked/.cache"});
    EXPECT_EQ(PlaceRule(files).placeFor(caches), std::nullopt);
}

TEST_F(PlaceRuleTest, TheFolderForDownloadsIsAMainFolderItself)
{
    const auto place = [&](const std::string &path) {
        files.setUserFolders({path, "/home/me/Bilder"});
        files.setOwnPlace(downloads, {path, "/home/me/Downloads"});
        return PlaceRule(files).placeFor(downloads);
    };
    for (const char *folder : {"/home/me/Heruntergeladen", "/home/me/Downloads", "/data/cache"}) {
        if (!files.has(folder))
            files.addFolder(folder);
        EXPECT_EQ(place(folder), folder);
    }
    EXPECT_EQ(place("/home/me/Documents"), std::nullopt);
    EXPECT_EQ(place("/home/me/Bilder"), std::nullopt); // which is also the pictures folder
    EXPECT_EQ(place("/home/me/Documents/thesis"), std::nullopt);
    files.take("/home/me/Downloads");
    files.addLink("/home/me/Downloads", "/data/cache");
    EXPECT_EQ(place("/home/me/Downloads"), "/home/me/Downloads");
}

TEST_F(PlaceRuleTest, DownloadsThatReallyAreFoldersOfTheSystemOrOfProgramsAreRefused)
{
    files.addFolder("/home/me/.mail/inbox");
    for (const char *folder : {"/etc", "/usr/share", "/home/me/.ssh", "/home/me/.config", "/home/me/.mail/inbox"}) {
        files.setUserFolders({folder});
        files.setOwnPlace(downloads, {folder, "/home/me/Downloads"});
        EXPECT_EQ(PlaceRule(files).placeFor(downloads), std::nullopt) << folder;
        files.setUserFolders({});
        files.setOwnPlace(downloads, {"/home/me/Downloads", "/home/me/Downloads"});
        files.addLink("/home/me/Downloads", folder);
        EXPECT_EQ(PlaceRule(files).placeFor(downloads), std::nullopt) << folder;
        files.take("/home/me/Downloads");
    }
}

TEST_F(PlaceRuleTest, ATrashThatLiesElsewhereHolds)
{
    files.addFolder("/data/share/Trash/files");
    files.addFolder("/home/me/Documents/Trash/files");
    files.addFolder("/home/me/.ssh/Trash/files");
    const auto place = [&](const std::string &path) {
        files.setOwnPlace(".Trash", {path, "/home/me/.local/share/Trash/files"});
        return PlaceRule(files).placeFor(".Trash");
    };
    EXPECT_EQ(place("/data/share/Trash/files"), "/data/share/Trash/files");
    EXPECT_EQ(place("/home/me/Documents/Trash/files"), std::nullopt);
    EXPECT_EQ(place("/home/me/.ssh/Trash/files"), std::nullopt);
}

TEST_F(PlaceRuleTest, OnAMacOnlyTheHomeIsLookedAt)
{
    files.setSystemKind(SystemKind::mac);
    files.addFolder("/home/me/Library/Caches");
    EXPECT_EQ(placeWhereCachesAre("/data/cache"), "/home/me/Library/Caches");
    files.take("/home/me/Library/Caches");
    files.addLink("/home/me/Library/Caches", "/home/me/Documents");
    EXPECT_EQ(placeWhereCachesAre("/data/cache"), std::nullopt);
}

} // namespace
} // namespace corvane
