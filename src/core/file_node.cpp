#include "core/file_node.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/checked_add.h"
#include "core/file_type.h"
#include "core/path_guard.h"
#include "core/scanner.h"
#include "core/words/display_text.h"
#include "platform/path.h"

namespace corvane {

FileNode::FileNode(std::string_view path, Kind kind_, std::string_view diskName)
    : m_folderPath(path),
      name(path == "/" ? diskName : lastPathComponent(path)),
      fileCount(kind_ == Kind::file ? 1 : 0),
      kind(kind_),
      m_isRoot(true)
{
}

FileNode::FileNode(FolderPath folderPath, std::string name_, Kind kind_, const std::shared_ptr<FileNode> &folder)
    : m_folderPath(std::move(folderPath)),
      name(std::move(name_)),
      fileCount(kind_ == Kind::file ? 1 : 0),
      parent(folder),
      kind(kind_),
      m_isRoot(false)
{
}

FileNode::~FileNode()
{
    // Strip every node of its children before destroying it, so destructors do not recurse. A node with another owner
    // keeps its subtree and is destroyed the same way by that owner.
    std::vector<std::shared_ptr<FileNode>> pending = std::move(children);
    while (!pending.empty()) {
        const std::shared_ptr<FileNode> node = std::move(pending.back());
        pending.pop_back();
        if (node.use_count() == 1) {
            std::ranges::move(node->children, std::back_inserter(pending));
            node->children.clear();
        }
    }
}

std::string FileNode::path() const
{
    return m_isRoot ? m_folderPath.text() : m_folderPath.textOf(name);
}

std::string FileNode::folderPath() const
{
    std::string path = m_folderPath.text();
    if (m_isRoot)
        path.resize(containingFolder(path).size());
    return path;
}

FolderPath FileNode::pathForChildren() const
{
    return m_isRoot ? m_folderPath : FolderPath(m_folderPath, name);
}

std::string FileNode::parentPath() const
{
    return parentPath(PathGuard::home());
}

std::string FileNode::parentPath(std::string_view home) const
{
    return withHomeShortened(folderPath(), home);
}

std::string_view FileNode::kindLabel() const
{
    if (kind == Kind::directory)
        return FileType(FileType::folder).label();
    return FileType::from(extension(), kind == Kind::package).label();
}

bool FileNode::hasPath(std::string_view path) const
{
    return m_isRoot ? m_folderPath.is(path) : m_folderPath.isFolderOf(name, path);
}

std::uint64_t FileNode::pathHash() const
{
    return m_isRoot ? m_folderPath.hash() : m_folderPath.hashOf(name);
}

std::string_view FileNode::extension() const
{
    // The root of the whole disk, whose name is not its last path component, has no extension either way.
    return nameExtension(name);
}

namespace {

/// Moves a node whose size has changed to its place among its siblings, largest first; the order of the others is kept.
void putInOrder(std::vector<std::shared_ptr<FileNode>> &siblings, const FileNode &node)
{
    const auto at = std::ranges::find(siblings, &node, &std::shared_ptr<FileNode>::get);
    if (at == siblings.end())
        return;
    const auto isNoLarger = [&](const auto &sibling) { return sibling->size <= node.size; };
    const auto begin = std::find_if(siblings.begin(), at, [&](const auto &each) { return each->size < node.size; });
    if (begin != at)
        std::rotate(begin, at, at + 1);
    else
        std::rotate(at, at + 1, std::find_if(at + 1, siblings.end(), isNoLarger));
}

/// Adds to the figures of a folder and of all its ancestors.
void changeAncestors(FileNode &folder, std::int64_t size, std::int64_t fileCount)
{
    std::shared_ptr<FileNode> above; // keeps `each` alive from the second iteration on
    for (FileNode *each = &folder; each != nullptr; each = above.get()) {
        each->size = checkedAdd(each->size, size);
        each->fileCount = checkedAdd(each->fileCount, fileCount);
        std::shared_ptr<FileNode> next = each->parent.lock();
        if (next != nullptr)
            putInOrder(next->children, *each);
        above = std::move(next);
    }
}

} // namespace

std::shared_ptr<FileNode> attach(const std::shared_ptr<FileNode> &folder, FileNode &root)
{
    std::shared_ptr<FileNode> node;
    if (root.kind == FileNode::Kind::file && root.size < Scanner::smallFileLimit) {
        folder->smallFilesSize = checkedAdd(folder->smallFilesSize, root.size);
        folder->smallFilesCount = checkedAdd(folder->smallFilesCount, root.fileCount);
    } else if (root.size > 0) {
        node = std::make_shared<FileNode>(folder->pathForChildren(), root.name, root.kind, folder);
        node->size = root.size;
        node->fileCount = root.fileCount;
        node->smallFilesSize = root.smallFilesSize;
        node->smallFilesCount = root.smallFilesCount;
        node->modified = root.modified;
        node->unreadable = root.unreadable;
        node->children = std::move(root.children);
        root.children.clear();
        for (const std::shared_ptr<FileNode> &child : node->children)
            child->parent = node;
        folder->children.push_back(node);
        putInOrder(folder->children, *node);
    }
    changeAncestors(*folder, root.size, root.fileCount);
    return node;
}

bool detach(FileNode &node)
{
    const std::shared_ptr<FileNode> folder = node.parent.lock();
    return folder != nullptr && !detach(*folder, {&node}).empty();
}

std::vector<std::shared_ptr<FileNode>> detach(FileNode &folder, const std::unordered_set<const FileNode *> &nodes)
{
    if (folder.removed)
        return {};
    for (std::shared_ptr<FileNode> ancestor = folder.parent.lock(); ancestor != nullptr;
         ancestor = ancestor->parent.lock()) {
        if (ancestor->removed)
            return {};
    }
    const auto stays = [&](const auto &child) { return child->removed || !nodes.contains(child.get()); };
    const auto firstGone = std::stable_partition(folder.children.begin(), folder.children.end(), stays);
    std::vector<std::shared_ptr<FileNode>> gone(std::make_move_iterator(firstGone),
                                                std::make_move_iterator(folder.children.end()));
    folder.children.erase(firstGone, folder.children.end());
    std::int64_t size = 0;
    std::int64_t fileCount = 0;
    for (const std::shared_ptr<FileNode> &node : gone) {
        node->removed = true;
        size = checkedAdd(size, node->size);
        fileCount = checkedAdd(fileCount, node->fileCount);
    }
    if (!gone.empty())
        changeAncestors(folder, -size, -fileCount);
    return gone;
}

bool verify(const FileNode &root)
{
    std::vector<const FileNode *> pending{&root};
    while (!pending.empty()) {
        const FileNode &node = *pending.back();
        pending.pop_back();
        if (node.kind == FileNode::Kind::file) {
            if (!node.children.empty())
                return false;
            continue;
        }
        std::int64_t size = node.smallFilesSize;
        std::int64_t fileCount = node.smallFilesCount;
        for (const std::shared_ptr<FileNode> &child : node.children) {
            if (child->parent.lock().get() != &node)
                return false;
            size = checkedAdd(size, child->size);
            fileCount = checkedAdd(fileCount, child->fileCount);
            pending.push_back(child.get());
        }
        // A folder of empty files has no node, but its files count.
        if (size != node.size || fileCount > node.fileCount)
            return false;
    }
    return true;
}

} // namespace corvane
