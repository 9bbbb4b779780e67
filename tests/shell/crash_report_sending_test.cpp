#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include <QProcess>

#include "platform/crash_handler.h"
#include "platform/fake_file_system.h"
#include "shell/crash_reporter_fixture.h"

namespace corvane {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

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
