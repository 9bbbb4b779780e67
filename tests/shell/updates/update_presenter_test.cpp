#include "shell/ui/updates/update_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "shell/store_with_films.h"
#include "shell/updates/fake_session.h"
#include "shell/updates/update_failure.h"

namespace corvane {
namespace {

using Phase = UpdateState::Phase;
using testing::ElementsAre;
using testing::IsEmpty;

struct UpdatePresenterTest : testing::Test, StoreWithFilms {
    [[nodiscard]] std::vector<QString> buttons() const
    {
        return {presenter.acceptText(), presenter.revealText(), presenter.dismissText()};
    }
    void becomeReady(bool isPackage)
    {
        updates.state.path = home + "/notes.txt";
        updates.state.isPackage = isPackage;
        updates.become(Phase::ready);
    }

    FakeUpdates updates;
    UpdatePresenter presenter{store, updates.program.services};
};

TEST_F(UpdatePresenterTest, NothingIsOpenUntilSomethingIsShown)
{
    EXPECT_FALSE(presenter.open());
    updates.state.isShown = false;
    updates.become(Phase::checking);
    EXPECT_FALSE(presenter.open());
    updates.state.isShown = true;
    updates.become(Phase::checking);
    EXPECT_TRUE(presenter.open());
}

TEST_F(UpdatePresenterTest, Checking)
{
    updates.become(Phase::checking);
    EXPECT_EQ(presenter.title(), QStringLiteral("Checking for updates…"));
    EXPECT_TRUE(presenter.hasBar());
    EXPECT_EQ(presenter.fraction(), -1);
    EXPECT_THAT(buttons(), ElementsAre(QString(), QString(), QStringLiteral("Cancel")));
    presenter.dismiss();
    EXPECT_EQ(updates.session.ends, 1);
    EXPECT_FALSE(presenter.open());
}

TEST_F(UpdatePresenterTest, UpToDate)
{
    updates.become(Phase::upToDate);
    EXPECT_EQ(presenter.title(), QStringLiteral("You're up to date"));
    EXPECT_EQ(presenter.message(), QStringLiteral("Corvane 1.0.0 is the newest version."));
    EXPECT_FALSE(presenter.hasBar());
    EXPECT_THAT(buttons(), ElementsAre(QStringLiteral("OK"), QString(), QString()));
    presenter.accept();
    EXPECT_FALSE(presenter.open());
}

TEST_F(UpdatePresenterTest, Available)
{
    updates.become(Phase::available);
    EXPECT_EQ(presenter.title(), QStringLiteral("Corvane 1.2.0 is available"));
    EXPECT_EQ(presenter.message(), QStringLiteral("You have Corvane 1.0.0. The download is 34.5 MB."));
    EXPECT_THAT(buttons(), ElementsAre(QStringLiteral("Download"), QString(), QStringLiteral("Not Now")));
    presenter.accept();
    EXPECT_EQ(updates.session.downloads, 1);
    EXPECT_EQ(updates.session.ends, 0);
    presenter.dismiss();
    EXPECT_EQ(updates.session.ends, 1);
}

TEST_F(UpdatePresenterTest, SizeThatIsNotKnownIsNotNamed)
{
    updates.state.size = -1;
    updates.become(Phase::available);
    EXPECT_EQ(presenter.message(), QStringLiteral("You have Corvane 1.0.0."));
    updates.state.received = 1'500'000;
    updates.become(Phase::downloading);
    EXPECT_EQ(presenter.fraction(), -1);
    EXPECT_EQ(presenter.progress(), QStringLiteral("1.5 MB"));
}

TEST_F(UpdatePresenterTest, ReleaseNotesOpenInTheBrowser)
{
    updates.become(Phase::available);
    EXPECT_FALSE(presenter.hasReleaseNotes());
    presenter.openReleaseNotes();
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), IsEmpty());
    updates.state.releaseNotes = QUrl(QStringLiteral("https://corvane.example/1.2.0.html"));
    updates.become(Phase::available);
    EXPECT_TRUE(presenter.hasReleaseNotes());
    presenter.openReleaseNotes();
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), ElementsAre("openUrl https://corvane.example/1.2.0.html"));
}

TEST_F(UpdatePresenterTest, Downloading)
{
    updates.state.received = 17'250'000;
    updates.become(Phase::downloading);
    EXPECT_EQ(presenter.title(), QStringLiteral("Downloading Corvane 1.2.0…"));
    EXPECT_TRUE(presenter.hasBar());
    EXPECT_DOUBLE_EQ(presenter.fraction(), 0.5);
    EXPECT_EQ(presenter.progress(), QStringLiteral("17.3 MB of 34.5 MB"));
    EXPECT_THAT(buttons(), ElementsAre(QString(), QString(), QStringLiteral("Cancel")));
}

TEST_F(UpdatePresenterTest, Verifying)
{
    updates.become(Phase::verifying);
    EXPECT_EQ(presenter.title(), QStringLiteral("Checking the signature of Corvane 1.2.0…"));
    EXPECT_TRUE(presenter.hasBar());
    EXPECT_EQ(presenter.fraction(), -1);
    EXPECT_EQ(presenter.progress(), QString());
}

TEST_F(UpdatePresenterTest, PackageIsOpenedOnlyWhenTheUserSaysSo)
{
    becomeReady(true);
    EXPECT_EQ(presenter.title(), QStringLiteral("Corvane 1.2.0 has been downloaded"));
    EXPECT_THAT(buttons(), ElementsAre(QStringLiteral("Open Package"), QStringLiteral("Show in File Manager"),
                                       QStringLiteral("Later")));
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), IsEmpty());
    presenter.accept();
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), ElementsAre("openUrl file:///home/studio/notes.txt"));
    EXPECT_FALSE(presenter.open());
}

TEST_F(UpdatePresenterTest, PackageIsShownInTheFileManagerToo)
{
    becomeReady(true);
    presenter.reveal();
    EXPECT_THAT(fake.log->linesStartingWith("reveal"), ElementsAre("reveal /home/studio/notes.txt"));
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), IsEmpty());
    EXPECT_FALSE(presenter.open());
}

TEST_F(UpdatePresenterTest, WhatIsNoPackageIsOnlyShown)
{
    becomeReady(false);
    EXPECT_THAT(buttons(), ElementsAre(QStringLiteral("Show in File Manager"), QString(), QStringLiteral("Later")));
    presenter.accept();
    EXPECT_THAT(fake.log->linesStartingWith("reveal"), ElementsAre("reveal /home/studio/notes.txt"));
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), IsEmpty());
}

TEST_F(UpdatePresenterTest, DismissedDownloadIsNeitherOpenedNorShown)
{
    becomeReady(true);
    presenter.dismiss();
    EXPECT_THAT(fake.log->linesStartingWith("openUrl"), IsEmpty());
    EXPECT_THAT(fake.log->linesStartingWith("reveal"), IsEmpty());
    presenter.reveal();
    EXPECT_THAT(fake.log->linesStartingWith("reveal"), IsEmpty()) << "it is not ready any more";
}

TEST_F(UpdatePresenterTest, FailureIsOneLine)
{
    updates.state.failure = UpdateFailure{UpdateFailure::Kind::wrongSignature}.sentence();
    updates.become(Phase::failed);
    EXPECT_EQ(presenter.title(), QStringLiteral("Can't update Corvane"));
    EXPECT_EQ(presenter.message(), QStringLiteral("The download's signature is not valid. It was deleted."));
    EXPECT_THAT(buttons(), ElementsAre(QStringLiteral("OK"), QString(), QString()));
    presenter.accept();
    EXPECT_FALSE(presenter.open());
}

TEST_F(UpdatePresenterTest, StepChangesWithThePhaseAndNotWithTheProgress)
{
    QSignalSpy steps(&presenter, &UpdatePresenter::stepChanged);
    QSignalSpy changes(&presenter, &UpdatePresenter::changed);
    updates.become(Phase::downloading);
    EXPECT_EQ(steps.count(), 1);
    updates.state.received = 1'000;
    updates.become(Phase::downloading);
    EXPECT_EQ(steps.count(), 1);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(UpdatePresenterTest, ControllerWithWindowsOfItsOwnShowsNothingHere)
{
    updates.program.updateController->shown = nullptr;
    UpdatePresenter other(store, updates.program.services);
    EXPECT_FALSE(other.open());
    other.accept();
    other.dismiss();
    updates.become(Phase::available);
    EXPECT_FALSE(other.open());
}

} // namespace
} // namespace corvane
