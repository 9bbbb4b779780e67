#include "core/type_slice.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "core/checked_add.h"

namespace corvane {
namespace {

/// Calls `found` with the type and the size of each item in the tree.
template <typename Function>
void forEachItem(const FileNode &root, const Function &found)
{
    std::vector<const FileNode *> pending{&root};
    while (!pending.empty()) {
        const FileNode &node = *pending.back();
        pending.pop_back();
        if (node.kind != FileNode::Kind::directory) {
            found(FileType::from(node.extension(), node.kind == FileNode::Kind::package), node.size);
            continue;
        }
        found(FileType::small, node.smallFilesSize);
        for (const std::shared_ptr<FileNode> &child : node.children)
            pending.push_back(child.get());
    }
}

} // namespace

TypeSizes::TypeSizes(std::span<const TypeSlice> slices)
{
    for (const TypeSlice &slice : slices)
        add(slice.type, slice.size);
}

void TypeSizes::add(FileType type, std::int64_t size)
{
    m_sizes[type] = checkedAdd(m_sizes[type], size);
}

void TypeSizes::add(const FileNode &root)
{
    forEachItem(root, [this](FileType type, std::int64_t size) { add(type, size); });
}

void TypeSizes::subtract(const FileNode &root)
{
    forEachItem(root, [this](FileType type, std::int64_t size) { add(type, -size); });
}

std::vector<TypeSlice> TypeSizes::slices() const
{
    std::vector<TypeSlice> slices;
    for (const FileType type : FileType::allCases()) {
        if (m_sizes[type] > 0)
            slices.push_back({type, m_sizes[type]});
    }
    std::ranges::stable_sort(slices, std::ranges::greater{}, &TypeSlice::size);
    return slices;
}

} // namespace corvane
