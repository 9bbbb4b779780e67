#include "shell/user_defaults.h"

#include <filesystem>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QProcess>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

using Mode = UserDefaults::ReportMode;

struct UserDefaultsTest : testing::Test {
    [[nodiscard]] static std::unique_ptr<QSettings> settingsAt(const std::string &path)
    {
        return std::make_unique<QSettings>(QString::fromStdString(path), QSettings::NativeFormat);
    }

    /// The values as another process reads them: "didOnboard crashReportMode crashReportLastCheck".
    [[nodiscard]] QString readElsewhere() const
    {
        QProcess other;
        other.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--tell-defaults"), QString::fromStdString(file)});
        EXPECT_TRUE(other.waitForFinished());
        return QString::fromUtf8(other.readAllStandardOutput()).trimmed();
    }

    const TemporaryFolder folder;
    const std::string file = folder / "Corvane/Corvane.conf";
};

TEST_F(UserDefaultsTest, NothingSetReadsAsTheDefaults)
{
    UserDefaults defaults(settingsAt(file));
    EXPECT_FALSE(defaults.didOnboard());
    EXPECT_EQ(defaults.crashReportMode(), Mode::ask);
    EXPECT_EQ(defaults.crashReportLastCheck(), std::nullopt);
    EXPECT_FALSE(defaults.flag(QStringLiteral("another")));
    EXPECT_EQ(defaults.moment(QStringLiteral("another")), std::nullopt);
    EXPECT_FALSE(folder.has("Corvane")) << "reading writes nothing";
}

TEST_F(UserDefaultsTest, EverythingIsReadBackByASecondProcess)
{
    const QDateTime when(QDate(2026, 11, 22), QTime(14, 15, 16, 789), Qt::UTC);
    UserDefaults defaults(settingsAt(file));
    defaults.setDidOnboard(true);
    defaults.setCrashReportMode(Mode::never);
    defaults.setCrashReportLastCheck(when);
    EXPECT_EQ(readElsewhere(), "true never 2026-11-22T14:15:16.789Z");

    defaults.setCrashReportMode(Mode::always);
    EXPECT_EQ(readElsewhere(), "true always 2026-11-22T14:15:16.789Z");
    defaults.setCrashReportMode(Mode::ask);
    defaults.setDidOnboard(false);
    EXPECT_EQ(readElsewhere(), "false ask 2026-11-22T14:15:16.789Z");
}

TEST_F(UserDefaultsTest, KeysAndValuesInTheFileAreExactlyThese)
{
    UserDefaults defaults(settingsAt(file));
    defaults.setDidOnboard(true);
    defaults.setCrashReportMode(Mode::always);
    defaults.setCrashReportLastCheck(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC));
    QSettings settings(QString::fromStdString(file), QSettings::NativeFormat);
    EXPECT_EQ(settings.allKeys(), (QStringList{QStringLiteral("crashReportLastCheck"),
                                               QStringLiteral("crashReportMode"), QStringLiteral("didOnboard")}));
    EXPECT_EQ(settings.value(QStringLiteral("crashReportMode")).toString(), "always");
}

TEST_F(UserDefaultsTest, DateOfAnotherTimeZoneIsTheSameMoment)
{
    const QDateTime when(QDate(2026, 11, 22), QTime(1, 0), Qt::OffsetFromUTC, 2 * 60 * 60);
    UserDefaults defaults(settingsAt(file));
    defaults.setCrashReportLastCheck(when);
    EXPECT_EQ(defaults.crashReportLastCheck(), when);
    EXPECT_EQ(readElsewhere(), "false ask 2026-11-21T23:00:00.000Z");
}

#ifdef __linux__ // elsewhere the settings are not a text file
TEST_F(UserDefaultsTest, UnknownReportModeMeansAsk)
{
    for (const char *text : {"sometimes", "", "ALWAYS", "always ", "1", "always, never", "@Invalid()",
                             "@Variant(never)", "@ByteArray(always)x"}) {
        static_cast<void>(folder.writeText("Corvane/Corvane.conf", std::string("[General]\ncrashReportMode=") + text));
        const QString found = readElsewhere();
        // Trailing blanks are not part of the value.
        EXPECT_EQ(found, std::string_view(text) == "always " ? "false always none" : "false ask none") << text;
    }
}

TEST_F(UserDefaultsTest, ValuesThatTheKeysCannotHaveReadAsTheDefaults)
{
    static_cast<void>(
        folder.writeText("Corvane/Corvane.conf", "[General]\ndidOnboard=perhaps\ncrashReportLastCheck=yesterday\n"));
    EXPECT_EQ(readElsewhere(), "false ask none");
    static_cast<void>(folder.writeText("Corvane/Corvane.conf",
                                       "[General]\ndidOnboard=1\ncrashReportLastCheck=2026-13-45T99:00:00Z\n"));
    EXPECT_EQ(readElsewhere(), "true ask none");
}

TEST_F(UserDefaultsTest, InvalidFileIsIgnoredAndRewritten)
{
    std::string garbage;
    for (int byte = 0; byte < 4'096; ++byte)
        garbage += static_cast<char>(byte * 7 % 256);
    for (const std::string &text : {garbage, std::string("[[[[\n===\n"), std::string(100'000, '\0')}) {
        static_cast<void>(folder.writeText("Corvane/Corvane.conf", text));
        EXPECT_EQ(readElsewhere(), "false ask none");
        UserDefaults defaults(settingsAt(file));
        defaults.setCrashReportMode(Mode::never);
        EXPECT_EQ(defaults.crashReportMode(), Mode::never);
        EXPECT_EQ(readElsewhere(), "false never none");
        std::filesystem::remove(file);
    }
}

TEST_F(UserDefaultsTest, WhatCannotBeWrittenIsKeptForThisRun)
{
    const auto keepsForThisRun = [](const std::string &path) {
        UserDefaults defaults(settingsAt(path));
        defaults.setDidOnboard(true);
        defaults.setCrashReportMode(Mode::always);
        const QDateTime now = QDateTime::currentDateTimeUtc();
        defaults.setCrashReportLastCheck(now);
        return defaults.didOnboard() && defaults.crashReportMode() == Mode::always &&
               defaults.crashReportLastCheck() == now;
    };
    EXPECT_TRUE(keepsForThisRun(folder.makeFolder("is-a-folder.conf")));
    EXPECT_TRUE(keepsForThisRun("/dev/null/settings.conf"));
    EXPECT_TRUE(keepsForThisRun("/proc/settings.conf"));
    if (TemporaryFolder::canMakeUnreadable()) {
        TemporaryFolder locked;
        EXPECT_TRUE(keepsForThisRun(locked.makeUnreadable("folder") + "/settings.conf"));
    }
}

TEST_F(UserDefaultsTest, NewFileHasTheUsersModeAndAnOldOneKeepsItsOwn)
{
    const auto modeAfterWriting = [this] {
        UserDefaults defaults(settingsAt(file));
        defaults.setDidOnboard(!defaults.didOnboard());
        struct stat facts {};
        EXPECT_EQ(::stat(file.c_str(), &facts), 0);
        return facts.st_mode & 07777;
    };
    const mode_t before = ::umask(0077);
    EXPECT_EQ(modeAfterWriting(), 0600U);
    ::umask(before);
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    EXPECT_EQ(modeAfterWriting(), 0640U);
}
#endif

TEST_F(UserDefaultsTest, ChangesAreSignalledOnceAndOnlyWhereThereIsOne)
{
    UserDefaults defaults(settingsAt(file));
    int onboardings = 0;
    int modes = 0;
    QObject::connect(&defaults, &UserDefaults::didOnboardChanged, &defaults, [&] { ++onboardings; });
    QObject::connect(&defaults, &UserDefaults::crashReportModeChanged, &defaults, [&] { ++modes; });
    defaults.setDidOnboard(false);
    defaults.setCrashReportMode(Mode::ask);
    EXPECT_EQ(onboardings + modes, 0);
    defaults.setDidOnboard(true);
    defaults.setDidOnboard(true);
    defaults.setCrashReportMode(Mode::never);
    defaults.setCrashReportMode(Mode::never);
    EXPECT_EQ(onboardings, 1);
    EXPECT_EQ(modes, 1);
}

} // namespace
} // namespace corvane
