#include "apps/ui/orphans_model.h"

#include <QLocale>

#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

OrphansModel::OrphansModel(StorageStore &store, QObject *parent) : LeftoverListModel(store, parent)
{
    connect(&store, &StorageStore::appsChanged, this, &OrphansModel::follow);
    connect(&store, &StorageStore::selectionChanged, this, &OrphansModel::announceChecks);
    follow();
}

QString OrphansModel::title()
{
    return displayText(orphansTitle);
}

void OrphansModel::follow()
{
    std::vector<LeftoverRow> rows;
    const std::optional<std::string> home = homeOfPaths(store());
    for (const OrphanGroup &group : store().orphanGroups()) {
        rows.push_back(LeftoverRow::ofHeading(group.id, displayText(group.id), {}, group.size()));
        for (const Leftover &item : group.items)
            rows.push_back(LeftoverRow::ofItem(item, QLocale(), home));
    }
    const bool wereNone = !hasItems();
    install(std::move(rows));
    announceChecks();
    if (wereNone)
        emit replaced();
}

CheckFacts OrphansModel::checkFacts(const Leftover &leftover) const
{
    return ::corvane::checkFacts(selectionFactsOf(store(), leftover.path));
}

void OrphansModel::toggle(int row)
{
    if (const Leftover *const item = itemAt(row))
        toggleItem(store(), item->path, item->size);
}

void OrphansModel::select(int row)
{
    if (const Leftover *const item = itemAt(row))
        selectItem(store(), item->path, item->size);
}

void OrphansModel::selectAll()
{
    std::vector<SelectedEntry> entries;
    for (const LeftoverRow &row : rows()) {
        if (row.kind == LeftoverRow::Kind::item)
            entries.push_back({row.leftover.path, row.leftover.size});
    }
    store().setSelected(entries, true);
}

} // namespace corvane
