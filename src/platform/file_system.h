#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"
#include "platform/time.h"

namespace corvane {

enum class EntryType : std::uint8_t { file, directory, symbolicLink };

/// One item of a folder's listing. Anything that is neither a folder nor a symbolic link is a `file`.
struct DirectoryEntry {
    std::string_view name; ///< bytes; dies with the call of the sink
    EntryType type = EntryType::file;
    bool isPackage = false;      ///< a folder that the system presents as one document
    std::int64_t allocated = 0;  ///< bytes on disk; files only; 0 where the system cannot tell
    Time modified = distantPast; ///< files only; a folder tells its own once it is open
};

using EntrySink = std::function<void(const DirectoryEntry &)>;

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

/// A folder that is open for reading; closed by its destructor. Used by one thread at a time, except that
/// several may call `openChild` at once.
class OpenFolder {
public:
    OpenFolder() = default;
    OpenFolder(const OpenFolder &) = delete;
    OpenFolder &operator=(const OpenFolder &) = delete;
    virtual ~OpenFolder() = default;

    /// Hands every entry but "." and ".." to the sink, in the system's order, in one pass. Entries that
    /// vanish meanwhile are left out; an entry whose facts cannot be read comes as a file of 0 bytes.
    [[nodiscard]] virtual Expected<void> list(const EntrySink &sink) = 0;

    /// Opens a folder directly inside this one by its name, never through a symbolic link.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) = 0;

    /// Opens the folder that now contains this one.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openParent() = 0;

    [[nodiscard]] virtual FolderIdentity identity() const = 0;

    /// The folder's own modification date, `distantPast` where unknown.
    [[nodiscard]] virtual Time modified() const = 0;

    /// The system's number of the open folder; -1 where it has none.
    [[nodiscard]] virtual int descriptor() const { return -1; }
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

class HeldFolder;

/// Files and folders as the system sees them. Every call may be made from any thread; paths are bytes.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Opens a folder by its path; a link in the last component is followed.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &path) = 0;

    [[nodiscard]] virtual Expected<ItemFacts> facts(const std::string &path) = 0;

    /// Whether something exists at the path, links followed.
    [[nodiscard]] virtual bool exists(const std::string &path) = 0;

    /// Whether the path can be opened for reading; it is closed again at once.
    [[nodiscard]] virtual bool canOpen(const std::string &path) = 0;

    /// The path with every link resolved; the item must exist.
    [[nodiscard]] virtual Expected<std::string> realPath(const std::string &path) = 0;

    /// Opens the folder at the path, links followed once, and keeps it: what is done to an item inside is done there.
    [[nodiscard]] virtual Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) = 0;

    /// The folders on which a file system is mounted, "/" included; told without asking any of them.
    [[nodiscard]] virtual Expected<std::vector<std::string>> mountPoints() = 0;

    /// The user's home folder, without a trailing slash.
    [[nodiscard]] virtual std::string homeFolder() = 0;

    /// Where this system keeps what a Mac keeps in that folder of the home (a path relative to it), if it has a
    /// place of its own for it; a Mac has none. The place need not exist.
    [[nodiscard]] virtual std::optional<std::string> ownPlaceFor(std::string_view /*macPlace*/) { return std::nullopt; }
};

} // namespace corvane
