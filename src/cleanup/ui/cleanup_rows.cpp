#include "cleanup/ui/cleanup_rows.h"

#include <algorithm>
#include <utility>

#include "cleanup/cleanup_items.h"
#include "core/checked_add.h"

namespace corvane {

CleanupRow::Key CleanupRow::key() const
{
    const void *const place = artifact.node ? static_cast<const void *>(artifact.node.get()) : def;
    return {kind, section, place, kind == Kind::command ? command.id : std::string_view(entry.path)};
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

void addCommands(std::vector<CleanupRow> &rows, std::span<const AdminCommand> commands)
{
    if (commands.empty())
        return;
    constexpr int section = CleanupRows::commandSection;
    const std::int64_t total = bytesOf(commands);
    rows.push_back(makeHeader(section, total, total > 0));
    for (const AdminCommand &command : commands)
        rows.push_back(
            {.kind = Kind::command, .section = section, .command = command, .size = command.bytes.value_or(0)});
}

/// Adds the cards of a group before the measurement.
void addUnmeasured(std::vector<CleanupRow> &rows, int section, const CleanupTable &table)
{
    for (const CleanupDefinition &def : CleanupCatalog::definitions) {
        if (def.group == allCleanupGroups[static_cast<std::size_t>(section)] &&
            std::ranges::find(table.foreignRows, def.id) == table.foreignRows.end())
            addCard(rows, def, section, nullptr, false);
    }
}

void addGroup(std::vector<CleanupRow> &rows, int section, std::span<const CleanupItem *const> items,
              const CleanupRows::Contents &contents)
{
    const auto addCards = [&](std::span<const CleanupItem *const> cards) {
        for (const CleanupItem *const item : cards)
            addCard(rows, *item->def, section, item, contents.isExpanded(*item->def));
    };
    std::vector<const CleanupItem *> shown;
    std::vector<const CleanupItem *> folded;
    std::int64_t total = 0;
    for (const CleanupItem *const item : items) {
        if (item->def->group != allCleanupGroups[static_cast<std::size_t>(section)])
            continue;
        total = checkedAdd(total, item->total());
        const Showing showing = showingOf(*item, contents.table);
        if (showing != Showing::hidden)
            (showing == Showing::folded ? folded : shown).push_back(item);
    }
    rows.push_back(makeHeader(section, total, true));
    addCards(shown);
    if (folded.empty())
        return;
    rows.push_back({.kind = Kind::folded, .section = section, .count = folded.size(), .shownCount = shown.size()});
    if (contents.isUnfolded(section))
        addCards(folded);
}

} // namespace

std::vector<CleanupRow> CleanupRows::make(const Contents &contents)
{
    std::vector<CleanupRow> rows;
    const std::vector<const CleanupItem *> items = largestFirst(contents.items);
    for (int section = 0; section < artifactSection; ++section) {
        if (!items.empty()) {
            addGroup(rows, section, items, contents);
            continue;
        }
        rows.push_back(makeHeader(section, 0, false));
        addUnmeasured(rows, section, contents.table);
    }
    addArtifacts(rows, contents.scan, contents.artifacts);
    addCommands(rows, contents.commands);
    return rows;
}

} // namespace corvane
