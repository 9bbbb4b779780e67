#include "core/installed_tree.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <unordered_set>
#include <utility>

#include "core/scanner.h"
#include "platform/path.h"

namespace corvane {
namespace {

void collectSubtree(const FileNode &top, std::unordered_set<const FileNode *> &into)
{
    std::vector<const FileNode *> pending{&top};
    while (!pending.empty()) {
        const FileNode *node = pending.back();
        pending.pop_back();
        into.insert(node);
        for (const auto &child : node->children)
            pending.push_back(child.get());
    }
}

} // namespace

InstalledTree::InstalledTree(std::shared_ptr<FileNode> root, ScanSummary summary, std::vector<TypeSlice> types,
                             Walk walk)
    : m_root(std::move(root)), m_summary(std::move(summary)), m_types(std::move(types)), m_walk(walk)
{
}

std::shared_ptr<FileNode> InstalledTree::shared(std::string_view path) const
{
    const FileNode *const found = find(path);
    if (found == nullptr || found == m_root.get())
        return found == nullptr ? nullptr : m_root;
    const std::shared_ptr<FileNode> folder = found->parent.lock();
    const auto position = std::ranges::find(folder->children, found, &std::shared_ptr<FileNode>::get);
    return position == folder->children.end() ? nullptr : *position;
}

std::shared_ptr<FileNode> InstalledTree::nearestFolder(std::string path) const
{
    const std::string root = m_root->path();
    for (; liesBeneath(path, root); path.resize(containingFolder(path).size())) {
        if (std::shared_ptr<FileNode> folder = shared(path); folder && folder->kind != FileNode::Kind::file)
            return folder;
    }
    return m_root;
}

std::vector<std::shared_ptr<FileNode>> InstalledTree::update(std::span<const SelectedEntry> gone,
                                                             std::span<const std::shared_ptr<FileNode>> remains,
                                                             DevJunkMatch buildFolders, FileSystem &files)
{
    std::vector<std::shared_ptr<FileNode>> left;
    take(gone, left);
    replace(remains, left, buildFolders, files);
    if (!left.empty())
        m_types = ScanSummary::types(*m_root);
    return left;
}

void InstalledTree::take(std::span<const SelectedEntry> gone, std::vector<std::shared_ptr<FileNode>> &left)
{
    // Thousands of items may be removed at once, so make one pass over each folder and each list.
    std::map<std::shared_ptr<FileNode>, std::unordered_set<const FileNode *>> leaving;
    for (const SelectedEntry &entry : gone) {
        FileNode *const node = find(entry.path);
        if (const std::shared_ptr<FileNode> folder = node != nullptr ? node->parent.lock() : nullptr)
            leaving[folder].insert(node);
    }
    std::unordered_set<const FileNode *> taken;
    for (const auto &[folder, nodes] : leaving) {
        std::vector<std::shared_ptr<FileNode>> detached = detach(*folder, nodes);
        for (const std::shared_ptr<FileNode> &node : detached) {
            collectSubtree(*node, taken);
            m_summary.index.eraseSubtree(*node);
        }
        std::ranges::move(detached, std::back_inserter(left));
    }
    if (taken.empty())
        return;

    std::vector<std::shared_ptr<FileNode>> &allFiles = m_summary.allFiles;
    std::vector<DevJunkItem> &devJunk = m_summary.devJunk;
    std::erase_if(allFiles, [&taken](const auto &file) {
        const bool isShrunkPackage = file->kind == FileNode::Kind::package && file->size < Scanner::smallFileLimit;
        return isShrunkPackage || taken.contains(file.get());
    });
    // An emptied build folder is dropped, just as a scan does not list an empty one.
    std::erase_if(devJunk,
                  [&taken](const DevJunkItem &item) { return item.node->size < 1 || taken.contains(item.node.get()); });
    // Folders that contained a removed item have shrunk.
    std::ranges::stable_sort(allFiles, std::ranges::greater(), &FileNode::size);
    std::ranges::stable_sort(devJunk, std::ranges::greater(), [](const DevJunkItem &item) { return item.node->size; });
}

void InstalledTree::replace(std::span<const std::shared_ptr<FileNode>> remains,
                            std::vector<std::shared_ptr<FileNode>> &left, DevJunkMatch buildFolders, FileSystem &files)
{
    const std::size_t first = left.size();
    for (const std::shared_ptr<FileNode> &measured : remains) {
        std::shared_ptr<FileNode> old = shared(measured->path());
        const std::shared_ptr<FileNode> folder = old ? old->parent.lock() : nullptr;
        if (folder == nullptr)
            continue;
        m_summary.index.eraseSubtree(*old);
        detach(*old);
        attach(folder, *measured);
        left.push_back(std::move(old));
    }
    if (left.size() > first)
        m_summary = ScanSummary::make(m_root, buildFolders, files);
}

bool isRootGone(const FileNode &root, std::span<const SelectedEntry> gone)
{
    const std::string path = root.path();
    return std::ranges::any_of(gone, [&path](const SelectedEntry &entry) { return isOrLiesBeneath(path, entry.path); });
}

} // namespace corvane
