#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_descriptor.h"

namespace corvane {

/// The location of an existing or possible Trash: a path relative to an open folder.
struct TrashPlace {
    FileDescriptor base;  ///< if not open, `relative` is absolute
    std::string basePath; ///< path of that folder, the top of a volume; empty if not open
    std::string relative;

    [[nodiscard]] std::string path() const;

    /// Opens the Trash itself.
    [[nodiscard]] FileDescriptor open() const;
};

/// The Trash folders that GIO may choose for an item in that open folder: the user's own and, for an item on another
/// volume, the two at its top; existing or not. Goes up from the folder itself and accesses no volume other than the
/// folder's and the home folder's. `path` is the folder's.
[[nodiscard]] std::vector<TrashPlace> trashPlacesFor(int folder, const std::string &path);

/// The two parts of a Trash: the items and their records. Not open if missing.
struct OpenTrash {
    FileDescriptor items;
    FileDescriptor records;
    std::string itemsPath;
    std::string top; ///< of its volume; empty for the one in the home folder

    [[nodiscard]] static OpenTrash at(const TrashPlace &place);
};

/// The "Path" value in the record of an item: percent-encoded, and relative to the top of the volume for a Trash there
/// unless `isWhole`. Nothing if it is to be relative and the item is not below the top.
[[nodiscard]] std::optional<std::string> notedPath(const std::string &path, const std::string &top, bool isWhole);

/// Moves an item into a Trash as `moveAt` does. Moving a folder changes its ".." entry, which requires write permission
/// on the folder; a read-only one owned by the user, as some tools create, is made writable temporarily.
[[nodiscard]] bool moveIntoTrash(int folder, const std::string &name, int items, const std::string &itemName);

/// Whether the path is the items folder of one of this user's Trash folders, or inside it. Purely textual.
[[nodiscard]] bool liesInTrash(const std::string &path);

/// The name that GIO tries on attempt number `attempt` for an item, starting from 1.
[[nodiscard]] std::string trashName(const std::string &name, int attempt);

/// The record's file name for an item with that name in the Trash.
[[nodiscard]] std::string recordName(const std::string &name);

} // namespace corvane
