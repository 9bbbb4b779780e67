#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include "apps/app_inventory.h"
#include "cleanup/admin_command.h"
#include "cleanup/cleanup_catalog.h"
#include "core/file_node.h"
#include "core/file_type.h"
#include "core/installed_tree.h"
#include "core/path_guard.h"
#include "core/removal.h"
#include "core/scan_progress.h"
#include "core/scan_summary.h"
#include "core/selected_entry.h"
#include "core/selected_items.h"
#include "core/selection.h"
#include "core/store/late_failures.h"
#include "core/store/latest_job.h"
#include "core/store/removal_job.h"
#include "core/systems/apps_table.h"
#include "core/type_slice.h"
#include "core/volume_info.h"
#include "core/words/system_words.h"
#include "disk/disk_breakdown.h"
#include "duplicates/found_duplicates.h"
#include "platform/host.h"
#include "platform/time.h"

namespace corvane {

/// Shown next to every figure of a stopped scan.
inline constexpr std::string_view partialScanText = "Partial: the scan was stopped";

/// The store's clock and delays, replaceable in tests.
struct StoreTiming {
    std::function<Time()> now = currentTime;
    std::chrono::milliseconds quitDelay{2'000}; ///< from the request to an application to quit to its removal
};

/// The observable state of the program: holds everything that the screens show and runs every long operation. Created
/// once at launch and outlives every screen. Main thread only; work runs in background jobs (`LatestJob`,
/// `RemovalJob`), whose results are received only while they are current.
class StorageStore : public QObject {
    Q_OBJECT

public:
    enum class Phase { idle, scanning, ready };
    Q_ENUM(Phase)

    /// The screens, in the order of the sidebar.
    enum class SidebarItem { overview, breakdown, explorer, uninstaller, large, old, duplicates, cleanup };
    Q_ENUM(SidebarItem)

    Q_PROPERTY(corvane::StorageStore::SidebarItem sidebar READ sidebar WRITE setSidebar NOTIFY sidebarChanged)
    Q_PROPERTY(corvane::StorageStore::Phase phase READ phase NOTIFY phaseChanged)
    Q_PROPERTY(bool hasScan READ hasScan NOTIFY treeChanged)
    Q_PROPERTY(bool scanIsPartial READ scanIsPartial NOTIFY treeChanged)
    Q_PROPERTY(int revision READ revision NOTIFY revisionChanged)
    Q_PROPERTY(bool hasFullDiskAccess READ hasFullDiskAccess NOTIFY accessChanged)
    Q_PROPERTY(bool showFeedback READ showFeedback WRITE setShowFeedback NOTIFY showFeedbackChanged)
    Q_PROPERTY(bool isRemoving READ isRemoving NOTIFY isRemovingChanged)
    Q_PROPERTY(bool isStopping READ isStopping NOTIFY isRemovingChanged)

    /// The result of a finished scan. Created on a background thread.
    struct ScanResult {
        std::shared_ptr<FileNode> root;
        ScanSummary summary;
        std::vector<TypeSlice> types;
        std::vector<SelectedEntry> removedMeanwhile; ///< removed during the walk, which may have seen it
    };

    /// `locations` and the objects that `host` refers to must outlive the store.
    StorageStore(const Host &host, const ProtectedLocations &locations, StoreTiming timing = {},
                 QObject *parent = nullptr);
    /// Stops the background work, a removal after its current item, and waits for it. An uninstall that is still
    /// waiting for its application to quit removes nothing.
    ~StorageStore() override;

    // The comment behind a getter names the signal that announces its changes.

    // --- The screen shown, and the explorer's folder
    [[nodiscard]] SidebarItem sidebar() const { return m_sidebar; }
    void setSidebar(SidebarItem item);
    [[nodiscard]] const std::shared_ptr<FileNode> &currentFolder() const
    {
        return m_currentFolder;
    } // currentFolderChanged
    /// Shows a folder or package of the current tree in the explorer; a file shows its folder.
    void open(const std::shared_ptr<FileNode> &node);
    /// Opens the explorer's containing folder, if the folder shown is not the root.
    void openParent();
    /// Opens a node of the current tree and shows the explorer's screen.
    void showInMap(const std::shared_ptr<FileNode> &node);
    /// Shows the large files, those of one type where one is given.
    void showLargeFiles(std::optional<FileType> type);
    /// Returns the type given to `showLargeFiles` and clears it: for the screen created to show it.
    [[nodiscard]] std::optional<FileType> takeLargeFilesType() { return std::exchange(m_largeFilesType, std::nullopt); }

    // --- The tree of the last scan: announced by treeChanged, and by revisionChanged if the tree itself is replaced
    [[nodiscard]] const std::shared_ptr<FileNode> &root() const { return m_tree.root(); }
    [[nodiscard]] const std::vector<std::shared_ptr<FileNode>> &allFiles() const { return m_tree.allFiles(); }
    [[nodiscard]] const std::vector<TypeSlice> &typeBreakdown() const { return m_tree.types(); }
    [[nodiscard]] const std::vector<DevJunkItem> &devJunk() const { return m_tree.devJunk(); }
    [[nodiscard]] std::int64_t unreadableCount() const { return m_tree.unreadableCount(); }
    /// Folders below the scanned one that could not be opened; not in the tree.
    [[nodiscard]] std::int64_t deniedCount() const { return m_tree.walk().deniedCount; }
    [[nodiscard]] double scanDuration() const { return m_tree.walk().seconds; }
    /// Whether there is a finished scan.
    [[nodiscard]] bool hasScan() const { return root() != nullptr; }
    /// Whether the installed tree is that of a stopped scan: it holds only a part of the folder.
    [[nodiscard]] bool scanIsPartial() const { return m_tree.walk().isPartial; }
    [[nodiscard]] int revision() const { return m_revision; }
    /// The node of the current tree at a path, or null.
    [[nodiscard]] FileNode *node(std::string_view path) const { return m_tree.find(path); }
    /// The same, as a shared pointer.
    [[nodiscard]] std::shared_ptr<FileNode> sharedNode(std::string_view path) const { return m_tree.shared(path); }

    // --- Scanning
    [[nodiscard]] Phase phase() const { return m_phase; }
    [[nodiscard]] std::int64_t scannedFiles() const { return m_counters.files; }        // progressChanged
    [[nodiscard]] std::int64_t scannedBytes() const { return m_counters.bytes; }        // progressChanged
    [[nodiscard]] const std::string &currentPath() const { return m_counters.current; } // progressChanged; bytes
    /// The root of the last scan started, bytes; empty before the first.
    [[nodiscard]] const std::string &lastScanPath() const { return m_lastScanPath; }
    /// Time since the last scan ended; 0 before the first.
    [[nodiscard]] std::int64_t secondsSinceScan() const;
    /// Starts a scan of a folder (absolute bytes); a running scan is stopped and its result dropped. If the path is not
    /// a readable folder, nothing changes and the toast shows why. If the root is that of the last scan, the explorer
    /// returns to the folder shown when the scan ends, or to its nearest remaining ancestor.
    void scan(const std::string &path);
    void scanHome();
    void scanEntireDisk();
    /// Rescans the root of the last scan, or the home folder if there was none.
    void rescan();
    /// Requests a folder from the window (`folderWanted`), which then calls `scan`.
    void chooseFolder();
    /// Stops the running scan; its partial result is shown.
    void stopScan();
    /// Installs a scan's result unless `token` is no longer the current scan.
    void finishScan(std::shared_ptr<ScanResult> result, const std::shared_ptr<ScanProgress> &token);
    /// The token of the running (or last) scan.
    [[nodiscard]] std::shared_ptr<ScanProgress> progress() const { return m_scanJob.progress(); }

    // --- The breakdown of the disk
    [[nodiscard]] const std::optional<DiskBreakdown> &breakdown() const { return m_breakdown; } // breakdownChanged
    [[nodiscard]] bool breakdownLoading() const { return m_breakdownJob.isLoading(); }          // breakdownChanged
    /// Recomputes the breakdown in the background, using the result of the last scan.
    void refreshBreakdown();
    /// Delays breakdowns started from now on until releaseBreakdown(), so that their threads do not slow down the
    /// creation of a window.
    void holdBreakdown() { m_breakdownJob.hold(); }
    void releaseBreakdown() { m_breakdownJob.release(); }
    /// Installs a breakdown unless `token` is no longer the newest request.
    void finishBreakdown(DiskBreakdown breakdown, int token);
    /// The number of the newest request.
    [[nodiscard]] int breakdownToken() const { return m_breakdownJob.token(); }
    /// The facts about the installed tree that the breakdown needs.
    [[nodiscard]] ScanContext makeScanContext() const;
    /// Performs the action that a segment of the breakdown offers.
    void perform(const BreakdownAction &action);

    // --- The cleanup catalogue
    /// The measured catalogue, largest total first; empty until first measured.
    [[nodiscard]] const std::vector<CleanupItem> &cleanupItems() const { return m_cleanupItems; } // cleanupChanged
    [[nodiscard]] bool cleanupLoading() const { return m_cleanupJob.isLoading(); }                // cleanupChanged
    /// Commands that free space and that the user has to run, largest first; empty until first looked up.
    [[nodiscard]] const std::vector<AdminCommand> &cleanupCommands() const
    {
        return m_cleanupCommands;
    } // cleanupCommandsChanged
    /// Measures the catalogue again in the background, and what the commands would free.
    void refreshCleanup();
    /// Installs a measurement unless `token` is no longer the newest request.
    void finishCleanup(std::vector<CleanupItem> items, int token);
    /// The number of the newest request.
    [[nodiscard]] int cleanupToken() const { return m_cleanupJob.token(); }
    /// Installs the commands unless `token` is no longer the newest request.
    void finishCleanupCommands(std::vector<AdminCommand> commands, int token);
    [[nodiscard]] int cleanupCommandsToken() const { return m_cleanupCommandsJob.token(); }
    /// The total of the items that can be cleared without a second look.
    [[nodiscard]] std::int64_t safeCleanupTotal() const;
    /// Selects every selectable entry of those items.
    void selectAllSafeCleanup();

    // --- The applications, and the data of installed and deleted ones
    /// The installed applications, largest first including their data; empty until first loaded.
    [[nodiscard]] const std::vector<InstalledApp> &apps() const { return m_inventory.apps; } // appsChanged
    /// Data left behind by deleted applications, largest first.
    [[nodiscard]] const std::vector<OrphanGroup> &orphanGroups() const
    {
        return m_inventory.orphanGroups;
    } // appsChanged
    [[nodiscard]] std::int64_t orphanTotal() const;
    [[nodiscard]] bool appsLoading() const { return m_appsJob.isLoading(); } // appsChanged
    /// Whether they have been loaded at least once.
    [[nodiscard]] bool appsLoaded() const { return m_appsLoaded; } // appsChanged
    /// Reloads the inventory in the background.
    void refreshApps();
    /// Installs an inventory unless `token` is no longer the newest request.
    void setApps(AppInventory::Result result, int token);
    /// The number of the newest request.
    [[nodiscard]] int appsToken() const { return m_appsJob.token(); }
    /// Queries the system, which sends no notification when this changes.
    [[nodiscard]] bool isRunning(const InstalledApp &app) const;
    /// Moves an application and those leftovers to the Trash in their present state: an item replaced by another before
    /// the removal stays. If the application is running, every instance is asked to quit, and the removal follows after
    /// `StoreTiming::quitDelay`, whether they have quit or not. If another removal is running then, it follows that
    /// one. Does nothing for an application that is already being uninstalled.
    void uninstall(const InstalledApp &app, std::span<const Leftover> leftovers);
    /// True from the call of `uninstall` for that bundle to the end of its removal.
    [[nodiscard]] bool isUninstalling(const std::string &bundlePath) const; // uninstallsChanged

    // --- The duplicates among the files of the last scan
    /// The result of the last search; kept until the next one has ended, or another scan starts.
    [[nodiscard]] const std::vector<DuplicateGroup> &duplicateGroups() const
    {
        return m_duplicates.groups();
    } // duplicatesChanged
    /// The wasted bytes of all groups; hard links to the same file are not counted.
    [[nodiscard]] std::int64_t duplicateWaste() const { return m_duplicates.waste(); } // duplicatesChanged
    [[nodiscard]] Phase duplicatePhase() const { return m_duplicatePhase; }            // duplicatesChanged
    /// The progress of the search, from 0 to 1.
    [[nodiscard]] double duplicateProgress() const { return m_duplicateProgress; } // duplicateProgressChanged
    /// Starts a search in the background; does nothing while one is running.
    void findDuplicates();
    /// Selects all files but one of each group. Until they are deselected, a removal always leaves at least one copy.
    void autoSelectDuplicates(bool keepNewest);

    // --- The selection
    [[nodiscard]] const Selection &selection() const { return m_selected.sizes(); } // selectionChanged
    [[nodiscard]] bool isProtected(std::string_view path) const;
    [[nodiscard]] bool isSelected(const std::string &path) const;
    /// Whether the path is selected or lies inside a selected folder.
    [[nodiscard]] bool isCovered(const std::string &path) const;
    void setSelected(const std::string &path, std::int64_t size, bool selected);
    void setSelected(std::span<const SelectedEntry> entries, bool selected);
    void clearSelection();
    [[nodiscard]] Selection effectiveSelection() const;
    [[nodiscard]] std::int64_t selectedTotal() const;
    [[nodiscard]] std::vector<SelectedEntry> selectedEntries() const;
    /// Entries of the effective selection that are in the Trash: moving them there would delete them for good.
    [[nodiscard]] std::vector<SelectedEntry> selectedInTrash() const { return m_selected.inTrash(); }

    // --- Removal
    [[nodiscard]] bool isRemoving() const { return m_removal.isRunning(); } // isRemovingChanged
    /// The running removal will end after its current item.
    [[nodiscard]] bool isStopping() const { return m_removal.isStopping(); } // isRemovingChanged
    /// Removes the entries in the background (one removal at a time) and reports once. A selected item must still be
    /// the one that was selected, and for a duplicate, a copy unchanged since the search must remain.
    void remove(const Selection &entries, bool permanently);
    /// Ends the removal after its current item.
    void stopRemoval();
    /// Applies the outcome of a removal. `remains` are rescans of what is left of each item that was removed in part or
    /// had been replaced by another item.
    void didRemove(const RemovalOutcome &outcome, bool permanently, const std::vector<MeasuredTree> &remains = {});

    // --- The system
    /// The reference time for ages.
    [[nodiscard]] Time now() const { return m_timing.now(); }
    [[nodiscard]] const VolumeInfo &volume() const { return m_volume; }          // volumeChanged
    [[nodiscard]] bool hasFullDiskAccess() const { return m_hasFullDiskAccess; } // accessChanged
    /// Tests the access again, which the user may have granted meanwhile.
    void refreshAccess();
    [[nodiscard]] const Host &host() const { return m_host; }
    /// The texts for the system that the root contains.
    [[nodiscard]] const SystemWords &words() const { return wordsOf(m_host.files.systemKind()); }
    [[nodiscard]] const AppsTable &appsTable() const { return appsTableOf(m_host.files.systemKind()); }
    [[nodiscard]] const ProtectedLocations &locations() const { return m_locations; }
    /// Shows an item in the file manager; the toast reports failures, immediate or late.
    void reveal(const std::string &path);
    /// Opens a file in the desktop's default application; the toast reports failures.
    void openFile(const std::string &path);

    // --- The feedback form
    [[nodiscard]] bool showFeedback() const { return m_showFeedback; } // showFeedbackChanged
    void setShowFeedback(bool show);

    // --- The short message
    [[nodiscard]] const std::optional<std::string> &toast() const { return m_toast; } // toastChanged; bytes
    /// Whether the toast reports a problem.
    [[nodiscard]] bool toastIsWarning() const { return m_toastIsWarning; }
    void showToast(std::string text, bool warning = false);
    void dismissToast();

signals:
    void sidebarChanged();
    void currentFolderChanged();
    void treeChanged();     ///< the tree, its lists, or a fact about its scan
    void revisionChanged(); ///< the installed tree itself
    void phaseChanged();
    void progressChanged();
    void folderWanted();
    void breakdownChanged(); ///< the breakdown, or whether one is being computed
    void cleanupCommandsChanged();
    void cleanupChanged(); ///< the catalogue's items, or whether they are being measured
    void appsChanged();    ///< the applications, the orphans, or whether they are being loaded
    void uninstallsChanged();
    void duplicatesChanged(); ///< the groups, or the phase of the search
    void duplicateProgressChanged();
    void selectionChanged();
    void isRemovingChanged();
    void volumeChanged();
    void accessChanged();
    void showFeedbackChanged();
    void toastChanged();

private:
    void setCurrentFolder(std::shared_ptr<FileNode> folder);

    // The scan.
    /// The folder to scan for a path; if there is none, returns nothing and the toast shows why.
    [[nodiscard]] std::optional<std::string> scannable(const std::string &path);
    void setPhase(Phase phase);
    void clearScan();
    void publishCounters();
    void publishScan(std::shared_ptr<ScanResult> result);
    void checkRemovalsDuringScan(std::shared_ptr<ScanResult> result);
    void endScanWithoutTree(std::shared_ptr<ScanResult> result);
    void discard(std::shared_ptr<void> held);

    // Derived data.
    void publishBreakdown(DiskBreakdown breakdown);
    void dropOutdatedBreakdown();
    void publishCleanup(std::vector<CleanupItem> items);
    void publishCleanupCommands(std::vector<AdminCommand> commands);
    void publishApps(AppInventory::Result result);

    // The duplicates.
    void publishDuplicateProgress(double fraction, int token);
    void publishDuplicates(std::vector<DuplicateGroup> groups);
    void clearDuplicates();
    /// Takes the files that have left the tree out of their groups.
    void followTreeInDuplicates();

    // The uninstalls.
    /// An uninstall whose application is quitting, whose removal is due, or whose removal is running.
    struct Uninstall {
        enum class Stage { quitting, due, removing };

        std::string bundlePath;
        Selection entries;
        SeenItems seen;
        Stage stage = Stage::quitting;
    };
    void uninstallIsDue(const std::string &bundlePath);
    /// Starts the first removal that is due, unless one is running.
    void removeNextUninstall();
    /// Drops the uninstall whose removal has ended; returns whether there was one.
    bool endUninstall();
    void followRemovalInApps(std::span<const SelectedEntry> gone, bool wasUninstall);

    // The removal.
    void applyToTree(std::span<const SelectedEntry> gone, std::span<const MeasuredTree> remains);
    /// Updates the installed tree and the folder shown; returns whether anything changed.
    bool updateTree(std::span<const SelectedEntry> gone, std::span<const MeasuredTree> remains);

    // The system.
    void refreshVolume();
    /// Shows in the toast that an operation on an item ("scan") failed, and why.
    void showFailure(std::string_view what, const std::string &path, const std::string &why);

    const Host m_host;
    const ProtectedLocations &m_locations;
    const StoreTiming m_timing;
    bool m_isClosing = false;

    SidebarItem m_sidebar = SidebarItem::overview;
    std::optional<FileType> m_largeFilesType;
    std::shared_ptr<FileNode> m_currentFolder;

    InstalledTree m_tree;
    int m_revision = 0;

    Phase m_phase = Phase::idle;
    ScanProgress::Counters m_counters;
    std::string m_lastScanPath;
    std::string m_folderToShow;                     // shown when the running scan ends; empty for its root
    std::vector<SelectedEntry> m_removedDuringScan; // the running walk may have seen them
    std::shared_ptr<void> m_fullSpeed;              // while a scan runs
    QTimer m_timer;
    QElapsedTimer m_scanStart;
    QElapsedTimer m_scanEnd;

    std::optional<DiskBreakdown> m_breakdown;
    bool m_breakdownHasTree = false; // whether the newest request refers to the installed tree
    std::vector<CleanupItem> m_cleanupItems;
    std::vector<AdminCommand> m_cleanupCommands;
    AppInventory::Result m_inventory;
    bool m_appsLoaded = false;
    std::vector<Uninstall> m_uninstalls; // in order of request

    FoundDuplicates m_duplicates;
    Phase m_duplicatePhase = Phase::idle;
    double m_duplicateProgress = 0;

    SelectedItems m_selected;

    VolumeInfo m_volume;
    bool m_hasFullDiskAccess = false;
    bool m_showFeedback = false;
    std::optional<std::string> m_toast;
    bool m_toastIsWarning = false;

    // Declared last: their destructors wait for the work, and must run before anything the work uses is destroyed. Each
    // has its own threads, because measuring may take long and must not delay other work.
    LateFailures m_revealFailures;
    QThreadPool m_discards;
    LatestJob<std::shared_ptr<ScanResult>, ScanProgress> m_scanJob;
    LatestJob<DiskBreakdown> m_breakdownJob;
    LatestJob<std::vector<CleanupItem>> m_cleanupJob;
    LatestJob<std::vector<AdminCommand>> m_cleanupCommandsJob;
    LatestJob<AppInventory::Result> m_appsJob;
    LatestJob<std::vector<DuplicateGroup>> m_duplicatesJob;
    RemovalJob m_removal;
};

} // namespace corvane
