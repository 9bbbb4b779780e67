#include "cleanup/ui/cleanup_rows.h"

#include <algorithm>

namespace corvane {

bool CleanupRow::isSame(const CleanupRow &other) const
{
    return kind == other.kind && section == other.section && def == other.def && artifact.node == other.artifact.node &&
           entry.path == other.entry.path;
}

bool CleanupRow::isInsideCard() const
{
    return kind == Kind::entry || kind == Kind::more || kind == Kind::missing || kind == Kind::reveal;
}

bool CleanupRow::isStop() const
{
    return kind != Kind::header && kind != Kind::more && kind != Kind::missing && kind != Kind::none;
}

std::vector<CleanupRow> CleanupRows::make(std::span<const CleanupItem> items, const Expanded &isExpanded, Scan scan,
                                          std::span<const DevJunkItem> artifacts)
{
    using Kind = CleanupRow::Kind;
    std::vector<CleanupRow> rows;
    const auto addCard = [&](const CleanupDefinition &def, int section, const CleanupItem *item) {
        rows.push_back({.kind = Kind::card, .section = section, .def = &def});
        if (item == nullptr || !isExpanded(def))
            return;
        if (!item->exists) {
            rows.push_back({.kind = Kind::missing, .section = section, .def = &def});
            return;
        }
        const std::span<const CleanupEntry> entries = item->entries;
        for (const CleanupEntry &entry : entries.first(std::min(entries.size(), entriesListed)))
            rows.push_back({.kind = Kind::entry, .section = section, .def = &def, .entry = entry});
        if (entries.size() > entriesListed)
            rows.push_back(
                {.kind = Kind::more, .section = section, .def = &def, .unlisted = entries.size() - entriesListed});
        rows.push_back({.kind = Kind::reveal, .section = section, .def = &def});
    };
    for (std::size_t i = 0; i < allCleanupGroups.size(); ++i) {
        const auto section = static_cast<int>(i);
        rows.push_back({.kind = Kind::header, .section = section});
        for (const CleanupItem &item : items) {
            if (item.def->group == allCleanupGroups[i])
                addCard(*item.def, section, &item);
        }
        if (!items.empty())
            continue;
        for (const CleanupDefinition &def : CleanupCatalog::definitions) {
            if (def.group == allCleanupGroups[i])
                addCard(def, section, nullptr);
        }
    }

    rows.push_back({.kind = Kind::header, .section = artifactSection});
    if (scan == Scan::none)
        rows.push_back({.kind = Kind::prompt, .section = artifactSection});
    else if (scan == Scan::stopped)
        rows.push_back({.kind = Kind::partial, .section = artifactSection});
    else if (artifacts.empty())
        rows.push_back({.kind = Kind::none, .section = artifactSection});
    for (const DevJunkItem &artifact : artifacts)
        rows.push_back({.kind = Kind::artifact, .section = artifactSection, .artifact = artifact});
    return rows;
}

} // namespace corvane
