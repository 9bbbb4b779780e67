#include "map/ui/breadcrumb_model.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QFontMetricsF>

#include "core/store/qt_words.h"
#include "map/ui/map_metrics.h"
#include "map/ui/tree_path.h"
#include "shell/ui/theme.h"

namespace corvane {

BreadcrumbModel::BreadcrumbModel(StorageStore &store, QObject *parent) : RowListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::currentFolderChanged, this, &BreadcrumbModel::followFolder);
    followFolder();
}

void BreadcrumbModel::followFolder()
{
    std::vector<Crumb> crumbs;
    for (const auto &folder : pathFromRoot(m_store.currentFolder()))
        crumbs.push_back({folder});
    show(std::move(crumbs));
    announceAll({CurrentRole});
}

void BreadcrumbModel::setAvailableWidth(double width)
{
    if (m_availableWidth == width)
        return;
    m_availableWidth = width;
    emit availableWidthChanged();
    show(m_crumbs);
}

void BreadcrumbModel::show(std::vector<Crumb> crumbs)
{
    fit(crumbs);
    const bool differs = crumbs != m_crumbs;
    setRows(m_crumbs, std::move(crumbs), &Crumb::folder, {CollapsedRole, WidthRole});
    if (!differs || m_crumbs.empty())
        return;
    announceAll({EllipsisBeforeRole});
    emit collapsedChanged();
}

double BreadcrumbModel::naturalWidth(const Crumb &crumb, bool isRoot, bool isCurrent)
{
    const QFontMetricsF metrics(isCurrent ? Theme::bodySemiboldFont() : Theme::bodyFont());
    const double text = std::ceil(metrics.horizontalAdvance(displayText(crumb.folder->name)));
    const double icon = isRoot ? MapMetrics::rootIconSize() + MapMetrics::rootIconGap() : 0;
    return 2 * MapMetrics::crumbPadding() + icon + text;
}

double BreadcrumbModel::separatorWidth()
{
    return MapMetrics::crumbCaretSize() + 2 * MapMetrics::crumbSpacing();
}

double BreadcrumbModel::ellipsisWidth()
{
    return 2 * MapMetrics::crumbPadding() +
           std::ceil(QFontMetricsF(Theme::bodyFont()).horizontalAdvance(QStringLiteral("…")));
}

void BreadcrumbModel::fit(std::vector<Crumb> &crumbs) const
{
    if (crumbs.empty())
        return;
    const std::size_t last = crumbs.size() - 1;
    double total = static_cast<double>(last) * separatorWidth();
    for (std::size_t i = 0; i <= last; ++i) {
        const double width = naturalWidth(crumbs[i], i == 0, i == last);
        crumbs[i].collapsed = false;
        crumbs[i].width = i == last ? width : std::min<double>(width, MapMetrics::widestCrumb());
        total += crumbs[i].width;
    }
    if (m_availableWidth <= 0)
        return;
    for (std::size_t i = 1; i < last && total > m_availableWidth; ++i) {
        crumbs[i].collapsed = true;
        total -= crumbs[i].width + separatorWidth();
        if (i == 1)
            total += ellipsisWidth() + separatorWidth();
    }
    if (total > m_availableWidth) {
        double &width = crumbs[last].width;
        width = std::max(width - (total - m_availableWidth), std::min<double>(width, MapMetrics::narrowestCurrent()));
    }
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
    return countText(collapsedNames().size(), "more folder", "more folders");
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
    return path == m_store.locations().home() ? QStringLiteral("house") : QStringLiteral("folder");
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
    if (row < 0 || row >= rowCount())
        return;
    // The rows may be gone when the store answers.
    const std::shared_ptr<FileNode> folder = m_crumbs[static_cast<std::size_t>(row)].folder;
    m_store.open(folder);
}

void BreadcrumbModel::openCollapsed(int entry)
{
    const auto first = std::ranges::find_if(m_crumbs, &Crumb::collapsed);
    open(static_cast<int>(first - m_crumbs.begin()) + entry);
}

} // namespace corvane
