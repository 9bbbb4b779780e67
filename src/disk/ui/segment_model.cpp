#include "disk/ui/segment_model.h"

#include <algorithm>
#include <utility>

#include <QColor>

#include "core/store/qt_words.h"
#include "core/words/figures.h"
#include "shell/ui/qt_color.h"

namespace corvane {

namespace {

QList<NamedSizeText> largestItems(const BreakdownSegment &segment)
{
    QList<NamedSizeText> items;
    for (const NamedSize &child : segment.children)
        items.append({displayText(child.name), sizeText(child.size)});
    return items;
}

} // namespace

void SegmentModel::setSegments(const std::vector<BreakdownSegment> &segments, std::int64_t used)
{
    std::vector<Row> wanted;
    wanted.reserve(segments.size());
    for (const BreakdownSegment &segment : segments) {
        // Two volumes may have the same name.
        QString id = displayText(segment.id);
        while (std::ranges::find(wanted, id, &Row::id) != wanted.end())
            id += QLatin1Char('+');
        wanted.push_back({id, segment, percentText(percentOf(segment.size, used), 0)});
    }
    setRows(m_rows, std::move(wanted), &Row::id);
}

std::optional<BreakdownAction> SegmentModel::action(int row) const
{
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    return m_rows[static_cast<std::size_t>(row)].segment.action;
}

QString SegmentModel::idOf(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)].id : QString();
}

int SegmentModel::rowOf(const QString &id) const
{
    const auto found = std::ranges::find(m_rows, id, &Row::id);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

StackedBarPart SegmentModel::barPart(int row) const
{
    const auto &[id, segment, share] = m_rows.at(static_cast<std::size_t>(row));
    return {id, displayText(segment.title), sizeText(segment.size) + QStringLiteral(" · ") + share,
            toExactQColor(segment.color), segment.size};
}

bool SegmentModel::isUnexplained(int row) const
{
    return m_rows.at(static_cast<std::size_t>(row)).segment.kind == BreakdownSegment::Kind::hidden;
}

int SegmentModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SegmentModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const auto &[id, segment, share] = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case SegmentIdRole:
        return id;
    case Qt::DisplayRole:
    case TitleRole:
        return displayText(segment.title);
    case DetailRole:
        return displayText(segment.detail);
    case SymbolRole:
        return displayText(segment.symbol);
    case ColorRole:
        return toExactQColor(segment.color);
    case SizeTextRole:
        return sizeText(segment.size);
    case ShareTextRole:
        return share;
    case UnexplainedRole:
        return isUnexplained(index.row());
    case LargestItemsRole:
        return QVariant::fromValue(largestItems(segment));
    case ActionTitleRole:
        return segment.action && segment.actionTitle ? displayText(*segment.actionTitle) : QString();
    case NeedsIdleRole:
        return segment.action && segment.action->kind == BreakdownAction::Kind::scanHome;
    case DescriptionRole:
        return QStringList{displayText(segment.title), sizeText(segment.size), share}.join(QStringLiteral(", "));
    default:
        return {};
    }
}

QHash<int, QByteArray> SegmentModel::roleNames() const
{
    return {{SegmentIdRole, "segmentId"},
            {TitleRole, "title"},
            {DetailRole, "detail"},
            {SymbolRole, "symbol"},
            {ColorRole, "segmentColor"},
            {SizeTextRole, "sizeText"},
            {ShareTextRole, "shareText"},
            {UnexplainedRole, "unexplained"},
            {LargestItemsRole, "largestItems"},
            {ActionTitleRole, "actionTitle"},
            {NeedsIdleRole, "needsIdle"},
            {DescriptionRole, "description"}};
}

} // namespace corvane
