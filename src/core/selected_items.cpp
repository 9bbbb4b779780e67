#include "core/selected_items.h"

#include <algorithm>
#include <optional>

#include "platform/path.h"

namespace corvane {
namespace {

/// Erases a path and everything below it; returns whether anything was erased.
template <typename Paths>
bool eraseWithContents(Paths &paths, const std::string &path)
{
    const std::size_t before = paths.size();
    paths.erase(path);
    // In byte order "0" comes right after "/".
    paths.erase(paths.lower_bound(path + "/"), paths.lower_bound(path + "0"));
    return paths.size() != before;
}

EntryType entryType(FileNode::Kind kind)
{
    return kind == FileNode::Kind::file ? EntryType::file : EntryType::directory;
}

/// Returns whether the size changed.
bool assign(std::int64_t &size, std::int64_t newSize)
{
    return std::exchange(size, newSize) != newSize;
}

} // namespace

std::vector<SelectedEntry> SelectedItems::inTrash() const
{
    std::vector<SelectedEntry> entries = selectedEntries(effectiveSelection(m_sizes));
    std::erase_if(entries, [this](const SelectedEntry &entry) {
        const auto seen = m_seen.find(entry.path);
        return seen == m_seen.end() || !seen->second.isInTrash;
    });
    return entries;
}

bool SelectedItems::add(std::span<const SelectedEntry> entries, const InstalledTree &tree)
{
    bool hasChanged = false;
    std::vector<SelectedEntry> added;
    for (const SelectedEntry &entry : entries) {
        if (m_locations.isProtected(entry.path, m_host.files))
            continue;
        const auto [position, isNew] = m_sizes.try_emplace(entry.path, entry.size);
        hasChanged |= assign(position->second, entry.size) || isNew;
        if (isNew)
            added.push_back(entry);
    }
    if (added.empty())
        return hasChanged;
    for (auto &[path, seen] : Removal::look(added, m_locations, m_host)) {
        if (const FileNode *shown = tree.find(path))
            seen.identity.type = entryType(shown->kind);
        m_seen.insert_or_assign(path, seen);
    }
    return hasChanged;
}

bool SelectedItems::remove(std::span<const SelectedEntry> entries)
{
    bool hasChanged = false;
    for (const SelectedEntry &entry : entries) {
        hasChanged |= m_sizes.erase(entry.path) > 0;
        m_seen.erase(entry.path);
    }
    return hasChanged;
}

bool SelectedItems::clear()
{
    m_seen.clear();
    return !std::exchange(m_sizes, {}).empty();
}

bool SelectedItems::resize(std::span<const SelectedEntry> entries)
{
    bool hasChanged = false;
    for (const SelectedEntry &entry : entries) {
        if (const auto selected = m_sizes.find(entry.path); selected != m_sizes.end())
            hasChanged |= assign(selected->second, entry.size);
    }
    return hasChanged;
}

bool SelectedItems::resizeFrom(const InstalledTree &tree)
{
    bool hasChanged = false;
    for (auto &[path, size] : m_sizes) {
        if (const FileNode *node = tree.find(path))
            hasChanged |= assign(size, node->size);
    }
    return hasChanged;
}

SelectedItems::Settlement SelectedItems::settle(const RemovalOutcome &outcome)
{
    Settlement settlement{.gone = outcome.removed};
    for (const RemovalFailure &failure : outcome.failures) {
        const auto selected = m_sizes.find(failure.path);
        const std::int64_t size = selected == m_sizes.end() ? 0 : selected->second;
        const std::optional<SeenItem> seen =
            m_seen.contains(failure.path) ? std::optional(m_seen.at(failure.path)) : std::nullopt;
        switch (failure.left) {
        case RemovalFailure::Left::asItWas:
            break;
        case RemovalFailure::Left::nothing:
            settlement.gone.push_back({failure.path, size});
            break;
        case RemovalFailure::Left::somethingElse:
            // The new item has to be selected again to be removed.
            settlement.hasChanged |= forgetWithContents(failure.path);
            break;
        case RemovalFailure::Left::aPart:
            if (selected == m_sizes.end())
                break;
            // What could not be deleted stays selected; the state of the items selected inside is unknown.
            settlement.hasChanged |= forgetWithContents(failure.path);
            m_sizes.emplace(failure.path, std::max<std::int64_t>(0, size - failure.freed));
            if (seen)
                m_seen.emplace(failure.path, *seen);
            break;
        }
    }
    // Items selected inside a removed folder are gone with it.
    for (const SelectedEntry &entry : settlement.gone)
        settlement.hasChanged |= forgetWithContents(entry.path);
    return settlement;
}

bool SelectedItems::forgetWithContents(const std::string &path)
{
    eraseWithContents(m_seen, path);
    return eraseWithContents(m_sizes, path);
}

} // namespace corvane
