#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <QTest>

#include "core/store/storage_store.h"
#include "platform/fake_host.h"
#include "shell/ui/store_registration.h"
#include "shell/ui/theme.h"
#include "shell/window/gated_file_system.h"

namespace corvane {

/// A store, also visible to QML, over a fake home folder "/home/studio" on a volume of 994.66 GB. Tests add items to
/// the home and then scan it. Paths are relative to the home folder.
struct StoreOverAHome {
    explicit StoreOverAHome(SystemKind system = SystemKind::linuxSystem, StoreTiming timing = {})
        : store(host(), locations, std::move(timing))
    {
        fake.files.setSystemKind(system);
        fake.files.setHome(home);
        StoreRegistration::setStore(&store);
    }
    ~StoreOverAHome() { gate.setShut(false); }
    StoreOverAHome(const StoreOverAHome &) = delete;
    StoreOverAHome &operator=(const StoreOverAHome &) = delete;

    /// The store's host; its volume has 183.37 GB free.
    [[nodiscard]] Host host()
    {
        setAvailable(183'370'000'000);
        return {gate, fake.trash, fake.volumes, fake.desktop, fake.applications};
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

    /// Scans, and waits for the scan and its measurements.
    void scan(const std::string &path)
    {
        store.scan(path);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return store.phase() == StorageStore::Phase::ready && !store.cleanupLoading(); }, 20'000));
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

    const std::string home = "/home/studio";
    FakeHost fake;
    GatedFileSystem gate{fake.files};
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store;
};

/// Disables animations while this object lives.
struct WithoutMotion {
    WithoutMotion() { Theme::instance()->setReducedMotion(true); }
    ~WithoutMotion() { Theme::instance()->setReducedMotion(false); }
    WithoutMotion(const WithoutMotion &) = delete;
    WithoutMotion &operator=(const WithoutMotion &) = delete;
};

} // namespace corvane
