#pragma once

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include <QTest>

#include "core/store/storage_store.h"
#include "platform/fake_host.h"
#include "shell/ui/theme.h"

namespace corvane::test {

/// A store over a home folder of a Mac in memory, "/home/studio", for tests of what shows the catalogue. The tests
/// describe what the home holds and then have it measured or scanned.
class CleanupFixture : public testing::Test {
protected:
    CleanupFixture()
    {
        fake.files.setSystemKind(SystemKind::mac);
        fake.files.setHome(home);
        fake.files.setPackageExtensions({"app", "xcarchive"});
        Theme::instance()->setReducedMotion(true);
    }
    ~CleanupFixture() override { Theme::instance()->setReducedMotion(false); }

    void addFile(const std::string &relative, std::int64_t size) { fake.files.addFile(at(relative), size); }
    /// A project with dependencies of that size.
    void addProject(const std::string &name, std::int64_t size)
    {
        addFile("Projects/" + name + "/package.json", 1'000);
        addFile("Projects/" + name + "/node_modules/blob.bin", size);
    }
    /// Caches of that many items, the first of which has as many kilobytes, the last one.
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
        ASSERT_TRUE(QTest::qWaitFor([&] { return !store.cleanupLoading(); }, 20'000));
    }
    void scanHome()
    {
        store.scanHome();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return store.phase() == StorageStore::Phase::ready && !store.cleanupLoading(); }, 20'000));
    }
    [[nodiscard]] const CleanupItem &item(std::string_view id) const
    {
        return *std::ranges::find_if(store.cleanupItems(), [&](const CleanupItem &each) { return each.def->id == id; });
    }
    void select(const std::string &relative) { store.setSelected(at(relative), 1, true); }
    [[nodiscard]] bool isSelected(const std::string &relative) const { return store.isSelected(at(relative)); }
    /// As though the item had been moved to the Trash.
    void removeItem(const std::string &relative, std::int64_t size)
    {
        fake.files.take(at(relative));
        store.didRemove({.removed = {{at(relative), size}}, .failures = {}}, false);
    }

    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }

    const std::string home = "/home/studio";
    FakeHost fake;
    Host host = fake.host();
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store{host, locations};
};

} // namespace corvane::test
