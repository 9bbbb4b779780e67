#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/folder_path.h"
#include "platform/time.h"

namespace corvane {

/// One item of a scanned tree. Owned by its parent's `children`, the root by whoever holds the tree; a node held longer
/// than its tree stays valid but loses its parent. Filled by one scanner thread at a time; once a tree is installed,
/// read and changed on the main thread only. Nodes are compared by identity.
///
/// A home folder has hundreds of thousands of items, so nodes do not store their whole path: the children of a folder
/// share one record for it, and `path()` is assembled on demand.
class FileNode {
public:
    enum class Kind : std::uint8_t { file, directory, package };

    /// The root of a tree: `path` is absolute, standardized bytes. `diskName` is the display name of "/".
    FileNode(std::string_view path, Kind kind, std::string_view diskName = "Macintosh HD");

    /// An item inside `folder`. `folderPath` is the folder's `pathForChildren()`, obtained once for all children.
    FileNode(FolderPath folderPath, std::string name, Kind kind, const std::shared_ptr<FileNode> &folder);

    FileNode(const FileNode &) = delete;
    FileNode &operator=(const FileNode &) = delete;

    /// Frees the subtree without recursion: a tree may be thousands of levels deep.
    ~FileNode();

    /// The item's absolute path, bytes.
    [[nodiscard]] std::string path() const;

    /// The path of the containing folder, bytes; valid after the parent is gone. "/" for the root of the whole disk.
    [[nodiscard]] std::string folderPath() const;

    /// This folder's path, to be shared by its child nodes.
    [[nodiscard]] FolderPath pathForChildren() const;

    /// `folderPath()` with the user's home folder shortened to "~".
    [[nodiscard]] std::string parentPath() const;

    /// The same, for any home folder.
    [[nodiscard]] std::string parentPath(std::string_view home) const;

    /// "Folder", or the label of the item's file type.
    [[nodiscard]] std::string_view kindLabel() const;

    /// Whether `path()` equals the text, without assembling the path.
    [[nodiscard]] bool hasPath(std::string_view path) const;

    /// The hash of `path()` under `hashPath`, without assembling the path.
    [[nodiscard]] std::uint64_t pathHash() const;

    /// What follows the last dot of the path's last component.
    [[nodiscard]] std::string_view extension() const;

private:
    // The path of the containing folder; for the root, the root's own whole path.
    FolderPath m_folderPath;

public:
    const std::string name;           ///< bytes to display: the last path component; for "/" the disk's name
    std::int64_t size = 0;            ///< bytes allocated for the item and everything inside it
    std::int64_t fileCount = 0;       ///< files inside it; 1 for a file
    std::int64_t smallFilesSize = 0;  ///< bytes of the small files directly inside, which have no nodes
    std::int64_t smallFilesCount = 0; ///< the number of those files
    Time modified = distantPast;
    std::weak_ptr<FileNode> parent;
    std::vector<std::shared_ptr<FileNode>> children; ///< largest first
    const Kind kind;
    bool unreadable = false; ///< the listing could not be read
    bool removed = false;    ///< removed since the scan

private:
    const bool m_isRoot;
};

/// Adds a separately measured tree to `folder` of an installed one: the size and count of every ancestor grow, and each
/// is moved to its place among its siblings. `root`'s children move to the node created for it. An item for which a
/// scan creates no node is counted as a scan counts it.
/// @return the node created for `root`; null if there is none
std::shared_ptr<FileNode> attach(const std::shared_ptr<FileNode> &folder, FileNode &root);

/// Takes a node out of the tree: removes it from its parent's `children`, subtracts its size and count from every
/// ancestor, moves each to its place among its siblings, and marks the node `removed`. Returns false and does nothing
/// if the node is the root, or if it or an ancestor is already marked. This and `attach` are the only changes made to
/// an installed tree. A node without another owner is destroyed.
bool detach(FileNode &node);

/// The same for any number of a folder's children in one pass over the folder and its ancestors. Nodes that are already
/// marked, or are not children of the folder, stay.
/// @return the detached nodes, in their order
[[nodiscard]] std::vector<std::shared_ptr<FileNode>> detach(FileNode &folder,
                                                            const std::unordered_set<const FileNode *> &nodes);

/// Checks that every folder's size is the sum of its small files and its children, that its count is at least theirs (a
/// folder of empty files has no node), and that every child's parent is its folder. For tests and debug builds; walks
/// the whole tree.
[[nodiscard]] bool verify(const FileNode &root);

} // namespace corvane
