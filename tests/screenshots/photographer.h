#pragma once

#include <string>

#include <QDir>
#include <QString>

#include "core/store/storage_store.h"
#include "screenshots/window_driver.h"

namespace corvane {

/// Leads the window through everything that it can show and keeps a picture of each, light and dark. Main
/// thread only.
class Photographer {
public:
    /// The window shows the store over a Mac's disk; `folder` takes the pictures.
    Photographer(QQuickWindow &window, StorageStore &store, const QDir &folder);

    void takeAll();

private:
    void takeScanning();
    void takeMap();
    void takeMenus();
    void takeSelection();
    void takeRemoval();
    void takeEmptyFolders();
    void takeDrop();

    /// Scans a folder that no button leads to.
    void scan(const std::string &path);
    /// Closes the menu or sheet that lies on top.
    void dismiss();
    /// Saves NAME-light.png and NAME-dark.png of the window at rest.
    void take(const QString &name);
    /// The same while it moves.
    void takeMoving(const QString &name);
    void save(const QString &name, const QImage &picture) const;

    [[nodiscard]] QQuickItem &row(const std::string &name) const;
    void tick(const std::string &name);
    /// The middle of an item's tile in the map's band of labels, so that it is the item that is meant and not
    /// what lies inside.
    [[nodiscard]] QPointF tile(const std::string &name) const;

    WindowDriver m_driver;
    StorageStore &m_store;
    QDir m_folder;
};

} // namespace corvane
