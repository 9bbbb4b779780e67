#include "apps/ui/leftover_list_model.h"

#include <algorithm>
#include <utility>

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include "core/store/qt_words.h"
#include "platform/path.h"
#include "shell/ui/file_icons.h"

namespace corvane {

namespace {

using Kind = LeftoverRow::Kind;

QString kindName(Kind kind)
{
    switch (kind) {
    case Kind::heading:
        return QStringLiteral("heading");
    case Kind::item:
        return QStringLiteral("item");
    case Kind::none:
        return QStringLiteral("none");
    }
    return {};
}

} // namespace

// --- One row

QString LeftoverRow::description() const
{
    QStringList parts{title};
    for (const QString &part : {location, date, sizeText}) {
        if (!part.isEmpty())
            parts << part;
    }
    return parts.join(QStringLiteral(", "));
}

LeftoverRow LeftoverRow::ofHeading(std::string id, const QString &title, const QString &note, std::int64_t size)
{
    return {.kind = Kind::heading,
            .id = std::move(id),
            .title = title,
            .note = note,
            .sizeText = ::corvane::sizeText(size)};
}

LeftoverRow LeftoverRow::ofItem(const Leftover &leftover, const QLocale &locale, const std::optional<std::string> &home)
{
    const std::string_view name = lastPathComponent(leftover.path);
    return {.kind = Kind::item,
            .id = leftover.path,
            .title = home ? pathText(leftover.path, *home) : displayText(name),
            .sizeText = ::corvane::sizeText(leftover.size),
            .location = displayText(leftover.location),
            .date = leftover.modified ? abbreviatedDate(localDate(*leftover.modified), locale) : QString(),
            .iconKey = fileIconKey(leftover.path, leftover.kind),
            .elidesMiddle = home || leftover.kind == FileNode::Kind::file,
            .leftover = leftover};
}

std::optional<std::string> homeOfPaths(const StorageStore &store)
{
    return store.appsTable().showsWholePaths ? std::optional(store.locations().home()) : std::nullopt;
}

// --- The rows

void LeftoverListModel::install(std::vector<LeftoverRow> rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool isItem = rows[i].kind == Kind::item;
        rows[i].startsBox = isItem && (i == 0 || rows[i - 1].kind != Kind::item);
        rows[i].endsBox = isItem && (i + 1 == rows.size() || rows[i + 1].kind != Kind::item);
    }
    setRows(m_rows, std::move(rows), &LeftoverRow::key);
    emit rowsChanged();
}

bool LeftoverListModel::hasItems() const
{
    return std::ranges::any_of(m_rows, [](const LeftoverRow &row) { return row.kind == Kind::item; });
}

void LeftoverListModel::announceChecks()
{
    announceAll({CheckStateRole, CheckableRole, CheckReasonRole});
}

const Leftover *LeftoverListModel::itemAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    const LeftoverRow &found = m_rows[static_cast<std::size_t>(row)];
    return found.kind == Kind::item ? &found.leftover : nullptr;
}

int LeftoverListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant LeftoverListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const LeftoverRow &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case KindRole:
        return kindName(row.kind);
    case Qt::DisplayRole:
    case TitleRole:
        return row.title;
    case NoteRole:
        return row.note;
    case SizeTextRole:
        return row.sizeText;
    case LocationRole:
        return row.location;
    case DateRole:
        return row.date;
    case IconKeyRole:
        return row.iconKey;
    case ElideRole:
        return row.elidesMiddle ? Qt::ElideMiddle : Qt::ElideRight;
    case StartsBoxRole:
        return row.startsBox;
    case EndsBoxRole:
        return row.endsBox;
    case CheckStateRole:
        return row.kind == Kind::item ? checkFacts(row.leftover).state : Qt::Unchecked;
    case CheckableRole:
        return row.kind == Kind::item && checkFacts(row.leftover).isCheckable;
    case CheckReasonRole:
        return row.kind == Kind::item ? checkFacts(row.leftover).reason : QString();
    case DescriptionRole:
    case Qt::AccessibleTextRole:
        return row.description();
    default:
        return {};
    }
}

QHash<int, QByteArray> LeftoverListModel::roleNames() const
{
    return {{KindRole, "kind"},
            {TitleRole, "title"},
            {NoteRole, "note"},
            {SizeTextRole, "sizeText"},
            {LocationRole, "location"},
            {DateRole, "date"},
            {IconKeyRole, "iconKey"},
            {ElideRole, "elideMode"},
            {StartsBoxRole, "startsBox"},
            {EndsBoxRole, "endsBox"},
            {CheckStateRole, "checkState"},
            {CheckableRole, "checkable"},
            {CheckReasonRole, "checkReason"},
            {DescriptionRole, "description"}};
}

Qt::ItemFlags LeftoverListModel::flags(const QModelIndex &index) const
{
    return itemAt(index.row()) != nullptr ? RowListModel::flags(index) : Qt::ItemFlags(Qt::NoItemFlags);
}

// --- Actions

void LeftoverListModel::reveal(int row)
{
    if (const Leftover *const item = itemAt(row))
        m_store.reveal(item->path);
}

bool LeftoverListModel::prepareMenu(int row)
{
    const Leftover *const item = itemAt(row);
    if (item == nullptr)
        return false;
    m_menuTarget.setTarget(item->path, item->size, item->kind);
    return true;
}

} // namespace corvane
