#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QTest>

#include "platform/host.h"
#include "shell/app_info.h"
#include "shell/crash_reporter.h"
#include "support/loopback_server.h"
#include "support/temporary_folder.h"

namespace corvane {

using Mode = UserDefaults::ReportMode;

inline const QDateTime lastCheck(QDate(2026, 11, 1), QTime(12, 0, 0, 300), Qt::UTC);
inline const QDateTime launch(QDate(2026, 11, 22), QTime(9, 0), Qt::UTC);

/// A reporter with its folders in a temporary one and the service on this machine.
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

} // namespace corvane
