#include "shell/ui/row_changes.h"

#include <random>
#include <string>

#include <gmock/gmock.h>

namespace corvane {
namespace {

using Rows = RowChanges::Run;
using Move = RowChanges::Move;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> before(const std::string &oldRows, const std::string &newRows)
{
    return rowsBefore(std::vector<char>(oldRows.begin(), oldRows.end()),
                      std::vector<char>(newRows.begin(), newRows.end()), [](char row) { return row; });
}

RowChanges changes(const std::string &oldRows, const std::string &newRows)
{
    return RowChanges::make(before(oldRows, newRows), static_cast<int>(oldRows.size()));
}

/// Applies the steps to the old rows.
std::string stepped(std::string rows, const std::string &newRows, const RowChanges &steps)
{
    for (const auto [first, count] : steps.removals)
        rows.erase(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
    for (const auto &[run, to] : steps.moves) {
        const std::string moved = rows.substr(static_cast<std::size_t>(run.first), static_cast<std::size_t>(run.count));
        rows.erase(static_cast<std::size_t>(run.first), moved.size());
        rows.insert(static_cast<std::size_t>(to > run.first ? to - run.count : to), moved);
    }
    for (const auto [first, count] : steps.insertions)
        rows.insert(static_cast<std::size_t>(first),
                    newRows.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
    return rows;
}

/// Brute force: the number of runs that move if as many as possible stay.
std::size_t fewestMoves(const std::string &oldRows, const std::string &newRows)
{
    std::string kept;
    for (const char row : oldRows) {
        if (newRows.find(row) != std::string::npos)
            kept += row;
    }
    std::vector<std::size_t> runs; // start of each among the kept rows, in the order of the new list
    std::size_t last = kept.size();
    for (const char row : newRows) {
        const std::size_t place = kept.find(row);
        if (place == std::string::npos)
            continue;
        if (place != last + 1 || runs.empty())
            runs.push_back(place);
        last = place;
    }
    std::size_t mostStaying = 0;
    for (unsigned choice = 0; choice < 1U << runs.size(); ++choice) {
        std::vector<std::size_t> staying;
        for (std::size_t i = 0; i < runs.size(); ++i) {
            if ((choice >> i & 1U) != 0)
                staying.push_back(runs[i]);
        }
        if (std::ranges::is_sorted(staying))
            mostStaying = std::max(mostStaying, staying.size());
    }
    return runs.size() - mostStaying;
}

/// The number of runs of rows that the other list lacks.
std::size_t stretchesMissingIn(const std::string &other, const std::string &rows)
{
    std::size_t stretches = 0;
    bool wasMissing = false;
    for (const char row : rows) {
        const bool isMissing = other.find(row) == std::string::npos;
        stretches += isMissing && !wasMissing ? 1 : 0;
        wasMissing = isMissing;
    }
    return stretches;
}

TEST(RowChanges, EqualListsNeedNoStep)
{
    EXPECT_EQ(changes("abc", "abc").count(), 0u);
    EXPECT_EQ(changes("", "").count(), 0u);
}

TEST(RowChanges, AdjacentRowsAreRemovedInOneStep)
{
    EXPECT_THAT(changes("abcdefgh", "adh").removals, ElementsAre(Rows{4, 3}, Rows{1, 2})) << "the last ones first";
    EXPECT_THAT(changes("abc", "").removals, ElementsAre(Rows{0, 3}));
}

TEST(RowChanges, AdjacentRowsAreInsertedInOneStep)
{
    EXPECT_THAT(changes("ad", "xabcdyz").insertions, ElementsAre(Rows{0, 1}, Rows{2, 2}, Rows{5, 2}));
    EXPECT_THAT(changes("", "abc").insertions, ElementsAre(Rows{0, 3}));
}

TEST(RowChanges, OneMovedRowIsOneMove)
{
    EXPECT_THAT(changes("abcde", "eabcd").moves, ElementsAre(Move{{4, 1}, 0}));
    EXPECT_THAT(changes("abcde", "bcdea").moves, ElementsAre(Move{{0, 1}, 5}));
    EXPECT_THAT(changes("abcde", "acdbe").moves, ElementsAre(Move{{1, 1}, 4}));
}

TEST(RowChanges, AdjacentRowsMoveInOneStep)
{
    EXPECT_THAT(changes("abcdef", "defabc").moves, testing::SizeIs(1));
    EXPECT_THAT(changes("abcdefg", "abfgcde").moves, ElementsAre(Move{{5, 2}, 2})) << "the fewer rows move";
}

TEST(RowChanges, InsertionsAndRemovalsDoNotSplitAMove)
{
    const RowChanges steps = changes("abxcde", "dabyce");
    EXPECT_THAT(steps.removals, ElementsAre(Rows{2, 1}));
    EXPECT_THAT(steps.moves, ElementsAre(Move{{3, 1}, 0}));
    EXPECT_THAT(steps.insertions, ElementsAre(Rows{3, 1}));
}

TEST(RowChanges, ReversingMovesAllRowsButOne)
{
    EXPECT_EQ(changes("abcde", "edcba").moves.size(), 4u);
}

TEST(RowChanges, AnotherListIsOneStepOutAndOneIn)
{
    const RowChanges steps = changes("abc", "vwxyz");
    EXPECT_THAT(steps.removals, ElementsAre(Rows{0, 3}));
    EXPECT_THAT(steps.moves, IsEmpty());
    EXPECT_THAT(steps.insertions, ElementsAre(Rows{0, 5}));
}

TEST(RowChanges, RowsThatShareAKeyArePairedInTheirOrder)
{
    EXPECT_THAT(before("aab", "baa"), ElementsAre(2, 0, 1));
    EXPECT_THAT(before("xaax", "yaaaz"), ElementsAre(-1, 1, 2, -1, -1));
    for (const auto &[from, to] : std::vector<std::pair<std::string, std::string>>{
             {"aab", "aaab"}, {"aaab", "baa"}, {"abab", "bbaa"}, {"aaaa", "aa"}, {"a", "aaaa"}})
        EXPECT_EQ(stepped(from, to, changes(from, to)), to) << from;
}

TEST(RowChanges, AnyListTurnsIntoAnyOtherInTheFewestSteps)
{
    std::mt19937 random(20240917); // NOLINT: fixed seed for reproducible lists
    const auto randomList = [&random] {
        std::string rows = "abcdefghij";
        std::ranges::shuffle(rows, random);
        rows.resize(random() % (rows.size() + 1));
        // Half of the lists are almost in order, like real ones.
        if (random() % 2 == 0) {
            std::ranges::sort(rows);
            if (rows.size() > 1)
                std::swap(rows[random() % rows.size()], rows[random() % rows.size()]);
        }
        return rows;
    };
    for (int i = 0; i < 20'000; ++i) {
        const std::string from = randomList();
        const std::string to = randomList();
        const RowChanges steps = changes(from, to);
        ASSERT_EQ(stepped(from, to, steps), to) << from;
        ASSERT_EQ(steps.removals.size(), stretchesMissingIn(to, from)) << from << " to " << to;
        ASSERT_EQ(steps.insertions.size(), stretchesMissingIn(from, to)) << from << " to " << to;
        ASSERT_EQ(steps.moves.size(), fewestMoves(from, to)) << from << " to " << to;
    }
}

} // namespace
} // namespace corvane
