#pragma once

#include <cstdint>
#include <string>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include <QTest>

#include "core/store/gate.h"
#include "core/store/storage_store.h"
#include "platform/fake_host.h"
#include "support/patience.h"

namespace corvane {

/// A store over a fake home folder "/home/studio" on a volume of 994.66 GB. Tests add items to the home and then scan
/// it. Paths are relative to the home folder.
struct StoreOverAHome {
    explicit StoreOverAHome(SystemKind system = SystemKind::linuxSystem, StoreTiming timing = {})
        : store(host(), locations, std::move(timing))
    {
        fake.files.setSystemKind(system);
        fake.files.setHome(home);
    }
    StoreOverAHome(const StoreOverAHome &) = delete;
    StoreOverAHome &operator=(const StoreOverAHome &) = delete;

    /// The store's host; its volume has 183.37 GB free.
    [[nodiscard]] Host host()
    {
        setAvailable(183'370'000'000);
        return fake.host();
    }
    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }
    void addFile(const std::string &relative, std::int64_t size, Time modified = distantPast)
    {
        fake.files.addFile(at(relative), size, modified);
    }
    /// Sets the volume's free bytes as of the next scan or removal.
    void setAvailable(std::int64_t bytes)
    {
        fake.volumes.set(
            "/",
            {.name = "Macintosh HD", .total = 994'662'584'320, .available = bytes, .availableForImportantUse = {}});
    }

    /// A gate at which every other thread that opens a folder waits, so that a test can inspect a running scan.
    [[nodiscard]] Gate blockFolders() const
    {
        return {*fake.log, [caller = std::this_thread::get_id()](const std::string &line) {
                    return line.starts_with("openFolder ") && std::this_thread::get_id() != caller;
                }};
    }

    [[nodiscard]] bool waitForReady()
    {
        return QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience);
    }
    [[nodiscard]] bool waitForCleanup()
    {
        return QTest::qWaitFor([&] { return !store.cleanupLoading(); }, patience);
    }
    /// Scans, and waits for the scan and its measurements.
    void scan(const std::string &path)
    {
        store.scan(path);
        ASSERT_TRUE(waitForReady());
        ASSERT_TRUE(waitForCleanup());
    }
    void scanHome() { scan(home); }
    void select(const std::string &relative, std::int64_t size) { store.setSelected(at(relative), size, true); }
    [[nodiscard]] bool isSelected(const std::string &relative) const { return store.isSelected(at(relative)); }
    /// Simulates moving the item to the Trash.
    void removeItem(const std::string &relative, std::int64_t size)
    {
        fake.files.take(at(relative));
        store.didRemove({.removed = {{at(relative), size}}, .failures = {}}, false);
    }

    // The store uses the members before it until it is destroyed.
    const std::string home = "/home/studio";
    FakeHost fake;
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store;
};

} // namespace corvane
