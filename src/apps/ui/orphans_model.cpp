#include "apps/ui/orphans_model.h"

#include <QLocale>

#include "core/store/followed.h"
#include "core/store/qt_words.h"

namespace corvane {

void OrphansModel::setStore(StorageStore *store)
{
    if (!followObject(m_store, store, this))
        return;
    if (m_store) {
        connect(m_store, &StorageStore::appsChanged, this, &OrphansModel::follow);
        connect(m_store, &StorageStore::selectionChanged, this, &OrphansModel::announceChecks);
    }
    follow();
}

void OrphansModel::follow()
{
    std::vector<LeftoverRow> rows;
    if (m_store) {
        const std::optional<std::string> home = homeOfPaths(m_store);
        for (const OrphanGroup &group : m_store->orphanGroups()) {
            rows.push_back(LeftoverRow::ofHeading(group.id, displayText(group.id), {}, group.size()));
            for (const Leftover &item : group.items)
                rows.push_back(LeftoverRow::ofItem(item, QLocale(), home));
        }
    }
    const bool wereNone = !hasItems();
    install(std::move(rows));
    announceChecks();
    if (wereNone)
        emit replaced();
}

CheckFacts OrphansModel::checkFacts(const Leftover &leftover) const
{
    return m_store ? ::corvane::checkFacts(selectionFactsOf(*m_store, leftover.path)) : CheckFacts();
}

void OrphansModel::toggle(int row)
{
    if (const Leftover *const item = itemAt(row); item != nullptr && m_store)
        toggleItem(*m_store, item->path, item->size);
}

void OrphansModel::select(int row)
{
    if (const Leftover *const item = itemAt(row); item != nullptr && m_store)
        selectItem(*m_store, item->path, item->size);
}

void OrphansModel::selectAll()
{
    if (!m_store)
        return;
    std::vector<SelectedEntry> entries;
    for (const LeftoverRow &row : rows()) {
        if (row.kind == LeftoverRow::Kind::item)
            entries.push_back({row.leftover.path, row.leftover.size});
    }
    m_store->setSelected(entries, true);
}

} // namespace corvane
