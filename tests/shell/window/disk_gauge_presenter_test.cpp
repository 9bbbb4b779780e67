#include "shell/ui/window/disk_gauge_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "shell/store_with_films.h"

namespace corvane {
namespace {

struct DiskGauge : testing::Test, StoreWithFilms {};

TEST_F(DiskGauge, ShowsTheFreeSpaceAsTextAndTheUsedSpaceAsABar)
{
    DiskGaugePresenter presenter{store};
    EXPECT_EQ(presenter.text(), "183.37 GB free of 994.66 GB");
    EXPECT_NEAR(presenter.usedFraction(), 0.8156, 0.0001);
}

TEST_F(DiskGauge, FollowsTheVolumeAfterARemoval)
{
    DiskGaugePresenter presenter{store};
    QSignalSpy changed(&presenter, &DiskGaugePresenter::changed);
    setAvailable(497'331'292'160);
    store.didRemove({}, false);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(presenter.text(), "497.33 GB free of 994.66 GB");
    EXPECT_DOUBLE_EQ(presenter.usedFraction(), 0.5);
}

TEST_F(DiskGauge, AnUnknownVolumeIsAnEmptyBar)
{
    fake.volumes.set("/", {});
    store.didRemove({}, false);
    DiskGaugePresenter presenter{store};
    EXPECT_EQ(presenter.usedFraction(), 0);
    EXPECT_EQ(presenter.text(), "Zero KB free of Zero KB");
}

TEST_F(DiskGauge, MoreFreeThanThereIsStaysInTheBar)
{
    setAvailable(2'000'000'000'000);
    store.didRemove({}, false);
    DiskGaugePresenter presenter{store};
    EXPECT_EQ(presenter.usedFraction(), 0);
}

} // namespace
} // namespace corvane
