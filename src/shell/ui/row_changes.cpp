#include "shell/ui/row_changes.h"

namespace corvane {

namespace {

using Run = RowChanges::Run;

/// Prefix sums over numbers that change one at a time.
class PrefixSums {
public:
    explicit PrefixSums(int size) : m_sums(static_cast<std::size_t>(size) + 1) {}

    void add(int place, int value)
    {
        for (auto i = static_cast<std::size_t>(place) + 1; i < m_sums.size(); i += lowestBit(i))
            m_sums[i] += value;
    }
    [[nodiscard]] int before(int place) const
    {
        int sum = 0;
        for (auto i = static_cast<std::size_t>(place); i > 0; i -= lowestBit(i))
            sum += m_sums[i];
        return sum;
    }
    [[nodiscard]] static std::size_t lowestBit(std::size_t number) { return number & (~number + 1); }

private:
    std::vector<int> m_sums;
};

/// A chain of runs in the same order in both lists, identified by its last run.
struct Chain {
    int runs = 0;
    int rows = 0; // total; breaks ties between chains of as many runs
    int last = -1;

    [[nodiscard]] bool isLongerThan(const Chain &other) const
    {
        return runs != other.runs ? runs > other.runs : rows > other.rows;
    }
};

/// Which runs stay in place while the others move around them: the longest chain. `runs` holds the rows in the old
/// list, in the order of the new one; `rows` is their total.
std::vector<bool> longestChain(const std::vector<Run> &runs, int rows)
{
    // best[i] is the longest chain that ends within the range of old rows covered by i.
    std::vector<Chain> best(static_cast<std::size_t>(rows) + 1);
    std::vector<int> before(runs.size(), -1); // the previous run of each one's chain
    Chain longest;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        Chain chain;
        for (auto place = static_cast<std::size_t>(runs[i].first); place > 0; place -= PrefixSums::lowestBit(place)) {
            if (best[place].isLongerThan(chain))
                chain = best[place];
        }
        before[i] = chain.last;
        chain = {chain.runs + 1, chain.rows + runs[i].count, static_cast<int>(i)};
        for (auto place = static_cast<std::size_t>(runs[i].first) + 1; place < best.size();
             place += PrefixSums::lowestBit(place)) {
            if (chain.isLongerThan(best[place]))
                best[place] = chain;
        }
        if (chain.isLongerThan(longest))
            longest = chain;
    }
    std::vector<bool> stays(runs.size(), false);
    for (int i = longest.last; i >= 0; i = before[static_cast<std::size_t>(i)])
        stays[static_cast<std::size_t>(i)] = true;
    return stays;
}

/// The moves that bring the runs of `kept` rows, given in the order of the new list, into that order.
std::vector<RowChanges::Move> movesOf(const std::vector<Run> &runs, int kept)
{
    if (runs.size() < 2)
        return {};
    const std::vector<bool> stays = longestChain(runs, kept);
    PrefixSums waiting(kept); // the rows of the runs not yet placed
    std::vector<int> rowsBefore{0};
    std::vector<std::size_t> staying;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        waiting.add(runs[i].first, runs[i].count);
        rowsBefore.push_back(rowsBefore.back() + runs[i].count);
        if (stays[i])
            staying.push_back(i);
    }
    // Each run goes directly after its predecessor: behind the last staying run, or at the top, and in front of the
    // runs not yet placed.
    std::vector<RowChanges::Move> moves;
    int lastStaying = -1;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto [first, count] = runs[i];
        waiting.add(first, -count);
        if (stays[i]) {
            lastStaying = first;
            continue;
        }
        const auto next =
            std::ranges::upper_bound(staying, first, {}, [&runs](std::size_t run) { return runs[run].first; });
        const std::size_t placedInFront = next == staying.end() ? i : std::min(i, *next);
        const int from = waiting.before(first) + rowsBefore[placedInFront];
        const int to = rowsBefore[i] + (lastStaying < 0 ? 0 : waiting.before(lastStaying));
        moves.push_back({{from, count}, to > from ? to + count : to});
    }
    return moves;
}

} // namespace

RowChanges RowChanges::make(std::span<const int> before, int oldCount)
{
    RowChanges changes;
    std::vector<bool> isKept(static_cast<std::size_t>(oldCount), false);
    for (const int row : before) {
        if (row >= 0)
            isKept[static_cast<std::size_t>(row)] = true;
    }
    std::vector<int> rowAfterRemovals(isKept.size());
    int kept = 0;
    for (int row = 0; row < oldCount; ++row) {
        const auto place = static_cast<std::size_t>(row);
        rowAfterRemovals[place] = kept;
        if (isKept[place])
            ++kept;
        else if (!changes.removals.empty() && changes.removals.back().first + changes.removals.back().count == row)
            ++changes.removals.back().count;
        else
            changes.removals.push_back({row, 1});
    }
    std::ranges::reverse(changes.removals);

    std::vector<Run> runs; // rows that are kept and adjacent in both lists
    for (std::size_t i = 0; i < before.size(); ++i) {
        const auto row = static_cast<int>(i);
        std::vector<Run> &list = before[i] < 0 ? changes.insertions : runs;
        const int first = before[i] < 0 ? row : rowAfterRemovals[static_cast<std::size_t>(before[i])];
        if (!list.empty() && list.back().first + list.back().count == first)
            ++list.back().count;
        else
            list.push_back({first, 1});
    }
    changes.moves = movesOf(runs, kept);
    return changes;
}

} // namespace corvane
