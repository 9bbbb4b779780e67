#include "map/ui/folder_contents_model.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include <QColor>
#include <QLocale>

#include "core/byte_count.h"
#include "core/store/followed_store.h"
#include "core/store/path_text.h"
#include "map/treemap_builder.h"
#include "map/ui/tile_info_pill.h"
#include "map/ui/tree_path.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/qt_color.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

// Beyond this, one signal for the whole stretch is cheaper than one for each row.
constexpr std::size_t fewRows = 64;

const QList<int> checkRoles{FolderContentsModel::CheckStateRole, FolderContentsModel::CheckableRole,
                            FolderContentsModel::CheckReasonRole, FolderContentsModel::DescriptionRole};
const QList<int> figureRoles{FolderContentsModel::SizeTextRole, FolderContentsModel::FractionRole,
                             FolderContentsModel::BarColorRole, FolderContentsModel::DescriptionRole};

QString sizeText(std::int64_t size)
{
    return QString::fromStdString(formatByteCount(size));
}

/// What the paths of the items inside a folder start with.
std::string insidePrefix(const FileNode &folder)
{
    std::string path = folder.path();
    if (!path.ends_with('/'))
        path += '/';
    return path;
}

QString smallFilesText(std::int64_t count)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(static_cast<qlonglong>(count)) +
           (count == 1 ? QStringLiteral(" smaller file (< 1 MB)") : QStringLiteral(" smaller files (< 1 MB)"));
}

} // namespace

void FolderContentsModel::setStore(StorageStore *store)
{
    if (!followStore(m_store, store, this))
        return;
    if (m_store) {
        connect(m_store, &StorageStore::currentFolderChanged, this, &FolderContentsModel::followFolder);
        connect(m_store, &StorageStore::revisionChanged, this, &FolderContentsModel::followTree);
        connect(m_store, &StorageStore::selectionChanged, this, &FolderContentsModel::followSelection);
    }
    emit storeChanged();
    followFolder();
}

// --- Following the store

void FolderContentsModel::followFolder()
{
    const std::shared_ptr<FileNode> folder = m_store ? m_store->currentFolder() : nullptr;
    if (folder == m_folder)
        return;
    beginResetModel();
    const std::shared_ptr<FileNode> previous = std::exchange(m_folder, folder);
    m_children = m_folder ? m_folder->children : decltype(m_children)();
    m_hasSmallFiles = m_folder && m_folder->smallFilesCount > 0;
    m_rows.clear();
    m_marks = readMarks();
    updateFigures();
    endResetModel();

    const std::shared_ptr<FileNode> cameFrom = childTowards(m_folder.get(), previous);
    const auto position = std::ranges::find(m_children, cameFrom);
    emit folderShown(position == m_children.end() ? 0 : static_cast<int>(position - m_children.begin()));
}

void FolderContentsModel::followTree()
{
    followFolder();
    if (!m_folder)
        return;
    takeOutRemoved();
    updateFigures();
    announceAll(figureRoles);
}

void FolderContentsModel::takeOutRemoved()
{
    const std::unordered_set<std::shared_ptr<FileNode>> left(m_folder->children.begin(), m_folder->children.end());
    for (std::size_t end = m_children.size(); end > 0;) {
        if (left.contains(m_children[end - 1])) {
            --end;
            continue;
        }
        std::size_t first = end - 1;
        while (first > 0 && !left.contains(m_children[first - 1]))
            --first;
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end - 1));
        m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(first),
                         m_children.begin() + static_cast<std::ptrdiff_t>(end));
        m_rows.clear();
        endRemoveRows();
        end = first;
    }
}

void FolderContentsModel::updateFigures()
{
    m_largest = 0;
    for (const auto &child : m_children)
        m_largest = std::max(m_largest, child->size);
    m_places.clear();
    if (!m_folder)
        return;
    const auto items = TreemapBuilder::items(*m_folder, TreemapBuilder::topLimit);
    for (std::size_t i = 0; i < items.size(); ++i)
        m_places.emplace(items[i].node.get(), static_cast<int>(i));
}

void FolderContentsModel::announceAll(const QList<int> &roles)
{
    if (const int rows = rowCount(); rows > 0)
        emit dataChanged(index(0), index(rows - 1), roles);
}

FolderContentsModel::Marks FolderContentsModel::readMarks() const
{
    Marks marks;
    if (!m_store || !m_folder || m_store->selection().empty())
        return marks;
    const Selection &selection = m_store->selection();
    marks.allCovered = m_store->isCovered(m_folder->path());

    // The selection is in the order of its paths, so what lies inside this folder is one stretch of it, and
    // so is what lies inside each item.
    const std::string prefix = insidePrefix(*m_folder);
    for (auto entry = selection.lower_bound(prefix); entry != selection.end() && entry->first.starts_with(prefix);) {
        const std::size_t slash = entry->first.find('/', prefix.size());
        std::string name = entry->first.substr(prefix.size(), slash - prefix.size());
        if (slash == std::string::npos) {
            marks.byName[std::move(name)] = Qt::Checked;
            ++entry;
        } else {
            const std::string afterItem = prefix + name + static_cast<char>('/' + 1);
            marks.byName.try_emplace(std::move(name), Qt::PartiallyChecked);
            entry = selection.lower_bound(afterItem);
        }
    }
    return marks;
}

void FolderContentsModel::followSelection()
{
    const Marks before = std::exchange(m_marks, readMarks());
    if (before.allCovered != m_marks.allCovered) {
        announceAll(checkRoles);
        return;
    }
    std::vector<int> changed;
    const auto compare = [&](const Marks &a, const Marks &b, bool onlyMissing) {
        for (const auto &[name, state] : a.byName) {
            const auto other = b.byName.find(name);
            if (other == b.byName.end() || (!onlyMissing && other->second != state))
                changed.push_back(rowOf(name));
        }
    };
    compare(m_marks, before, false);
    compare(before, m_marks, true);
    std::erase(changed, -1);
    if (changed.size() > fewRows) {
        const auto [first, last] = std::ranges::minmax(changed);
        emit dataChanged(index(first), index(last), checkRoles);
        return;
    }
    for (const int row : changed)
        emit dataChanged(index(row), index(row), checkRoles);
}

int FolderContentsModel::rowOf(std::string_view name)
{
    if (m_rows.empty()) {
        m_rows.reserve(m_children.size());
        for (std::size_t i = 0; i < m_children.size(); ++i)
            m_rows.emplace(m_children[i]->name, static_cast<int>(i));
    }
    const auto position = m_rows.find(name);
    return position == m_rows.end() ? -1 : position->second;
}

// --- Rows

int FolderContentsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_children.size()) + (m_hasSmallFiles ? 1 : 0);
}

const FileNode *FolderContentsModel::nodeAt(int row) const
{
    return row >= 0 && static_cast<std::size_t>(row) < m_children.size()
               ? m_children[static_cast<std::size_t>(row)].get()
               : nullptr;
}

bool FolderContentsModel::isSmallFilesRow(int row) const
{
    return m_hasSmallFiles && row == static_cast<int>(m_children.size());
}

QVariant FolderContentsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FileNode *node = nodeAt(index.row());
    return node ? itemData(*node, index.row(), role) : smallFilesData(role);
}

QVariant FolderContentsModel::itemData(const FileNode &node, int row, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayText(node.name);
    case ElideRole:
        return node.kind != FileNode::Kind::directory && !node.extension().empty() ? Qt::ElideMiddle : Qt::ElideRight;
    case SizeTextRole:
        return sizeText(node.size);
    case IconKeyRole:
        return fileIconKey(node);
    case FractionRole:
        return m_largest > 0 ? static_cast<double>(node.size) / static_cast<double>(m_largest) : 0.0;
    case BarColorRole: {
        const auto place = m_places.find(&node);
        return toQColor(TreemapBuilder::itemColor(&node, place == m_places.end() ? row : place->second));
    }
    case OpensRole:
        return opensInMap(&node);
    case SmallFilesRole:
        return false;
    case CheckStateRole:
        return checkState(node);
    case CheckableRole:
        return checkReason(node).isEmpty();
    case CheckReasonRole:
        return checkReason(node);
    case DescriptionRole:
    case Qt::AccessibleTextRole:
        return displayText(node.name) + QStringLiteral(", ") + displayText(node.kindLabel()) + QStringLiteral(", ") +
               sizeText(node.size);
    default:
        return {};
    }
}

QVariant FolderContentsModel::smallFilesData(int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return smallFilesText(m_folder->smallFilesCount);
    case ElideRole:
        return Qt::ElideRight;
    case SizeTextRole:
        return sizeText(m_folder->smallFilesSize);
    case IconKeyRole:
    case CheckReasonRole:
        return QString();
    case FractionRole:
        return 0.0;
    case BarColorRole:
        return toQColor(TreemapBuilder::itemColor(nullptr, 0));
    case OpensRole:
    case CheckableRole:
        return false;
    case SmallFilesRole:
        return true;
    case CheckStateRole:
        return Qt::Unchecked;
    case DescriptionRole:
    case Qt::AccessibleTextRole:
        return smallFilesText(m_folder->smallFilesCount) + QStringLiteral(", ") + sizeText(m_folder->smallFilesSize);
    default:
        return {};
    }
}

Qt::CheckState FolderContentsModel::checkState(const FileNode &node) const
{
    if (m_marks.allCovered)
        return Qt::Checked;
    const auto mark = m_marks.byName.find(node.name);
    return mark == m_marks.byName.end() ? Qt::Unchecked : mark->second;
}

QString FolderContentsModel::checkReason(const FileNode &node) const
{
    if (m_marks.allCovered)
        return coveredRefusal();
    if (m_store && m_store->isProtected(node.path()))
        return protectedRefusal();
    return {};
}

QHash<int, QByteArray> FolderContentsModel::roleNames() const
{
    return {{NameRole, "name"},           {ElideRole, "elideMode"},         {SizeTextRole, "sizeText"},
            {IconKeyRole, "iconKey"},     {FractionRole, "fraction"},       {BarColorRole, "barColor"},
            {OpensRole, "opens"},         {SmallFilesRole, "smallFiles"},   {CheckStateRole, "checkState"},
            {CheckableRole, "checkable"}, {CheckReasonRole, "checkReason"}, {DescriptionRole, "description"}};
}

// --- Actions

void FolderContentsModel::click(int row)
{
    const FileNode *node = nodeAt(row);
    m_clicked = node ? m_children[static_cast<std::size_t>(row)] : nullptr;
    if (opensInMap(node))
        open(row);
}

void FolderContentsModel::doubleClick(int row)
{
    const FileNode *node = nodeAt(row);
    if (node && node == m_clicked.lock().get() && !opensInMap(node))
        open(row);
}

void FolderContentsModel::open(int row)
{
    if (!m_store || !nodeAt(row))
        return;
    // The rows are gone when the store has answered.
    const std::shared_ptr<FileNode> target = m_children[static_cast<std::size_t>(row)];
    if (opensInMap(target.get()))
        m_store->open(target);
    else
        m_store->openFile(target->path());
}

void FolderContentsModel::toggle(int row)
{
    if (const FileNode *node = nodeAt(row); node && m_store && !node->removed)
        toggleItem(*m_store, node->path(), node->size);
}

void FolderContentsModel::select(int row)
{
    if (const FileNode *node = nodeAt(row); node && m_store && !node->removed)
        selectItem(*m_store, node->path(), node->size);
}

void FolderContentsModel::selectAll()
{
    if (m_store && m_folder)
        selectChildren(*m_store, *m_folder);
}

bool FolderContentsModel::prepareMenu(int row)
{
    if (!nodeAt(row))
        return false;
    m_menuTarget.setTarget(m_store, m_children[static_cast<std::size_t>(row)]);
    return true;
}

} // namespace corvane
