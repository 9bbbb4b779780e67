#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <utility>
#include <vector>

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/row_changes.h"

namespace corvane {

/// The base of list models: replaces rows with the fewest signals, so that views keep their scroll position, current
/// row and animations. A derived model keeps its rows in a vector of `rowCount` elements, and qualifies this base with
/// its namespace because qmllint resolves the name as written. Main thread only.
class RowListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base of models")

public:
    /// Changes of more steps are announced as one layout change: each step costs time proportional to the list, here
    /// and in every view.
    static constexpr std::size_t mostSteps = 256;

    using QAbstractListModel::QAbstractListModel;

protected:
    /// Turns `rows` into `next`. Rows with the same key are the same row: they keep their persistent indexes and, if
    /// they compare unequal, are announced as changed with `roles`.
    template <typename Row, typename KeyOf>
    void setRows(std::vector<Row> &rows, std::vector<Row> next, const KeyOf &keyOf, const QList<int> &roles = {})
    {
        const std::vector<int> before = rowsBefore(rows, next, keyOf);
        turnInto(rows, std::move(next), before, roles);
    }
    /// The same for rows identified by their index alone.
    template <typename Row>
    void setRowsInPlace(std::vector<Row> &rows, std::vector<Row> next)
    {
        std::vector<int> before(next.size(), -1);
        const std::size_t kept = std::min(rows.size(), next.size());
        std::iota(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(kept), 0);
        turnInto(rows, std::move(next), before, {});
    }

    /// Announces rows, given in ascending order, as changed, in runs; if there are many runs, as one range.
    void announce(const std::vector<int> &changed, const QList<int> &roles);
    void announceAll(const QList<int> &roles);

private:
    template <typename Row>
    void turnInto(std::vector<Row> &rows, std::vector<Row> next, const std::vector<int> &before,
                  const QList<int> &roles);
    template <typename Row>
    void makeSteps(std::vector<Row> &rows, std::vector<Row> &next, const RowChanges &changes);
    template <typename Row>
    void layOut(std::vector<Row> &rows, std::vector<Row> &next, const std::vector<int> &before);
    /// `rowsAfter` holds the new index of each row.
    void movePersistentIndexes(const std::vector<int> &rowsAfter);
};

template <typename Row>
void RowListModel::turnInto(std::vector<Row> &rows, std::vector<Row> next, const std::vector<int> &before,
                            const QList<int> &roles)
{
    const RowChanges changes = RowChanges::make(before, static_cast<int>(rows.size()));
    if (changes.count() <= mostSteps)
        makeSteps(rows, next, changes);
    else
        layOut(rows, next, before);

    std::vector<int> changed;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (before[i] < 0 || rows[i] == next[i])
            continue;
        rows[i] = std::move(next[i]);
        changed.push_back(static_cast<int>(i));
    }
    announce(changed, roles);
}

template <typename Row>
void RowListModel::makeSteps(std::vector<Row> &rows, std::vector<Row> &next, const RowChanges &changes)
{
    const auto at = [](std::vector<Row> &list, int row) { return list.begin() + row; };
    for (const auto [first, count] : changes.removals) {
        beginRemoveRows({}, first, first + count - 1);
        rows.erase(at(rows, first), at(rows, first + count));
        endRemoveRows();
    }
    for (const auto &[run, to] : changes.moves) {
        const auto [first, count] = run;
        beginMoveRows({}, first, first + count - 1, {}, to);
        if (to > first)
            std::rotate(at(rows, first), at(rows, first + count), at(rows, to));
        else
            std::rotate(at(rows, to), at(rows, first), at(rows, first + count));
        endMoveRows();
    }
    for (const auto [first, count] : changes.insertions) {
        beginInsertRows({}, first, first + count - 1);
        rows.insert(at(rows, first), std::make_move_iterator(at(next, first)),
                    std::make_move_iterator(at(next, first + count)));
        endInsertRows();
    }
}

/// Appends the new rows, reorders all of them in one layout change with the removed ones at the end, and removes those.
template <typename Row>
void RowListModel::layOut(std::vector<Row> &rows, std::vector<Row> &next, const std::vector<int> &before)
{
    const auto oldCount = static_cast<int>(rows.size());
    const auto added = static_cast<int>(std::ranges::count(before, -1));
    if (added > 0) {
        beginInsertRows({}, oldCount, oldCount + added - 1);
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i] < 0)
                rows.push_back(std::move(next[i]));
        }
        endInsertRows();
    }

    std::vector<int> rowsAfter(rows.size(), -1);
    int nextAdded = oldCount;
    for (std::size_t i = 0; i < before.size(); ++i)
        rowsAfter[static_cast<std::size_t>(before[i] < 0 ? nextAdded++ : before[i])] = static_cast<int>(i);
    auto end = static_cast<int>(next.size());
    for (int &row : rowsAfter) {
        if (row < 0)
            row = end++;
    }
    emit layoutAboutToBeChanged();
    std::vector<Row> laidOut(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        laidOut[static_cast<std::size_t>(rowsAfter[i])] = std::move(rows[i]);
    rows = std::move(laidOut);
    movePersistentIndexes(rowsAfter);
    emit layoutChanged();

    if (rows.size() > next.size()) {
        beginRemoveRows({}, static_cast<int>(next.size()), static_cast<int>(rows.size()) - 1);
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(next.size()), rows.end());
        endRemoveRows();
    }
}

} // namespace corvane
