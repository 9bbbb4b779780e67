#include "apps/app_inventory.h"

#include <algorithm>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "apps/app_fixture.h"
#include "core/scanner.h"
#include "platform/made_up_folder.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class AppInventoryTest : public test::AppFixture {
protected:
    std::vector<std::string> found() { return AppInventory::findAppURLs(home, fake.files); }

    std::vector<std::string> loaded()
    {
        std::vector<std::string> names;
        for (const InstalledApp &app : load().apps)
            names.push_back(app.name);
        return names;
    }
};

TEST_F(AppInventoryTest, BundlesAreFoundInBothFoldersAndOneLevelDeeper)
{
    addApp("/Applications/Chart.app", "a.b");
    addApp("/Applications/Utilities/Port Monitor.app", "a.c");
    addApp("/Applications/Suite/Deep/Deeper.app", "a.d");
    addApp(home + "/Applications/Own.app", "a.e");
    addApp(home + "/Applications/Folder/Inside.app", "a.f");
    addApp("/elsewhere/Other.app", "a.g");
    EXPECT_THAT(found(), ElementsAre("/Applications/Chart.app", "/Applications/Utilities/Port Monitor.app",
                                     home + "/Applications/Own.app", home + "/Applications/Folder/Inside.app"));
}

TEST_F(AppInventoryTest, ABundleIsNotEntered)
{
    addApp("/Applications/Chart.app/Inner.app", "a.b");
    EXPECT_THAT(found(), ElementsAre("/Applications/Chart.app"));
}

TEST_F(AppInventoryTest, OnlyTheExtensionAppMakesABundle)
{
    for (const std::string name : {"Chart.app", "Chart.app.app", "Chart.APP", "Chart.application", "Chart", ".app"})
        fake.files.addFolder("/Applications/" + name);
    EXPECT_THAT(found(), UnorderedElementsAre("/Applications/Chart.app", "/Applications/Chart.app.app"));
}

TEST_F(AppInventoryTest, WithoutTheFoldersThereAreNone)
{
    EXPECT_THAT(found(), IsEmpty());
    fake.files.addFile("/Applications", 1);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(AppInventoryTest, AFolderThatCannotBeListedContributesNothing)
{
    addApp("/Applications/Closed/Chart.app", "a.b");
    addApp("/Applications/Open.app", "a.c");
    fake.files.failOpening("/Applications/Closed");
    EXPECT_THAT(found(), ElementsAre("/Applications/Open.app"));
    fake.files.failOpening("/Applications");
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(AppInventoryTest, WhatWasListedBeforeAFailureCounts)
{
    addApp("/Applications/One.app", "a.b");
    addApp("/Applications/Two.app", "a.c");
    fake.files.failListing("/Applications", std::errc::io_error, 1);
    EXPECT_THAT(found(), ElementsAre("/Applications/One.app"));
}

TEST_F(AppInventoryTest, AFolderOfTheHomeThatIsTheSystemsIsSearchedOnce)
{
    addApp("/Applications/Chart.app", "a.b");
    fake.files.addLink(home + "/Applications", "/Applications");
    EXPECT_THAT(found(), ElementsAre("/Applications/Chart.app"));
}

TEST_F(AppInventoryTest, ALinkToAFolderIsNotEntered)
{
    addApp("/elsewhere/Chart.app", "a.b");
    fake.files.addFolder("/Applications");
    fake.files.addLink("/Applications/More", "/elsewhere");
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(AppInventoryTest, ALinkToABundleIsAnApplicationOfNoSize)
{
    addApp("/elsewhere/Chart.app", "a.b", 5'000);
    fake.files.addFolder("/Applications");
    fake.files.addLink("/Applications/Chart.app", "/elsewhere/Chart.app");
    addItem("Caches/a.b", 700);
    const AppInventory::Result result = load();
    ASSERT_EQ(result.apps.size(), 1U);
    EXPECT_EQ(result.apps[0].path, "/Applications/Chart.app");
    EXPECT_EQ(result.apps[0].bundleID, "a.b");
    EXPECT_EQ(result.apps[0].appSize, 0);
    EXPECT_EQ(result.apps[0].exactLeftoverSize(), 700);
}

TEST_F(AppInventoryTest, ALinkThatLeadsNowhereIsSkipped)
{
    fake.files.addFolder("/Applications");
    fake.files.addLink("/Applications/Chart.app", "/gone/Chart.app");
    EXPECT_THAT(loaded(), IsEmpty());
}

TEST_F(AppInventoryTest, TheSystemsOwnApplicationsAreNotOffered)
{
    addApp("/Applications/Xcode.app", "com.apple.dt.Xcode");
    addApp(home + "/Applications/Own.app", "com.apple.own");
    addApp("/Applications/Sauce.app", "com.applesauce");
    EXPECT_THAT(loaded(), ElementsAre("Sauce"));
}

TEST_F(AppInventoryTest, ThisProgramIsNotOffered)
{
    addApp("/Applications/Corvane.app", "app.corvane.Corvane");
    addApp("/Applications/Other.app", "app.corvane.Corvane.other");
    EXPECT_THAT(loaded(), ElementsAre("Other"));
}

TEST_F(AppInventoryTest, AnApplicationOfTheAppStoreHasAReceipt)
{
    addApp("/Applications/Bought.app", "a.b");
    fake.files.addFile("/Applications/Bought.app/Contents/_MASReceipt/receipt", 10);
    addApp("/Applications/Other.app", "a.c");
    fake.files.addFolder("/Applications/Other.app/Contents/_MASReceipt");
    EXPECT_TRUE(AppInventory::readBundle("/Applications/Bought.app", fake.files)->isAppStore);
    EXPECT_FALSE(AppInventory::readBundle("/Applications/Other.app", fake.files)->isAppStore);
}

TEST_F(AppInventoryTest, WithoutAnIdentifierABundleIsSkipped)
{
    addBundle("/Applications/None.app", test::infoPlist({{"CFBundleName", "None"}}));
    addBundle("/Applications/Empty.app", test::infoPlist({{"CFBundleIdentifier", ""}}));
    addBundle("/Applications/Broken.app", "no property list");
    fake.files.addFolder("/Applications/Hollow.app");
    fake.files.addFile("/Applications/File.app", 1'000);
    EXPECT_THAT(loaded(), IsEmpty());
}

TEST_F(AppInventoryTest, AnInfoPlistOfFiftyMegabytesIsNotRead)
{
    const std::string plist = test::infoPlist({{"CFBundleIdentifier", "a.b"}});
    addBundle("/Applications/Large.app", plist + std::string(50'000'000, ' '));
    addBundle("/Applications/Fine.app", plist + std::string(1'000'000, ' '));
    EXPECT_THAT(loaded(), ElementsAre("Fine"));
}

TEST_F(AppInventoryTest, AnApplicationHasWhatItsBundleSaysAndItsSize)
{
    addBundle("/Applications/Sea Chart.app",
              test::infoPlist({{"CFBundleIdentifier", "Org.Sea.Chart"},
                               {"CFBundleName", "Chart"},
                               {"CFBundleShortVersionString", "2.1"}}),
              5'000'000);
    addItem("Caches/org.sea.chart", 70);
    fake.applications.setLastUsed("/Applications/Sea Chart.app", longAgo);
    const std::vector<InstalledApp> apps = load().apps;
    ASSERT_EQ(apps.size(), 1U);
    EXPECT_EQ(apps[0].path, "/Applications/Sea Chart.app");
    EXPECT_EQ(apps[0].name, "Sea Chart");
    EXPECT_EQ(apps[0].bundleID, "Org.Sea.Chart");
    EXPECT_EQ(apps[0].version, "2.1");
    EXPECT_FALSE(apps[0].isAppStore);
    EXPECT_EQ(apps[0].appSize, 5'000'000);
    EXPECT_EQ(apps[0].lastUsed, longAgo);
    EXPECT_EQ(apps[0].leftovers.size(), 1U);
}

TEST_F(AppInventoryTest, WithoutADateOfLastUseThereIsNone)
{
    addApp("/Applications/Chart.app", "a.b");
    EXPECT_EQ(load().apps.at(0).lastUsed, std::nullopt);
}

TEST_F(AppInventoryTest, TheLargestComesFirstTogetherWithItsExactLeftovers)
{
    addApp("/Applications/Bundle.app", "a.bundle", 5'000);
    addApp("/Applications/Data.app", "a.data", 2'000);
    addApp("/Applications/Small.app", "a.small", 4'000);
    addItem("Caches/a.data", 4'000);
    addItem("Caches/Small", 9'000); // a name match only
    EXPECT_THAT(loaded(), ElementsAre("Data", "Bundle", "Small"));
}

TEST_F(AppInventoryTest, NamesThatAreNotUtf8AreKept)
{
    addApp("/Applications/Caf\xe9.app", "a.b");
    EXPECT_THAT(loaded(), ElementsAre("Caf\xe9"));
}

TEST_F(AppInventoryTest, AllTheSizesCanBeAddedUp)
{
    for (int i = 0; i < 100; ++i) {
        const std::string number = std::to_string(i);
        addApp("/Applications/App" + number + ".app", "a.b" + number, std::int64_t{1} << 57);
        addItem("Caches/a.b" + number, std::int64_t{1} << 57);
    }
    const AppInventory::Result result = load();
    EXPECT_EQ(result.apps.size(), 100U);
    std::int64_t sum = 0;
    for (const InstalledApp &app : result.apps)
        ASSERT_FALSE(__builtin_add_overflow(sum, app.appSize + app.exactLeftoverSize(), &sum));
}

TEST_F(AppInventoryTest, OnceStoppedNothingMoreIsMeasured)
{
    addApp("/Applications/Chart.app", "a.b");
    addItem("Caches/com.vendor.tool");
    const StopFlag stop = true;
    const AppInventory::Result result = AppInventory::load(host, locations, now, stop);
    EXPECT_THAT(result.apps, IsEmpty());
    EXPECT_THAT(result.orphanGroups, IsEmpty());
    EXPECT_THAT(fake.log->linesStartingWith("readFile "), IsEmpty());
}

TEST_F(AppInventoryTest, AStopWhileMeasuringEndsTheLoad)
{
    for (int i = 0; i < 50; ++i)
        addApp("/Applications/App" + std::to_string(i) + ".app", "a.b" + std::to_string(i));
    StopFlag stop = false;
    fake.log->observe([&](const std::string &line) {
        if (line.starts_with("facts /Applications/"))
            stop = true;
    });
    const AppInventory::Result result = AppInventory::load(host, locations, now, stop);
    EXPECT_LT(fake.log->linesStartingWith("facts /Applications/").size(), 50U);
    EXPECT_LT(result.apps.size(), 50U);
}

TEST_F(AppInventoryTest, NothingIsChanged)
{
    addApp("/Applications/Chart.app", "a.b");
    addItem("Caches/a.b");
    addItem("Caches/com.vendor.tool");
    static_cast<void>(load());
    EXPECT_THAT(fake.log->linesStartingWith("removeItem "), IsEmpty());
    EXPECT_THAT(fake.log->linesStartingWith("moveItem "), IsEmpty());
    EXPECT_THAT(fake.log->linesStartingWith("holdFolder "), IsEmpty());
}

TEST(EndlessApplications, AFolderWithoutEndContributesNothing)
{
    for (const std::string_view name : {"x.app", "x"}) {
        std::uint64_t last = 0;
        MadeUpFolder files([&](std::uint64_t number) {
            last = number;
            return DirectoryEntry{.name = name};
        });
        EXPECT_THAT(AppInventory::findAppURLs("/home", files), IsEmpty());
        EXPECT_EQ(last, Scanner::keptEntriesLimit);
    }
}

TEST(EndlessApplications, AStopIsNoticed)
{
    StopFlag stop = false;
    std::uint64_t last = 0;
    MadeUpFolder files([&](std::uint64_t number) {
        last = std::max(last, number);
        stop = number >= 100;
        return DirectoryEntry{.name = "x.app"};
    });
    EXPECT_THAT(AppInventory::findAppURLs("/home", files, stop), IsEmpty());
    EXPECT_EQ(last, 100U);
}

/// On a real disk, where an Info.plist can be any kind of item.
class HostileBundle : public testing::Test {
protected:
    std::optional<BundleInfo> read() { return AppInventory::readBundle(folder / "A.app", systemHost().files); }

    TemporaryFolder folder;
    const std::string plist = "A.app/Contents/Info.plist";
};

TEST_F(HostileBundle, AFileIsRead)
{
    folder.writeText(plist, test::infoPlist({{"CFBundleIdentifier", "a.b"}}));
    ASSERT_TRUE(read());
    EXPECT_EQ(read()->bundleID, "a.b");
}

TEST_F(HostileBundle, ALinkToAFileIsRead)
{
    folder.writeText("real.plist", test::infoPlist({{"CFBundleIdentifier", "a.b"}}));
    folder.link(plist, "../../real.plist");
    EXPECT_TRUE(read());
}

TEST_F(HostileBundle, APipeADeviceAndAFolderAreNotRead)
{
    folder.makeFolder("A.app/Contents");
    ASSERT_EQ(::mkfifo((folder / plist).c_str(), 0600), 0);
    EXPECT_FALSE(read());
    std::filesystem::rename(folder / plist, folder / "pipe");
    folder.link(plist, folder / "pipe");
    EXPECT_FALSE(read());
    std::filesystem::remove(folder / plist);
    folder.link(plist, "/dev/zero");
    EXPECT_FALSE(read());
    std::filesystem::remove(folder / plist);
    folder.link(plist, "Info.plist");
    EXPECT_FALSE(read());
    std::filesystem::remove(folder / plist);
    folder.makeFolder(plist);
    EXPECT_FALSE(read());
}

TEST_F(HostileBundle, FiftyMegabytesAreNotRead)
{
    folder.writeText(plist, test::infoPlist({{"CFBundleIdentifier", "a.b"}}));
    std::filesystem::resize_file(folder / plist, 50'000'000);
    EXPECT_FALSE(read());
}

} // namespace
} // namespace corvane
