#include <gtest/gtest.h>

#include <QQmlEngine>

#include "shell/quick_scene.h"
#include "shell/store_with_films.h"
#include "shell/updates/fake_session.h"

namespace corvane {
namespace {

using Phase = UpdateState::Phase;

class UpdateSheetTest : public testing::Test, protected StoreWithFilms {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
        scene.item("outside")->forceActiveFocus(Qt::TabFocusReason);
    }

    void open(Phase phase)
    {
        updates.become(phase);
        ASSERT_TRUE(QTest::qWaitFor([&] { return scene.isOpen("update"); }));
    }
    [[nodiscard]] bool isClosed() const
    {
        return QTest::qWaitFor([this] { return !scene.object("update")->property("visible").toBool(); });
    }
    [[nodiscard]] QString focused() const
    {
        const QQuickItem *const item = scene.window()->activeFocusItem();
        return item ? item->objectName() : QString();
    }

    FakeUpdates updates;
    QuickScene scene{R"(
        id: window
        property bool held: false
        PushButton { objectName: "outside"; text: "Scan" }
        UpdateSheet { held: window.held }
    )",
                     "import Corvane.Updates\n"};
};

TEST_F(UpdateSheetTest, OpensByItselfAndCancelEndsTheCheck)
{
    EXPECT_FALSE(scene.object("update")->property("visible").toBool());
    open(Phase::checking);
    EXPECT_NE(scene.named(QStringLiteral("Checking for updates…"), QAccessible::ProgressBar), nullptr);
    EXPECT_EQ(focused(), QStringLiteral("update.dismiss"));
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(updates.session.ends, 1);
    EXPECT_TRUE(scene.item("outside")->hasActiveFocus());
}

TEST_F(UpdateSheetTest, EscapeEndsWhatIsUnderWay)
{
    open(Phase::downloading);
    scene.key(Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(updates.session.ends, 1);
}

TEST_F(UpdateSheetTest, KeyboardFollowsFromStepToStep)
{
    open(Phase::checking);
    updates.become(Phase::available);
    EXPECT_EQ(focused(), QStringLiteral("update.accept"));
    scene.key(Qt::Key_Return);
    EXPECT_EQ(updates.session.downloads, 1);
    updates.become(Phase::downloading);
    EXPECT_EQ(focused(), QStringLiteral("update.dismiss"));
    updates.state.isPackage = true;
    updates.become(Phase::ready);
    EXPECT_EQ(focused(), QStringLiteral("update.accept"));
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("update.dismiss"));
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("update.reveal"));
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("update.accept"));
}

TEST_F(UpdateSheetTest, StaysWhereItIsFromStepToStep)
{
    open(Phase::checking);
    const double place = scene.object("update")->property("y").toDouble();
    const double height = scene.object("update")->property("height").toDouble();
    updates.state.releaseNotes = QUrl(QStringLiteral("https://corvane.example/"));
    updates.state.isPackage = true;
    for (const Phase phase : {Phase::upToDate, Phase::available, Phase::downloading, Phase::verifying, Phase::ready}) {
        updates.become(phase);
        EXPECT_EQ(scene.object("update")->property("height").toDouble(), height) << static_cast<int>(phase);
        EXPECT_EQ(scene.object("update")->property("y").toDouble(), place);
    }
}

TEST_F(UpdateSheetTest, ProgressDoesNotTakeTheKeyboard)
{
    updates.state.releaseNotes = QUrl(QStringLiteral("https://corvane.example/"));
    open(Phase::available);
    scene.key(Qt::Key_Backtab);
    const QString before = focused();
    EXPECT_NE(before, QStringLiteral("update.accept"));
    updates.state.size = 5;
    updates.become(Phase::available);
    EXPECT_EQ(focused(), before);
}

TEST_F(UpdateSheetTest, ReadersHearTheProgress)
{
    updates.state.received = 17'250'000;
    open(Phase::downloading);
    const QQuickItem *const bar = scene.named(QStringLiteral("Downloading Corvane 1.2.0…"), QAccessible::ProgressBar);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->objectName(), QStringLiteral("update.bar"));
    EXPECT_EQ(QuickScene::accessible(scene.object("update.bar"))->text(QAccessible::Description),
              QStringLiteral("17.3 MB of 34.5 MB"));
}

TEST_F(UpdateSheetTest, ReadersHearTheOutcome)
{
    updates.state.failure = QStringLiteral("The update feed can't be read.");
    open(Phase::failed);
    QQuickItem *const body = scene.named(QStringLiteral("Can't update Corvane"), QAccessible::AlertMessage);
    ASSERT_NE(body, nullptr);
    EXPECT_EQ(QuickScene::accessible(body)->text(QAccessible::Description), updates.state.failure);
    ASSERT_NE(scene.named(QStringLiteral("OK"), QAccessible::PushButton), nullptr);
    scene.click(scene.named(QStringLiteral("OK"), QAccessible::PushButton));
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(updates.session.ends, 1);
}

TEST_F(UpdateSheetTest, WhatIsFoundMeanwhileWaitsForAnotherSheet)
{
    scene.window()->setProperty("held", true);
    updates.become(Phase::available);
    QTest::qWait(20);
    EXPECT_FALSE(scene.object("update")->property("visible").toBool());
    scene.window()->setProperty("held", false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene.isOpen("update"); }));
    EXPECT_EQ(updates.session.ends, 0);
}

} // namespace
} // namespace corvane
