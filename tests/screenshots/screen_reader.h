#pragma once

#include <QJsonArray>
#include <QJsonObject>

#include "core/store/storage_store.h"
#include "screenshots/window_driver.h"

namespace corvane {

/// Reads the window's visible texts, so that a test can compare them with the command line's output in the same root.
/// Main thread only.
class ScreenReader {
public:
    ScreenReader(QQuickWindow &window, StorageStore &store) : m_driver(window), m_store(store) {}

    /// The texts of the screens by name, each list in visual order. Scrolls to include all content, some of it twice,
    /// except the ends of long lists. First without a scan, then after scanning the home folder ("…Scanned").
    [[nodiscard]] QJsonObject readAll();

private:
    [[nodiscard]] QJsonArray read(StorageStore::SidebarItem screen);
    void waitForMeasurements() const;

    WindowDriver m_driver;
    StorageStore &m_store;
};

} // namespace corvane
