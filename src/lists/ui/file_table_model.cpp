#include "lists/ui/file_table_model.h"

#include <algorithm>
#include <utility>

#include "core/store/qt_words.h"
#include "shell/ui/elide_mode.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

const QList<int> checkRoles{FileTableModel::CheckStateRole, FileTableModel::CheckableRole,
                            FileTableModel::CheckReasonRole};

} // namespace

FileTableModel::FileTableModel(StorageStore &store, QObject *parent) : RowListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::selectionChanged, this, &FileTableModel::followSelection);
}

void FileTableModel::setRows(std::shared_ptr<const ListedFiles> files, std::vector<const FileNode *> rows)
{
    // Keep the previous files alive: the rows refer to them until they are replaced.
    const std::shared_ptr<const ListedFiles> former = std::exchange(m_files, std::move(files));
    const bool isSameTree = former == m_files || !former;
    if (isSameTree) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    } else {
        RowListModel::setRows(m_rows, std::move(rows), [](const FileNode *file) { return file; });
        announceAll({});
    }
    keepHighlightOfRows();
    if (isSameTree)
        emit startedAnew();
}

void FileTableModel::sortBy(int column)
{
    const auto wanted = static_cast<FileColumn>(column);
    if (wanted == m_sort.column)
        m_sort.descending = !m_sort.descending;
    else
        m_sort = {wanted, wanted == FileColumn::size};
    emit sortChanged();
}

void FileTableModel::followSelection()
{
    announceAll(checkRoles);
    emit menuChanged();
}

// --- Rows

int FileTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

const FileNode *FileTableModel::fileAt(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)] : nullptr;
}

QVariant FileTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FileNode &file = *m_rows[static_cast<std::size_t>(index.row())];
    const auto facts = [&] { return checkFacts(selectionFactsOf(m_store, file.path())); };
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return displayText(file.name);
    case ElideRole:
        return elideModeOf(file);
    case SizeTextRole:
        return sizeText(file.size);
    case KindRole:
        return displayText(typeOf(file).label());
    case ModifiedRole:
        return modifiedText(file);
    case LocationRole:
        return locationText(file);
    case IconKeyRole:
        return fileIconKey(file);
    case HighlightedRole:
        return m_highlighted.contains(&file);
    case CheckStateRole:
        return facts().state;
    case CheckableRole:
        return facts().isCheckable;
    case CheckReasonRole:
        return facts().reason;
    case DescriptionRole:
    case Qt::AccessibleTextRole:
        return description(file);
    default:
        return {};
    }
}

QString FileTableModel::modifiedText(const FileNode &file) const
{
    return file.modified == distantPast ? QStringLiteral("–") : abbreviatedDate(localDate(file.modified), m_locale);
}

QString FileTableModel::locationText(const FileNode &file) const
{
    return displayText(file.parentPath(m_store.locations().home()));
}

QString FileTableModel::description(const FileNode &file) const
{
    QStringList parts{displayText(file.name), sizeText(file.size), displayText(typeOf(file).label())};
    if (file.modified != distantPast)
        parts << modifiedText(file);
    parts << locationText(file);
    return parts.join(QStringLiteral(", "));
}

QHash<int, QByteArray> FileTableModel::roleNames() const
{
    return {{NameRole, "name"},           {ElideRole, "elideMode"},         {SizeTextRole, "sizeText"},
            {KindRole, "kind"},           {ModifiedRole, "modified"},       {LocationRole, "location"},
            {IconKeyRole, "iconKey"},     {HighlightedRole, "highlighted"}, {CheckStateRole, "checkState"},
            {CheckableRole, "checkable"}, {CheckReasonRole, "checkReason"}, {DescriptionRole, "description"}};
}

// --- The highlight

void FileTableModel::setHighlighted(std::unordered_set<const FileNode *> files)
{
    m_highlighted = std::move(files);
    announceAll({HighlightedRole});
    emit highlightChanged();
}

void FileTableModel::keepHighlightOfRows()
{
    if (m_highlighted.empty() && m_anchor == nullptr)
        return;
    std::unordered_set<const FileNode *> kept;
    bool keepsAnchor = false;
    for (const FileNode *file : m_rows) {
        if (m_highlighted.contains(file))
            kept.insert(file);
        keepsAnchor = keepsAnchor || file == m_anchor;
    }
    if (!keepsAnchor)
        m_anchor = nullptr;
    setHighlighted(std::move(kept));
}

int FileTableModel::anchorRow() const
{
    const auto found = std::ranges::find(m_rows, m_anchor);
    return m_anchor == nullptr || found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

std::vector<const FileNode *> FileTableModel::highlighted() const
{
    return {m_highlighted.begin(), m_highlighted.end()};
}

bool FileTableModel::isAmongSeveral(int row) const
{
    return m_highlighted.size() > 1 && m_highlighted.contains(fileAt(row));
}

void FileTableModel::press(int row, int modifiers, bool forMenu)
{
    const FileNode *const file = fileAt(row);
    if (!file || (forMenu && m_highlighted.contains(file)))
        return;
    const Qt::KeyboardModifiers keys(QFlag{modifiers});
    if (!forMenu && keys.testFlag(Qt::ShiftModifier)) {
        extendTo(row);
    } else if (!forMenu && keys.testFlag(Qt::ControlModifier)) {
        std::unordered_set<const FileNode *> files = m_highlighted;
        if (files.erase(file) == 0)
            files.insert(file);
        m_anchor = file;
        setHighlighted(std::move(files));
    } else {
        highlight(row);
    }
}

void FileTableModel::highlight(int row)
{
    const FileNode *const file = fileAt(row);
    if (!file)
        return;
    m_anchor = file;
    setHighlighted({file});
}

void FileTableModel::extendTo(int row)
{
    const int anchor = anchorRow();
    if (!fileAt(row) || anchor < 0) {
        highlight(row);
        return;
    }
    const auto [first, last] = std::minmax(anchor, row);
    setHighlighted({m_rows.begin() + first, m_rows.begin() + last + 1});
}

void FileTableModel::highlightAll()
{
    setHighlighted({m_rows.begin(), m_rows.end()});
}

// --- Actions

bool FileTableModel::areSelected(const std::vector<const FileNode *> &files) const
{
    // Fast path for the usual case.
    if (m_store.selection().empty())
        return false;
    bool isAnySelected = false;
    for (const FileNode *file : files) {
        const std::string path = file->path();
        if (m_store.isSelected(path))
            isAnySelected = true;
        else if (!m_store.isProtected(path))
            return false;
    }
    return isAnySelected;
}

void FileTableModel::setSelected(const std::vector<const FileNode *> &files, bool selected)
{
    std::vector<SelectedEntry> entries;
    entries.reserve(files.size());
    for (const FileNode *file : files)
        entries.push_back({file->path(), file->size});
    m_store.setSelected(entries, selected);
}

void FileTableModel::toggle(int row)
{
    if (isAmongSeveral(row))
        toggleHighlighted();
    else
        toggleOne(row);
}

void FileTableModel::toggleOne(int row)
{
    if (const FileNode *file = fileAt(row))
        toggleItem(m_store, *file);
}

void FileTableModel::select(int row)
{
    if (isAmongSeveral(row))
        setSelected(highlighted(), true);
    else if (const FileNode *file = fileAt(row))
        selectItem(m_store, *file);
}

void FileTableModel::toggleHighlighted()
{
    const std::vector<const FileNode *> files = highlighted();
    setSelected(files, !areSelected(files));
}

void FileTableModel::open(int row)
{
    const FileNode *const file = fileAt(row);
    if (!file)
        return;
    m_menuTarget.setTarget(file->path(), file->size, file->kind);
    m_menuTarget.open();
}

bool FileTableModel::prepareMenu(int row)
{
    const FileNode *const file = fileAt(row);
    if (!file)
        return false;
    if (!m_highlighted.contains(file))
        highlight(row);
    m_menuTarget.setTarget(file->path(), file->size, file->kind);
    emit menuChanged();
    return true;
}

QString FileTableModel::severalText() const
{
    const QString count = countText(highlightedCount());
    return areSelected(highlighted()) ? QStringLiteral("Deselect ") + count
                                      : QStringLiteral("Select %1 for Removal").arg(count);
}

} // namespace corvane
