#include "cleanup/ui/cleanup_rows.h"

#include <algorithm>
#include <utility>

#include "core/checked_add.h"

namespace corvane {

CleanupRow::Key CleanupRow::key() const
{
    const void *const place = artifact.node ? static_cast<const void *>(artifact.node.get()) : def;
    return {kind, section, place, entry.path};
}

bool CleanupRow::isInsideCard() const
{
    return kind == Kind::entry || kind == Kind::more || kind == Kind::missing || kind == Kind::reveal;
}

bool CleanupRow::isStop() const
{
    return kind != Kind::header && kind != Kind::more && kind != Kind::missing && kind != Kind::none;
}

namespace {

using Kind = CleanupRow::Kind;

CleanupRow makeHeader(int section, std::int64_t size, bool isMeasured)
{
    return {.kind = Kind::header, .section = section, .size = size, .isMeasured = isMeasured};
}

void addCard(std::vector<CleanupRow> &rows, const CleanupDefinition &def, int section, const CleanupItem *item,
             bool isExpanded)
{
    CleanupRow card{.kind = Kind::card, .section = section, .def = &def};
    if (item != nullptr) {
        card.size = item->total();
        card.count = item->entries.size();
        card.isMeasured = true;
        card.isReadable = item->accessible;
    }
    rows.push_back(std::move(card));
    if (item == nullptr || !isExpanded)
        return;
    if (!item->exists) {
        rows.push_back({.kind = Kind::missing, .section = section, .def = &def});
        return;
    }
    const std::span<const CleanupEntry> entries = item->entries;
    const std::size_t listed = std::min(entries.size(), CleanupRows::entriesListed);
    for (const CleanupEntry &entry : entries.first(listed))
        rows.push_back({.kind = Kind::entry, .section = section, .def = &def, .entry = entry, .size = entry.size});
    if (entries.size() > listed)
        rows.push_back({.kind = Kind::more, .section = section, .def = &def, .count = entries.size() - listed});
    rows.push_back({.kind = Kind::reveal, .section = section, .def = &def});
}

void addArtifacts(std::vector<CleanupRow> &rows, CleanupRows::Scan scan, std::span<const DevJunkItem> artifacts)
{
    constexpr int section = CleanupRows::artifactSection;
    std::int64_t total = 0;
    for (const DevJunkItem &artifact : artifacts)
        total = checkedAdd(total, artifact.node->size);
    rows.push_back(makeHeader(section, total, !artifacts.empty()));
    if (scan == CleanupRows::Scan::none)
        rows.push_back({.kind = Kind::prompt, .section = section});
    else if (scan == CleanupRows::Scan::stopped)
        rows.push_back({.kind = Kind::partial, .section = section});
    else if (artifacts.empty())
        rows.push_back({.kind = Kind::none, .section = section});
    for (const DevJunkItem &artifact : artifacts)
        rows.push_back({.kind = Kind::artifact, .section = section, .artifact = artifact, .size = artifact.node->size});
}

} // namespace

std::vector<CleanupRow> CleanupRows::make(std::span<const CleanupItem> items, const Expanded &isExpanded, Scan scan,
                                          std::span<const DevJunkItem> artifacts)
{
    std::vector<CleanupRow> rows;
    for (std::size_t i = 0; i < allCleanupGroups.size(); ++i) {
        const auto section = static_cast<int>(i);
        const std::size_t header = rows.size();
        rows.push_back(makeHeader(section, 0, !items.empty()));
        for (const CleanupItem &item : items) {
            if (item.def->group != allCleanupGroups[i])
                continue;
            rows[header].size = checkedAdd(rows[header].size, item.total());
            addCard(rows, *item.def, section, &item, isExpanded(*item.def));
        }
        if (!items.empty())
            continue;
        for (const CleanupDefinition &def : CleanupCatalog::definitions) {
            if (def.group == allCleanupGroups[i])
                addCard(rows, def, section, nullptr, false);
        }
    }
    addArtifacts(rows, scan, artifacts);
    return rows;
}

} // namespace corvane
