#pragma once

#include <algorithm>
#include <string>

#include "core/systems/linux_cleanup.h"
#include "shell/registered_store.h"
#include "shell/without_motion.h"
#include "support/patience.h"

namespace corvane::test {

/// A store for tests of the catalogue's UI; a Mac unless specified otherwise.
class CleanupFixture : public testing::Test, protected RegisteredStore, WithoutMotion {
protected:
    explicit CleanupFixture(SystemKind system = SystemKind::mac) : RegisteredStore(system)
    {
        fake.files.setPackageExtensions({"app", "xcarchive"});
    }

    /// Adds a project with dependencies of the given size.
    void addProject(const std::string &name, std::int64_t size)
    {
        addFile("Projects/" + name + "/package.json", 1'000);
        addFile("Projects/" + name + "/node_modules/blob.bin", size);
    }
    /// Adds `count` caches; the first has `count` kilobytes, the last has one.
    void addCaches(int count)
    {
        for (int i = 0; i < count; ++i)
            addFile("Library/Caches/cache" + std::to_string(i), (count - i) * 1'000);
    }

    void measure()
    {
        store.refreshCleanup();
        waitForMeasurement();
    }
    void waitForMeasurement()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !store.cleanupLoading(); }, patience));
    }
    [[nodiscard]] const CleanupItem &item(std::string_view id) const
    {
        return *std::ranges::find_if(store.cleanupItems(), [&](const CleanupItem &each) { return each.def->id == id; });
    }
    /// The number of system places on a Linux system; none exists at first.
    static int systemPlaces()
    {
        const auto isShown = [](const CleanupDefinition &row) {
            return row.group == CleanupGroup::system &&
                   std::ranges::find(linuxCleanup.foreignRows, row.id) == linuxCleanup.foreignRows.end();
        };
        return static_cast<int>(std::ranges::count_if(CleanupCatalog::definitions, isShown) +
                                std::ranges::count_if(linuxCleanup.rows, isShown));
    }
    void select(const std::string &relative) { RegisteredStore::select(relative, 1); }
};

} // namespace corvane::test
