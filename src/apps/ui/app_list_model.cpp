#include "apps/ui/app_list_model.h"

#include <algorithm>
#include <utility>

#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"

namespace corvane {

AppListModel::AppListModel(QObject *parent)
    : RowListModel(parent), m_orphans(AppRow::ofOrphans({}, 0)), m_rows{m_orphans}
{
}

void AppListModel::setSearch(const QString &search)
{
    if (m_search == search)
        return;
    m_search = search;
    emit searchChanged();
    install();
}

int AppListModel::sort() const
{
    return static_cast<int>(std::ranges::find(m_sorts, m_sort) - m_sorts.begin());
}

void AppListModel::setSort(int sort)
{
    if (sort < 0 || sort >= static_cast<int>(m_sorts.size()) || sort == this->sort())
        return;
    m_sort = m_sorts[static_cast<std::size_t>(sort)];
    emit sortChanged();
    install();
}

QList<QString> AppListModel::sorts() const
{
    QList<QString> names;
    for (const AppSort sort : m_sorts)
        names << label(sort);
    return names;
}

void AppListModel::setTellsLastUse(bool tellsLastUse)
{
    std::vector<AppSort> sorts = appSorts(tellsLastUse);
    if (sorts == m_sorts)
        return;
    m_sorts = std::move(sorts);
    if (std::ranges::find(m_sorts, m_sort) == m_sorts.end())
        m_sort = AppSort::size;
    emit sortsChanged();
    emit sortChanged();
    install();
}

void AppListModel::setRows(AppRow orphans, AppRows apps)
{
    m_orphans = std::move(orphans);
    m_apps = std::move(apps);
    install();
}

void AppListModel::install()
{
    std::vector<AppRow> rows = m_apps.visible(m_search, m_sort);
    rows.insert(rows.begin(), m_orphans);
    RowListModel::setRows(m_rows, std::move(rows), &AppRow::key);
    emit rowsChanged();
}

// --- Selection

bool AppListModel::isChosen(const AppRow &row) const
{
    return m_choice && row.key() == AppRow::Key(m_choice->kind, m_choice->path);
}

int AppListModel::chosenRow() const
{
    const auto found = std::ranges::find_if(m_rows, [this](const AppRow &row) { return isChosen(row); });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

void AppListModel::setChoice(std::optional<Choice> choice)
{
    if (m_choice == choice)
        return;
    const int before = chosenRow();
    m_choice = std::move(choice);
    for (const int row : {before, chosenRow()}) {
        if (row >= 0)
            announce({row}, {ChosenRole});
    }
    emit rowsChanged();
}

std::optional<AppListModel::Choice> AppListModel::choiceAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    const AppRow &chosen = m_rows[static_cast<std::size_t>(row)];
    return Choice{chosen.kind, chosen.path};
}

QString AppListModel::emptyText() const
{
    if (rowCount() > 1)
        return {};
    return m_search.isEmpty() ? displayText(noAppsTitle) : QStringLiteral("No apps match “%1”").arg(m_search);
}

// --- Rows

int AppListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant AppListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const AppRow &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case OrphansRole:
        return row.kind == AppRow::Kind::orphans;
    case Qt::DisplayRole:
    case NameRole:
        return row.name;
    case BadgeRole:
        return row.badge;
    case NoteRole:
        return row.note;
    case UnusedRole:
        return row.isUnused;
    case SizeTextRole:
        return row.sizeText;
    case IconKeyRole:
        return row.iconKey;
    case ChosenRole:
        return isChosen(row);
    case DescriptionRole:
    case Qt::AccessibleTextRole:
        return row.description();
    default:
        return {};
    }
}

QHash<int, QByteArray> AppListModel::roleNames() const
{
    return {{OrphansRole, "orphans"}, {NameRole, "name"},     {BadgeRole, "badge"},
            {NoteRole, "note"},       {UnusedRole, "unused"}, {SizeTextRole, "sizeText"},
            {IconKeyRole, "iconKey"}, {ChosenRole, "chosen"}, {DescriptionRole, "description"}};
}

} // namespace corvane
