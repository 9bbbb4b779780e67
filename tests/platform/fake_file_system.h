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

/// A file system in memory for tests of code above the platform layer. A test describes its tree with absolute paths;
/// missing parent folders are created. Listings are in order of creation. Any thread.
///
/// Recorded calls: "openFolder P", "list P", "openChild P" (the child's path), "openParent P", "facts P", "exists P",
/// "canOpen P", "readFile P", "openFile P", "realPath P", "holdFolder P", "removeItem P", "moveItem P". An open folder
/// is recorded by its current path, a held one by the path that it was opened with. `homeFolder` and `mountPoints` are
/// not recorded.
class FakeFileSystem final : public FileSystem {
public:
    /// Contains only "/" and the home folder.
    explicit FakeFileSystem(std::shared_ptr<CallLog> log = std::make_shared<CallLog>());
    ~FakeFileSystem() override;

    // --- The tree ---------------------------------------------------------------------------------------

    /// A folder is a package if its extension is in `packageExtensions`, unless `setPackage` overrides that.
    void addFolder(const std::string &path, Time modified = distantPast);
    void addFile(const std::string &path, std::int64_t allocated, Time modified = distantPast);
    /// Adds a readable file.
    void addText(const std::string &path, std::string content, std::int64_t allocated = 4'096,
                 Time modified = distantPast);
    void addLink(const std::string &path, const std::string &target);
    void setPackage(const std::string &path, bool isPackage);

    /// Makes a folder belong to another device, like a mount point. Items created below it later belong to it too.
    void setDevice(const std::string &path, std::uint64_t device);

    /// The result of `mountPoints`; initially "/" alone. nullopt makes the call fail.
    void setMountPoints(std::optional<std::vector<std::string>> points);

    /// Gives an item the identity of another one, like a folder that is mounted a second time or a file with two hard
    /// links.
    void identify(const std::string &path, const std::string &other);

    /// Moves the item with its contents out of the tree, into a folder without a path.
    [[nodiscard]] TrashedItem moveOut(const std::string &path);

    /// Removes the item with its contents; open folders stay open.
    void take(const std::string &path);

    /// Moves an item with its contents; open folders move along.
    void move(const std::string &from, const std::string &to);

    /// Whether the tree contains the item itself: not recorded, does not follow links.
    [[nodiscard]] bool has(const std::string &path) const;

    void setHome(const std::string &path);
    /// Initially Linux, without any known mounts.
    void setSystemKind(SystemKind kind);
    void addMount(MountedFolder mount);
    /// The owner of other items is unknown.
    void setOwner(const std::string &path, std::string owner);
    void setDiskName(std::string name);
    void setUserFolders(std::vector<std::string> folders);
    /// The folders of each kind; initially none.
    void setSharedDataFolders(std::vector<std::string> folders);
    void setVolumeTrashes(std::vector<std::string> folders);
    void setOwnPlace(const std::string &macPlace, OwnPlace place);
    void setPackageExtensions(std::set<std::string> extensions);

    // --- Failures ---------------------------------------------------------------------------------------

    /// Makes opening the item fail; its facts can still be read, and it is still listed by its parent.
    void failOpening(const std::string &path, std::errc code = std::errc::permission_denied);

    /// Makes listing the folder fail after `entries` entries; opening it succeeds.
    void failListing(const std::string &path, std::errc code = std::errc::io_error, std::size_t entries = 0);

    /// Makes reading the item's facts fail: `facts` returns an error, a listing shows a file of 0 bytes.
    void failFacts(const std::string &path, std::errc code = std::errc::io_error);

    /// Makes the item disappear after listing: a listing still includes it, but any other call fails to find it.
    void makeVanish(const std::string &path);

    /// Makes deleting the item fail with this error; removing a parent folder still deletes everything else.
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
    // All items are guarded by m_mutex, too.
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
