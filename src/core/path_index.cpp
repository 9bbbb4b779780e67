#include "core/path_index.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

constexpr std::uint32_t freeTag = 0;
constexpr std::uint32_t erasedTag = 1;

/// Mixes the hash: the last bytes of a path barely affect its upper half.
constexpr std::uint64_t mixed(std::uint64_t hash)
{
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccd;
    hash ^= hash >> 33;
    return hash;
}

struct Probe {
    std::uint32_t tag;
    std::size_t slot;
};

Probe firstProbe(std::uint64_t pathHash, std::size_t capacity)
{
    const std::uint64_t hash = mixed(pathHash);
    const auto tag = static_cast<std::uint32_t>(hash);
    return {.tag = std::max(tag, erasedTag + 1), .slot = static_cast<std::size_t>((hash >> 32) * capacity >> 32)};
}

/// Load factor 4/5: 15 bytes per node, about three tag comparisons for a hit. It may rise to 9/10 before the index is
/// rebuilt, so that adding some nodes to a large tree does not rehash all the others.
constexpr std::size_t capacityFor(std::size_t count)
{
    return count + count / 4 + 8;
}

} // namespace

PathIndex::PathIndex(PathIndex &&other) noexcept
{
    *this = std::move(other);
}

PathIndex &PathIndex::operator=(PathIndex &&other) noexcept
{
    m_tags = std::exchange(other.m_tags, {});
    m_nodes = std::exchange(other.m_nodes, {});
    m_size = std::exchange(other.m_size, 0);
    m_used = std::exchange(other.m_used, 0);
    return *this;
}

void PathIndex::reserve(std::size_t count)
{
    if (capacityFor(count) > m_tags.size())
        rebuild(capacityFor(count));
}

void PathIndex::insert(FileNode &node)
{
    if (m_used + 1 > m_tags.size() / 10 * 9)
        rebuild(capacityFor(2 * m_size));
    place(node);
}

FileNode *PathIndex::find(std::string_view path) const
{
    if (m_tags.empty())
        return nullptr;
    Probe probe = firstProbe(hashPath(path), m_tags.size());
    while (m_tags[probe.slot] != freeTag) {
        if (m_tags[probe.slot] == probe.tag && m_nodes[probe.slot]->hasPath(path))
            return m_nodes[probe.slot];
        probe.slot = next(probe.slot);
    }
    return nullptr;
}

void PathIndex::eraseSubtree(const FileNode &node)
{
    std::vector<const FileNode *> pending{&node};
    while (!pending.empty()) {
        const FileNode &current = *pending.back();
        pending.pop_back();
        erase(current);
        for (const std::shared_ptr<FileNode> &child : current.children)
            pending.push_back(child.get());
    }
}

void PathIndex::erase(const FileNode &node)
{
    if (m_tags.empty())
        return;
    Probe probe = firstProbe(node.pathHash(), m_tags.size());
    while (m_tags[probe.slot] != freeTag) {
        if (m_nodes[probe.slot] == &node) {
            m_tags[probe.slot] = erasedTag;
            m_nodes[probe.slot] = nullptr;
            --m_size;
            return;
        }
        probe.slot = next(probe.slot);
    }
}

void PathIndex::place(FileNode &node)
{
    Probe probe = firstProbe(node.pathHash(), m_tags.size());
    while (m_tags[probe.slot] != freeTag) {
        if (m_tags[probe.slot] == probe.tag && m_nodes[probe.slot]->hasPath(node.path())) {
            m_nodes[probe.slot] = &node;
            return;
        }
        probe.slot = next(probe.slot);
    }
    m_tags[probe.slot] = probe.tag;
    m_nodes[probe.slot] = &node;
    ++m_size;
    ++m_used;
}

void PathIndex::rebuild(std::size_t capacity)
{
    const std::vector<FileNode *> nodes = std::exchange(m_nodes, std::vector<FileNode *>(capacity));
    m_tags.assign(capacity, freeTag);
    m_size = 0;
    m_used = 0;
    for (FileNode *node : nodes) {
        if (node != nullptr)
            place(*node);
    }
}

std::size_t PathIndex::next(std::size_t slot) const
{
    return slot + 1 == m_tags.size() ? 0 : slot + 1;
}

} // namespace corvane
