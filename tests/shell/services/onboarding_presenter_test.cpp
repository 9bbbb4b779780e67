#include "shell/ui/services/onboarding_presenter.h"

#include <gmock/gmock.h>

#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest/QTest>

#include "shell/services/services_over_a_store.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class OnboardingTest : public testing::Test {
protected:
    [[nodiscard]] std::size_t tests() const
    {
        return program.fake.log->linesStartingWith("canOpen " + PathGuard::accessProbePath(program.home)).size();
    }

    ServicesOverAStore program;
    OnboardingPresenter presenter{program.store, program.services};
};

TEST_F(OnboardingTest, IsWantedUntilItHasBeenDismissedOnce)
{
    EXPECT_TRUE(presenter.isWanted());
    const QSignalSpy changes(&presenter, &OnboardingPresenter::wantedChanged);
    presenter.dismiss();
    EXPECT_FALSE(presenter.isWanted());
    EXPECT_EQ(changes.size(), 1);

    const UserDefaults later(std::make_unique<QSettings>(program.settingsFile(), QSettings::IniFormat));
    EXPECT_TRUE(later.didOnboard()) << "the next launch does not show it again";
}

TEST_F(OnboardingTest, IsWantedAgainWhenTheFlagIsTakenBack)
{
    presenter.dismiss();
    program.defaults.setDidOnboard(false);
    EXPECT_TRUE(presenter.isWanted());
}

TEST_F(OnboardingTest, AccessThatIsAlreadyGrantedIsShownAtOnce)
{
    program.becomeMac();
    program.grantAccess();
    ASSERT_FALSE(presenter.isGranted());
    presenter.setVisible(true);
    EXPECT_TRUE(presenter.isGranted());
    EXPECT_EQ(presenter.status(), QStringLiteral("Granted"));
    EXPECT_FALSE(presenter.isPolling());
}

TEST_F(OnboardingTest, TestsTheAccessUntilItIsGrantedAndThenStops)
{
    program.becomeMac();
    presenter.setPollInterval(std::chrono::milliseconds(5));
    const std::size_t before = tests();
    presenter.setVisible(true);
    EXPECT_EQ(tests(), before + 1) << "the first test does not wait";
    EXPECT_EQ(presenter.status(), QStringLiteral("Waiting…"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return tests() > before + 2; }));
    EXPECT_TRUE(presenter.isPolling());

    const QSignalSpy changes(&presenter, &OnboardingPresenter::accessChanged);
    program.grantAccess();
    ASSERT_TRUE(QTest::qWaitFor([&] { return presenter.isGranted(); }));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_TRUE(program.store.hasFullDiskAccess()) << "the overview's banner goes too";
    EXPECT_FALSE(presenter.isPolling());
}

TEST_F(OnboardingTest, WaitsASecondBetweenTwoTests)
{
    program.becomeMac();
    presenter.setVisible(true);
    ASSERT_TRUE(presenter.isPolling());
    EXPECT_EQ(presenter.pollInterval(), std::chrono::seconds(1));
}

TEST_F(OnboardingTest, TestsNothingWhileItIsNotSeen)
{
    program.becomeMac();
    presenter.setPollInterval(std::chrono::milliseconds(1));
    const std::size_t before = tests();
    QTest::qWait(20);
    EXPECT_EQ(tests(), before);

    presenter.setVisible(true);
    presenter.setVisible(false);
    EXPECT_FALSE(presenter.isPolling());
    const std::size_t closed = tests();
    QTest::qWait(20);
    EXPECT_EQ(tests(), closed);
}

TEST_F(OnboardingTest, TextsOnAMacAreExactlyThese)
{
    program.becomeMac();
    EXPECT_EQ(presenter.title(), QStringLiteral("Welcome to Corvane"));
    EXPECT_EQ(presenter.welcomeLine(), QStringLiteral("See what's filling your Mac and sweep it out safely."));
    EXPECT_EQ(presenter.accessTitle(), QStringLiteral("Full Disk Access"));
    EXPECT_EQ(presenter.accessLine(), QStringLiteral("Lets Corvane measure Mail, Safari, the Trash and app data, "
                                                     "without asking folder by folder."));
    EXPECT_TRUE(presenter.hasSettings());
    EXPECT_EQ(presenter.dragHelp(), QStringLiteral("Drag me into the Full Disk Access list"));
    program.grantAccess();
    presenter.setVisible(true);
    EXPECT_EQ(presenter.accessLine(), QStringLiteral("All set! Corvane can see your whole home folder."));
}

TEST_F(OnboardingTest, StepsHaveTheirWordsAndTheirBoldOnes)
{
    program.becomeMac();
    const auto bold = [](const QString &text) {
        QStringList pieces;
        const QRegularExpression rule(QStringLiteral("<span style=\"font-weight:600\">(.*?)</span>"));
        for (auto match = rule.globalMatch(text); match.hasNext();)
            pieces << match.next().captured(1);
        return pieces.join(QLatin1Char('|'));
    };
    EXPECT_EQ(presenter.plainSteps(),
              QStringList({QStringLiteral("Click Open System Settings below."),
                           QStringLiteral("Click + and choose Corvane, or drag the icon on the right into the list."),
                           QStringLiteral("Switch Corvane on. If macOS asks, choose Quit & Reopen.")}));
    const QStringList steps = presenter.steps();
    ASSERT_EQ(steps.size(), 3);
    EXPECT_EQ(bold(steps[0]), QStringLiteral("Open System Settings"));
    EXPECT_EQ(bold(steps[1]), QStringLiteral("+|Corvane"));
    EXPECT_EQ(bold(steps[2]), QStringLiteral("on|Quit &amp; Reopen"));
}

TEST_F(OnboardingTest, NamesNoMacElsewhere)
{
    EXPECT_FALSE(presenter.hasSettings());
    EXPECT_TRUE(presenter.steps().isEmpty());
    EXPECT_TRUE(presenter.dragHelp().isEmpty());
    EXPECT_TRUE(presenter.isGranted()) << "the home folder can be read";
    for (const bool granted : {true, false}) {
        if (!granted) {
            program.fake.files.failOpening(program.home);
            program.store.refreshAccess();
        }
        for (const QString &text : {presenter.welcomeLine(), presenter.accessTitle(), presenter.accessLine()}) {
            EXPECT_FALSE(text.isEmpty());
            for (const char *word : {"Mac", "macOS", "Finder", "Full Disk Access", "Safari"})
                EXPECT_FALSE(text.contains(QLatin1String(word))) << qPrintable(text);
        }
    }
}

TEST_F(OnboardingTest, OpensThePaneOfTheSystemsSettings)
{
    presenter.openSettings();
    EXPECT_THAT(program.fake.log->linesStartingWith("openUrl"),
                ElementsAre("openUrl x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
}

TEST(OnboardingApplication, IsTheBundleAroundTheProgram)
{
    const auto bundle = [](const char *program) {
        return OnboardingPresenter::bundleOf(QString::fromLatin1(program)).toStdString();
    };
    EXPECT_EQ(bundle("/Applications/Corvane.app/Contents/MacOS/Corvane"), "/Applications/Corvane.app");
    EXPECT_EQ(bundle("/Users/s/My Apps/Corvane 2.app/Contents/MacOS/Corvane"), "/Users/s/My Apps/Corvane 2.app");
    EXPECT_EQ(bundle("/usr/bin/corvane"), "/usr/bin/corvane") << "there is no bundle";
    EXPECT_EQ(bundle("/opt/Corvane/Contents/MacOS/Corvane"), "/opt/Corvane/Contents/MacOS/Corvane");
    EXPECT_EQ(bundle("/opt/Corvane.app/Corvane"), "/opt/Corvane.app/Corvane");
}

} // namespace
} // namespace corvane
