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

/// The remark that stands beside every figure of a scan that was stopped.
inline constexpr std::string_view partialScanText = "Partial: the scan was stopped";

/// The store's times, for tests to set otherwise.
struct StoreTiming {
    std::function<Time()> now = currentTime;
    std::chrono::milliseconds quitDelay{2'000}; ///< from the request to an application to quit to its removal
};

/// The one observable object of the program: holds everything that the screens show and runs every long
/// operation. Made once at launch and outliving every screen. Main thread only; work runs in background jobs
/// (`LatestJob`, `RemovalJob`), whose results are received only while they are current.
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

    /// What a scan hands over when it has finished. Made on a background thread.
    struct ScanResult {
        std::shared_ptr<FileNode> root;
        ScanSummary summary;
        std::vector<TypeSlice> types;
        std::vector<SelectedEntry> removedMeanwhile; ///< what the walk may have seen and is no longer there
    };

    /// What `host` refers to, and `locations`, must outlive the store.
    StorageStore(const Host &host, const ProtectedLocations &locations, StoreTiming timing = {},
                 QObject *parent = nullptr);
    /// Stops the background work, a removal after the item that it is at, and waits for its end. An uninstall whose
    /// application has been asked to quit, and that waits for that, removes nothing any more.
    ~StorageStore() override;

    // What is published is followed by the signal that announces it.

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
    /// The type that `showLargeFiles` was given, once: for the screen that is made to show it.
    [[nodiscard]] std::optional<FileType> takeLargeFilesType() { return std::exchange(m_largeFilesType, std::nullopt); }

    // --- The tree of the last scan: treeChanged, and revisionChanged where the tree itself is another
    [[nodiscard]] const std::shared_ptr<FileNode> &root() const { return m_tree.root(); }
    [[nodiscard]] const std::vector<std::shared_ptr<FileNode>> &allFiles() const { return m_tree.allFiles(); }
    [[nodiscard]] const std::vector<TypeSlice> &typeBreakdown() const { return m_tree.types(); }
    [[nodiscard]] const std::vector<DevJunkItem> &devJunk() const { return m_tree.devJunk(); }
    [[nodiscard]] std::int64_t unreadableCount() const { return m_tree.unreadableCount(); }
    /// Folders below the scanned one that could not be opened; they are not in the tree.
    [[nodiscard]] std::int64_t deniedCount() const { return m_tree.walk().deniedCount; }
    [[nodiscard]] double scanDuration() const { return m_tree.walk().seconds; }
    /// A finished scan is there to look at.
    [[nodiscard]] bool hasScan() const { return root() != nullptr; }
    /// The installed tree is that of a scan that was stopped: it holds only a part of the folder.
    [[nodiscard]] bool scanIsPartial() const { return m_tree.walk().isPartial; }
    [[nodiscard]] int revision() const { return m_revision; }
    /// The node of the current tree at a path, or null.
    [[nodiscard]] FileNode *node(std::string_view path) const { return m_tree.find(path); }
    /// The same to be held.
    [[nodiscard]] std::shared_ptr<FileNode> sharedNode(std::string_view path) const { return m_tree.shared(path); }

    // --- Scanning
    [[nodiscard]] Phase phase() const { return m_phase; }
    [[nodiscard]] std::int64_t scannedFiles() const { return m_counters.files; }        // progressChanged
    [[nodiscard]] std::int64_t scannedBytes() const { return m_counters.bytes; }        // progressChanged
    [[nodiscard]] const std::string &currentPath() const { return m_counters.current; } // progressChanged; bytes
    /// The root of the last scan started, bytes; empty before the first.
    [[nodiscard]] const std::string &lastScanPath() const { return m_lastScanPath; }
    /// How long ago the last scan ended; 0 before that.
    [[nodiscard]] std::int64_t secondsSinceScan() const;
    /// Starts a scan of a folder (absolute bytes); a running one is stopped and its result dropped. A path
    /// that is not a readable folder leaves everything as it is and says so in the toast. Where the root is that of
    /// the last scan, the explorer goes back to the folder shown when the scan ends, or to the nearest one around
    /// it that is still there.
    void scan(const std::string &path);
    void scanHome();
    void scanEntireDisk();
    /// Scans the root of the last scan again; the home folder before the first.
    void rescan();
    /// Asks the window for a folder (`folderWanted`), which then calls `scan`.
    void chooseFolder();
    /// Stops the running scan; what it has found is shown.
    void stopScan();
    /// Takes over a scan's result unless `token` is no longer the current scan.
    void finishScan(std::shared_ptr<ScanResult> result, const std::shared_ptr<ScanProgress> &token);
    /// The token of the running (or last) scan.
    [[nodiscard]] std::shared_ptr<ScanProgress> progress() const { return m_scanJob.progress(); }

    // --- The breakdown of the disk
    [[nodiscard]] const std::optional<DiskBreakdown> &breakdown() const { return m_breakdown; } // breakdownChanged
    [[nodiscard]] bool breakdownLoading() const { return m_breakdownJob.isLoading(); }          // breakdownChanged
    /// Computes the breakdown anew in the background, with what the last scan found.
    void refreshBreakdown();
    /// Breakdowns that are started from now on are computed after releaseBreakdown(), so that the threads of one do not
    /// hold up a window that is being made.
    void holdBreakdown() { m_breakdownJob.hold(); }
    void releaseBreakdown() { m_breakdownJob.release(); }
    /// Takes over a breakdown unless `token` is no longer the newest request.
    void finishBreakdown(DiskBreakdown breakdown, int token);
    /// The number of the newest request.
    [[nodiscard]] int breakdownToken() const { return m_breakdownJob.token(); }
    /// What the breakdown needs to know of the installed tree.
    [[nodiscard]] ScanContext makeScanContext() const;
    /// Carries out what a segment of the breakdown offers.
    void perform(const BreakdownAction &action);

    // --- The cleanup catalogue
    /// The measured catalogue, largest total first; empty until it has been measured once.
    [[nodiscard]] const std::vector<CleanupItem> &cleanupItems() const { return m_cleanupItems; } // cleanupChanged
    [[nodiscard]] bool cleanupLoading() const { return m_cleanupJob.isLoading(); }                // cleanupChanged
    /// The commands that free space and that the user has to run, largest first; empty until they were looked for.
    [[nodiscard]] const std::vector<AdminCommand> &cleanupCommands() const
    {
        return m_cleanupCommands;
    } // cleanupCommandsChanged
    /// Measures the catalogue anew in the background, and what the commands would free.
    void refreshCleanup();
    /// Takes over a measurement unless `token` is no longer the newest request.
    void finishCleanup(std::vector<CleanupItem> items, int token);
    /// The number of the newest request.
    [[nodiscard]] int cleanupToken() const { return m_cleanupJob.token(); }
    /// Takes over the commands unless `token` is no longer the newest request.
    void finishCleanupCommands(std::vector<AdminCommand> commands, int token);
    [[nodiscard]] int cleanupCommandsToken() const { return m_cleanupCommandsJob.token(); }
    /// What the items come to that may be cleared without a second look.
    [[nodiscard]] std::int64_t safeCleanupTotal() const;
    /// Selects every entry of those items that may be selected at all.
    void selectAllSafeCleanup();

    // --- The applications, and what they and deleted ones keep
    /// The installed applications, largest first with what is theirs; empty until they have been loaded once.
    [[nodiscard]] const std::vector<InstalledApp> &apps() const { return m_inventory.apps; } // appsChanged
    /// What deleted applications have left, largest first.
    [[nodiscard]] const std::vector<OrphanGroup> &orphanGroups() const
    {
        return m_inventory.orphanGroups;
    } // appsChanged
    [[nodiscard]] std::int64_t orphanTotal() const;
    [[nodiscard]] bool appsLoading() const { return m_appsJob.isLoading(); } // appsChanged
    /// They have been loaded once.
    [[nodiscard]] bool appsLoaded() const { return m_appsLoaded; } // appsChanged
    /// Loads the inventory anew in the background.
    void refreshApps();
    /// Takes over an inventory unless `token` is no longer the newest request.
    void setApps(AppInventory::Result result, int token);
    /// The number of the newest request.
    [[nodiscard]] int appsToken() const { return m_appsJob.token(); }
    /// Asks the system, which does not tell when it changes.
    [[nodiscard]] bool isRunning(const InstalledApp &app) const;
    /// Moves an application and those leftovers to the Trash, as they are at this moment: what is another item by the
    /// time of the removal stays. Where the application runs, every instance is asked to quit and the removal follows
    /// after `StoreTiming::quitDelay`, whether they have quit or not. A removal that is due while another one runs
    /// follows it. An application that is being uninstalled is left to that.
    void uninstall(const InstalledApp &app, std::span<const Leftover> leftovers);
    /// From the call of `uninstall` for that bundle to the end of its removal.
    [[nodiscard]] bool isUninstalling(const std::string &bundlePath) const; // uninstallsChanged

    // --- The duplicates among the files of the last scan
    /// What the last search found; stays until the next one has ended, or another scan begins.
    [[nodiscard]] const std::vector<DuplicateGroup> &duplicateGroups() const
    {
        return m_duplicates.groups();
    } // duplicatesChanged
    /// What all groups waste, without what only has several names.
    [[nodiscard]] std::int64_t duplicateWaste() const { return m_duplicates.waste(); } // duplicatesChanged
    [[nodiscard]] Phase duplicatePhase() const { return m_duplicatePhase; }            // duplicatesChanged
    /// How far the search is, from 0 to 1.
    [[nodiscard]] double duplicateProgress() const { return m_duplicateProgress; } // duplicateProgressChanged
    /// Starts a search in the background; while one runs, nothing.
    void findDuplicates();
    /// Selects all files but one of each group. Until they are deselected, that one, or another, survives a removal.
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
    /// Those of the effective selection that lie in the Trash: moving them there deletes them for good.
    [[nodiscard]] std::vector<SelectedEntry> selectedInTrash() const { return m_selected.inTrash(); }

    // --- Removal
    [[nodiscard]] bool isRemoving() const { return m_removal.isRunning(); } // isRemovingChanged
    /// The removal under way ends after the item that it is at.
    [[nodiscard]] bool isStopping() const { return m_removal.isStopping(); } // isRemovingChanged
    /// Removes the entries in the background (one removal at a time) and reports once. A selected one must still be
    /// the item that was selected, and of a duplicate a copy must stay that has not changed since the search.
    void remove(const Selection &entries, bool permanently);
    /// Ends the removal after the item that it is at.
    void stopRemoval();
    /// Takes over what a removal did. `remains` are what is left where an item was removed in part or was another one
    /// than expected, each scanned anew.
    void didRemove(const RemovalOutcome &outcome, bool permanently,
                   const std::vector<std::shared_ptr<FileNode>> &remains = {});

    // --- The system
    /// The moment that ages are counted from.
    [[nodiscard]] Time now() const { return m_timing.now(); }
    [[nodiscard]] const VolumeInfo &volume() const { return m_volume; }          // volumeChanged
    [[nodiscard]] bool hasFullDiskAccess() const { return m_hasFullDiskAccess; } // accessChanged
    /// Tests the access anew, which the user may have granted meanwhile.
    void refreshAccess();
    [[nodiscard]] const Host &host() const { return m_host; }
    /// The sentences for the users of the system that the root describes.
    [[nodiscard]] const SystemWords &words() const { return wordsOf(m_host.files.systemKind()); }
    [[nodiscard]] const AppsTable &appsTable() const { return appsTableOf(m_host.files.systemKind()); }
    [[nodiscard]] const ProtectedLocations &locations() const { return m_locations; }
    /// Shows an item in the file manager; what goes wrong, at once or later, is said in the toast.
    void reveal(const std::string &path);
    /// Opens a file in the program that the desktop has for it; what goes wrong is said in the toast.
    void openFile(const std::string &path);

    // --- The feedback form
    [[nodiscard]] bool showFeedback() const { return m_showFeedback; } // showFeedbackChanged
    void setShowFeedback(bool show);

    // --- The short message
    [[nodiscard]] const std::optional<std::string> &toast() const { return m_toast; } // toastChanged; bytes
    /// Whether the toast reports something that went wrong.
    [[nodiscard]] bool toastIsWarning() const { return m_toastIsWarning; }
    void showToast(std::string text, bool warning = false);
    void dismissToast();

signals:
    void sidebarChanged();
    void currentFolderChanged();
    void treeChanged();     ///< the tree, its lists, or a fact of the scan that found it
    void revisionChanged(); ///< the installed tree itself has changed
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
    /// The folder to scan for a path; nothing, and the toast says why, where there is none.
    [[nodiscard]] std::optional<std::string> scannable(const std::string &path);
    void setPhase(Phase phase);
    void clearScan();
    void publishCounters();
    void publishScan(std::shared_ptr<ScanResult> result);
    void checkRemovalsDuringScan(std::shared_ptr<ScanResult> result);
    void endScanWithoutTree(std::shared_ptr<ScanResult> result);
    void discard(std::shared_ptr<void> held);

    // What is derived.
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
    /// One on its way: its application is quitting, its removal may begin, or is under way.
    struct Uninstall {
        enum class Stage { quitting, due, removing };

        std::string bundlePath;
        Selection entries;
        SeenItems seen;
        Stage stage = Stage::quitting;
    };
    void uninstallIsDue(const std::string &bundlePath);
    /// Begins the first removal that is due, unless one is under way.
    void removeNextUninstall();
    /// Forgets the one whose removal has ended; whether there was one.
    bool endUninstall();
    void followRemovalInApps(std::span<const SelectedEntry> gone, bool wasUninstall);

    // The removal.
    void applyToTree(std::span<const SelectedEntry> gone, std::span<const std::shared_ptr<FileNode>> remains);
    /// Updates the installed tree and the folder shown; whether anything has changed.
    bool updateTree(std::span<const SelectedEntry> gone, std::span<const std::shared_ptr<FileNode>> remains);

    // The system.
    void refreshVolume();
    /// Says in the toast that something cannot be done ("scan") with an item, and why.
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
    std::string m_folderToShow;                     // when the running scan ends; empty for its root
    std::vector<SelectedEntry> m_removedDuringScan; // the running walk may still have seen them
    std::shared_ptr<void> m_fullSpeed;              // while a scan runs
    QTimer m_timer;
    QElapsedTimer m_scanStart;
    QElapsedTimer m_scanEnd;

    std::optional<DiskBreakdown> m_breakdown;
    bool m_breakdownHasTree = false; // whether the newest request is about the installed tree
    std::vector<CleanupItem> m_cleanupItems;
    std::vector<AdminCommand> m_cleanupCommands;
    AppInventory::Result m_inventory;
    bool m_appsLoaded = false;
    std::vector<Uninstall> m_uninstalls; // in the order of the requests

    FoundDuplicates m_duplicates;
    Phase m_duplicatePhase = Phase::idle;
    double m_duplicateProgress = 0;

    SelectedItems m_selected;

    VolumeInfo m_volume;
    bool m_hasFullDiskAccess = false;
    bool m_showFeedback = false;
    std::optional<std::string> m_toast;
    bool m_toastIsWarning = false;

    // Last, so that their destructors, which wait for the work, run before anything that the work uses goes. Each has
    // threads of its own: measuring may take long, and no other work must wait for it.
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
