#include "shell/ui/window/selection_review_model.h"

#include <algorithm>
#include <iterator>

#include "core/byte_count.h"
#include "core/path_guard.h"
#include "core/store/followed_store.h"
#include "core/store/path_text.h"
#include "shell/ui/file_icons.h"

namespace corvane {

namespace {

// The order of `selectedEntries`, in which both lists stand.
bool standsBefore(const SelectedEntry &a, const SelectedEntry &b)
{
    return a.size != b.size ? a.size > b.size : a.path < b.path;
}

// What has no node, such as a small file, is looked at on the disk.
FileNode::Kind kindOf(const StorageStore &store, const std::string &path)
{
    if (const FileNode *node = store.node(path))
        return node->kind;
    const auto facts = store.host().files.facts(path);
    if (!facts || facts->type != EntryType::directory)
        return FileNode::Kind::file;
    return facts->isPackage ? FileNode::Kind::package : FileNode::Kind::directory;
}

QString shortenedPath(std::string_view path, std::string_view home)
{
    if (!liesBeneath(path, home))
        return displayText(path);
    return u'~' + displayText(path.substr(home.size()));
}

} // namespace

void SelectionReviewModel::setStore(StorageStore *store)
{
    if (!followStore(m_store, store, this))
        return;
    if (m_store)
        connect(m_store, &StorageStore::selectionChanged, this, &SelectionReviewModel::follow);
    emit storeChanged();
    follow();
}

void SelectionReviewModel::follow()
{
    const std::vector<SelectedEntry> wanted = m_store ? m_store->selectedEntries() : std::vector<SelectedEntry>();
    const int before = count();
    removeMissing(wanted);
    insertNew(wanted);
    if (count() != before)
        emit countChanged();
}

void SelectionReviewModel::removeMissing(const std::vector<SelectedEntry> &wanted)
{
    std::vector<SelectedEntry> kept;
    std::ranges::set_intersection(m_entries, wanted, std::back_inserter(kept), standsBefore);
    // From the end, so that the rows before a run keep their numbers.
    auto keptEnd = kept.rbegin();
    for (int last = count() - 1; last >= 0;) {
        if (keptEnd != kept.rend() && m_entries[static_cast<std::size_t>(last)] == *keptEnd) {
            ++keptEnd;
            --last;
            continue;
        }
        int first = last;
        while (first > 0 && (keptEnd == kept.rend() || m_entries[static_cast<std::size_t>(first - 1)] != *keptEnd))
            --first;
        beginRemoveRows({}, first, last);
        m_entries.erase(m_entries.begin() + first, m_entries.begin() + last + 1);
        endRemoveRows();
        last = first - 1;
    }
}

void SelectionReviewModel::insertNew(const std::vector<SelectedEntry> &wanted)
{
    for (std::size_t first = 0; first < wanted.size();) {
        if (first < m_entries.size() && m_entries[first] == wanted[first]) {
            ++first;
            continue;
        }
        std::size_t end = first + 1;
        while (end < wanted.size() && (first == m_entries.size() || wanted[end] != m_entries[first]))
            ++end;
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(first),
                         wanted.begin() + static_cast<std::ptrdiff_t>(first),
                         wanted.begin() + static_cast<std::ptrdiff_t>(end));
        endInsertRows();
        first = end;
    }
}

void SelectionReviewModel::drop(int row)
{
    if (m_store && !m_store->isRemoving() && row >= 0 && row < count())
        m_store->setSelected(std::string(m_entries[static_cast<std::size_t>(row)].path), 0, false);
}

void SelectionReviewModel::open(int row)
{
    if (m_store && row >= 0 && row < count())
        m_store->openFile(m_entries[static_cast<std::size_t>(row)].path);
}

void SelectionReviewModel::reveal(int row)
{
    if (m_store && row >= 0 && row < count())
        m_store->reveal(m_entries[static_cast<std::size_t>(row)].path);
}

int SelectionReviewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant SelectionReviewModel::data(const QModelIndex &index, int role) const
{
    if (!m_store || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SelectedEntry &entry = m_entries[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayText(lastPathComponent(entry.path));
    case PathRole:
        return shortenedPath(entry.path, m_store->locations().home());
    case SizeRole:
        return QString::fromStdString(formatByteCount(entry.size));
    case IconKeyRole:
        return fileIconKey(entry.path, kindOf(*m_store, entry.path));
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
