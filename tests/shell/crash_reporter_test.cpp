#include "shell/crash_reporter.h"

#include <filesystem>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>
#include <QTest>

#include "platform/crash_handler.h"
#include "platform/fake_file_system.h"
#include "platform/host.h"
#include "shell/app_info.h"
#include "support/loopback_server.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Mode = UserDefaults::ReportMode;

const QDateTime lastCheck(QDate(2026, 11, 1), QTime(12, 0, 0, 300), Qt::UTC);
const QDateTime launch(QDate(2026, 11, 22), QTime(9, 0), Qt::UTC);

class CrashReporterTest : public testing::Test {
protected:
    /// Simulates a new run of the program, which shares only the settings and the reports with earlier runs.
    [[nodiscard]] std::unique_ptr<CrashReporter> run()
    {
        return std::make_unique<CrashReporter>(
            defaults, api, systemHost().files,
            CrashReporter::Places{.folders = {folder.path(), other}, .executable = "corvane"}, [] { return launch; });
    }

    /// Simulates a later run, after an earlier one has checked for reports.
    [[nodiscard]] std::unique_ptr<CrashReporter> launchAgain(Mode mode)
    {
        defaults.setCrashReportLastCheck(lastCheck);
        defaults.setCrashReportMode(mode);
        auto reporter = run();
        reporter->checkOnLaunch();
        return reporter;
    }

    /// Writes a report with a date `after` milliseconds after the last check.
    std::string writeReport(const std::string &name, std::int64_t after = 60'000, const std::string &text = "report")
    {
        std::string path = folder.writeText(name, text);
        date(path, lastCheck.addMSecs(after));
        return path;
    }

    static void date(const std::string &path, const QDateTime &when)
    {
        const timespec time{.tv_sec = static_cast<time_t>(when.toMSecsSinceEpoch() / 1000),
                            .tv_nsec = when.toMSecsSinceEpoch() % 1000 * 1'000'000};
        const timespec times[] = {time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }

    [[nodiscard]] std::vector<std::string> found()
    {
        std::vector<std::string> names;
        for (const std::string &path : run()->findReports(lastCheck))
            names.push_back(std::filesystem::path(path).filename());
        return names;
    }

    [[nodiscard]] bool waitForRequests(std::size_t count)
    {
        return QTest::qWaitFor([&] { return server.requests().size() >= count; }, 60'000);
    }

    [[nodiscard]] QJsonObject sent(std::size_t index) const
    {
        return QJsonDocument::fromJson(server.requests().at(index).body).object();
    }
    [[nodiscard]] std::string sentName(std::size_t index) const
    {
        return sent(index).value(QLatin1String("reportName")).toString().toStdString();
    }
    [[nodiscard]] QString sentText(std::size_t index) const
    {
        return sent(index).value(QLatin1String("report")).toString();
    }

    /// Long enough for an unwanted request to arrive.
    static void waitForNothing() { QTest::qWait(150); }

    const TemporaryFolder folder;
    const TemporaryFolder settingsFolder;
    const std::string other = settingsFolder / "reports"; // does not exist unless a test creates it
    UserDefaults defaults{
        std::make_unique<QSettings>(QString::fromStdString(settingsFolder / "settings.conf"), QSettings::IniFormat)};
    LoopbackServer server;
    API api{server.url()};
};

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

// --- The answers ----------------------------------------------------------------------------------------------------

TEST_F(CrashReporterTest, SendReportSendsEveryPendingReport)
{
    writeReport("corvane-1.ips", 1000, "first");
    writeReport("corvane-2.crash", 2000, "second");
    const auto reporter = launchAgain(Mode::ask);
    reporter->sendPending(false);
    EXPECT_THAT(reporter->pending(), IsEmpty());
    EXPECT_FALSE(reporter->showPrompt());
    EXPECT_EQ(defaults.crashReportMode(), Mode::ask);

    ASSERT_TRUE(waitForRequests(2));
    EXPECT_EQ(server.requests().front().method, "POST");
    EXPECT_EQ(server.requests().front().path, "/api/crash");
    EXPECT_EQ(sent(0).keys(),
              (QStringList{QStringLiteral("info"), QStringLiteral("report"), QStringLiteral("reportName")}));
    EXPECT_EQ(sent(0).value(QLatin1String("info")).toObject(), AppInfo::system(systemHost().files));
    EXPECT_EQ(sentText(0), "first");
    EXPECT_EQ(sentName(0), "corvane-1.ips");
    EXPECT_EQ(sentText(1), "second");
    EXPECT_EQ(sentName(1), "corvane-2.crash");
}

TEST_F(CrashReporterTest, AlwaysSendIsStoredBeforeAnythingIsSent)
{
    writeReport("corvane-1.ips");
    const auto reporter = launchAgain(Mode::ask);
    QObject::connect(&defaults, &UserDefaults::crashReportModeChanged, reporter.get(),
                     [&] { EXPECT_EQ(reporter->pending().size(), 1U) << "the reports go after the choice is stored"; });
    reporter->sendPending(true);
    EXPECT_EQ(defaults.crashReportMode(), Mode::always);
    EXPECT_TRUE(waitForRequests(1));
}

TEST_F(CrashReporterTest, DontSendClosesThePromptAndSendsNothing)
{
    writeReport("corvane-1.ips");
    const auto reporter = launchAgain(Mode::ask);
    reporter->setShowPrompt(false);
    EXPECT_EQ(defaults.crashReportMode(), Mode::ask);
    waitForNothing();
    EXPECT_EQ(server.connections(), 0);
}

// --- Sending --------------------------------------------------------------------------------------------------------

TEST_F(CrashReporterTest, ReportIsSentUpToItsFirst400000Characters)
{
    const std::string umlaut = "\xC3\xA4";
    const std::string emoji = "\xF0\x9F\x92\xA1";
    const auto repeated = [](const std::string &text, std::size_t count) {
        std::string all;
        for (std::size_t index = 0; index < count; ++index)
            all += text;
        return all;
    };
    writeReport("corvane-1.ips", 1000, std::string(400'000, 'a') + std::string(600'000, 'b'));
    writeReport("corvane-2.ips", 1000, repeated(umlaut, 1'000'000));
    writeReport("corvane-3.ips", 1000, "x" + repeated(emoji, 500'000));
    writeReport("corvane-4.ips", 1000, repeated(umlaut, 399'999));
    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(4));
    EXPECT_TRUE(sentText(0) == QString(400'000, QLatin1Char('a')));
    EXPECT_TRUE(sentText(1) == QString(400'000, QChar(0xE4)));
    EXPECT_TRUE(sentText(2) == QLatin1Char('x') + QString::fromStdString(emoji).repeated(399'999));
    EXPECT_TRUE(sentText(3) == QString(399'999, QChar(0xE4)));
}

TEST_F(CrashReporterTest, ReportOfManyGigabytesIsNotReadWhole)
{
    date(folder.writeSparse("corvane-1.ips", 10'000'000'000), launch);
    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_EQ(sentText(0).size(), 400'000);
}

TEST_F(CrashReporterTest, WhatIsNotTextIsReplaced)
{
    writeReport("corvane-1.ips", 1000, "a\xff\xfe\x62\xc3");
    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_EQ(sentText(0), QString::fromUtf8("a\uFFFD\uFFFDb\uFFFD"));
}

TEST_F(CrashReporterTest, NameThatIsNotTextIsReplaced)
{
    writeReport("corvane-\xff.ips");
    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_EQ(sentName(0), "corvane-\uFFFD.ips");
}

TEST_F(CrashReporterTest, ReportThatCannotBeReadIsSkipped)
{
    const std::string gone = writeReport("corvane-1.ips");
    writeReport("corvane-2.ips");
    const auto reporter = launchAgain(Mode::ask);
    std::filesystem::remove(gone);
    reporter->sendPending(false);
    ASSERT_TRUE(waitForRequests(1));
    waitForNothing();
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(sentName(0), "corvane-2.ips");
}

TEST_F(CrashReporterTest, FailureIsSilentAndNotTriedAgain)
{
    server.answerAll({.status = 500});
    for (const char *name : {"corvane-1.ips", "corvane-2.ips", "corvane-3.ips"})
        writeReport(name);
    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(3));
    waitForNothing();
    EXPECT_EQ(server.requests().size(), 3U);
    EXPECT_FALSE(reporter->showPrompt());
}

TEST_F(CrashReporterTest, ReportsAreSentOneAfterTheOther)
{
    server.answerAll({.ending = LoopbackAnswer::Ending::silent});
    for (int index = 0; index < 5; ++index)
        writeReport("corvane-" + std::to_string(index) + ".ips");
    const auto reporter = launchAgain(Mode::always);
    ASSERT_TRUE(waitForRequests(1));
    waitForNothing();
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(server.connections(), 1);
}

TEST_F(CrashReporterTest, MayEndWhileAReportIsOnItsWay)
{
    server.answerAll({.ending = LoopbackAnswer::Ending::silent});
    writeReport("corvane-1.ips");
    writeReport("corvane-2.ips");
    auto reporter = run();
    reporter->upload(folder / "corvane-1.ips");
    reporter->upload(folder / "corvane-2.ips");
    ASSERT_TRUE(waitForRequests(1));
    reporter.reset();
    waitForNothing();
    EXPECT_EQ(server.requests().size(), 1U);

    // The same while a report is being read.
    reporter = run();
    reporter->upload(folder / "corvane-1.ips");
    reporter.reset();
    waitForNothing();
    EXPECT_EQ(server.requests().size(), 1U);
}

#ifdef CORVANE_CRASHING_PROGRAM
TEST_F(CrashReporterTest, ReportOfACrashIsFoundAndSent)
{
    QProcess program;
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("XDG_STATE_HOME"), QString::fromStdString(folder.path()));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(CORVANE_CRASHING_PROGRAM), {QStringLiteral("abort")});
    ASSERT_TRUE(program.waitForFinished());
    if (program.exitStatus() == QProcess::NormalExit)
        GTEST_SKIP() << "built with a sanitizer, which reports on crashes itself";

    CrashReporter reporter(defaults, api, systemHost().files,
                           {.folders = {folder / "corvane/reports"}, .executable = "crashing_program"});
    defaults.setCrashReportLastCheck(lastCheck);
    defaults.setCrashReportMode(Mode::always);
    reporter.checkOnLaunch();
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_THAT(sentName(0), testing::MatchesRegex("crashing_program-.*\\.ips"));
    EXPECT_THAT(sentText(0).toStdString(), HasSubstr("SIGABRT"));
    EXPECT_THAT(sentText(0).toStdString(), testing::Not(HasSubstr(folder.path())));
}
#endif

} // namespace
} // namespace corvane
