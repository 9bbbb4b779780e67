#include "shell/ui/window/disk_gauge_presenter.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "shell/window/fake_store.h"

namespace corvane {
namespace {

TEST(DiskGauge, ShowsTheFreeSpaceAsTextAndTheUsedSpaceAsABar)
{
    FakeStore fake;
    DiskGaugePresenter presenter{fake.store};
    EXPECT_EQ(presenter.text(), "183.37 GB free of 994.66 GB");
    EXPECT_NEAR(presenter.usedFraction(), 0.8156, 0.0001);
}

TEST(DiskGauge, FollowsTheVolumeAfterARemoval)
{
    FakeStore fake;
    DiskGaugePresenter presenter{fake.store};
    QSignalSpy changed(&presenter, &DiskGaugePresenter::changed);
    fake.setAvailable(497'331'292'160);
    fake.store.didRemove({}, false);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(presenter.text(), "497.33 GB free of 994.66 GB");
    EXPECT_DOUBLE_EQ(presenter.usedFraction(), 0.5);
}

TEST(DiskGauge, AnUnknownVolumeIsAnEmptyBar)
{
    FakeStore fake;
    fake.fake.volumes.set("/", {});
    fake.store.didRemove({}, false);
    DiskGaugePresenter presenter{fake.store};
    EXPECT_EQ(presenter.usedFraction(), 0);
    EXPECT_EQ(presenter.text(), "Zero KB free of Zero KB");
}

TEST(DiskGauge, MoreFreeThanThereIsStaysInTheBar)
{
    FakeStore fake;
    fake.setAvailable(2'000'000'000'000);
    fake.store.didRemove({}, false);
    DiskGaugePresenter presenter{fake.store};
    EXPECT_EQ(presenter.usedFraction(), 0);
}

} // namespace
} // namespace corvane
