#include "map/ui/folder_contents_model.h"

#include <algorithm>
#include <utility>

#include <QColor>

#include "core/store/qt_words.h"
#include "map/treemap_builder.h"
#include "map/ui/tile_info_pill.h"
#include "map/ui/tree_path.h"
#include "shell/ui/elide_mode.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/qt_color.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

const QList<int> checkRoles{FolderContentsModel::CheckStateRole, FolderContentsModel::CheckableRole,
                            FolderContentsModel::CheckReasonRole, FolderContentsModel::DescriptionRole};
const QList<int> figureRoles{FolderContentsModel::SizeTextRole, FolderContentsModel::FractionRole,
                             FolderContentsModel::BarColorRole, FolderContentsModel::DescriptionRole};

QString smallFilesText(std::int64_t count)
{
    return countText(count, "smaller file (< 1 MB)", "smaller files (< 1 MB)");
}

} // namespace

FolderContentsModel::FolderContentsModel(StorageStore &store, QObject *parent) : RowListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::currentFolderChanged, this, &FolderContentsModel::followFolder);
    connect(&m_store, &StorageStore::revisionChanged, this, &FolderContentsModel::followTree);
    connect(&m_store, &StorageStore::selectionChanged, this, &FolderContentsModel::followSelection);
    followFolder();
}

// --- Following the store

void FolderContentsModel::followFolder()
{
    const std::shared_ptr<FileNode> folder = m_store.currentFolder();
    if (folder == m_folder)
        return;
    beginResetModel();
    const std::shared_ptr<FileNode> previous = std::exchange(m_folder, folder);
    m_nodes = rowsOfFolder();
    m_rows.clear();
    m_selection = readSelection();
    updateFigures();
    endResetModel();

    const std::shared_ptr<FileNode> cameFrom = childTowards(m_folder.get(), previous);
    const auto position = cameFrom ? std::ranges::find(m_nodes, cameFrom) : m_nodes.end();
    emit folderShown(position == m_nodes.end() ? 0 : static_cast<int>(position - m_nodes.begin()));
}

void FolderContentsModel::followTree()
{
    followFolder();
    if (!m_folder)
        return;
    m_rows.clear(); // its keys refer to the nodes' names
    setRows(m_nodes, rowsOfFolder(), &std::shared_ptr<FileNode>::get);
    updateFigures();
    announceAll(figureRoles);
}

std::vector<std::shared_ptr<FileNode>> FolderContentsModel::rowsOfFolder() const
{
    if (!m_folder)
        return {};
    std::vector<std::shared_ptr<FileNode>> nodes = m_folder->children;
    if (m_folder->smallFilesCount > 0)
        nodes.push_back(nullptr);
    return nodes;
}

void FolderContentsModel::updateFigures()
{
    m_largest = 0;
    m_places.clear();
    if (!m_folder)
        return;
    for (const auto &child : m_folder->children)
        m_largest = std::max(m_largest, child->size);
    const auto items = TreemapBuilder::items(*m_folder, TreemapBuilder::topLimit);
    for (std::size_t i = 0; i < items.size(); ++i)
        m_places.emplace(items[i].node.get(), static_cast<int>(i));
}

FolderSelection FolderContentsModel::readSelection() const
{
    return m_folder ? FolderSelection(m_store.selection(), m_folder->path()) : FolderSelection();
}

void FolderContentsModel::followSelection()
{
    const FolderSelection before = std::exchange(m_selection, readSelection());
    if (before.isCovered() != m_selection.isCovered()) {
        announceAll(checkRoles);
        return;
    }
    std::vector<int> changed;
    for (const std::string &name : m_selection.namesThatDiffer(before))
        changed.push_back(rowOf(name));
    std::erase(changed, -1);
    std::ranges::sort(changed);
    announce(changed, checkRoles);
}

int FolderContentsModel::rowOf(std::string_view name)
{
    if (m_rows.empty()) {
        m_rows.reserve(m_nodes.size());
        for (std::size_t i = 0; i < m_nodes.size(); ++i) {
            if (m_nodes[i])
                m_rows.emplace(m_nodes[i]->name, static_cast<int>(i));
        }
    }
    const auto position = m_rows.find(name);
    return position == m_rows.end() ? -1 : position->second;
}

// --- Rows

int FolderContentsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_nodes.size());
}

const FileNode *FolderContentsModel::nodeAt(int row) const
{
    return row >= 0 && row < rowCount() ? m_nodes[static_cast<std::size_t>(row)].get() : nullptr;
}

QVariant FolderContentsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FileNode *node = nodeAt(index.row());
    return node ? nodeData(*node, index.row(), role) : smallFilesData(role);
}

QVariant FolderContentsModel::nodeData(const FileNode &node, int row, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayText(node.name);
    case ElideRole:
        return elideModeOf(node);
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
        return checkState(m_selection.of(node.name));
    case CheckableRole:
        return refusal(node) == SelectionRefusal::none;
    case CheckReasonRole:
        return refusalText(refusal(node));
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

SelectionRefusal FolderContentsModel::refusal(const FileNode &node) const
{
    return refusalOf(m_selection.of(node.name), [&] { return m_store.isProtected(node.path()); });
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
    m_clicked = node ? m_nodes[static_cast<std::size_t>(row)] : nullptr;
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
    if (!nodeAt(row))
        return;
    // The rows may be gone when the store answers.
    const std::shared_ptr<FileNode> target = m_nodes[static_cast<std::size_t>(row)];
    if (opensInMap(target.get()))
        m_store.open(target);
    else
        m_store.openFile(target->path());
}

void FolderContentsModel::toggle(int row)
{
    if (const FileNode *node = nodeAt(row))
        toggleItem(m_store, *node);
}

void FolderContentsModel::select(int row)
{
    if (const FileNode *node = nodeAt(row))
        selectItem(m_store, *node);
}

void FolderContentsModel::selectAll()
{
    if (m_folder)
        selectChildren(m_store, *m_folder);
}

bool FolderContentsModel::prepareMenu(int row)
{
    if (!nodeAt(row))
        return false;
    m_menuTarget.setTarget(m_nodes[static_cast<std::size_t>(row)]);
    return true;
}

} // namespace corvane
