#pragma once

#include <QJsonArray>
#include <QJsonObject>

#include "core/store/storage_store.h"
#include "screenshots/window_driver.h"

namespace corvane {

/// Reads what the window shows as a person would, so that a test can compare it with what the command line prints in
/// the same root. Main thread only.
class ScreenReader {
public:
    ScreenReader(QQuickWindow &window, StorageStore &store) : m_driver(window), m_store(store) {}

    /// The texts of the screens by their names, each list in the order in which they stand. What has to be scrolled
    /// to is there as well, some of it twice, but for the ends of long lists. At first nothing is scanned, then the
    /// home folder ("…Scanned").
    [[nodiscard]] QJsonObject readAll();

private:
    [[nodiscard]] QJsonArray read(StorageStore::SidebarItem screen);
    void waitForMeasurements() const;

    WindowDriver m_driver;
    StorageStore &m_store;
};

} // namespace corvane
