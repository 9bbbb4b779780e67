#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/mounted_folder.h"
#include "platform/system_kind.h"
#include "platform/time.h"

namespace corvane {

enum class EntryType : std::uint8_t { file, directory, symbolicLink };

/// One item of a folder's listing. Anything that is neither a folder nor a symbolic link is a `file`.
struct DirectoryEntry {
    std::string_view name; ///< bytes; valid only during the call of the sink
    EntryType type = EntryType::file;
    bool isPackage = false;      ///< a folder that the system presents as one document
    std::int64_t allocated = 0;  ///< bytes on disk; files only; 0 if unknown
    std::int64_t length = 0;     ///< apparent length in bytes; files only
    Time modified = distantPast; ///< files only; use the open folder's `modified()` for folders
    std::uint32_t links = 1;     ///< number of hard links of a file
    std::uint64_t inode = 0;     ///< inode of a file; 0 if unknown
};

/// Returned by a sink after each entry.
enum class Listing : std::uint8_t { goOn, stop };

/// Receives the entries of a listing. A callable that returns nothing takes them all; one that returns a `Listing` can
/// stop early, since a FUSE file system may have endless folders.
class EntrySink {
public:
    template <typename Take>
    EntrySink(Take take) : m_take(always(std::move(take)))
    {
    } // NOLINT: implicit, for lambdas

    Listing operator()(const DirectoryEntry &entry) const { return m_take(entry); }

private:
    template <typename Take>
    static std::function<Listing(const DirectoryEntry &)> always(Take take)
    {
        if constexpr (std::is_void_v<std::invoke_result_t<Take &, const DirectoryEntry &>>) {
            return [take = std::move(take)](const DirectoryEntry &entry) mutable {
                take(entry);
                return Listing::goOn;
            };
        } else {
            return take;
        }
    }

    std::function<Listing(const DirectoryEntry &)> m_take;
};

/// Identifies an open folder, however it was reached. An unknown identity, all zeros, equals none, not even itself.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FolderIdentity &a, const FolderIdentity &b)
    {
        return a.device == b.device && a.inode == b.inode && (a.device != 0 || a.inode != 0);
    }
};

/// A folder opened for reading; closed by its destructor. One thread at a time, except that several may call
/// `openChild` at once, and `identity` after one thread has called it.
class OpenFolder {
public:
    OpenFolder() = default;
    OpenFolder(const OpenFolder &) = delete;
    OpenFolder &operator=(const OpenFolder &) = delete;
    virtual ~OpenFolder() = default;

    /// Passes every entry except "." and ".." to the sink in one pass, in the system's order. Entries that vanish
    /// meanwhile are skipped; an entry whose attributes cannot be read is passed as a file of 0 bytes. Fails with
    /// `std::errc::operation_canceled` if the sink stopped.
    [[nodiscard]] virtual Expected<void> list(const EntrySink &sink) = 0;

    /// Opens a folder directly inside this one by its name, never through a symbolic link.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) = 0;

    /// Opens the folder that now contains this one.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openParent() = 0;

    [[nodiscard]] virtual FolderIdentity identity() const = 0;

    /// The folder's own modification date, `distantPast` if unknown.
    [[nodiscard]] virtual Time modified() const = 0;

    /// The bytes that the folder itself occupies on disk for its entries; 0 if unknown.
    [[nodiscard]] virtual std::int64_t allocated() const { return 0; }

    /// The descriptor of the open folder; -1 if it has none.
    [[nodiscard]] virtual int descriptor() const { return -1; }

    /// Wraps a reopened folder in the same decorator as this one; empty if this one is not decorated.
    using Wrapping = std::function<std::unique_ptr<OpenFolder>(std::unique_ptr<OpenFolder>)>;
    [[nodiscard]] virtual Wrapping wrapping() const { return {}; }
};

/// Distinguishes an item from a replacement: its type, device and inode. All zeros if unknown.
struct ItemIdentity {
    EntryType type = EntryType::file;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    [[nodiscard]] bool isKnown() const { return device != 0 || inode != 0; }

    friend bool operator==(const ItemIdentity &, const ItemIdentity &) = default;
};

/// Attributes of the item at a path, without following a link in the last component.
struct ItemFacts {
    EntryType type = EntryType::file;
    bool isPackage = false;
    std::int64_t allocated = 0; ///< the item's own bytes on disk, without its contents
    Time modified = distantPast;
    ItemIdentity identity = {};
};

class FileReader;
class HeldFolder;

/// The location that a system uses for something: as configured by the user, and the default.
struct OwnPlace {
    std::string path;
    std::string usual;

    friend bool operator==(const OwnPlace &, const OwnPlace &) = default;
};

/// The system's files and folders. Every call may be made from any thread; paths are bytes.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Opens a folder by path, following a link in the last component.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) = 0;

    [[nodiscard]] virtual Expected<ItemFacts> facts(const std::string &path) = 0;

    /// The name of the user who owns the item; nothing if unknown.
    [[nodiscard]] virtual std::optional<std::string> ownerOf(const std::string & /*path*/) { return std::nullopt; }

    /// Whether something exists at the path, following links.
    [[nodiscard]] virtual bool exists(const std::string &path) = 0;

    /// Whether the path can be opened for reading. It is closed at once.
    [[nodiscard]] virtual bool canOpen(const std::string &path) = 0;

    /// The bytes of a regular file, following links. Does not block; fails for a file of more than `most` bytes
    /// (`std::errc::file_too_large`) and for a folder, pipe, device or the like.
    [[nodiscard]] virtual Expected<std::string> readFile(const std::string &path, std::size_t most);

    /// Opens a regular file for reading, without blocking and without following a link. Anything else is not opened.
    [[nodiscard]] virtual Expected<std::unique_ptr<FileReader>> openFile(const std::string &path);

    /// The path with every link resolved; the item must exist.
    [[nodiscard]] virtual Expected<std::string> realPath(const std::string &path) = 0;

    /// Opens the folder at the path, following links once, and keeps it open: operations on items inside use this
    /// handle.
    [[nodiscard]] virtual Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) = 0;

    /// All mount points, including "/"; found without accessing any of the mounts.
    [[nodiscard]] virtual Expected<std::vector<std::string>> mountPoints() = 0;

    /// The user's home folder, without a trailing slash.
    [[nodiscard]] virtual std::string homeFolder() = 0;

    /// The kind of system in the root, determined by whether it contains `macSystemFile`. Checked once.
    [[nodiscard]] virtual SystemKind systemKind();

    /// A display name for the disk that holds "/", from its label or the installed system; nothing if only the volume
    /// has a name.
    [[nodiscard]] virtual std::optional<std::string> diskName() { return std::nullopt; }

    /// The mounts, each mount point once, with what is visible there; empty if unknown. Does not access the mounted
    /// file systems.
    [[nodiscard]] virtual std::vector<MountedFolder> mounts() { return {}; }

    /// Mount points of file systems that may not answer because they are on a network or served by another program;
    /// found without accessing any of them.
    [[nodiscard]] virtual std::vector<std::string> unsureMounts();

    /// This system's own location for what a Mac, or a tool by default, keeps in that folder of the home (a relative
    /// path), if it has one; a Mac has none. The location need not exist.
    [[nodiscard]] virtual std::optional<OwnPlace> ownPlaceFor(std::string_view /*macPlace*/) { return std::nullopt; }

    /// The configured folders for documents, pictures and the like (absolute paths), if the system allows configuring
    /// them; one with two roles is listed twice. They need not exist.
    [[nodiscard]] virtual std::vector<std::string> userFolders() { return {}; }

    /// The folders in which applications of all users share data with the desktop (absolute paths, highest priority
    /// first), if the system allows configuring them. They need not exist.
    [[nodiscard]] virtual std::vector<std::string> sharedDataFolders() { return {}; }

    /// The folders with this user's trashed items on volumes other than the home folder's. Accesses only local disks,
    /// since a network volume may not answer. Skips a Trash that is not trustworthy.
    [[nodiscard]] virtual std::vector<std::string> volumeTrashes() { return {}; }

private:
    std::once_flag m_kindKnown;
    SystemKind m_kind = SystemKind::mac; // written once
};

} // namespace corvane
