#include "apps/package_records.h"

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/linux_apps.h"
#include "apps/linux_apps_fixture.h"

namespace corvane {
namespace {

using test::entryText;
using testing::ElementsAre;
using testing::IsEmpty;
using Source = InstalledApp::Source;

class PackageRecordsTest : public test::LinuxAppsFixture {};

TEST_F(PackageRecordsTest, APackageHasWhatItInstalled)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "chart"));
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::package);
    EXPECT_EQ(found.bundleID, "org.sea.Chart");
    EXPECT_EQ(found.version, "2.5");
    EXPECT_EQ(found.appSize, 500'000);
    EXPECT_EQ(found.removeCommand, "sudo apt remove chart");
    EXPECT_EQ(found.path, "/usr/share/applications/org.sea.Chart.desktop");
    EXPECT_FALSE(found.lastUsed);
}

TEST_F(PackageRecordsTest, APackageOfOneArchitectureIsFound)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"), "chart:amd64");
    EXPECT_EQ(app("Sea Chart").removeCommand, "sudo apt remove chart");
}

TEST_F(PackageRecordsTest, TheCommandForAPackageOfAnotherArchitectureNamesIt)
{
    addPackage("dpkg", "dpkg", entryText("Tool", "dpkg"));
    addPackage("pilot", "pilot", entryText("Pilot", "pilot"));
    status.replace(status.rfind("amd64"), 5, "i386");
    addPackage("common", "common", entryText("Common", "common"));
    status.replace(status.rfind("amd64"), 5, "all");
    EXPECT_EQ(app("Tool").removeCommand, "sudo apt remove dpkg");
    EXPECT_EQ(app("Pilot").removeCommand, "sudo apt remove pilot:i386");
    EXPECT_EQ(app("Common").removeCommand, "sudo apt remove common");
    status.replace(status.find("i386"), 4, "x;reboot");
    EXPECT_EQ(app("Pilot").removeCommand, "sudo apt remove pilot");
}

TEST_F(PackageRecordsTest, APackageOfTwoArchitecturesIsOneApplication)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"), "chart:amd64");
    fake.files.addText("/var/lib/dpkg/info/chart:i386.list", "/usr/share/applications/chart.desktop\n");
    status += "Package: chart\nStatus: install ok installed\nArchitecture: i386\n\n";
    EXPECT_THAT(names(), ElementsAre("Sea Chart"));
}

TEST_F(PackageRecordsTest, APackageWhoseFilesCannotBeReadHasTheSizeThatItTells)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    fake.files.failFacts("/usr/bin/chart");
    EXPECT_EQ(app("Sea Chart").appSize, 9 * 1024);
}

TEST_F(PackageRecordsTest, APackageThatIsRemovedButForItsSettingsIsNone)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    status.replace(status.find("install ok installed"), 20, "deinstall ok config-files");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PackageRecordsTest, PacmansPackagesAreFound)
{
    fake.files.addText("/usr/share/applications/chart.desktop", entryText("Sea Chart", "chart"), 1'000);
    fake.files.addFile("/usr/bin/chart", 2'000);
    fake.files.addText("/var/lib/pacman/local/sea-chart-1.4-2/desc",
                       "%NAME%\nsea-chart\n\n%VERSION%\n1.4-2\n\n%SIZE%\n77\n");
    fake.files.addText("/var/lib/pacman/local/sea-chart-1.4-2/files",
                       "%FILES%\nusr/\nusr/bin/chart\nusr/share/applications/chart.desktop\n\n%BACKUP%\netc/x\t1\n");
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.removeCommand, "sudo pacman -R sea-chart");
    EXPECT_EQ(found.version, "1.4");
    EXPECT_EQ(found.appSize, 3'000);
}

TEST_F(PackageRecordsTest, WhatTheMenusHideIsLeftOut)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart", "NoDisplay=true\n"));
    addPackage("port", "port", entryText("Port", "port", "Hidden=true\n"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(PackageRecordsTest, APackageOfSeveralEntriesIsOneApplication)
{
    addPackage("office", "office-a", entryText("Office Write", "office"));
    setText("/usr/share/applications/office.desktop", entryText("Office", "office"));
    setText("/var/lib/dpkg/info/office.list", "/usr/share/applications/office-a.desktop\n"
                                              "/usr/share/applications/office.desktop\n/usr/bin/office\n");
    EXPECT_THAT(names(), ElementsAre("Office"));
}

TEST_F(PackageRecordsTest, APackageRunsItsProgramsAndNoneOfAnother)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/bin/chart"));

    fake.files.take("/usr/bin/chart");
    fake.files.addFile("/usr/lib/chart/chart", 1'000);
    fake.files.addLink("/usr/bin/chart", "/usr/lib/chart/chart");
    setText("/var/lib/dpkg/info/chart.list",
            "/usr/bin/chart\n/usr/lib/chart\n/usr/lib/chart/chart\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/lib/chart", "/usr/lib/chart/chart"));

    fake.files.take("/usr/bin/chart");
    fake.files.addFile("/usr/bin/python3", 1'000);
    fake.files.addLink("/usr/bin/chart", "/usr/bin/python3");
    setText("/var/lib/dpkg/info/chart.list", "/usr/bin/chart\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, IsEmpty());
}

TEST_F(PackageRecordsTest, AProgramThatTheAdministratorHasChosenIsThePackagesOwn)
{
    addPackage("chart", "chart", entryText("Sea Chart", "map"));
    fake.files.addFile("/usr/bin/map.basic", 1'000);
    fake.files.addLink("/etc/alternatives/map", "/usr/bin/map.basic");
    fake.files.addLink("/usr/bin/map", "/etc/alternatives/map");
    setText("/var/lib/dpkg/info/chart.list", "/usr/bin/map.basic\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/bin/map.basic"));
    setText("/var/lib/dpkg/info/chart.list", "/usr/bin/other\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, IsEmpty());
}

TEST_F(PackageRecordsTest, NoFolderOfEverybodyIsAProgramThatAnEntryStarts)
{
    for (const char *const program : {"", ".", "..", "/", "/usr", "/usr/bin", "../share", "share", "%f"}) {
        SCOPED_TRACE(program);
        setText("/usr/share/applications/chart.desktop", entryText("Sea Chart", program));
        fake.files.addFolder("/usr/share/doc");
        if (!fake.files.has("/usr/share/doc/share"))
            fake.files.addLink("/usr/share/doc/share", "/usr/share");
        setText("/var/lib/dpkg/status", "Package: chart\nStatus: install ok installed\nVersion: 1\n");
        setText("/var/lib/dpkg/info/chart.list", "/.\n/usr\n/usr/bin\n/usr/share\n/usr/share/doc\n"
                                                 "/usr/share/doc/share\n/usr/share/applications/chart.desktop\n");
        fake.files.addFolder("/usr/bin");
        EXPECT_THAT(app("Sea Chart").programs, IsEmpty());
    }
}

TEST_F(PackageRecordsTest, AFolderOfEverybodysIsNoneOfAPackages)
{
    addPackage("chart", "chart", entryText("Sea Chart", "/usr/lib/x86_64-linux-gnu/chart"));
    fake.files.addFile("/usr/lib/x86_64-linux-gnu/chart", 1'000);
    setText("/var/lib/dpkg/info/chart.list",
            "/usr/lib/x86_64-linux-gnu/chart\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/lib/x86_64-linux-gnu/chart"));
}

TEST_F(PackageRecordsTest, FilesOfAbsurdSizesAreNotRead)
{
    setText("/var/lib/dpkg/status", "Package: x\nStatus: a installed\n" + std::string(257UL * 1024 * 1024, 'x'));
    setText("/var/lib/dpkg/info/x.list", "/usr/share/applications/x.desktop\n");
    setText("/usr/share/applications/x.desktop", entryText("X", "x") + std::string(10'000'000, '#'));
    EXPECT_THAT(names(), IsEmpty());
    setText("/var/lib/dpkg/status", "Package: x\nStatus: a installed\nVersion: " + std::string(1'000'000, '1'));
    setText("/usr/share/applications/x.desktop", entryText("X", std::string(200'000, 'x')));
    EXPECT_THAT(names(), ElementsAre("X"));
}

// --- rpm

/// The output of rpm on a system with two applications.
class RpmTest : public PackageRecordsTest {
protected:
    RpmTest()
    {
        fake.files.addFile("/usr/bin/rpm", 1);
        fake.files.addFile("/usr/bin/dnf", 1);
        fake.files.addFolder("/usr/lib/sysimage/rpm");
        fake.files.addText("/usr/share/applications/chart.desktop", entryText("Sea Chart", "chart"), 1'000);
        fake.files.addFile("/usr/bin/chart", 2'000);
    }

    AppInventory::Result loadRpm()
    {
        return loadLinuxApps(fake.host(), locations, now,
                             [this](const std::string &tool, const std::vector<std::string> &arguments) {
                                 EXPECT_EQ(tool, "/usr/bin/rpm");
                                 asked.push_back(arguments);
                                 return arguments.front() == "-qa" ? names : packages;
                             });
    }

    std::optional<std::string> names = "bash\tbash\nbash\tREADME\nsea-chart\tchart.desktop\nsea-chart\tchart\n";
    std::optional<std::string> packages =
        "sea-chart\t1.4\t77\n/usr/bin/chart\n/usr/share/applications/chart.desktop\n/usr/share/doc/chart\n";
    std::vector<std::vector<std::string>> asked;
};

TEST_F(RpmTest, PackagesWithADesktopFileAreFound)
{
    const AppInventory::Result result = loadRpm();
    ASSERT_EQ(result.apps.size(), 1u);
    EXPECT_EQ(result.apps[0].name, "Sea Chart");
    EXPECT_EQ(result.apps[0].version, "1.4");
    EXPECT_EQ(result.apps[0].appSize, 3'000);
    EXPECT_EQ(result.apps[0].removeCommand, "sudo dnf remove sea-chart");
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[1].back(), "sea-chart");
    EXPECT_EQ(asked[1].size(), 4u);
}

TEST_F(RpmTest, TheCommandIsThatOfTheManagerThatIsThere)
{
    fake.files.take("/usr/bin/dnf");
    EXPECT_EQ(loadRpm().apps[0].removeCommand, "sudo rpm -e sea-chart");
    fake.files.addFile("/usr/bin/yum", 1);
    EXPECT_EQ(loadRpm().apps[0].removeCommand, "sudo yum remove sea-chart");
    fake.files.addFile("/usr/bin/zypper", 1);
    EXPECT_EQ(loadRpm().apps[0].removeCommand, "sudo zypper remove sea-chart");
}

TEST_F(RpmTest, WithoutADatabaseNothingIsRun)
{
    fake.files.take("/usr/lib/sysimage/rpm");
    EXPECT_THAT(loadRpm().apps, IsEmpty());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(RpmTest, AFailingToolIsNoPackage)
{
    packages = std::nullopt;
    EXPECT_THAT(loadRpm().apps, IsEmpty());
    names = std::nullopt;
    EXPECT_THAT(loadRpm().apps, IsEmpty());
}

TEST_F(RpmTest, AHostileNameMakesNoCommandAndNoArgument)
{
    names = "--eval=%{lua:x}\tchart.desktop\na;rm\tchart.desktop\nsea-chart\tchart.desktop\n";
    packages = "a;rm -rf ~\t1\t1\n/usr/share/applications/chart.desktop\n\t\t\n/usr/share/applications/chart.desktop\n"
               "/usr/share/applications/../../../etc/x.desktop\n";
    EXPECT_THAT(loadRpm().apps, IsEmpty());
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[1].size(), 4u);
}

} // namespace
} // namespace corvane
