#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/call_log.h"
#include "platform/file_system.h"
#include "platform/trash.h"

namespace corvane {

/// A file system in memory for tests of what stands above the seam. A test describes its tree with absolute
/// paths; the folders that lead to a new item are made. A listing's order is the order of making. Any thread.
///
/// Recorded calls: "openFolder P", "list P", "openChild P" (the child's path), "openParent P", "facts P",
/// "exists P", "canOpen P", "readFile P", "openFile P", "realPath P", "holdFolder P", "removeItem P", "moveItem P". An
/// open folder is recorded by where it lies at that moment, a held one by the path that it was opened by. `homeFolder`
/// and `mountPoints` are not recorded.
class FakeFileSystem final : public FileSystem {
public:
    /// Holds "/" and the home folder, nothing else.
    explicit FakeFileSystem(std::shared_ptr<CallLog> log = std::make_shared<CallLog>());
    ~FakeFileSystem() override;

    // --- The tree ---------------------------------------------------------------------------------------

    /// A folder is a package when its extension is in `packageExtensions`, unless `setPackage` says otherwise.
    void addFolder(const std::string &path, Time modified = distantPast);
    void addFile(const std::string &path, std::int64_t allocated, Time modified = distantPast);
    /// A file that can be read.
    void addText(const std::string &path, std::string content, std::int64_t allocated = 4'096,
                 Time modified = distantPast);
    void addLink(const std::string &path, const std::string &target);
    void setPackage(const std::string &path, bool isPackage);

    /// Another device's folder, as where a volume is mounted. Items made beneath it later belong to it too.
    void setDevice(const std::string &path, std::uint64_t device);

    /// The answer of `mountPoints`; "/" alone at first, and an error where it is absent.
    void setMountPoints(std::optional<std::vector<std::string>> points);

    /// Makes an item the same as another one, as a folder is that is mounted a second time and a file that has two
    /// names.
    void identify(const std::string &path, const std::string &other);

    /// Moves the item with everything beneath it out of the tree, into a folder that no path leads to.
    [[nodiscard]] TrashedItem moveOut(const std::string &path);

    /// Takes the item and everything beneath it away; folders that are open stay open.
    void take(const std::string &path);

    /// Moves an item with everything beneath it; folders that are open move along.
    void move(const std::string &from, const std::string &to);

    /// Whether the tree holds the item itself: not recorded, links not followed.
    [[nodiscard]] bool has(const std::string &path) const;

    void setHome(const std::string &path);
    /// A Linux system of which no mounts are known unless the test says otherwise.
    void setSystemKind(SystemKind kind);
    void addMount(MountedFolder mount);
    /// Whose an item is that no test said anything of, the system does not tell.
    void setOwner(const std::string &path, std::string owner);
    void setDiskName(std::string name);
    void setUserFolders(std::vector<std::string> folders);
    /// The folders of each kind; none at first.
    void setSharedDataFolders(std::vector<std::string> folders);
    void setVolumeTrashes(std::vector<std::string> folders);
    void setOwnPlace(const std::string &macPlace, OwnPlace place);
    void setPackageExtensions(std::set<std::string> extensions);

    // --- Trouble ----------------------------------------------------------------------------------------

    /// Opening the item fails; its facts can still be had, and it can be listed from outside.
    void failOpening(const std::string &path, std::errc code = std::errc::permission_denied);

    /// Opening the folder works, listing it fails after `entries` entries.
    void failListing(const std::string &path, std::errc code = std::errc::io_error, std::size_t entries = 0);

    /// The item's facts cannot be read: `facts` fails, a listing has it as a file of 0 bytes.
    void failFacts(const std::string &path, std::errc code = std::errc::io_error);

    /// A listing still names the item, but whoever looks closer finds nothing.
    void makeVanish(const std::string &path);

    /// Deleting the item fails with that error; of a folder around it, everything else goes.
    void failRemoval(const std::string &path, std::errc code, std::string text = {});

    [[nodiscard]] const std::shared_ptr<CallLog> &log() const { return m_log; }

    // --- FileSystem -------------------------------------------------------------------------------------

    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) override;
    [[nodiscard]] Expected<ItemFacts> facts(const std::string &path) override;
    [[nodiscard]] std::optional<std::string> ownerOf(const std::string &path) override;
    [[nodiscard]] bool exists(const std::string &path) override;
    [[nodiscard]] bool canOpen(const std::string &path) override;
    [[nodiscard]] Expected<std::unique_ptr<FileReader>> openFile(const std::string &path) override;
    [[nodiscard]] Expected<std::string> readFile(const std::string &path, std::size_t most) override;
    [[nodiscard]] Expected<std::string> realPath(const std::string &path) override;
    [[nodiscard]] Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override;
    [[nodiscard]] Expected<std::vector<std::string>> mountPoints() override;
    [[nodiscard]] std::string homeFolder() override;
    [[nodiscard]] SystemKind systemKind() override;
    [[nodiscard]] std::optional<std::string> diskName() override;
    [[nodiscard]] std::vector<MountedFolder> mounts() override;
    [[nodiscard]] std::optional<OwnPlace> ownPlaceFor(std::string_view macPlace) override;
    [[nodiscard]] std::vector<std::string> userFolders() override;
    [[nodiscard]] std::vector<std::string> sharedDataFolders() override;
    [[nodiscard]] std::vector<std::string> volumeTrashes() override;

private:
    struct Item;
    class Folder;
    class Held;
    class Reader;
    using ItemPointer = std::shared_ptr<Item>;
    enum class LastLink { follow, keep };

    [[nodiscard]] Expected<ItemPointer> find(const std::string &path, LastLink lastLink) const;
    [[nodiscard]] ItemPointer demand(const std::string &path) const;
    ItemPointer make(const std::string &path, EntryType type);
    ItemPointer makeFolders(const std::string &path);
    [[nodiscard]] bool isPackage(const Item &item) const;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> open(const ItemPointer &item, const std::string &path);
    [[nodiscard]] static std::string pathOf(const Item &item);
    [[nodiscard]] Expected<ItemFacts> factsOf(const Item &item, const std::string &path) const;
    [[nodiscard]] static ItemIdentity identityOf(const Item &item);
    static void detach(const ItemPointer &item);
    static void attach(const ItemPointer &item, const ItemPointer &parent, const std::string &name);
    static Expected<void> removeTree(const ItemPointer &item, const std::string &path);

    const std::shared_ptr<CallLog> m_log; // constant after construction

    mutable std::mutex m_mutex;
    // Guarded by m_mutex, and so is every item.
    ItemPointer m_root;
    std::string m_home;
    std::set<std::string> m_packageExtensions;
    std::optional<std::vector<std::string>> m_mountPoints{{"/"}};
    std::uint64_t m_lastInode = 1;
    SystemKind m_kind = SystemKind::linuxSystem;
    std::vector<MountedFolder> m_mounts;
    std::optional<std::string> m_diskName;
    std::vector<std::string> m_userFolders;
    std::vector<std::string> m_sharedDataFolders;
    std::vector<std::string> m_volumeTrashes;
    std::map<std::string, OwnPlace, std::less<>> m_ownPlaces;
    std::map<std::string, std::string> m_owners;
};

} // namespace corvane
