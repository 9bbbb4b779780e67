#include "cleanup/ui/cleanup_presenter.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "cleanup/cleanup_fixture.h"
#include "shell/ui/cleanup_words.h"

namespace corvane {
namespace {

class CleanupPresenterTest : public test::CleanupFixture {
protected:
    CleanupPresenter presenter{store};
};

TEST_F(CleanupPresenterTest, BeforeAMeasurementThereIsNothingToSay)
{
    EXPECT_TRUE(presenter.subtitle().isEmpty());
    EXPECT_FALSE(presenter.isMeasuring());
    EXPECT_FALSE(presenter.canSelectSafe());
}

TEST_F(CleanupPresenterTest, WhileMeasuringItSaysSo)
{
    const QSignalSpy changed(&presenter, &CleanupPresenter::changed);
    presenter.refresh();
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Measuring caches…"));
    EXPECT_TRUE(presenter.isMeasuring());
    EXPECT_EQ(changed.count(), 1);
    waitForMeasurement();
    EXPECT_FALSE(presenter.isMeasuring());
}

TEST_F(CleanupPresenterTest, AfterwardsItSaysWhatIsSafeToClear)
{
    addFile("Library/Caches/a", 3'500'000);
    addFile("Downloads/b", 90'000'000);
    measure();
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("3.5 MB of caches & build junk is safe to clear"));
    EXPECT_TRUE(presenter.canSelectSafe());
    presenter.selectAllSafe();
    EXPECT_TRUE(isSelected("Library/Caches/a"));
    EXPECT_FALSE(isSelected("Downloads/b"));
}

TEST_F(CleanupPresenterTest, WithNothingSafeThereIsNothingToSelect)
{
    addFile("Downloads/b", 90'000'000);
    measure();
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Zero KB of caches & build junk is safe to clear"));
    EXPECT_FALSE(presenter.canSelectSafe());
}

TEST(CleanupWords, WhatCannotBeReadHasNoFigures)
{
    CleanupItem item{CleanupCatalog::definitions.data(), {}, false};
    EXPECT_EQ(totalText(item), QStringLiteral("–"));
    EXPECT_EQ(countText(item, wordsOf(SystemKind::mac)), QStringLiteral("Needs Full Disk Access"));
    item.accessible = true;
    EXPECT_EQ(totalText(item), QStringLiteral("Zero KB"));
    EXPECT_EQ(countText(item, wordsOf(SystemKind::mac)), QStringLiteral("0 items"));
}

} // namespace
} // namespace corvane
