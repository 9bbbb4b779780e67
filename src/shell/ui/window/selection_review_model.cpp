#include "shell/ui/window/selection_review_model.h"

#include <string_view>

#include "core/item_kind.h"
#include "core/path_guard.h"
#include "core/store/qt_words.h"
#include "shell/ui/file_icons.h"

namespace corvane {

namespace {

// Items without a node, such as small files, are looked up on the disk.
FileNode::Kind kindOf(const StorageStore &store, const std::string &path)
{
    if (const FileNode *node = store.node(path))
        return node->kind;
    const auto facts = store.host().files.facts(path);
    return facts ? kindOf(facts->type, facts->isPackage) : FileNode::Kind::file;
}

} // namespace

SelectionReviewModel::SelectionReviewModel(StorageStore &store, QObject *parent) : RowListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::selectionChanged, this, &SelectionReviewModel::follow);
}

void SelectionReviewModel::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    emit activeChanged();
    follow();
}

void SelectionReviewModel::follow()
{
    const int before = count();
    setRows(m_entries, m_active ? m_store.selectedEntries() : std::vector<SelectedEntry>(),
            [](const SelectedEntry &entry) { return std::string_view(entry.path); });
    if (count() != before)
        emit countChanged();
}

void SelectionReviewModel::drop(int row)
{
    if (!m_store.isRemoving() && row >= 0 && row < count())
        m_store.setSelected(std::string(m_entries[static_cast<std::size_t>(row)].path), 0, false);
}

void SelectionReviewModel::open(int row)
{
    if (row >= 0 && row < count())
        m_store.openFile(m_entries[static_cast<std::size_t>(row)].path);
}

void SelectionReviewModel::reveal(int row)
{
    if (row >= 0 && row < count())
        m_store.reveal(m_entries[static_cast<std::size_t>(row)].path);
}

int SelectionReviewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant SelectionReviewModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SelectedEntry &entry = m_entries[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayText(lastPathComponent(entry.path));
    case PathRole:
        return pathText(entry.path, m_store.locations().home());
    case SizeRole:
        return sizeText(entry.size);
    case IconKeyRole:
        return fileIconKey(entry.path, kindOf(m_store, entry.path));
    case DropTitleRole:
        return QStringLiteral("Remove %1 from the selection").arg(displayText(lastPathComponent(entry.path)));
    default:
        return {};
    }
}

QHash<int, QByteArray> SelectionReviewModel::roleNames() const
{
    return {{NameRole, "name"},
            {PathRole, "path"},
            {SizeRole, "size"},
            {IconKeyRole, "iconKey"},
            {DropTitleRole, "dropTitle"}};
}

} // namespace corvane
