#include "cleanup/ui/cleanup_list_model.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include <QLocale>

#include "core/byte_count.h"
#include "core/checked_add.h"
#include "core/store/followed_store.h"
#include "core/store/path_text.h"
#include "shell/ui/cleanup_words.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

using Kind = CleanupRow::Kind;

struct SectionWords {
    QString title;
    QString symbol;
};

const std::array<SectionWords, 4> sections{{
    {QStringLiteral("System Junk"), QStringLiteral("gearshape.2")},
    {QStringLiteral("Developer Junk"), QStringLiteral("hammer")},
    {QStringLiteral("Personal Files to Review"), QStringLiteral("person.crop.square")},
    {QStringLiteral("Project Build Artifacts"), QStringLiteral("folder.badge.gearshape")},
}};

const QList<int> checkRoles{CleanupListModel::CheckStateRole, CleanupListModel::CheckableRole,
                            CleanupListModel::CheckReasonRole};

QString kindName(Kind kind)
{
    switch (kind) {
    case Kind::header:
        return QStringLiteral("header");
    case Kind::card:
        return QStringLiteral("card");
    case Kind::entry:
        return QStringLiteral("entry");
    case Kind::more:
        return QStringLiteral("more");
    case Kind::missing:
        return QStringLiteral("missing");
    case Kind::reveal:
        return QStringLiteral("reveal");
    case Kind::prompt:
        return QStringLiteral("prompt");
    case Kind::partial:
        return QStringLiteral("partial");
    case Kind::none:
        return QStringLiteral("none");
    case Kind::artifact:
        return QStringLiteral("artifact");
    }
    return {};
}

QString sizeText(std::int64_t size)
{
    return QString::fromStdString(formatByteCount(size));
}

QString moreText(std::size_t count)
{
    return QStringLiteral("+ %1 smaller %2")
        .arg(QLocale(QLocale::English, QLocale::UnitedStates).toString(static_cast<qulonglong>(count)),
             count == 1 ? QStringLiteral("item") : QStringLiteral("items"));
}

/// "harbor-app/node_modules": what it is called, and in which project.
QString artifactName(const FileNode &node)
{
    return displayText(lastPathComponent(node.folderPath())) + u'/' + displayText(node.name);
}

struct RowHash {
    std::size_t operator()(const CleanupRow *row) const
    {
        const std::size_t place = std::hash<const void *>()(
            row->artifact.node ? static_cast<const void *>(row->artifact.node.get()) : row->def);
        return place ^ std::hash<std::string>()(row->entry.path) ^ static_cast<std::size_t>(row->kind);
    }
};

struct RowEqual {
    bool operator()(const CleanupRow *a, const CleanupRow *b) const { return a->isSame(*b); }
};

using RowSet = std::unordered_set<const CleanupRow *, RowHash, RowEqual>;

RowSet setOf(const std::vector<CleanupRow> &rows)
{
    RowSet set;
    set.reserve(rows.size());
    for (const CleanupRow &row : rows)
        set.insert(&row);
    return set;
}

} // namespace

CleanupListModel::CleanupListModel(QObject *parent) : QAbstractListModel(parent), m_rows(makeRows()) {}

void CleanupListModel::setStore(StorageStore *store)
{
    if (!followStore(m_store, store, this))
        return;
    if (m_store) {
        connect(m_store, &StorageStore::cleanupChanged, this, &CleanupListModel::follow);
        connect(m_store, &StorageStore::treeChanged, this, &CleanupListModel::follow);
        connect(m_store, &StorageStore::phaseChanged, this, [this] { announceAll({WorkingRole}); });
        connect(m_store, &StorageStore::selectionChanged, this, &CleanupListModel::followSelection);
    }
    emit storeChanged();
    follow();
}

// --- Following the store

std::vector<CleanupRow> CleanupListModel::makeRows() const
{
    const auto isExpanded = [this](const CleanupDefinition &def) {
        const CardOpening *const found = opening(&def);
        return found != nullptr && found->isOpen();
    };
    if (!m_store)
        return CleanupRows::make({}, isExpanded, CleanupRows::Scan::none, {});
    const auto scan = !m_store->hasScan()        ? CleanupRows::Scan::none
                      : m_store->scanIsPartial() ? CleanupRows::Scan::stopped
                                                 : CleanupRows::Scan::finished;
    return CleanupRows::make(m_store->cleanupItems(), isExpanded, scan, m_store->devJunk());
}

void CleanupListModel::follow()
{
    install(makeRows());
    followSelection();
    announceAll({});
}

void CleanupListModel::followSelection()
{
    m_cardChecks.clear();
    if (m_store) {
        for (const CleanupItem &item : m_store->cleanupItems())
            m_cardChecks.emplace(item.def, checkFactsOf(*m_store, item));
    }
    announceAll(checkRoles);
}

void CleanupListModel::takeOutMissing(const std::vector<CleanupRow> &rows)
{
    const RowSet left = setOf(rows);
    for (std::size_t end = m_rows.size(); end > 0;) {
        if (left.contains(&m_rows[end - 1])) {
            --end;
            continue;
        }
        std::size_t first = end - 1;
        while (first > 0 && !left.contains(&m_rows[first - 1]))
            --first;
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end - 1));
        m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(first),
                     m_rows.begin() + static_cast<std::ptrdiff_t>(end));
        endRemoveRows();
        end = first;
    }
}

void CleanupListModel::install(std::vector<CleanupRow> rows)
{
    takeOutMissing(rows);
    const std::vector<CleanupRow> before = m_rows;
    const RowSet known = setOf(before);
    const auto at = [this](std::size_t place) { return m_rows.begin() + static_cast<std::ptrdiff_t>(place); };
    for (std::size_t i = 0; i < rows.size();) {
        if (!known.contains(&rows[i])) {
            std::size_t end = i + 1;
            while (end < rows.size() && !known.contains(&rows[end]))
                ++end;
            beginInsertRows({}, static_cast<int>(i), static_cast<int>(end - 1));
            m_rows.insert(at(i), rows.begin() + static_cast<std::ptrdiff_t>(i),
                          rows.begin() + static_cast<std::ptrdiff_t>(end));
            endInsertRows();
            i = end;
            continue;
        }
        const auto found =
            std::find_if(at(i), m_rows.end(), [&](const CleanupRow &row) { return row.isSame(rows[i]); });
        if (const auto from = static_cast<std::size_t>(found - m_rows.begin()); from != i) {
            beginMoveRows({}, static_cast<int>(from), static_cast<int>(from), {}, static_cast<int>(i));
            std::rotate(at(i), at(from), at(from + 1));
            endMoveRows();
        }
        ++i;
    }
    m_rows = std::move(rows); // with the figures of now
    announceAll({StartsBoxRole, EndsBoxRole, LeadsRole});
}

void CleanupListModel::announceAll(const QList<int> &roles)
{
    if (!m_rows.empty())
        emit dataChanged(index(0), index(rowCount() - 1), roles);
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
    if (!m_store)
        return nullptr;
    const auto found = std::ranges::find(m_store->cleanupItems(), def, &CleanupItem::def);
    return found == m_store->cleanupItems().end() ? nullptr : &*found;
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
        connect(opening.get(), &CardOpening::closed, this, [this] { install(makeRows()); });
    }
    return *opening;
}

std::string CleanupListModel::pathOf(const CleanupRow &row) const
{
    if (row.kind == Kind::entry)
        return row.entry.path;
    if (row.kind == Kind::artifact)
        return row.artifact.node->path();
    if (row.def == nullptr || !m_store)
        return {};
    const auto item = std::ranges::find(m_store->cleanupItems(), row.def, &CleanupItem::def);
    return item == m_store->cleanupItems().end() ? std::string() : item->path;
}

std::int64_t CleanupListModel::sizeOf(const CleanupRow &row) const
{
    return row.kind == Kind::artifact ? row.artifact.node->size : row.entry.size;
}

CheckFacts CleanupListModel::checkFacts(const CleanupRow &row) const
{
    if (row.kind == Kind::card) {
        const auto facts = m_cardChecks.find(row.def);
        return facts == m_cardChecks.end() ? CheckFacts() : facts->second;
    }
    return row.isItem() && m_store ? checkFactsOf(*m_store, pathOf(row)) : CheckFacts();
}

QVariant CleanupListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CleanupRow &row = *rowAt(index.row());
    switch (role) {
    case KindRole:
        return kindName(row.kind);
    case StartsBoxRole:
        return startsBox(index.row());
    case EndsBoxRole:
        return endsBox(index.row());
    case LeadsRole:
        return row.isInsideCard() && rowAt(index.row() - 1)->kind == Kind::card;
    case CheckStateRole:
        return checkFacts(row).state;
    case CheckableRole:
        return checkFacts(row).isCheckable;
    case CheckReasonRole:
        return checkFacts(row).reason;
    case ExpandedRole:
        return opening(row.def) != nullptr && opening(row.def)->isExpanded();
    case OpeningRole:
        return row.isInsideCard() && opening(row.def) != nullptr ? opening(row.def)->part() : 1.0;
    case WorkingRole:
        return m_store && m_store->phase() == StorageStore::Phase::scanning;
    case Qt::DisplayRole:
        return rowData(row, TitleRole);
    case Qt::AccessibleTextRole:
        return rowData(row, DescriptionRole);
    default:
        return rowData(row, role);
    }
}

QVariant CleanupListModel::rowData(const CleanupRow &row, int role) const
{
    switch (row.kind) {
    case Kind::header:
        return sectionData(row, role);
    case Kind::card:
        return cardData(row, role);
    case Kind::entry:
        return entryData(row, role);
    case Kind::artifact:
        return artifactData(row, role);
    case Kind::more:
    case Kind::missing:
    case Kind::reveal:
    case Kind::prompt:
    case Kind::partial:
    case Kind::none:
        return wordsData(row, role);
    }
    return {};
}

QString CleanupListModel::sectionTotal(int section) const
{
    if (!m_store)
        return {};
    std::int64_t total = 0;
    if (section == CleanupRows::artifactSection) {
        for (const DevJunkItem &artifact : m_store->devJunk())
            total = checkedAdd(total, artifact.node->size);
        return m_store->devJunk().empty() ? QString() : sizeText(total);
    }
    for (const CleanupItem &each : m_store->cleanupItems()) {
        if (each.def->group == allCleanupGroups[static_cast<std::size_t>(section)])
            total = checkedAdd(total, each.total());
    }
    return m_store->cleanupItems().empty() ? QString() : sizeText(total);
}

QVariant CleanupListModel::sectionData(const CleanupRow &row, int role) const
{
    const SectionWords &words = sections[static_cast<std::size_t>(row.section)];
    switch (role) {
    case TitleRole:
        return words.title;
    case SymbolRole:
        return words.symbol;
    case NoteRole:
        return row.section == CleanupRows::artifactSection && m_store && !m_store->devJunk().empty()
                   ? QStringLiteral("Your build tools regenerate these on the next build or install.")
                   : QString();
    case SizeTextRole:
        return sectionTotal(row.section);
    case DescriptionRole: {
        const QString total = sectionTotal(row.section);
        return total.isEmpty() ? words.title : words.title + QStringLiteral(", ") + total;
    }
    default:
        return {};
    }
}

QVariant CleanupListModel::cardData(const CleanupRow &row, int role) const
{
    const CleanupItem *const measured = item(row.def);
    switch (role) {
    case TitleRole:
        return displayText(row.def->title);
    case NoteRole:
        return displayText(row.def->detail);
    case SymbolRole:
        return displayText(row.def->symbol);
    case TintRole:
        return static_cast<int>(row.def->tint);
    case RiskRole:
        return displayText(rawValue(row.def->risk));
    case SizeTextRole:
        return measured != nullptr ? totalText(*measured) : QStringLiteral("–");
    case CountTextRole:
        return measured != nullptr ? countText(*measured) : QString();
    case UnreadableRole:
        return measured != nullptr && !measured->accessible;
    case DescriptionRole: {
        QStringList words{displayText(row.def->title),
                          row.def->risk == CleanupRisk::safe ? QStringLiteral("Safe") : QStringLiteral("Review")};
        if (measured != nullptr && measured->accessible)
            words << totalText(*measured);
        if (measured != nullptr)
            words << countText(*measured);
        return words.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

QVariant CleanupListModel::entryData(const CleanupRow &row, int role) const
{
    const std::string_view name = lastPathComponent(row.entry.path);
    switch (role) {
    case TitleRole:
        return displayText(name);
    case SizeTextRole:
        return sizeText(row.entry.size);
    case IconKeyRole:
        return fileIconKey(row.entry.path, row.entry.kind);
    case ElideRole:
        return row.entry.kind != FileNode::Kind::directory && !nameExtension(name).empty() ? Qt::ElideMiddle
                                                                                           : Qt::ElideRight;
    case DescriptionRole:
        return displayText(name) + QStringLiteral(", ") + sizeText(row.entry.size);
    default:
        return {};
    }
}

QVariant CleanupListModel::artifactData(const CleanupRow &row, int role) const
{
    const FileNode &node = *row.artifact.node;
    switch (role) {
    case TitleRole:
        return artifactName(node);
    case NoteRole:
        return m_store ? displayText(node.parentPath(m_store->locations().home())) : QString();
    case TagRole:
        return displayText(row.artifact.kind);
    case SizeTextRole:
        return sizeText(node.size);
    case IconKeyRole:
        return fileIconKey(node);
    case DescriptionRole:
        return QStringList{artifactName(node), displayText(row.artifact.kind), rowData(row, NoteRole).toString(),
                           sizeText(node.size)}
            .join(QStringLiteral(", "));
    default:
        return {};
    }
}

QVariant CleanupListModel::wordsData(const CleanupRow &row, int role) const
{
    const bool isTitle = role == TitleRole || role == DescriptionRole;
    switch (row.kind) {
    case Kind::more:
        return isTitle ? moreText(row.unlisted) : QVariant();
    case Kind::missing:
        return isTitle ? QStringLiteral("This folder does not exist.") : QVariant();
    case Kind::reveal:
        return isTitle ? QStringLiteral("Reveal Folder in Finder") : QVariant();
    case Kind::none:
        return isTitle ? QStringLiteral("No node_modules, Gradle build outputs, Rust targets or virtualenvs found in "
                                        "this scan.")
                       : QVariant();
    default:
        break;
    }
    if (row.kind == Kind::partial) {
        if (role == ActionRole)
            return QStringLiteral("Scan Again");
        if (isTitle)
            return displayText(partialScanText);
        return role == NoteRole ? QStringLiteral("Build folders that the scan had not reached are not listed.")
                                : QVariant();
    }
    if (role == ActionRole)
        return QStringLiteral("Scan Home Folder");
    if (isTitle)
        return QStringLiteral("Find node_modules, Gradle build folders & more");
    return role == NoteRole
               ? QStringLiteral("Run a scan and Corvane will spot regenerable folders inside your projects.")
               : QVariant();
}

Qt::ItemFlags CleanupListModel::flags(const QModelIndex &index) const
{
    const CleanupRow *const row = rowAt(index.row());
    return row != nullptr && row->isStop() ? QAbstractListModel::flags(index) : Qt::ItemFlags(Qt::NoItemFlags);
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
    if (pressed == nullptr || !m_store)
        return;
    switch (pressed->kind) {
    case Kind::card:
        setExpanded(row, opening(pressed->def) == nullptr || !opening(pressed->def)->isExpanded());
        break;
    case Kind::reveal:
        reveal(row);
        break;
    case Kind::artifact: {
        // The row may be gone when the store has answered.
        const std::shared_ptr<FileNode> target = pressed->artifact.node;
        m_store->showInMap(target);
        break;
    }
    case Kind::prompt:
        if (m_store->phase() != StorageStore::Phase::scanning)
            m_store->scanHome();
        break;
    case Kind::partial:
        if (m_store->phase() != StorageStore::Phase::scanning)
            m_store->rescan();
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
    if (pressed == nullptr || pressed->def == nullptr)
        return;
    const int card = cardRow(row);
    openingToChange(*pressed->def).setExpanded(expanded);
    install(makeRows());
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
    if (pressed == nullptr || !m_store)
        return;
    if (pressed->kind != Kind::card) {
        if (pressed->isItem())
            toggleItem(*m_store, pathOf(*pressed), sizeOf(*pressed));
    } else if (mayBeSelected(*pressed)) {
        toggleEntries(*m_store, *item(pressed->def));
    }
}

void CleanupListModel::select(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr || !m_store)
        return;
    if (pressed->kind != Kind::card) {
        if (pressed->isItem())
            selectItem(*m_store, pathOf(*pressed), sizeOf(*pressed));
    } else if (mayBeSelected(*pressed)) {
        selectEntries(*m_store, *item(pressed->def));
    }
}

bool CleanupListModel::mayBeSelected(const CleanupRow &card)
{
    const CheckFacts facts = checkFacts(card);
    if (!facts.isCheckable && !facts.reason.isEmpty())
        sayRefusal(*m_store, displayText(card.def->title), facts.reason);
    return facts.isCheckable;
}

void CleanupListModel::selectAll()
{
    if (!m_store)
        return;
    std::vector<SelectedEntry> entries;
    for (const CleanupItem &item : m_store->cleanupItems()) {
        for (const CleanupEntry &entry : item.entries)
            entries.push_back({entry.path, entry.size});
    }
    for (const DevJunkItem &artifact : m_store->devJunk())
        entries.push_back({artifact.node->path(), artifact.node->size});
    m_store->setSelected(entries, true);
}

void CleanupListModel::reveal(int row)
{
    if (const CleanupRow *const pressed = rowAt(row); pressed != nullptr && m_store)
        m_store->reveal(pathOf(*pressed));
}

bool CleanupListModel::prepareMenu(int row)
{
    const CleanupRow *const pressed = rowAt(row);
    if (pressed == nullptr || !m_store || !pressed->isItem())
        return false;
    m_menuTarget.setTarget(m_store, pathOf(*pressed), sizeOf(*pressed));
    return true;
}

} // namespace corvane
