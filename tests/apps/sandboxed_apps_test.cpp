#include "apps/sandboxed_apps.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/linux_apps_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using Source = InstalledApp::Source;

class SandboxedAppsTest : public test::LinuxAppsFixture {};

TEST_F(SandboxedAppsTest, AFlatpakIsOneApplicationWithItsVersionAndItsCommand)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    fake.files.addText("/var/lib/flatpak/app/org.sea.Chart/current/active/files/share/metainfo/"
                       "org.sea.Chart.metainfo.xml",
                       "<component><releases><release date=\"2025\" version=\"5.4.1\"/><release version=\"5.3\"/>", 0);
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::flatpak);
    EXPECT_EQ(found.bundleID, "org.sea.Chart");
    EXPECT_EQ(found.version, "5.4.1");
    EXPECT_EQ(found.appSize, 700'000);
    EXPECT_EQ(found.removeCommand, "flatpak uninstall org.sea.Chart");
    EXPECT_EQ(found.path, "/var/lib/flatpak/app/org.sea.Chart");
}

TEST_F(SandboxedAppsTest, AFlatpakOfTheUserIsRemovedAsOne)
{
    addFlatpak("org.sea.Chart", "Sea Chart", "x", at(".local/share/flatpak"));
    EXPECT_EQ(app("Sea Chart").removeCommand, "flatpak uninstall --user org.sea.Chart");
}

TEST_F(SandboxedAppsTest, AFileOfAFlatpakWithTwoNamesCountsOnce)
{
    const std::string files = "/var/lib/flatpak/app/org.sea.Chart/x86_64/stable/1/files/";
    addFlatpak("org.sea.Chart", "Sea Chart");
    fake.files.addFile(files + "bin/other", 700'000);
    fake.files.identify(files + "bin/other", files + "bin/program");
    EXPECT_EQ(app("Sea Chart").appSize, 700'000);
}

TEST_F(SandboxedAppsTest, ASnapHasAllItsRevisions)
{
    addSnap("chart", "Sea Chart");
    fake.files.addText("/snap/chart/current/meta/snap.yaml", "name: chart\nversion: '1.2'\nsummary: x\n", 0);
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::snap);
    EXPECT_EQ(found.bundleID, "chart");
    EXPECT_EQ(found.version, "1.2");
    EXPECT_EQ(found.appSize, 700'000);
    EXPECT_EQ(found.removeCommand, "sudo snap remove chart");
}

TEST_F(SandboxedAppsTest, TheMarksAreThoseOfTheSource)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    addSnap("pad", "Pad");
    EXPECT_EQ(marksOf(app("Sea Chart")).flatpak, "org.sea.Chart");
    EXPECT_EQ(marksOf(app("Sea Chart")).snap, "");
    EXPECT_EQ(marksOf(app("Pad")).snap, "pad");
    EXPECT_EQ(marksOf(app("Pad")).flatpak, "");
}

TEST_F(SandboxedAppsTest, AFlatpakWithoutADesktopFileIsCalledAsItsDescriptionSays)
{
    fake.files.addFile("/var/lib/flatpak/app/org.sea.Tool/x86_64/stable/1/files/bin/tool", 1'000);
    fake.files.addText("/var/lib/flatpak/app/org.sea.Tool/current/active/files/share/metainfo/"
                       "org.sea.Tool.metainfo.xml",
                       "<component><name>Sea Tool</name></component>", 0);
    EXPECT_THAT(names(), ElementsAre("Sea Tool"));
}

} // namespace
} // namespace corvane
