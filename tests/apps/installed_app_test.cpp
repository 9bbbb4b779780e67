#include "apps/installed_app.h"

#include <chrono>

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::chrono;

const Calendar utc{[](Time) { return seconds{0}; }};

constexpr Time noonOf(year_month_day date)
{
    return Time{sys_days{date} + hours{12}};
}

InstalledApp usedAt(std::optional<Time> time)
{
    InstalledApp app;
    app.lastUsed = time;
    return app;
}

Leftover leftover(Leftover::Match match, std::int64_t size)
{
    return {.path = "/x", .size = size, .location = "Caches", .match = match, .modified = {}};
}

TEST(InstalledApp, OnlyExactLeftoversCount)
{
    InstalledApp app;
    EXPECT_EQ(app.exactLeftoverSize(), 0);
    app.leftovers = {leftover(Leftover::Match::exact, 5), leftover(Leftover::Match::name, 100),
                     leftover(Leftover::Match::exact, 7)};
    EXPECT_EQ(app.exactLeftoverSize(), 12);
    EXPECT_EQ(app.sizeWithExactLeftovers(), app.appSize + 12);
}

TEST(InstalledApp, PossibleMatchesCountAmongTheDataThatIsShown)
{
    InstalledApp app;
    app.appSize = 1'000;
    app.leftovers = {leftover(Leftover::Match::exact, 5), leftover(Leftover::Match::name, 100)};
    EXPECT_EQ(app.dataSize(), 105);
    EXPECT_EQ(app.totalSize(), 1'105);
}

TEST(InstalledApp, ProposesItsExactLeftoversAlone)
{
    const auto proposes = [](const std::string &bundleID, const std::string &name, Leftover::Match match) {
        InstalledApp app;
        app.bundleID = bundleID;
        Leftover item = leftover(match, 1);
        item.path = "/Users/me/Library/Caches/" + name;
        return app.proposes(item);
    };
    EXPECT_TRUE(proposes("com.foo.app", "com.foo.app", Leftover::Match::exact));
    EXPECT_FALSE(proposes("com.foo.app", "app of foo", Leftover::Match::name));
    EXPECT_FALSE(proposes("com.foo.app", "com.foo.app", Leftover::Match::orphan));
    EXPECT_FALSE(proposes("com", "com.bar.tool", Leftover::Match::exact)) << "half the Library begins with that";
    EXPECT_FALSE(proposes("com.apple", "com.apple.Finder", Leftover::Match::exact)) << "the system's own";
    EXPECT_FALSE(proposes("apple.notes", "group.com.apple.notes", Leftover::Match::exact));
}

TEST(InstalledApp, UnusedSinceSixWholeMonthsHasTheirNumber)
{
    const Time now = noonOf(2025y / 11 / 19);
    EXPECT_EQ(usedAt(noonOf(2025y / 5 / 19)).unusedForMonths(now, utc), 6);
    EXPECT_EQ(usedAt(noonOf(2024y / 11 / 20)).unusedForMonths(now, utc), 11);
    EXPECT_EQ(usedAt(noonOf(2023y / 11 / 19)).unusedForMonths(now, utc), 24);
}

TEST(InstalledApp, UnusedSinceFiveMonthsAndTwentyNineDaysHasNone)
{
    EXPECT_EQ(usedAt(noonOf(2025y / 5 / 20)).unusedForMonths(noonOf(2025y / 11 / 18), utc), std::nullopt);
    EXPECT_EQ(usedAt(noonOf(2025y / 5 / 19) + seconds{1}).unusedForMonths(noonOf(2025y / 11 / 19), utc), std::nullopt);
}

TEST(InstalledApp, WithoutADateOfLastUseItHasNoMonths)
{
    EXPECT_EQ(usedAt({}).unusedForMonths(noonOf(2025y / 11 / 19), utc), std::nullopt);
}

TEST(InstalledApp, UsedInTheFutureHasNoMonths)
{
    EXPECT_EQ(usedAt(noonOf(2030y / 1 / 1)).unusedForMonths(noonOf(2025y / 11 / 19), utc), std::nullopt);
}

TEST(OrphanGroup, ComesToTheSumOfItsItems)
{
    const OrphanGroup group{"a.b.c", {leftover(Leftover::Match::orphan, 3), leftover(Leftover::Match::orphan, 4)}};
    EXPECT_EQ(group.size(), 7);
    EXPECT_EQ(OrphanGroup{}.size(), 0);
}

TEST(Leftover, MatchesHaveTheirNames)
{
    EXPECT_EQ(caseName(Leftover::Match::exact), "exact");
    EXPECT_EQ(caseName(Leftover::Match::name), "name");
    EXPECT_EQ(caseName(Leftover::Match::orphan), "orphan");
}

} // namespace
} // namespace corvane
