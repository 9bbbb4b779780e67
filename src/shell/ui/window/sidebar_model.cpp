#include "shell/ui/window/sidebar_model.h"

#include <algorithm>

namespace corvane {

SidebarModel::SidebarModel(StorageStore &store, QObject *parent) : QAbstractListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::sidebarChanged, this, &SidebarModel::announceCurrent);
    announceCurrent();
}

QQmlListProperty<WindowScreen> SidebarModel::screens()
{
    using Screens = QQmlListProperty<WindowScreen>;
    return Screens(
        this, nullptr,
        [](Screens *list, WindowScreen *screen) { static_cast<SidebarModel *>(list->object)->addScreen(screen); },
        [](Screens *list) {
            return static_cast<qsizetype>(static_cast<SidebarModel *>(list->object)->m_screens.size());
        },
        [](Screens *list, qsizetype row) {
            return static_cast<SidebarModel *>(list->object)->m_screens[static_cast<std::size_t>(row)];
        },
        nullptr);
}

void SidebarModel::addScreen(WindowScreen *screen)
{
    const auto position = std::ranges::upper_bound(m_screens, screen->item, {}, &WindowScreen::item);
    const auto row = static_cast<int>(position - m_screens.begin());
    beginInsertRows({}, row, row);
    m_screens.insert(position, screen);
    endInsertRows();
    announceCurrent();
}

const SidebarItemInfo &SidebarModel::info(int row) const
{
    return sidebarItemInfo(m_screens[static_cast<std::size_t>(row)]->item);
}

int SidebarModel::currentRow() const
{
    if (m_screens.empty())
        return -1;
    const auto found = std::ranges::find(m_screens, m_store.sidebar(), &WindowScreen::item);
    return found == m_screens.end() ? 0 : static_cast<int>(found - m_screens.begin());
}

const SidebarItemInfo *SidebarModel::current() const
{
    const int row = currentRow();
    return row < 0 ? nullptr : &info(row);
}

QQmlComponent *SidebarModel::content() const
{
    const int row = currentRow();
    return row < 0 ? nullptr : m_screens[static_cast<std::size_t>(row)]->loaded();
}

bool SidebarModel::goesBeneathBar() const
{
    const int row = currentRow();
    return row >= 0 && m_screens[static_cast<std::size_t>(row)]->goesBeneathBar;
}

bool SidebarModel::needsScan() const
{
    const SidebarItemInfo *item = current();
    return item != nullptr && item->needsScan;
}

QString SidebarModel::title() const
{
    const SidebarItemInfo *item = current();
    return item != nullptr ? item->title : QString();
}

QString SidebarModel::symbol() const
{
    const SidebarItemInfo *item = current();
    return item != nullptr ? item->symbol : QString();
}

QString SidebarModel::scanTitle() const
{
    return QStringLiteral("Scan first to see ") + title();
}

QString SidebarModel::scanPrompt() const
{
    const SidebarItemInfo *item = current();
    return item != nullptr ? item->scanPrompt : QString();
}

void SidebarModel::choose(int row)
{
    if (row >= 0 && row < rowCount())
        m_store.setSidebar(m_screens[static_cast<std::size_t>(row)]->item);
}

int SidebarModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_screens.size());
}

bool SidebarModel::startsSection(int row) const
{
    return row == 0 || info(row - 1).section != info(row).section;
}

QVariant SidebarModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SidebarItemInfo &item = info(index.row());
    switch (role) {
    case KeyRole:
        return item.key;
    case Qt::DisplayRole:
    case TitleRole:
        return item.title;
    case SymbolRole:
        return item.symbol;
    case SectionRole:
        return sectionTitle(item.section);
    case StartsSectionRole:
        return startsSection(index.row());
    case CurrentRole:
        return index.row() == currentRow();
    case ShortcutRole:
        return QStringLiteral("Ctrl+%1").arg(index.row() + 1);
    default:
        return {};
    }
}

QHash<int, QByteArray> SidebarModel::roleNames() const
{
    return {{KeyRole, "key"},
            {TitleRole, "title"},
            {SymbolRole, "symbol"},
            {SectionRole, "section"},
            {StartsSectionRole, "startsSection"},
            {CurrentRole, "current"},
            {ShortcutRole, "keys"}};
}

void SidebarModel::announceCurrent()
{
    // A new row shifts the shortcuts of all rows behind it and may take over its section's title.
    if (!m_screens.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {StartsSectionRole, CurrentRole, ShortcutRole});
    emit currentChanged();
}

} // namespace corvane
