#pragma once

#include "cleanup/cleanup_fixture.h"

namespace corvane::test {

/// A home folder in memory on a volume of 994.66 GB, "Macintosh HD", of which 183.37 GB are available.
class OverviewFixture : public CleanupFixture {
protected:
    OverviewFixture() { setAvailable(183'370'000'000); }

    /// What the volume says from the next scan or removal on.
    void setAvailable(std::int64_t bytes)
    {
        fake.volumes.set(
            "/",
            {.name = "Macintosh HD", .total = 994'660'000'000, .available = bytes, .availableForImportantUse = {}});
    }
    void scan(const std::string &path)
    {
        store.scan(path);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return store.phase() == StorageStore::Phase::ready && !store.cleanupLoading(); }, 20'000));
    }
};

} // namespace corvane::test
