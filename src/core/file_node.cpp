#include "core/file_node.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/checked_add.h"
#include "core/file_type.h"
#include "core/path_guard.h"

namespace corvane {

FileNode::FileNode(std::string_view path, Kind kind_)
    : m_folderPath(path),
      name(path == "/" ? "Macintosh HD" : lastPathComponent(path)),
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
    // Every node is stripped of its children before its turn comes, so no destructor calls another one deeper.
    // A node that someone else holds too keeps its subtree and dies, the same way, with its last owner.
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
    std::string folder = folderPath();
    if (home.size() > 1 && (folder == home || liesBeneath(folder, home)))
        folder.replace(0, home.size(), "~");
    return folder;
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
    // The root of the whole disk, whose name is not its last component, has none either way.
    return pathExtension(name);
}

bool detach(FileNode &node)
{
    const std::shared_ptr<FileNode> folder = node.parent.lock();
    if (folder == nullptr || node.removed)
        return false;
    for (std::shared_ptr<FileNode> ancestor = folder; ancestor != nullptr; ancestor = ancestor->parent.lock()) {
        if (ancestor->removed)
            return false;
    }

    const auto position =
        std::ranges::find_if(folder->children, [&](const auto &child) { return child.get() == &node; });
    if (position == folder->children.end())
        return false;
    const std::shared_ptr<FileNode> self = std::move(*position); // the tree may have been the only owner
    folder->children.erase(position);
    node.removed = true;

    std::shared_ptr<FileNode> ancestor = folder;
    while (ancestor != nullptr) {
        ancestor->size = checkedSubtract(ancestor->size, node.size);
        ancestor->fileCount = checkedSubtract(ancestor->fileCount, node.fileCount);

        // Only the ancestor has shrunk, so it moves behind those of its siblings that are now larger.
        std::shared_ptr<FileNode> above = ancestor->parent.lock();
        if (above != nullptr) {
            const auto at = std::ranges::find(above->children, ancestor);
            if (at != above->children.end()) {
                const auto end = std::find_if(at + 1, above->children.end(),
                                              [&](const auto &sibling) { return sibling->size <= ancestor->size; });
                std::rotate(at, at + 1, end);
            }
        }
        ancestor = std::move(above);
    }
    return true;
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
