#include "shell/ui/services/settings_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "shell/app_info.h"
#include "shell/services/services_over_a_store.h"

namespace corvane {
namespace {

using Mode = UserDefaults::ReportMode;

struct SettingsOf {
    explicit SettingsOf(bool canUpdate = true) : program(canUpdate) {}

    ServicesOverAStore program;
    SettingsPresenter presenter{program.store, program.services};
};

struct SettingsTest : testing::Test, SettingsOf {};

TEST_F(SettingsTest, OffersTheThreeModesOfCrashReports)
{
    EXPECT_EQ(SettingsPresenter::crashChoices(),
              QStringList({QStringLiteral("Ask me"), QStringLiteral("Send the report automatically"),
                           QStringLiteral("Never send")}));
    EXPECT_EQ(presenter.crashChoice(), 0) << "asked unless it was chosen otherwise";
    presenter.setCrashChoice(1);
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::always);
    presenter.setCrashChoice(2);
    EXPECT_EQ(program.defaults.crashReportMode(), Mode::never);
    for (const int none : {-1, 3}) {
        presenter.setCrashChoice(none);
        EXPECT_EQ(program.defaults.crashReportMode(), Mode::never);
    }
    const UserDefaults later(std::make_unique<QSettings>(program.settingsFile(), QSettings::IniFormat));
    EXPECT_EQ(later.crashReportMode(), Mode::never);
}

TEST_F(SettingsTest, FollowsTheModeThatIsSetElsewhere)
{
    const QSignalSpy changes(&presenter, &SettingsPresenter::crashChoiceChanged);
    program.crashReporter.sendPending(true);
    EXPECT_EQ(presenter.crashChoice(), 1);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(SettingsTest, ExplainsWhatACrashReportHoldsAndWhereItGoes)
{
    program.becomeMac();
    API site(QUrl(QStringLiteral("https://corvane.example/")));
    Services services(program.defaults, site, program.crashReporter, program.updater);
    EXPECT_EQ(SettingsPresenter(program.store, services).crashExplanation(),
              QStringLiteral("Crash reports contain technical details: the app and macOS version, your Mac model and "
                             "the code that was running. They never include file contents, and they're sent only to "
                             "corvane.example to fix bugs."));
}

TEST_F(SettingsTest, NamesNoMacElsewhere)
{
    for (const QString &text : {presenter.crashExplanation(), presenter.accessTitle()}) {
        EXPECT_FALSE(text.isEmpty());
        for (const char *word : {"Mac", "macOS", "Full Disk Access"})
            EXPECT_FALSE(text.contains(QLatin1String(word))) << qPrintable(text);
    }
}

TEST_F(SettingsTest, UpdatesAreInstalledByThemselvesOnAMacOnly)
{
    EXPECT_EQ(presenter.installsText(), QStringLiteral("Download updates automatically"));
    program.becomeMac();
    EXPECT_EQ(presenter.installsText(), QStringLiteral("Download and install updates automatically"));
}

TEST_F(SettingsTest, SaysWhetherTheAccessIsGrantedWhenTheWindowComesIntoSight)
{
    program.becomeMac();
    EXPECT_EQ(presenter.accessTitle(), QStringLiteral("Full Disk Access"));
    EXPECT_EQ(presenter.accessStatus(), QStringLiteral("Not granted"));
    program.grantAccess();
    presenter.setVisible(true);
    EXPECT_TRUE(presenter.isGranted());
    EXPECT_EQ(presenter.accessStatus(), QStringLiteral("Granted"));
}

TEST_F(SettingsTest, SetsWhatTheUpdaterKeeps)
{
    EXPECT_TRUE(presenter.canUpdate());
    EXPECT_TRUE(presenter.checksAutomatically());
    EXPECT_FALSE(presenter.installsAutomatically());
    const QSignalSpy changes(&presenter, &SettingsPresenter::updatesChanged);
    presenter.setChecksAutomatically(false);
    presenter.setInstallsAutomatically(true);
    EXPECT_FALSE(program.updateController->checksAutomatically);
    EXPECT_TRUE(program.updateController->installsAutomatically);
    EXPECT_FALSE(presenter.checksAutomatically());
    EXPECT_TRUE(presenter.installsAutomatically());
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(SettingsTest, ChecksForUpdatesOnlyWhileThatIsPossible)
{
    const QSignalSpy wanted(&presenter, &SettingsPresenter::mainWindowWanted);
    presenter.checkForUpdates();
    EXPECT_EQ(program.updateController->checks, 1);
    EXPECT_EQ(wanted.size(), 1);
    program.updateController->setCanCheck(false);
    EXPECT_FALSE(presenter.canCheckNow());
    presenter.checkForUpdates();
    EXPECT_EQ(program.updateController->checks, 1);
    EXPECT_EQ(wanted.size(), 1);
}

TEST(SettingsOfADevelopmentBuild, HaveNoUpdates)
{
    SettingsOf settings(false);
    EXPECT_FALSE(settings.presenter.canUpdate());
    EXPECT_FALSE(settings.presenter.canCheckNow());
    settings.presenter.setChecksAutomatically(false);
    settings.presenter.checkForUpdates();
    EXPECT_EQ(settings.program.updateController->starts, 0);
    EXPECT_EQ(settings.program.updateController->checks, 0);
    EXPECT_TRUE(settings.program.updateController->checksAutomatically) << "never asked for anything";
    EXPECT_EQ(settings.presenter.versionText(), QStringLiteral("Version ") + AppInfo::version());
}

TEST_F(SettingsTest, SaysTheVersion)
{
    EXPECT_EQ(presenter.versionText(), QStringLiteral("Version ") + AppInfo::version());
}

TEST_F(SettingsTest, ShowsTheWelcomeAgainInTheMainWindow)
{
    program.defaults.setDidOnboard(true);
    const QSignalSpy wanted(&presenter, &SettingsPresenter::mainWindowWanted);
    presenter.showWelcome();
    EXPECT_FALSE(program.defaults.didOnboard());
    EXPECT_EQ(wanted.size(), 1);
}

TEST_F(SettingsTest, OpensTheFeedbackFormInTheMainWindow)
{
    const QSignalSpy wanted(&presenter, &SettingsPresenter::mainWindowWanted);
    presenter.sendFeedback();
    EXPECT_TRUE(program.store.showFeedback());
    EXPECT_EQ(wanted.size(), 1);
}

} // namespace
} // namespace corvane
