#pragma once

#include <functional>
#include <string>

#include <QDir>
#include <QString>
#include <QStringList>

#include "core/store/storage_store.h"
#include "platform/host.h"
#include "screenshots/example.h"
#include "screenshots/window_driver.h"
#include "shell/services.h"

namespace corvane {

/// Leads the window through everything that it can show and keeps a picture of each, light and dark. Main
/// thread only.
class Photographer {
public:
    /// The window shows the store over the disk of a shaped root; `folder` takes the pictures.
    /// `wanted` names the pictures to take, without their ending; empty for all of them.
    Photographer(QQuickWindow &window, StorageStore &store, Services &services, const QDir &folder, QStringList wanted);

    void takeAll();

private:
    void takeBreakdownBeforeScan();
    /// With other answers of a Mac's tools.
    void takeOtherAnswers();
    void takeBreakdown();
    void takeScanning();
    void takeMap();
    void takeMenus();
    void takeSelection();
    void takeRemoval();
    void takeEmptyFolders();
    void takeDrop();
    void takeOverviewBeforeScan();
    void takeOverview();
    void takeCleanup();
    void takeCleanupWithoutScan();
    void takeCommands();
    void takeLists();
    void takeLargeFiles();
    void takeOldFiles();
    void takeDuplicates();
    void takeDuplicatesByKeyboard();
    void takeNoDuplicates();
    void takeUninstaller();
    void takeMacsApp(AppInventory::Result &inventory);
    void takeLinuxApps();
    void takeAppsByKeyboard();
    void takeOrphans();
    void takeUninstallerWithoutApps();
    void takeWelcome();
    void takeServices();
    void takeFeedback();
    void takeSettings();

    void show(StorageStore::SidebarItem screen);
    /// Measures the disk anew, and waits for that.
    void refreshBreakdown();
    /// A picture of the breakdown's top, and one of its end.
    void takeBothEnds(const QString &name);
    /// Moves the pointer to where a part of the bar is.
    void pointAtPart(double share);
    /// Presses Tab until the item has the keyboard.
    void tabTo(const QQuickItem &item);
    void takeMinimum(const QString &name);

    /// Scans a folder that no button leads to.
    void scan(const std::string &path);
    /// Closes the menu or sheet that lies on top.
    void dismiss();
    /// Saves NAME-light.png and NAME-dark.png of the window at rest.
    void take(const QString &name) { takeWindow(name, m_driver); }
    /// The same of another window.
    void takeWindow(const QString &name, const WindowDriver &driver);
    /// The same while it moves.
    void takeMoving(const QString &name);
    /// Saves what `picture` gives, light and dark, if it is wanted.
    void takeBoth(const QString &name, const std::function<QImage()> &picture);
    void save(const QString &name, const QImage &picture) const;

    [[nodiscard]] QQuickItem &row(const std::string &name) const;
    void tick(const std::string &name);
    /// A row of the cleanup list.
    [[nodiscard]] QQuickItem &cleanupRow(const QString &title) const;
    void tickCleanup(const QString &title);
    void waitForMeasurement() const;
    void waitForInventory() const;
    /// A row of the uninstaller's list.
    void chooseApp(const QString &name);
    /// A row of the large or the old files.
    [[nodiscard]] QQuickItem &fileRow(const QString &name) const;
    void tickFile(const QString &name);
    void publishApps(const AppInventory::Result &inventory);
    /// The middle of an item's tile in the map's band of labels, so that it is the item that is meant and not
    /// what lies inside.
    [[nodiscard]] QPointF tile(const std::string &name) const;

    WindowDriver m_driver;
    StorageStore &m_store;
    Services &m_services;
    QDir m_folder;
    const QStringList m_wanted;
    const Example &m_example = exampleOf(systemHost().files.systemKind());
};

} // namespace corvane
