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
    std::string_view name; ///< bytes; dies with the call of the sink
    EntryType type = EntryType::file;
    bool isPackage = false;      ///< a folder that the system presents as one document
    std::int64_t allocated = 0;  ///< bytes on disk; files only; 0 where the system cannot tell
    std::int64_t length = 0;     ///< bytes that a reader gets; files only
    Time modified = distantPast; ///< files only; a folder tells its own once it is open
    std::uint32_t links = 1;     ///< how many names a file has
    std::uint64_t inode = 0;     ///< a file's number on its device; 0 where unknown
};

/// What a listing does after an entry.
enum class Listing : std::uint8_t { goOn, stop };

/// Takes the entries of a listing. A function that returns nothing takes them all; one that returns a `Listing` may end
/// it, since a file system in user space may have folders without end.
class EntrySink {
public:
    template <typename Take>
    EntrySink(Take take) : m_take(always(std::move(take)))
    {
    } // NOLINT: made of a lambda

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

/// Tells one open folder from another, however it was reached. One that is not known, which is all zeros, equals
/// none, not even itself.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const FolderIdentity &a, const FolderIdentity &b)
    {
        return a.device == b.device && a.inode == b.inode && (a.device != 0 || a.inode != 0);
    }
};

/// A folder that is open for reading; closed by its destructor. Used by one thread at a time, except that several may
/// call `openChild` at once, and `identity` once one thread has asked for it.
class OpenFolder {
public:
    OpenFolder() = default;
    OpenFolder(const OpenFolder &) = delete;
    OpenFolder &operator=(const OpenFolder &) = delete;
    virtual ~OpenFolder() = default;

    /// Hands every entry but "." and ".." to the sink, in the system's order, in one pass. Entries that
    /// vanish meanwhile are left out; an entry whose facts cannot be read comes as a file of 0 bytes. Fails with
    /// `std::errc::operation_canceled` where the sink ended it.
    [[nodiscard]] virtual Expected<void> list(const EntrySink &sink) = 0;

    /// Opens a folder directly inside this one by its name, never through a symbolic link.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) = 0;

    /// Opens the folder that now contains this one.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openParent() = 0;

    [[nodiscard]] virtual FolderIdentity identity() const = 0;

    /// The folder's own modification date, `distantPast` where unknown.
    [[nodiscard]] virtual Time modified() const = 0;

    /// The bytes that the folder itself takes on disk, for the names of its items; 0 where unknown.
    [[nodiscard]] virtual std::int64_t allocated() const { return 0; }

    /// The system's number of the open folder; -1 where it has none.
    [[nodiscard]] virtual int descriptor() const { return -1; }

    /// Makes what this is of the same folder, opened anew from inside it; empty where that is one already.
    using Wrapping = std::function<std::unique_ptr<OpenFolder>(std::unique_ptr<OpenFolder>)>;
    [[nodiscard]] virtual Wrapping wrapping() const { return {}; }
};

/// Tells one item from whatever takes its place: its kind, and its number on its device. All zeros where unknown.
struct ItemIdentity {
    EntryType type = EntryType::file;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    [[nodiscard]] bool isKnown() const { return device != 0 || inode != 0; }

    friend bool operator==(const ItemIdentity &, const ItemIdentity &) = default;
};

/// What one path is, looked at without following a link in its last component.
struct ItemFacts {
    EntryType type = EntryType::file;
    bool isPackage = false;
    std::int64_t allocated = 0; ///< the item's own bytes on disk; nothing beneath it is counted
    Time modified = distantPast;
    ItemIdentity identity = {};
};

class FileReader;
class HeldFolder;

/// Where a system keeps something: as the user has set it, and where it lies by default.
struct OwnPlace {
    std::string path;
    std::string usual;

    friend bool operator==(const OwnPlace &, const OwnPlace &) = default;
};

/// Files and folders as the system sees them. Every call may be made from any thread; paths are bytes.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Opens a folder by its path; a link in the last component is followed.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) = 0;

    [[nodiscard]] virtual Expected<ItemFacts> facts(const std::string &path) = 0;

    /// The name of the user whom the item belongs to; absent where the system does not tell.
    [[nodiscard]] virtual std::optional<std::string> ownerOf(const std::string & /*path*/) { return std::nullopt; }

    /// Whether something exists at the path, links followed.
    [[nodiscard]] virtual bool exists(const std::string &path) = 0;

    /// Whether the path can be opened for reading; it is closed again at once.
    [[nodiscard]] virtual bool canOpen(const std::string &path) = 0;

    /// The bytes of a regular file, a link to one followed. Fails without waiting where it holds more than `most`
    /// (`std::errc::file_too_large`) and for a folder, a pipe, a device or the like.
    [[nodiscard]] virtual Expected<std::string> readFile(const std::string &path, std::size_t most);

    /// Opens a regular file for reading, without waiting; a link is not followed. Whatever else lies there is not
    /// opened.
    [[nodiscard]] virtual Expected<std::unique_ptr<FileReader>> openFile(const std::string &path);

    /// The path with every link resolved; the item must exist.
    [[nodiscard]] virtual Expected<std::string> realPath(const std::string &path) = 0;

    /// Opens the folder at the path, links followed once, and keeps it: what is done to an item inside is done there.
    [[nodiscard]] virtual Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) = 0;

    /// The folders on which a file system is mounted, "/" included; told without asking any of them.
    [[nodiscard]] virtual Expected<std::vector<std::string>> mountPoints() = 0;

    /// The user's home folder, without a trailing slash.
    [[nodiscard]] virtual std::string homeFolder() = 0;

    /// Which system the root describes, by whether it holds `macSystemFile`. Looked at once.
    [[nodiscard]] virtual SystemKind systemKind();

    /// What people call the disk that holds "/", by its label or the system on it; absent where only the volume has a
    /// name.
    [[nodiscard]] virtual std::optional<std::string> diskName() { return std::nullopt; }

    /// What is mounted, each mount point once, with what is seen there; empty where the system does not tell. Touches
    /// none of the mounted file systems.
    [[nodiscard]] virtual std::vector<MountedFolder> mounts() { return {}; }

    /// The folders on which file systems are mounted that may not answer, since they lie behind a network or in
    /// another program; told without asking any of them.
    [[nodiscard]] virtual std::vector<std::string> unsureMounts();

    /// Where this system keeps what a Mac, or a tool by default, keeps in that folder of the home
    /// (a path relative to it), if it has a place of its own for it; a Mac has none. The place need not exist.
    [[nodiscard]] virtual std::optional<OwnPlace> ownPlaceFor(std::string_view /*macPlace*/) { return std::nullopt; }

    /// The folders for documents, pictures and the like that the user has chosen (absolute paths), where the system
    /// lets them be chosen; one that stands for two is named twice. They need not exist.
    [[nodiscard]] virtual std::vector<std::string> userFolders() { return {}; }

    /// The folders in which the applications of every user keep what they share with the desktop (absolute paths, the
    /// most important first), where the system lets them be chosen. They need not exist.
    [[nodiscard]] virtual std::vector<std::string> sharedDataFolders() { return {}; }

    /// The folders of what this user has put into the Trash of volumes other than the home's. Asks only volumes on
    /// disks of this computer, since one behind a network may not answer. None where the Trash is not trustworthy.
    [[nodiscard]] virtual std::vector<std::string> volumeTrashes() { return {}; }

private:
    std::once_flag m_kindKnown;
    SystemKind m_kind = SystemKind::mac; // written once
};

} // namespace corvane
