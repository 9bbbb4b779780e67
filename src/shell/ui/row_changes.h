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

/// The steps that turn one list of rows into another: rows are taken out, then moved, then put in. Each step is about
/// one run of neighbouring rows and counts rows as they stand when its turn comes. Rows whose order among each other
/// stays the same are not moved, and of the ways to choose those the one is taken that needs the fewest moves of runs.
struct RowChanges {
    /// `count` rows from the row `first` on.
    struct Run {
        int first = 0;
        int count = 0;

        friend bool operator==(const Run &, const Run &) = default;
    };
    /// The run goes before the row `to`, counted as beginMoveRows counts it: while the run is where it was.
    struct Move {
        Run run;
        int to = 0;

        friend bool operator==(const Move &, const Move &) = default;
    };

    std::vector<Run> removals;   ///< from the last to the first
    std::vector<Move> moves;     ///< in the order in which they are made
    std::vector<Run> insertions; ///< from the first to the last, by their rows in the new list

    [[nodiscard]] std::size_t count() const { return removals.size() + moves.size() + insertions.size(); }

    /// `before` has for each new row the old row that it was, none twice, or -1 for a row that is new. Takes
    /// O(n log n).
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

/// What `RowChanges::make` takes, for rows that are the same when `keyOf` gives the same key for both: something with
/// == and std::hash, or a tuple of such. Where rows of one list share a key, the first of the one list are taken for
/// the first of the other.
template <typename Row, typename KeyOf>
[[nodiscard]] std::vector<int> rowsBefore(const std::vector<Row> &oldRows, const std::vector<Row> &newRows,
                                          const KeyOf &keyOf)
{
    const auto key = [&keyOf](const Row &row) -> decltype(auto) { return std::invoke(keyOf, row); };
    std::vector<int> before(newRows.size(), -1);
    // Most changes are about a few rows, so what is the same at both ends is not looked up.
    const std::size_t shorter = std::min(oldRows.size(), newRows.size());
    std::size_t head = 0;
    for (; head < shorter && key(oldRows[head]) == key(newRows[head]); ++head)
        before[head] = static_cast<int>(head);
    std::size_t oldEnd = oldRows.size();
    std::size_t newEnd = newRows.size();
    while (oldEnd > head && newEnd > head && key(oldRows[oldEnd - 1]) == key(newRows[newEnd - 1]))
        before[--newEnd] = static_cast<int>(--oldEnd);

    using Key = std::remove_cvref_t<decltype(key(oldRows[0]))>;
    std::unordered_map<Key, int, RowKeyHash> firstOf; // of each key the first row that is not taken
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
