#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvane {

/// The steps that turn one list of rows into another: removals, then moves, then insertions. Each step covers one run
/// of adjacent rows, numbered as they are when the step is applied. Rows that keep their relative order are not moved;
/// among the possible choices, the one with the fewest moved runs is taken.
struct RowChanges {
    /// `count` rows, starting at `first`.
    struct Run {
        int first = 0;
        int count = 0;

        friend bool operator==(const Run &, const Run &) = default;
    };
    /// Moves the run before the row `to`, numbered as for beginMoveRows: with the run still in its old place.
    struct Move {
        Run run;
        int to = 0;

        friend bool operator==(const Move &, const Move &) = default;
    };

    std::vector<Run> removals;   ///< from the last row to the first
    std::vector<Move> moves;     ///< in the order of application
    std::vector<Run> insertions; ///< from the first row to the last, numbered as in the new list

    [[nodiscard]] std::size_t count() const { return removals.size() + moves.size() + insertions.size(); }

    /// `before` holds for each new row the corresponding old row, none twice, or -1 for an inserted row. O(n log n).
    [[nodiscard]] static RowChanges make(std::span<const int> before, int oldCount);
};

struct RowKeyHash {
    template <typename Key>
    std::size_t operator()(const Key &key) const
    {
        return std::hash<Key>()(key);
    }
    template <typename... Parts>
    std::size_t operator()(const std::tuple<Parts...> &key) const
    {
        std::size_t hash = 0;
        std::apply([&](const Parts &...part) { ((hash = 31 * hash + (*this)(part)), ...); }, key);
        return hash;
    }
};

/// The input of `RowChanges::make`. Rows are the same if `keyOf` returns the same key for both: a type with == and
/// std::hash, or a tuple of such. Rows of one list that share a key are matched in order.
template <typename Row, typename KeyOf>
[[nodiscard]] std::vector<int> rowsBefore(const std::vector<Row> &oldRows, const std::vector<Row> &newRows,
                                          const KeyOf &keyOf)
{
    const auto key = [&keyOf](const Row &row) -> decltype(auto) { return std::invoke(keyOf, row); };
    std::vector<int> before(newRows.size(), -1);
    // Most changes affect few rows, so the common prefix and suffix are skipped.
    const std::size_t shorter = std::min(oldRows.size(), newRows.size());
    std::size_t head = 0;
    for (; head < shorter && key(oldRows[head]) == key(newRows[head]); ++head)
        before[head] = static_cast<int>(head);
    std::size_t oldEnd = oldRows.size();
    std::size_t newEnd = newRows.size();
    while (oldEnd > head && newEnd > head && key(oldRows[oldEnd - 1]) == key(newRows[newEnd - 1]))
        before[--newEnd] = static_cast<int>(--oldEnd);

    using Key = std::remove_cvref_t<decltype(key(oldRows[0]))>;
    std::unordered_map<Key, int, RowKeyHash> firstOf; // for each key, the first row not matched yet
    std::vector<int> nextOfSameKey(oldRows.size(), -1);
    firstOf.reserve(oldEnd - head);
    for (std::size_t row = oldEnd; row-- > head;) {
        const auto [first, isNew] = firstOf.try_emplace(key(oldRows[row]), static_cast<int>(row));
        if (!isNew)
            nextOfSameKey[row] = std::exchange(first->second, static_cast<int>(row));
    }
    for (std::size_t row = head; row < newEnd; ++row) {
        const auto first = firstOf.find(key(newRows[row]));
        if (first == firstOf.end() || first->second < 0)
            continue;
        before[row] = first->second;
        first->second = nextOfSameKey[static_cast<std::size_t>(before[row])];
    }
    return before;
}

} // namespace corvane
