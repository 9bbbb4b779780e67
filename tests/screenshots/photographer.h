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

/// Drives the window through all its states and saves screenshots of each, light and dark. Main thread only.
class Photographer {
public:
    /// The window shows the store over the disk of a shaped root; screenshots are saved in `folder`. `wanted` names the
    /// screenshots to save, without extension; empty for all of them.
    Photographer(QQuickWindow &window, StorageStore &store, Services &services, const QDir &folder, QStringList wanted);

    void takeAll();

private:
    void takeBreakdownBeforeScan();
    /// With alternative outputs of a Mac's tools.
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
    /// Measures the disk again, and waits for the result.
    void refreshBreakdown();
    /// Saves screenshots of the top and the bottom of the breakdown.
    void takeBothEnds(const QString &name);
    /// Moves the pointer to the part of the bar at this share of its width.
    void pointAtPart(double share);
    /// Presses Tab until the item has the focus.
    void tabTo(const QQuickItem &item);
    void takeMinimum(const QString &name);

    /// Scans a folder that has no button.
    void scan(const std::string &path);
    /// Closes the topmost menu or sheet.
    void dismiss();
    /// Saves NAME-light.png and NAME-dark.png of the idle window.
    void take(const QString &name) { takeWindow(name, m_driver); }
    /// The same for another window.
    void takeWindow(const QString &name, const WindowDriver &driver);
    /// The same while an animation runs.
    void takeMoving(const QString &name);
    /// Saves the result of `picture`, light and dark, if it is wanted.
    void takeBoth(const QString &name, const std::function<QImage()> &picture);
    void save(const QString &name, const QImage &picture) const;

    /// A sheet or a window that is created on first use.
    [[nodiscard]] QObject &madeObject(const QString &name) const;
    [[nodiscard]] QQuickItem &row(const std::string &name) const;
    void tick(const std::string &name);
    /// A row of the cleanup list.
    [[nodiscard]] QQuickItem &cleanupRow(const QString &title) const;
    void tickCleanup(const QString &title);
    void waitForMeasurement() const;
    void waitForInventory() const;
    /// Selects a row in the uninstaller's list.
    void chooseApp(const QString &name);
    /// A row of the large or old files.
    [[nodiscard]] QQuickItem &fileRow(const QString &name) const;
    void tickFile(const QString &name);
    void publishApps(const AppInventory::Result &inventory);
    /// The middle of a tile's label band, which its nested tiles do not cover.
    [[nodiscard]] QPointF tile(const std::string &name) const;

    WindowDriver m_driver;
    StorageStore &m_store;
    Services &m_services;
    QDir m_folder;
    const QStringList m_wanted;
    const Example &m_example = exampleOf(systemHost().files.systemKind());
};

} // namespace corvane
