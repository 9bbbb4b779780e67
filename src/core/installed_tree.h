#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/dev_junk_item.h"
#include "core/file_node.h"
#include "core/scan_summary.h"
#include "core/selected_entry.h"
#include "core/type_slice.h"
#include "platform/file_system.h"

namespace corvane {

/// The separately measured tree of an item of an installed tree, and what a scan would list of it. Made off the main
/// thread: `buildFolders` reads the disk.
struct MeasuredTree {
    std::shared_ptr<FileNode> root;
    std::vector<std::shared_ptr<FileNode>> files; ///< as `ScanSummary::allFiles`
    std::vector<DevJunkItem> devJunk;

    [[nodiscard]] static MeasuredTree of(std::shared_ptr<FileNode> root, DevJunkMatch buildFolders, FileSystem &files);
};

/// The tree of a finished scan together with everything derived from it; all parts are installed, changed and freed
/// together. Not thread-safe. A moved-from tree must not be used.
class InstalledTree {
public:
    /// Facts about the walk that produced the tree.
    struct Walk {
        double seconds = 0;
        std::int64_t deniedCount = 0; ///< folders below the root that could not be opened; not in the tree
        bool isPartial = false;       ///< stopped early: the tree holds only a part of the folder
    };

    /// An empty tree.
    InstalledTree() = default;
    InstalledTree(std::shared_ptr<FileNode> root, ScanSummary summary, std::vector<TypeSlice> types, Walk walk);

    /// Null if there is no tree.
    [[nodiscard]] const std::shared_ptr<FileNode> &root() const { return m_root; }
    [[nodiscard]] const std::vector<std::shared_ptr<FileNode>> &allFiles() const { return m_summary.allFiles; }
    [[nodiscard]] const std::vector<DevJunkItem> &devJunk() const { return m_summary.devJunk; }
    [[nodiscard]] std::int64_t unreadableCount() const { return m_summary.unreadableCount; }
    [[nodiscard]] const std::vector<TypeSlice> &types() const { return m_types; }
    [[nodiscard]] const Walk &walk() const { return m_walk; }

    /// The node at a path (bytes), or null.
    [[nodiscard]] FileNode *find(std::string_view path) const { return m_summary.index.find(path); }
    /// The same, as a shared pointer.
    [[nodiscard]] std::shared_ptr<FileNode> shared(std::string_view path) const;
    [[nodiscard]] bool contains(const FileNode &node) const { return find(node.path()) == &node; }
    /// The folder or package at the path, or its nearest ancestor in the tree; the root if the path is outside it.
    [[nodiscard]] std::shared_ptr<FileNode> nearestFolder(std::string path) const;

    /// Removes the items in `gone` from the tree and all lists, then replaces the item at the path of each of `remains`
    /// with that tree. The root itself is neither removed nor replaced. None of `remains` may lie inside another.
    /// Called on the main thread, so the time depends on what changes, not on the size of the tree.
    /// @return the nodes that have left the tree; empty if nothing changed. Freeing them may take long.
    [[nodiscard]] std::vector<std::shared_ptr<FileNode>> update(std::span<const SelectedEntry> gone,
                                                                std::span<const MeasuredTree> remains);

private:
    struct Change;
    void unlistPackages(std::span<const SelectedEntry> gone, std::span<const MeasuredTree> remains, Change &change);
    void take(std::span<const SelectedEntry> gone, Change &change);
    void replace(const MeasuredTree &measured, Change &change);
    void leave(std::shared_ptr<FileNode> node, const std::shared_ptr<FileNode> &folder, Change &change);
    void list(const std::shared_ptr<FileNode> &node, const std::shared_ptr<FileNode> &folder,
              const MeasuredTree &measured, Change &change) const;
    void updateFiles(Change &change);
    void updateDevJunk(const Change &change);

    std::shared_ptr<FileNode> m_root;
    ScanSummary m_summary;
    std::vector<TypeSlice> m_types;
    Walk m_walk;
};

/// Whether the root of a tree, or a folder that contains it, is in `gone`.
[[nodiscard]] bool isRootGone(const FileNode &root, std::span<const SelectedEntry> gone);

} // namespace corvane
