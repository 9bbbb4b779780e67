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

/// One item of a scanned tree. Owned by its parent's `children`, the root by whoever holds the tree; a node
/// that is held longer than its tree stays valid and loses its parent. Filled by one scanner thread at a
/// time; once a tree is installed, read and changed on the main thread only. Two nodes are the same only if
/// they are the same object.
///
/// A home folder has hundreds of thousands of items, so a node does not hold its whole path: the siblings of
/// a folder share one record for it, and `path()` is put together on demand.
class FileNode {
public:
    enum class Kind : std::uint8_t { file, directory, package };

    /// The root of a tree: `path` is absolute, standardized bytes. `diskName` is what "/" is called.
    FileNode(std::string_view path, Kind kind, std::string_view diskName = "Macintosh HD");

    /// An item inside `folder`, whose path is `folderPath`: its `pathForChildren()`, taken once for all of them.
    FileNode(FolderPath folderPath, std::string name, Kind kind, const std::shared_ptr<FileNode> &folder);

    FileNode(const FileNode &) = delete;
    FileNode &operator=(const FileNode &) = delete;

    /// Lets go of the subtree without recursion: a tree may be thousands of levels deep.
    ~FileNode();

    /// The item's absolute path, bytes.
    [[nodiscard]] std::string path() const;

    /// The path of the folder that contains the item, bytes; works after the parent is gone. For the root of
    /// the whole disk "/".
    [[nodiscard]] std::string folderPath() const;

    /// The folder's path for the nodes inside it to share.
    [[nodiscard]] FolderPath pathForChildren() const;

    /// `folderPath()` with the user's home folder shortened to "~".
    [[nodiscard]] std::string parentPath() const;

    /// The same with any home folder.
    [[nodiscard]] std::string parentPath(std::string_view home) const;

    /// "Folder", or the label of the item's file type.
    [[nodiscard]] std::string_view kindLabel() const;

    /// Whether `path()` equals the text; nothing is put together for it.
    [[nodiscard]] bool hasPath(std::string_view path) const;

    /// The hash of `path()` under `hashPath`; nothing is put together for it.
    [[nodiscard]] std::uint64_t pathHash() const;

    /// What follows the last dot of the path's last component.
    [[nodiscard]] std::string_view extension() const;

private:
    // The path of the containing folder; for the root, the root's own whole path.
    FolderPath m_folderPath;

public:
    const std::string name;           ///< bytes to show: the last path component; of "/" the disk's name
    std::int64_t size = 0;            ///< bytes allocated for the item and everything beneath it
    std::int64_t fileCount = 0;       ///< files beneath it; a file has 1
    std::int64_t smallFilesSize = 0;  ///< bytes of the small files directly inside that have no nodes
    std::int64_t smallFilesCount = 0; ///< how many such files
    Time modified = distantPast;
    std::weak_ptr<FileNode> parent;
    std::vector<std::shared_ptr<FileNode>> children; ///< largest first
    const Kind kind;
    bool unreadable = false; ///< the listing could not be read
    bool removed = false;    ///< removed since the scan

private:
    const bool m_isRoot;
};

/// Puts the root of another tree, which has been measured for it, into `folder` of an installed one: every ancestor
/// gains its size and count and finds its new place among its siblings. `root` loses its children to the node that
/// stands for it. What a scan gives no node is counted as a scan counts it.
void attach(const std::shared_ptr<FileNode> &folder, FileNode &root);

/// Takes a node out of the tree: its parent's `children` lose it, every ancestor's `size` and `fileCount`
/// lose its size and count and find their new place among their siblings, and it is marked `removed`. Does nothing
/// and answers false when the node or an ancestor is marked already, or when it is the root. With
/// `attach` the only change that an installed tree ever sees. A node that nothing else holds is destroyed.
bool detach(FileNode &node);

/// The same for any number of a folder's children at once, going through the folder and its ancestors a single time.
/// What is marked already, or is not a child of the folder, stays.
/// @return the nodes that were taken out, in their order
[[nodiscard]] std::vector<std::shared_ptr<FileNode>> detach(FileNode &folder,
                                                            const std::unordered_set<const FileNode *> &nodes);

/// Whether every folder's size is the sum of its own small files and its children, it counts at least their files
/// (a folder of empty files has no node), and every child's parent is its folder. For tests and debug builds;
/// walks the whole tree.
[[nodiscard]] bool verify(const FileNode &root);

} // namespace corvane
