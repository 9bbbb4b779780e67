#include "core/installed_tree.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <unordered_set>
#include <utility>

#include "platform/path.h"

namespace corvane {
namespace {

using NodePointer = std::shared_ptr<FileNode>;

/// The outermost package that is the folder or contains it; null if there is none.
NodePointer outermostPackage(const NodePointer &folder)
{
    NodePointer package;
    for (NodePointer each = folder; each != nullptr; each = each->parent.lock()) {
        if (each->kind == FileNode::Kind::package)
            package = each;
    }
    return package;
}

FileType typeOf(const FileNode &package)
{
    return FileType::from(package.extension(), true);
}

/// Collects the nodes of a tree that may be listed: all except those inside packages.
void collectListed(const FileNode &top, std::unordered_set<const FileNode *> &into)
{
    std::vector<const FileNode *> pending{&top};
    while (!pending.empty()) {
        const FileNode *node = pending.back();
        pending.pop_back();
        into.insert(node);
        if (node->kind == FileNode::Kind::package)
            continue;
        for (const NodePointer &child : node->children)
            pending.push_back(child.get());
    }
}

std::int64_t unreadableIn(const FileNode &top)
{
    std::int64_t count = 0;
    std::vector<const FileNode *> pending{&top};
    while (!pending.empty()) {
        const FileNode *node = pending.back();
        pending.pop_back();
        count += node->unreadable ? 1 : 0;
        for (const NodePointer &child : node->children)
            pending.push_back(child.get());
    }
    return count;
}

void addToIndex(FileNode &top, PathIndex &index)
{
    std::vector<FileNode *> pending{&top};
    while (!pending.empty()) {
        FileNode *node = pending.back();
        pending.pop_back();
        index.insert(*node);
        for (const NodePointer &child : node->children)
            pending.push_back(child.get());
    }
}

// The list of all files is sorted by size, largest first, and may have a million entries. Reading a field of every
// file, or looking each up in a set, takes tens of milliseconds, which would stall the window. Therefore files are
// found by bisection, and all others are moved without looking at them.

/// The first of the files that is not larger than `size`.
auto firstNotAbove(std::vector<NodePointer>::iterator begin, std::vector<NodePointer>::iterator end, std::int64_t size)
{
    return std::partition_point(begin, end, [size](const NodePointer &file) { return file->size > size; });
}

/// Erases the files in `gone`, whose sizes in the list are `sizes`.
void eraseBySize(std::vector<NodePointer> &list, const std::unordered_set<const FileNode *> &gone,
                 std::vector<std::int64_t> sizes)
{
    if (sizes.empty())
        return;
    constexpr std::size_t filesPerBisection = 32; // below that, looking at each file is faster
    std::ranges::sort(sizes, std::ranges::greater());
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    auto kept = list.begin(); // the end of the files that stay
    auto rest = list.begin(); // the first file that has not been processed
    const auto process = [&](auto first, auto last) {
        kept = kept == rest ? first : std::move(rest, first, kept);
        for (; first != last; ++first) {
            if (gone.contains(first->get()))
                continue;
            if (kept != first)
                *kept = std::move(*first);
            ++kept;
        }
        rest = last;
    };
    if (sizes.size() > list.size() / filesPerBisection) {
        process(list.begin(), list.end());
    } else {
        for (const std::int64_t size : sizes) {
            const auto first = firstNotAbove(rest, list.end(), size);
            process(first, firstNotAbove(first, list.end(), size - 1));
        }
        process(list.end(), list.end());
    }
    list.erase(kept, list.end());
}

void insertBySize(std::vector<NodePointer> &list, std::vector<NodePointer> files)
{
    std::ranges::stable_sort(files, std::ranges::greater(), &FileNode::size);
    auto rest = static_cast<std::ptrdiff_t>(list.size()); // the files of the list that have not been moved yet
    list.resize(list.size() + files.size());
    auto to = list.end();
    for (; !files.empty(); files.pop_back()) {
        const auto place = firstNotAbove(list.begin(), list.begin() + rest, files.back()->size);
        to = std::move_backward(place, list.begin() + rest, to);
        rest = place - list.begin();
        *--to = std::move(files.back());
    }
}

} // namespace

MeasuredTree MeasuredTree::of(std::shared_ptr<FileNode> root, DevJunkMatch buildFolders, FileSystem &files)
{
    ScanSummary summary = ScanSummary::make(root, buildFolders, files);
    return {.root = std::move(root), .files = std::move(summary.allFiles), .devJunk = std::move(summary.devJunk)};
}

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

/// What an update changes in the lists, which are corrected once at its end: thousands of items may be removed at once.
struct InstalledTree::Change {
    std::vector<NodePointer> left;                 ///< the items taken out of the tree
    std::unordered_set<const FileNode *> unlisted; ///< the nodes to be taken out of the lists
    std::unordered_set<NodePointer> packages;      ///< the outermost packages around what changes
    std::vector<NodePointer> files;                ///< to be listed
    std::vector<DevJunkItem> devJunk;              ///< to be listed
    TypeSizes types;
};

std::vector<NodePointer> InstalledTree::update(std::span<const SelectedEntry> gone,
                                               std::span<const MeasuredTree> remains)
{
    Change change;
    change.types = TypeSizes(m_types);
    unlistPackages(gone, remains, change);
    take(gone, change);
    for (const MeasuredTree &measured : remains)
        replace(measured, change);
    updateFiles(change);
    if (!change.left.empty()) {
        updateDevJunk(change);
        m_types = change.types.slices();
    }
    return std::move(change.left);
}

/// Takes packages whose size will change out of the list of files, while that is still in order.
void InstalledTree::unlistPackages(std::span<const SelectedEntry> gone, std::span<const MeasuredTree> remains,
                                   Change &change)
{
    const auto add = [&](std::string_view path) {
        const FileNode *const node = find(path);
        if (NodePointer package = node != nullptr ? outermostPackage(node->parent.lock()) : nullptr)
            change.packages.insert(std::move(package));
    };
    for (const SelectedEntry &entry : gone)
        add(entry.path);
    for (const MeasuredTree &measured : remains)
        add(measured.root->path());
    std::unordered_set<const FileNode *> packages;
    std::vector<std::int64_t> sizes;
    for (const NodePointer &package : change.packages) {
        packages.insert(package.get());
        sizes.push_back(package->size);
    }
    eraseBySize(m_summary.allFiles, packages, std::move(sizes));
}

void InstalledTree::take(std::span<const SelectedEntry> gone, Change &change)
{
    // One pass over each folder.
    std::map<NodePointer, std::unordered_set<const FileNode *>> leaving;
    for (const SelectedEntry &entry : gone) {
        FileNode *const node = find(entry.path);
        if (const NodePointer folder = node != nullptr ? node->parent.lock() : nullptr)
            leaving[folder].insert(node);
    }
    for (const auto &[folder, nodes] : leaving) {
        for (NodePointer &node : detach(*folder, nodes))
            leave(std::move(node), folder, change);
    }
}

void InstalledTree::replace(const MeasuredTree &measured, Change &change)
{
    NodePointer old = shared(measured.root->path());
    const NodePointer folder = old ? old->parent.lock() : nullptr;
    if (folder == nullptr || !detach(*old))
        return;
    leave(std::move(old), folder, change);

    const std::int64_t size = measured.root->size;
    const std::int64_t smallFilesBefore = folder->smallFilesSize;
    const NodePointer node = attach(folder, *measured.root);
    if (node) {
        addToIndex(*node, m_summary.index);
        m_summary.unreadableCount += unreadableIn(*node);
    }
    if (const NodePointer package = outermostPackage(folder)) {
        change.types.add(typeOf(*package), size);
        return;
    }
    change.types.add(FileType::small, folder->smallFilesSize - smallFilesBefore);
    if (node) {
        change.types.add(*node);
        list(node, folder, measured, change);
    }
}

void InstalledTree::leave(NodePointer node, const NodePointer &folder, Change &change)
{
    m_summary.index.eraseSubtree(*node);
    m_summary.unreadableCount -= unreadableIn(*node);
    if (const NodePointer package = outermostPackage(folder)) {
        change.types.add(typeOf(*package), -node->size);
    } else {
        change.types.subtract(*node);
        collectListed(*node, change.unlisted);
    }
    change.left.push_back(std::move(node));
}

void InstalledTree::list(const NodePointer &node, const NodePointer &folder, const MeasuredTree &measured,
                         Change &change) const
{
    const auto ofThisTree = [&](const NodePointer &each) { return each == measured.root ? node : each; };
    for (const NodePointer &file : measured.files)
        change.files.push_back(ofThisTree(file));

    std::unordered_set<const FileNode *> around;
    for (NodePointer each = folder; each != nullptr; each = each->parent.lock())
        around.insert(each.get());
    const auto isAround = [&around](const DevJunkItem &item) { return around.contains(item.node.get()); };
    if (std::ranges::any_of(m_summary.devJunk, isAround))
        return; // no build folders are listed inside another
    for (const DevJunkItem &item : measured.devJunk)
        change.devJunk.push_back({ofThisTree(item.node), item.kind});
}

void InstalledTree::updateFiles(Change &change)
{
    std::vector<std::int64_t> sizes;
    for (const FileNode *node : change.unlisted) {
        if (node->kind != FileNode::Kind::directory)
            sizes.push_back(node->size);
    }
    eraseBySize(m_summary.allFiles, change.unlisted, std::move(sizes));
    for (const NodePointer &package : change.packages) {
        if (package->size >= ScanSummary::smallestListedPackage)
            change.files.push_back(package);
    }
    std::erase_if(change.files, [&](const NodePointer &file) { return change.unlisted.contains(file.get()); });
    insertBySize(m_summary.allFiles, std::move(change.files));
}

void InstalledTree::updateDevJunk(const Change &change)
{
    std::vector<DevJunkItem> &devJunk = m_summary.devJunk;
    devJunk.insert(devJunk.end(), change.devJunk.begin(), change.devJunk.end());
    // An emptied build folder is dropped, just as a scan does not list an empty one.
    std::erase_if(devJunk, [&](const DevJunkItem &item) {
        return item.node->size < 1 || change.unlisted.contains(item.node.get());
    });
    // Folders that contained a removed item have shrunk.
    std::ranges::stable_sort(devJunk, std::ranges::greater(), [](const DevJunkItem &item) { return item.node->size; });
}

bool isRootGone(const FileNode &root, std::span<const SelectedEntry> gone)
{
    const std::string path = root.path();
    return std::ranges::any_of(gone, [&path](const SelectedEntry &entry) { return isOrLiesBeneath(path, entry.path); });
}

} // namespace corvane
