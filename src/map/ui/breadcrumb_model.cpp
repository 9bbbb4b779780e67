#include "map/ui/breadcrumb_model.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QFontMetricsF>

#include "core/store/followed_store.h"
#include "core/store/path_text.h"
#include "map/ui/map_metrics.h"
#include "map/ui/tree_path.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr double widestCrumb = 240;     // of all but the last
constexpr double narrowestCurrent = 60; // what the folder shown keeps in any case

} // namespace

void BreadcrumbModel::setStore(StorageStore *store)
{
    if (!followStore(m_store, store, this))
        return;
    if (m_store)
        connect(m_store, &StorageStore::currentFolderChanged, this, &BreadcrumbModel::followFolder);
    emit storeChanged();
    followFolder();
}

void BreadcrumbModel::followFolder()
{
    const auto path = pathFromRoot(m_store ? m_store->currentFolder() : nullptr);
    std::size_t kept = 0;
    while (kept < path.size() && kept < m_crumbs.size() && path[kept] == m_crumbs[kept].folder)
        ++kept;

    if (kept < m_crumbs.size()) {
        beginRemoveRows({}, static_cast<int>(kept), static_cast<int>(m_crumbs.size()) - 1);
        m_crumbs.resize(kept);
        endRemoveRows();
    }
    if (kept < path.size()) {
        beginInsertRows({}, static_cast<int>(kept), static_cast<int>(path.size()) - 1);
        for (std::size_t i = kept; i < path.size(); ++i)
            m_crumbs.push_back({path[i]});
        endInsertRows();
    }
    if (!m_crumbs.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {CurrentRole});
    fit();
}

void BreadcrumbModel::setAvailableWidth(double width)
{
    if (m_availableWidth == width)
        return;
    m_availableWidth = width;
    emit availableWidthChanged();
    fit();
}

double BreadcrumbModel::naturalWidth(std::size_t row) const
{
    const Theme &theme = *Theme::instance();
    const bool current = row + 1 == m_crumbs.size();
    const QFontMetricsF metrics(current ? theme.bodySemiboldFont() : theme.bodyFont());
    const double text = std::ceil(metrics.horizontalAdvance(displayText(m_crumbs[row].folder->name)));
    const double icon = row == 0 ? MapMetrics::rootIconSize() + MapMetrics::rootIconGap() : 0;
    return 2 * MapMetrics::crumbPadding() + icon + text;
}

double BreadcrumbModel::separatorWidth() const
{
    return MapMetrics::crumbCaretSize() + 2 * MapMetrics::crumbSpacing();
}

double BreadcrumbModel::ellipsisWidth() const
{
    return 2 * MapMetrics::crumbPadding() +
           std::ceil(QFontMetricsF(Theme::instance()->bodyFont()).horizontalAdvance(QStringLiteral("…")));
}

void BreadcrumbModel::fit()
{
    if (m_crumbs.empty())
        return;
    const std::vector<Crumb> before = m_crumbs;
    const std::size_t last = m_crumbs.size() - 1;
    double total = static_cast<double>(last) * separatorWidth();
    for (std::size_t i = 0; i <= last; ++i) {
        m_crumbs[i].collapsed = false;
        m_crumbs[i].width = i == last ? naturalWidth(i) : std::min(naturalWidth(i), widestCrumb);
        total += m_crumbs[i].width;
    }
    if (m_availableWidth > 0) {
        for (std::size_t i = 1; i < last && total > m_availableWidth; ++i) {
            m_crumbs[i].collapsed = true;
            total -= m_crumbs[i].width + separatorWidth();
            if (i == 1)
                total += ellipsisWidth() + separatorWidth();
        }
        if (total > m_availableWidth) {
            double &width = m_crumbs[last].width;
            width = std::max(width - (total - m_availableWidth), std::min(width, narrowestCurrent));
        }
    }
    if (m_crumbs == before)
        return;
    emit dataChanged(index(0), index(static_cast<int>(last)), {CollapsedRole, EllipsisBeforeRole, WidthRole});
    emit collapsedChanged();
}

QStringList BreadcrumbModel::collapsedNames() const
{
    QStringList names;
    for (const Crumb &crumb : m_crumbs) {
        if (crumb.collapsed)
            names << displayText(crumb.folder->name);
    }
    return names;
}

QString BreadcrumbModel::collapsedText() const
{
    const qsizetype count = collapsedNames().size();
    return QString::number(count) + (count == 1 ? QStringLiteral(" more folder") : QStringLiteral(" more folders"));
}

int BreadcrumbModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_crumbs.size());
}

QString BreadcrumbModel::rootIcon() const
{
    const std::string path = m_crumbs.front().folder->path();
    if (path == "/")
        return QStringLiteral("hard-drive");
    return path == m_store->locations().home() ? QStringLiteral("house") : QStringLiteral("folder");
}

QVariant BreadcrumbModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const Crumb &crumb = m_crumbs[row];
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayText(crumb.folder->name);
    case IconRole:
        return row == 0 ? rootIcon() : QString();
    case CurrentRole:
        return row + 1 == m_crumbs.size();
    case CollapsedRole:
        return crumb.collapsed;
    case EllipsisBeforeRole:
        return row > 0 && !crumb.collapsed && m_crumbs[row - 1].collapsed;
    case WidthRole:
        return crumb.width;
    default:
        return {};
    }
}

QHash<int, QByteArray> BreadcrumbModel::roleNames() const
{
    return {{NameRole, "name"},
            {IconRole, "icon"},
            {CurrentRole, "current"},
            {CollapsedRole, "collapsed"},
            {EllipsisBeforeRole, "ellipsisBefore"},
            {WidthRole, "crumbWidth"}};
}

void BreadcrumbModel::open(int row)
{
    if (!m_store || row < 0 || row >= rowCount())
        return;
    // The rows are gone when the store has answered.
    const std::shared_ptr<FileNode> folder = m_crumbs[static_cast<std::size_t>(row)].folder;
    m_store->open(folder);
}

void BreadcrumbModel::openCollapsed(int entry)
{
    const auto first = std::ranges::find_if(m_crumbs, &Crumb::collapsed);
    open(static_cast<int>(first - m_crumbs.begin()) + entry);
}

} // namespace corvane
