#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_descriptor.h"

namespace corvane {

/// Where a Trash is or would be: a path relative to a folder that is open.
struct TrashPlace {
    FileDescriptor base;  ///< not open: `relative` is absolute
    std::string basePath; ///< the path of that folder, the top of a volume; empty: the same
    std::string relative;

    [[nodiscard]] std::string path() const;

    /// Opens the Trash itself.
    [[nodiscard]] FileDescriptor open() const;
};

/// The Trash folders that GIO may choose for an item in that open folder: the user's own, and for an item on another
/// volume the two at its top. Those that do not exist are among them. Goes up from the folder itself, and asks no
/// other volume than the folder's and the home's. `path` is the folder's.
[[nodiscard]] std::vector<TrashPlace> trashPlacesFor(int folder, const std::string &path);

/// The two parts of a Trash: where the items lie, and where it is noted what they are. Not open where they are missing.
struct OpenTrash {
    FileDescriptor items;
    FileDescriptor records;
    std::string itemsPath;
    std::string top; ///< of its volume; empty for the one in the home

    [[nodiscard]] static OpenTrash at(const TrashPlace &place);
};

/// What a record's "Path" is for an item of that path: percent-encoded, and for the Trash at the top of a volume
/// relative to it. Nothing where the item does not lie beneath the top.
[[nodiscard]] std::optional<std::string> notedPath(const std::string &path, const std::string &top, bool isWhole);

/// Moves an item into a Trash as `moveAt` does. A folder takes its entry ".." along, so that whoever moves it must be
/// allowed to write to it; one of the user's own that is read-only, as tools make theirs, is made writable for that
/// moment.
[[nodiscard]] bool moveIntoTrash(int folder, const std::string &name, int items, const std::string &itemName);

/// Whether the path is that of the folder of items in a Trash of this user, or lies beneath one. Judges the text alone.
[[nodiscard]] bool liesInTrash(const std::string &path);

/// The name that GIO tries as its `attempt`-th for an item, the first being 1.
[[nodiscard]] std::string trashName(const std::string &name, int attempt);

/// What the record of an item that has that name in the Trash is called.
[[nodiscard]] std::string recordName(const std::string &name);

} // namespace corvane
