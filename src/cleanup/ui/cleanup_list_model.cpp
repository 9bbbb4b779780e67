#include "cleanup/ui/cleanup_list_model.h"

#include <algorithm>

#include "cleanup/cleanup_items.h"
#include "cleanup/ui/cleanup_row_data.h"
#include "core/store/qt_words.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

using Kind = CleanupRow::Kind;

const QList<int> checkRoles{CleanupListModel::CheckStateRole, CleanupListModel::CheckableRole,
                            CleanupListModel::CheckReasonRole};

} // namespace

CleanupListModel::CleanupListModel(StorageStore &store, QObject *parent) : RowListModel(parent), m_store(store)
{
    connect(&m_store, &StorageStore::cleanupChanged, this, &CleanupListModel::follow);
    connect(&m_store, &StorageStore::cleanupCommandsChanged, this, &CleanupListModel::install);
    connect(&m_store, &StorageStore::treeChanged, this, &CleanupListModel::follow);
    connect(&m_store, &StorageStore::phaseChanged, this, [this] { announceAll({WorkingRole}); });
    connect(&m_store, &StorageStore::selectionChanged, this, &CleanupListModel::followSelection);
    follow();
}

// --- Following the store

std::vector<CleanupRow> CleanupListModel::makeRows() const
{
    const auto isExpanded = [this](const CleanupDefinition &def) {
        const CardOpening *const found = opening(&def);
        return found != nullptr && found->isOpen();
    };
    const auto isUnfolded = [this](int section) { return m_unfolded.contains(section); };
    const auto scan = !m_store.hasScan()        ? CleanupRows::Scan::none
                      : m_store.scanIsPartial() ? CleanupRows::Scan::stopped
                                                : CleanupRows::Scan::finished;
    return CleanupRows::make({.table = cleanupTableOf(m_store.host().files.systemKind()),
                              .items = m_store.cleanupItems(),
                              .isExpanded = isExpanded,
                              .isUnfolded = isUnfolded,
                              .scan = scan,
                              .artifacts = m_store.devJunk(),
                              .commands = m_store.cleanupCommands()});
}

void CleanupListModel::follow()
{
    install();
    followSelection();
}

void CleanupListModel::install()
{
    setRows(m_rows, makeRows(), &CleanupRow::key);
    announceAll({StartsBoxRole, EndsBoxRole, LeadsRole});
}

void CleanupListModel::followSelection()
{
    m_cardChecks.clear();
    for (const CleanupItem &item : m_store.cleanupItems())
        m_cardChecks.emplace(item.def, selectionFactsOfAll(m_store.selection(), item.entries, protectionTest(m_store)));
    announceAll(checkRoles);
}

void CleanupListModel::announceOpening(const CleanupDefinition &def)
{
    const auto belongs = [&def](const CleanupRow &row) { return row.isInsideCard() && row.def == &def; };
    const auto first = std::ranges::find_if(m_rows, belongs);
    if (first == m_rows.end())
        return;
    const auto end = std::find_if_not(first, m_rows.end(), belongs);
    emit dataChanged(index(static_cast<int>(first - m_rows.begin())), index(static_cast<int>(end - m_rows.begin()) - 1),
                     {OpeningRole});
}

// --- Rows

int CleanupListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

const CleanupRow *CleanupListModel::rowAt(int row) const
{
    return row >= 0 && row < rowCount() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

bool CleanupListModel::startsBox(int row) const
{
    const CleanupRow *const before = rowAt(row - 1);
    return before != nullptr && before->kind == Kind::header;
}

bool CleanupListModel::endsBox(int row) const
{
    const CleanupRow *const after = rowAt(row + 1);
    return after == nullptr || after->kind == Kind::header;
}

const CleanupItem *CleanupListModel::item(const CleanupDefinition *def) const
{
    const auto found = std::ranges::find(m_store.cleanupItems(), def, &CleanupItem::def);
    return found == m_store.cleanupItems().end() ? nullptr : &*found;
}

const CleanupItem *CleanupListModel::locationOf(const CleanupRow &row) const
{
    return row.kind == Kind::card ? item(row.def) : nullptr;
}

const CardOpening *CleanupListModel::opening(const CleanupDefinition *def) const
{
    const auto found = m_openings.find(def);
    return found == m_openings.end() ? nullptr : found->second.get();
}

CardOpening &CleanupListModel::openingToChange(const CleanupDefinition &def)
{
    std::unique_ptr<CardOpening> &opening = m_openings[&def];
    if (!opening) {
        opening = std::make_unique<CardOpening>();
        connect(opening.get(), &CardOpening::partChanged, this, [this, &def] { announceOpening(def); });
        connect(opening.get(), &CardOpening::closed, this, [this] { install(); });
    }
    return *opening;
}

std::string CleanupListModel::pathOf(const CleanupRow &row) const
{
    if (row.kind == Kind::entry)
        return row.entry.path;
    if (row.kind == Kind::artifact)
        return row.artifact.node->path();
    const CleanupItem *const location = item(row.def);
    return location != nullptr ? location->path : std::string();
}

SelectionFacts CleanupListModel::selectionFacts(const CleanupRow &row) const
{
    if (row.isItem())
        return selectionFactsOf(m_store, pathOf(row));
    const auto facts = m_cardChecks.find(row.def);
    return facts == m_cardChecks.end() ? SelectionFacts{Selected::no, SelectionRefusal::nothingThere} : facts->second;
}

QVariant CleanupListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CleanupRow &row = *rowAt(index.row());
    switch (role) {
    case StartsBoxRole:
        return startsBox(index.row());
    case EndsBoxRole:
        return endsBox(index.row());
    case LeadsRole:
        return row.isInsideCard() && rowAt(index.row() - 1)->kind == Kind::card;
    case CheckStateRole:
        return checkFacts(selectionFacts(row)).state;
    case CheckableRole:
        return checkFacts(selectionFacts(row)).isCheckable;
    case CheckReasonRole:
        return checkFacts(selectionFacts(row)).reason;
    case ExpandedRole:
        if (row.kind == Kind::folded)
            return m_unfolded.contains(row.section);
        return opening(row.def) != nullptr && opening(row.def)->isExpanded();
    case OpeningRole:
        return row.isInsideCard() && opening(row.def) != nullptr ? opening(row.def)->part() : 1.0;
    case WorkingRole:
        return m_store.phase() == StorageStore::Phase::scanning;
    default:
        return cleanupRowData(row, role, item(row.def), std::string_view(m_store.locations().home()), m_store.words());
    }
}

Qt::ItemFlags CleanupListModel::flags(const QModelIndex &index) const
{
    const CleanupRow *const row = rowAt(index.row());
    return row != nullptr && row->isStop() ? RowListModel::flags(index) : Qt::ItemFlags(Qt::NoItemFlags);
}

QHash<int, QByteArray> CleanupListModel::roleNames() const
{
    return {{KindRole, "kind"},
            {StartsBoxRole, "startsBox"},
            {EndsBoxRole, "endsBox"},
            {LeadsRole, "leads"},
            {TitleRole, "title"},
            {NoteRole, "note"},
            {SymbolRole, "symbol"},
            {TintRole, "tint"},
            {RiskRole, "risk"},
            {TagRole, "tag"},
            {SizeTextRole, "sizeText"},
            {CountTextRole, "countText"},
            {UnreadableRole, "unreadable"},
            {CheckStateRole, "checkState"},
            {CheckableRole, "checkable"},
            {CheckReasonRole, "checkReason"},
            {ExpandedRole, "expanded"},
            {OpeningRole, "opening"},
            {IconKeyRole, "iconKey"},
            {ElideRole, "elideMode"},
            {ActionRole, "action"},
            {WorkingRole, "working"},
            {DescriptionRole, "description"}};
}

// --- Actions

void CleanupListModel::activate(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr)
        return;
    switch (pressed->kind) {
    case Kind::card:
        setExpanded(row, opening(pressed->def) == nullptr || !opening(pressed->def)->isExpanded());
        break;
    case Kind::folded:
        setExpanded(row, !m_unfolded.contains(pressed->section));
        break;
    case Kind::command:
        m_clipboard.copy(displayText(pressed->command.command));
        break;
    case Kind::reveal:
        reveal(row);
        break;
    case Kind::artifact: {
        // The row may be gone when the store answers.
        const std::shared_ptr<FileNode> target = pressed->artifact.node;
        m_store.showInMap(target);
        break;
    }
    case Kind::prompt:
        if (m_store.phase() != StorageStore::Phase::scanning)
            m_store.scanHome();
        break;
    case Kind::partial:
        if (m_store.phase() != StorageStore::Phase::scanning)
            m_store.rescan();
        break;
    case Kind::header:
    case Kind::entry:
    case Kind::more:
    case Kind::missing:
    case Kind::none:
        break;
    }
}

void CleanupListModel::open(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr || pressed->kind != Kind::entry)
        activate(row);
    else if (prepareMenu(row))
        m_menuTarget.open();
}

void CleanupListModel::setExpanded(int row, bool expanded)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed != nullptr && pressed->kind == Kind::folded) {
        if (expanded)
            m_unfolded.insert(pressed->section);
        else
            m_unfolded.erase(pressed->section);
        install();
        emit dataChanged(index(row), index(row), {ExpandedRole});
        return;
    }
    if (pressed == nullptr || pressed->def == nullptr)
        return;
    const int card = cardRow(row);
    openingToChange(*pressed->def).setExpanded(expanded);
    install();
    emit dataChanged(index(card), index(card), {ExpandedRole});
}

int CleanupListModel::cardRow(int row) const
{
    const CleanupRow *const inside = rowAt(row);
    if (inside == nullptr || !inside->isInsideCard())
        return row;
    const auto card = std::ranges::find_if(
        m_rows, [&](const CleanupRow &each) { return each.kind == Kind::card && each.def == inside->def; });
    return static_cast<int>(card - m_rows.begin());
}

void CleanupListModel::toggle(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr)
        return;
    if (pressed->isItem())
        toggleItem(m_store, pathOf(*pressed), pressed->size);
    else if (const CleanupItem *const location = locationOf(*pressed))
        toggleEntries(m_store, displayText(location->def->title), allEntries({location, 1}));
}

void CleanupListModel::select(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr)
        return;
    if (pressed->isItem())
        selectItem(m_store, pathOf(*pressed), pressed->size);
    else if (const CleanupItem *const location = locationOf(*pressed))
        selectEntries(m_store, displayText(location->def->title), allEntries({location, 1}));
}

void CleanupListModel::selectAll()
{
    std::vector<SelectedEntry> entries = allEntries(m_store.cleanupItems());
    for (const DevJunkItem &artifact : m_store.devJunk())
        entries.push_back({artifact.node->path(), artifact.node->size});
    m_store.setSelected(entries, true);
}

void CleanupListModel::reveal(int row)
{
    if (const CleanupRow *const pressed = rowAt(row))
        m_store.reveal(pathOf(*pressed));
}

bool CleanupListModel::prepareMenu(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr || !pressed->isItem())
        return false;
    const FileNode::Kind kind = pressed->kind == Kind::artifact ? pressed->artifact.node->kind : pressed->entry.kind;
    m_menuTarget.setTarget(pathOf(*pressed), pressed->size, kind);
    return true;
}

} // namespace corvane
