#include "overview/ui/overview_rows_model.h"

#include <utility>

namespace corvane {

void OverviewRowsModel::setRows(std::vector<OverviewRow> rows)
{
    setRowsInPlace(m_rows, std::move(rows));
}

int OverviewRowsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant OverviewRowsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const OverviewRow &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return row.title;
    case SizeTextRole:
        return row.sizeText;
    case CountTextRole:
        return row.countText;
    case SymbolRole:
        return row.symbol;
    case IconKeyRole:
        return row.iconKey;
    case ColorRole:
        return row.color;
    case TintRole:
        return row.tint;
    case FractionRole:
        return row.fraction;
    case ElideRole:
        return row.elideMode;
    case LeadsRole:
        return row.leads;
    case DescriptionRole:
    case Qt::AccessibleTextRole: {
        const QString figures = row.title + QStringLiteral(", ") + row.sizeText;
        return row.countText.isEmpty() ? figures : figures + QStringLiteral(", ") + row.countText;
    }
    default:
        return {};
    }
}

Qt::ItemFlags OverviewRowsModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = RowListModel::flags(index);
    const bool leads = index.isValid() && m_rows[static_cast<std::size_t>(index.row())].leads;
    return leads ? flags : flags & ~Qt::ItemFlags(Qt::ItemIsEnabled);
}

QHash<int, QByteArray> OverviewRowsModel::roleNames() const
{
    return {{TitleRole, "title"},   {SizeTextRole, "sizeText"},      {CountTextRole, "countText"},
            {SymbolRole, "symbol"}, {IconKeyRole, "iconKey"},        {ColorRole, "color"},
            {TintRole, "tint"},     {FractionRole, "fraction"},      {ElideRole, "elideMode"},
            {LeadsRole, "leads"},   {DescriptionRole, "description"}};
}

} // namespace corvane
