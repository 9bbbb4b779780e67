#include "duplicates/ui/duplicate_list_model.h"

#include <utility>

#include "core/store/qt_words.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

using Kind = DuplicateRow::Kind;

} // namespace

DuplicateListModel::DuplicateListModel(StorageStore &store, QObject *parent) : RowListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::duplicatesChanged, this, &DuplicateListModel::follow);
    connect(&m_store, &StorageStore::selectionChanged, this, &DuplicateListModel::followSelection);
    follow();
}

// --- Following the store

void DuplicateListModel::follow()
{
    const bool wereNone = m_rows.empty();
    numberGroups();
    install();
    if (wereNone && !m_rows.empty())
        emit replaced();
}

void DuplicateListModel::followSelection()
{
    announceAll({CheckStateRole, CheckableRole, CheckReasonRole});
}

/// A group keeps its number across searches as long as one of its files is in a group.
void DuplicateListModel::numberGroups()
{
    const auto before = std::exchange(m_numberOf, {});
    m_numbers.clear();
    std::unordered_set<int> taken;
    for (const DuplicateGroup &group : m_store.duplicateGroups()) {
        int number = 0;
        for (const auto &file : group.files) {
            const auto found = before.find(file);
            if (found != before.end() && taken.insert(found->second).second) {
                number = found->second;
                break;
            }
        }
        if (number == 0)
            number = ++m_lastNumber;
        m_numbers.push_back(number);
        for (const auto &file : group.files)
            m_numberOf[file] = number;
    }
}

std::vector<DuplicateRow> DuplicateListModel::makeRows() const
{
    std::vector<DuplicateRow> rows;
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        const DuplicateGroup &group = m_store.duplicateGroups()[i];
        const bool isExpanded = !m_folded.contains(m_numbers[i]);
        rows.push_back({.kind = Kind::group,
                        .group = m_numbers[i],
                        .file = group.files.front(),
                        .count = group.files.size(),
                        .size = group.size,
                        .wasted = group.reclaimable(),
                        .isExpanded = isExpanded});
        if (!isExpanded)
            continue;
        const std::vector<std::optional<std::size_t>> shared = group.sharedStorage();
        for (std::size_t file = 0; file < group.files.size(); ++file) {
            const std::optional<std::size_t> owner = shared[file];
            rows.push_back({.kind = Kind::file,
                            .group = m_numbers[i],
                            .file = group.files[file],
                            .storageOwner = owner ? group.files[*owner] : nullptr,
                            .isNewest = file == 0,
                            .startsBox = file == 0,
                            .endsBox = file + 1 == group.files.size()});
        }
    }
    return rows;
}

void DuplicateListModel::install()
{
    setRows(m_rows, makeRows(), &DuplicateRow::key);
}

// --- Rows

int DuplicateListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

const DuplicateRow *DuplicateListModel::rowAt(int row) const
{
    return row >= 0 && row < rowCount() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

std::shared_ptr<FileNode> DuplicateListModel::fileAt(int row) const
{
    const DuplicateRow *const found = rowAt(row);
    return found != nullptr && found->kind == Kind::file ? found->file : nullptr;
}

QVariant DuplicateListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const DuplicateRow &row = *rowAt(index.row());
    const auto check = [&] {
        return row.kind == Kind::file ? checkFacts(selectionFactsOf(m_store, row.file->path())) : CheckFacts();
    };
    switch (role) {
    case KindRole:
        return row.kind == Kind::group ? QStringLiteral("group") : QStringLiteral("file");
    case Qt::DisplayRole: // used by type-to-find
        return displayText(row.file->name);
    case TitleRole:
        return row.title();
    case NoteRole:
        return row.note();
    case WastedRole:
        return row.wastedText();
    case IconKeyRole:
        return fileIconKey(*row.file);
    case ExpandedRole:
        return row.isExpanded;
    case NewestRole:
        return row.isNewest;
    case StartsBoxRole:
        return row.startsBox;
    case EndsBoxRole:
        return row.endsBox;
    case CheckStateRole:
        return check().state;
    case CheckableRole:
        return check().isCheckable;
    case CheckReasonRole:
        return check().reason;
    case DescriptionRole:
    case Qt::AccessibleTextRole:
        return row.description();
    default:
        return {};
    }
}

QHash<int, QByteArray> DuplicateListModel::roleNames() const
{
    return {{KindRole, "kind"},
            {TitleRole, "title"},
            {NoteRole, "note"},
            {WastedRole, "wasted"},
            {IconKeyRole, "iconKey"},
            {ExpandedRole, "expanded"},
            {NewestRole, "newest"},
            {StartsBoxRole, "startsBox"},
            {EndsBoxRole, "endsBox"},
            {CheckStateRole, "checkState"},
            {CheckableRole, "checkable"},
            {CheckReasonRole, "checkReason"},
            {DescriptionRole, "description"}};
}

// --- Actions

void DuplicateListModel::activate(int row)
{
    const DuplicateRow *const pressed = rowAt(row);
    if (pressed == nullptr)
        return;
    if (pressed->kind == Kind::group)
        setExpanded(row, !pressed->isExpanded);
    else if (prepareMenu(row))
        m_menuTarget.open();
}

void DuplicateListModel::setExpanded(int row, bool expanded)
{
    const DuplicateRow *const pressed = rowAt(row);
    if (pressed == nullptr)
        return;
    if (expanded)
        m_folded.erase(pressed->group);
    else
        m_folded.insert(pressed->group);
    install();
}

int DuplicateListModel::groupRow(int row) const
{
    while (fileAt(row) != nullptr)
        --row;
    return row;
}

void DuplicateListModel::toggle(int row)
{
    if (const std::shared_ptr<FileNode> file = fileAt(row))
        toggleItem(m_store, *file);
    else
        activate(row);
}

void DuplicateListModel::select(int row)
{
    if (const std::shared_ptr<FileNode> file = fileAt(row))
        selectItem(m_store, *file);
}

void DuplicateListModel::reveal(int row)
{
    if (const std::shared_ptr<FileNode> file = fileAt(row))
        m_store.reveal(file->path());
}

bool DuplicateListModel::prepareMenu(int row)
{
    const std::shared_ptr<FileNode> file = fileAt(row);
    if (!file)
        return false;
    m_menuTarget.setTarget(file->path(), file->size, file->kind);
    return true;
}

} // namespace corvane
