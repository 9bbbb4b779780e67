#include "shell/crash_reporter.h"

#include <filesystem>
#include <memory>
#include <string>

#include <sys/stat.h>

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QFileInfo>

#include "platform/crash_handler.h"
#include "platform/fake_file_system.h"
#include "shell/crash_reporter_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- Search paths and names -----------------------------------------------------------------------------------------

TEST_F(CrashReporterTest, LooksInTheSystemsFolderAndInItsOwnForTheNameOfTheExecutable)
{
    FakeFileSystem files;
    files.setHome("/Users/studio");
    const CrashReporter::Places places = CrashReporter::places(files);
    EXPECT_EQ(places.folders.front(), "/Users/studio/Library/Logs/DiagnosticReports");
    EXPECT_EQ(places.executable, QFileInfo(QCoreApplication::applicationFilePath()).fileName().toStdString());
    ASSERT_EQ(places.folders.size(), crashReportsFolder() ? 2U : 1U);
    if (crashReportsFolder()) {
        EXPECT_EQ(places.folders.back(), *crashReportsFolder());
    }
}

TEST_F(CrashReporterTest, FindsTheProgramsOwnReportsByName)
{
    for (const char *name :
         {"corvane-2026-11-22-141500.ips", "corvane_2026-11-22_host.crash", "corvane-.ips", "corvane-b.crash"})
        writeReport(name);
    for (const char *name : {"corvane.ips", "corvanex-1.ips", "Corvane-1.ips", "another-corvane-1.ips", "corvane 1.ips",
                             "corvane-1.ips.txt", "corvane-1.IPS", "corvane-1.diag", "corvane-1", ".corvane-1.ips",
                             "corvan-1.ips", "corvane"})
        writeReport(name);
    EXPECT_THAT(found(), ElementsAre("corvane-.ips", "corvane-2026-11-22-141500.ips", "corvane-b.crash",
                                     "corvane_2026-11-22_host.crash"));
}

TEST_F(CrashReporterTest, FindsWhatIsLaterThanTheLastCheckToTheMillisecond)
{
    writeReport("corvane-1-long-before.ips", -86'400'000);
    writeReport("corvane-2-before-in-that-second.ips", -200);
    writeReport("corvane-3-at-that-moment.ips", 0);
    writeReport("corvane-4-after-in-that-second.ips", 1);
    writeReport("corvane-5-after.ips", 86'400'000);
    EXPECT_THAT(found(), ElementsAre("corvane-4-after-in-that-second.ips", "corvane-5-after.ips"));
}

TEST_F(CrashReporterTest, DatesAtTheEndsOfWhatAFileCanHaveAreLaterOrEarlier)
{
    FakeFileSystem files;
    files.addText("/reports/corvane-1.ips", "x", 4'096, Time(Time::duration::max()));
    files.addText("/reports/corvane-2.ips", "x", 4'096, Time(Time::duration::max() / 900));
    files.addText("/reports/corvane-3.ips", "x", 4'096, Time(Time::duration::min()));
    files.addText("/reports/corvane-4.ips", "x", 4'096, Time(Time::duration::min() / 900));
    const CrashReporter reporter(defaults, api, files, {.folders = {"/reports"}, .executable = "corvane"});
    EXPECT_THAT(reporter.findReports(lastCheck), ElementsAre("/reports/corvane-1.ips", "/reports/corvane-2.ips"));
}

TEST_F(CrashReporterTest, ReportsOfBothFoldersAreSortedByName)
{
    writeReport("corvane-2.ips");
    writeReport("corvane-4.ips");
    std::filesystem::create_directory(other);
    for (const char *name : {"corvane-1.ips", "corvane-3.ips", "corvane-5.crash"}) {
        const std::string path = settingsFolder.writeText(std::string("reports/") + name, "x");
        date(path, launch);
    }
    EXPECT_THAT(found(),
                ElementsAre("corvane-1.ips", "corvane-2.ips", "corvane-3.ips", "corvane-4.ips", "corvane-5.crash"));
}

TEST_F(CrashReporterTest, FolderThatIsMissingHoldsNoReports)
{
    std::filesystem::remove_all(folder.path());
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(CrashReporterTest, OnlyRegularFilesAreReports)
{
    const std::string fifo = folder / "corvane-fifo.ips";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    date(fifo, launch);
    date(folder.makeFolder("corvane-folder.ips"), launch);
    date(folder.link("corvane-endless.ips", "/dev/zero"), launch);
    date(folder.link("corvane-secret.ips", "/etc/passwd"), launch);
    writeReport("corvane-real.ips");
    // A pipe is listed as a file, but skipped when read.
    EXPECT_THAT(found(), ElementsAre("corvane-fifo.ips", "corvane-real.ips"));

    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(1));
    waitForNothing();
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(sentName(0), "corvane-real.ips");
}

TEST_F(CrashReporterTest, ReportThatBecomesALinkBeforeItIsSentIsSkipped)
{
    const std::string path = writeReport("corvane-1.ips");
    writeReport("corvane-2.ips");
    const auto reporter = launchAgain(Mode::ask);
    std::filesystem::remove(path);
    static_cast<void>(folder.link("corvane-1.ips", "/etc/passwd"));
    reporter->sendPending(false);
    ASSERT_TRUE(waitForRequests(1));
    waitForNothing();
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(sentName(0), "corvane-2.ips");
}

TEST_F(CrashReporterTest, ThousandsOfReportsAreFound)
{
    for (int index = 0; index < 3'000; ++index)
        writeReport("corvane-" + std::to_string(index) + ".ips");
    EXPECT_EQ(found().size(), 3'000U);
}

// --- At launch ------------------------------------------------------------------------------------------------------

TEST_F(CrashReporterTest, FirstLaunchOffersNothingAndRemembersTheMoment)
{
    writeReport("corvane-1.ips");
    defaults.setCrashReportMode(Mode::always);
    const auto reporter = run();
    reporter->checkOnLaunch();
    EXPECT_TRUE(reporter->didCheck());
    EXPECT_FALSE(reporter->showPrompt());
    EXPECT_THAT(reporter->pending(), IsEmpty());
    EXPECT_EQ(defaults.crashReportLastCheck(), launch);
    waitForNothing();
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(CrashReporterTest, AskingShowsThePromptAndSendsNothing)
{
    const std::string path = writeReport("corvane-1.ips");
    defaults.setCrashReportLastCheck(lastCheck);
    const auto reporter = run();
    int changes = 0;
    QObject::connect(reporter.get(), &CrashReporter::showPromptChanged, reporter.get(), [&] { ++changes; });
    reporter->checkOnLaunch();
    EXPECT_TRUE(reporter->showPrompt());
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(reporter->pending(), ElementsAre(path));
    EXPECT_EQ(defaults.crashReportLastCheck(), launch);
    waitForNothing();
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(CrashReporterTest, NothingNewShowsNoPrompt)
{
    writeReport("corvane-1.ips", -1'000'000);
    const auto reporter = launchAgain(Mode::ask);
    EXPECT_FALSE(reporter->showPrompt());
    EXPECT_EQ(defaults.crashReportLastCheck(), launch);
}

TEST_F(CrashReporterTest, UnknownModeAsks)
{
    writeReport("corvane-1.ips");
    defaults.setCrashReportLastCheck(lastCheck);
    defaults.settings().setValue(QStringLiteral("crashReportMode"), QStringLiteral("whenever"));
    const auto reporter = run();
    reporter->checkOnLaunch();
    EXPECT_TRUE(reporter->showPrompt());
}

TEST_F(CrashReporterTest, NeverSendsAndAsksNothingButRemembersTheMoment)
{
    writeReport("corvane-1.ips");
    const auto reporter = launchAgain(Mode::never);
    EXPECT_FALSE(reporter->showPrompt());
    EXPECT_THAT(reporter->pending(), IsEmpty());
    EXPECT_EQ(defaults.crashReportLastCheck(), launch);
    waitForNothing();
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(CrashReporterTest, AlwaysSendsEveryReportWithoutAsking)
{
    for (int index = 0; index < 30; ++index)
        writeReport("corvane-" + std::to_string(100 + index) + ".ips");
    const auto reporter = launchAgain(Mode::always);
    EXPECT_FALSE(reporter->showPrompt());
    ASSERT_TRUE(waitForRequests(30));
    for (std::size_t index = 0; index < 30; ++index)
        EXPECT_EQ(sentName(index), "corvane-" + std::to_string(100 + index) + ".ips");
}

TEST_F(CrashReporterTest, LooksOncePerRun)
{
    const auto reporter = launchAgain(Mode::ask);
    writeReport("corvane-1.ips", launch.toMSecsSinceEpoch() - lastCheck.toMSecsSinceEpoch() + 1000);
    defaults.setCrashReportLastCheck(lastCheck);
    reporter->checkOnLaunch();
    EXPECT_FALSE(reporter->showPrompt());
    EXPECT_EQ(defaults.crashReportLastCheck(), lastCheck) << "the second look is none";
}

TEST_F(CrashReporterTest, MomentIsStoredBeforeTheSearch)
{
    const auto log = std::make_shared<CallLog>();
    FakeFileSystem files(log);
    files.addFolder("/reports");
    defaults.setCrashReportLastCheck(lastCheck);
    std::optional<QDateTime> storedBySearch;
    log->observe([&](const std::string &line) {
        if (line == "openFolder /reports")
            storedBySearch = defaults.crashReportLastCheck();
    });
    CrashReporter reporter(defaults, api, files, {.folders = {"/reports"}, .executable = "corvane"},
                           [] { return launch; });
    reporter.checkOnLaunch();
    EXPECT_EQ(storedBySearch, launch);
}

TEST_F(CrashReporterTest, ReportIsOfferedByOneRunOnly)
{
    writeReport("corvane-1.ips");
    defaults.setCrashReportLastCheck(lastCheck);
    run()->checkOnLaunch();
    const auto second = run();
    second->checkOnLaunch();
    EXPECT_FALSE(second->showPrompt());
}

} // namespace
} // namespace corvane
