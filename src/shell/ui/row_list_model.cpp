#include "shell/ui/row_list_model.h"

namespace corvane {

void RowListModel::announce(const std::vector<int> &changed, const QList<int> &roles)
{
    std::vector<RowChanges::Run> runs;
    for (const int row : changed) {
        if (!runs.empty() && runs.back().first + runs.back().count == row)
            ++runs.back().count;
        else
            runs.push_back({row, 1});
    }
    if (runs.size() > mostSteps)
        runs = {{changed.front(), changed.back() - changed.front() + 1}};
    for (const auto [first, count] : runs)
        emit dataChanged(index(first), index(first + count - 1), roles);
}

void RowListModel::announceAll(const QList<int> &roles)
{
    if (const int rows = rowCount(); rows > 0)
        emit dataChanged(index(0), index(rows - 1), roles);
}

void RowListModel::movePersistentIndexes(const std::vector<int> &rowsAfter)
{
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex &old : from)
        to.push_back(index(rowsAfter[static_cast<std::size_t>(old.row())]));
    changePersistentIndexList(from, to);
}

} // namespace corvane
