#include "apps/ui/app_row.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::chrono::year_month_day today{std::chrono::year(2026), std::chrono::November, std::chrono::day(20)};
constexpr Time now = std::chrono::sys_days(today);
const Calendar utc([](Time) { return std::chrono::seconds(0); });

Time monthsAgo(int months)
{
    return std::chrono::sys_days(today - std::chrono::months(months));
}

Leftover leftover(const std::string &path, std::int64_t size, Leftover::Match match)
{
    Leftover made;
    made.path = path;
    made.size = size;
    made.match = match;
    return made;
}

InstalledApp app(const std::string &name, std::int64_t size, std::optional<Time> lastUsed = std::nullopt)
{
    InstalledApp made;
    made.path = "/Applications/" + name + ".app";
    made.name = name;
    made.bundleID = "org.example." + name;
    made.appSize = size;
    made.lastUsed = lastUsed;
    return made;
}

std::vector<std::string> names(const std::vector<InstalledApp> &apps, AppSort sort, const QString &search = {})
{
    std::vector<std::string> result;
    for (const AppRow &row : AppRows(apps, now, utc).visible(search, sort))
        result.push_back(row.name.toStdString());
    return result;
}

// --- Texts from a bundle's metadata

TEST(BundleText, ExcessiveTextIsTruncated)
{
    EXPECT_EQ(bundleText("5.4.1"), QStringLiteral("5.4.1"));
    EXPECT_EQ(bundleText(std::string(255, 'x')), QString(255, u'x'));
    EXPECT_EQ(bundleText(std::string(4'000'000, 'x')), QString(255, u'x') + u'…');
    EXPECT_EQ(bundleText("\x1b" + std::string(300, 'x')), QStringLiteral("␛") + QString(254, u'x') + u'…');
}

TEST(BundleText, TruncationNeverSplitsACharacter)
{
    EXPECT_EQ(bundleText(std::string(254, 'x') + "é and more"), QString(254, u'x') + u'…');
    EXPECT_EQ(bundleText(std::string(300, '\x80')), u'…');
}

// --- The label of applications not opened for long

TEST(AppRow, BelowAYearTheLabelCountsMonths)
{
    EXPECT_EQ(AppRow::unusedLabel(6), QStringLiteral("Not opened in 6 months"));
    EXPECT_EQ(AppRow::unusedLabel(11), QStringLiteral("Not opened in 11 months"));
}

TEST(AppRow, TwelveToTwentyThreeMonthsAreOverAYear)
{
    EXPECT_EQ(AppRow::unusedLabel(12), QStringLiteral("Not opened in over a year"));
    EXPECT_EQ(AppRow::unusedLabel(23), QStringLiteral("Not opened in over a year"));
}

TEST(AppRow, FromTwentyFourMonthsOnTheLabelCountsWholeYears)
{
    EXPECT_EQ(AppRow::unusedLabel(24), QStringLiteral("Not opened in 2+ years"));
    EXPECT_EQ(AppRow::unusedLabel(30), QStringLiteral("Not opened in 2+ years"));
    EXPECT_EQ(AppRow::unusedLabel(36), QStringLiteral("Not opened in 3+ years"));
}

TEST(AppRow, TheLabelStandsInPlaceOfTheSizesFromSixMonthsOn)
{
    const std::vector<InstalledApp> apps{app("a", 5'000'000, monthsAgo(5)), app("b", 5'000'000, monthsAgo(6)),
                                         app("c", 5'000'000)};
    const std::vector<AppRow> rows = AppRows(apps, now, utc).visible({}, AppSort::name);
    EXPECT_EQ(rows[0].note, QStringLiteral("app 5 MB"));
    EXPECT_FALSE(rows[0].isUnused);
    EXPECT_EQ(rows[1].note, QStringLiteral("Not opened in 6 months"));
    EXPECT_TRUE(rows[1].isUnused);
    EXPECT_EQ(rows[2].note, QStringLiteral("app 5 MB")) << "nobody knows when it was opened";
}

// --- Figures

TEST(AppRow, FiguresAreThoseOfTheBundleAndOfAllItsData)
{
    InstalledApp deck = app("Signal Deck", 740'000'000);
    deck.leftovers = {leftover("/l/a", 8'210'000'000, Leftover::Match::exact),
                      leftover("/l/b", 452'000'000, Leftover::Match::name)};
    const AppRow row = AppRows(std::vector{deck}, now, utc).visible({}, AppSort::size).front();
    EXPECT_EQ(row.note, QStringLiteral("app 740 MB + data 8.66 GB"));
    EXPECT_EQ(row.sizeText, QStringLiteral("9.4 GB"));
    EXPECT_EQ(row.description(), QStringLiteral("Signal Deck, app 740 MB + data 8.66 GB, 9.4 GB"));
}

TEST(AppRow, TheOrphansSayHowManyTheyAreAndWhatTheyComeTo)
{
    const OrphanGroup one{"com.lathe.cadpro", {leftover("/l/a", 1'000'000, Leftover::Match::orphan)}};
    const OrphanGroup two{
        "io.mapleaf.viewer",
        {leftover("/l/b", 500'000, Leftover::Match::orphan), leftover("/l/c", 500'000, Leftover::Match::orphan)}};
    EXPECT_EQ(AppRow::ofOrphans(std::vector{one, two}, 2'000'000).note, QStringLiteral("3 items"));
    EXPECT_EQ(AppRow::ofOrphans(std::vector{one, two}, 2'000'000).sizeText, QStringLiteral("2 MB"));
    EXPECT_EQ(AppRow::ofOrphans(std::vector{one}, 1'000'000).note, QStringLiteral("1 item"));
    EXPECT_EQ(AppRow::ofOrphans(std::vector{one}, 1'000'000).name, QStringLiteral("Left behind by deleted apps"));
    EXPECT_EQ(AppRow::ofOrphans({}, 0).note, QStringLiteral("Nothing left behind"));
    EXPECT_EQ(AppRow::ofOrphans({}, 0).sizeText, QString());
}

// --- Sort orders

TEST(AppSort, ItsValuesAreTheLabelsInTheirOrder)
{
    EXPECT_EQ(appSorts(true), (std::vector{AppSort::name, AppSort::lastUsed, AppSort::size}));
    EXPECT_EQ(appSorts(false), (std::vector{AppSort::name, AppSort::size}));
    EXPECT_EQ(label(AppSort::name), QStringLiteral("Name"));
    EXPECT_EQ(label(AppSort::lastUsed), QStringLiteral("Last Use"));
    EXPECT_EQ(label(AppSort::size), QStringLiteral("Size"));
}

TEST(AppSort, NamesAscendWhateverTheirCase)
{
    EXPECT_THAT(names({app("beta", 1), app("Alpha", 2), app("Gamma", 3)}, AppSort::name),
                ElementsAre("Alpha", "beta", "Gamma"));
}

TEST(AppSort, TheLargestIsFirstWithItsDataCounted)
{
    InstalledApp small = app("small", 1'000);
    small.leftovers = {leftover("/l/a", 9'000, Leftover::Match::name)};
    EXPECT_THAT(names({app("large", 5'000), small, app("middle", 7'000)}, AppSort::size),
                ElementsAre("small", "middle", "large"));
}

TEST(AppSort, WhatHasNotBeenOpenedForLongestIsFirst)
{
    EXPECT_THAT(names({app("new", 1, monthsAgo(1)), app("old", 1, monthsAgo(30)), app("older", 1, monthsAgo(31))},
                      AppSort::lastUsed),
                ElementsAre("older", "old", "new"));
}

TEST(AppSort, AnAppWithoutALastUseCountsAsOfTheDistantPast)
{
    EXPECT_THAT(names({app("old", 1, monthsAgo(600)), app("unknown", 1), app("new", 1, now)}, AppSort::lastUsed),
                ElementsAre("unknown", "old", "new"));
}

TEST(AppSort, WhatIsEqualStandsBySizeAndThenByName)
{
    const std::vector<InstalledApp> apps{app("c", 5), app("a", 5), app("b", 9)};
    EXPECT_THAT(names(apps, AppSort::lastUsed), ElementsAre("b", "a", "c"));
    EXPECT_THAT(names(apps, AppSort::size), ElementsAre("b", "a", "c"));
}

TEST(AppSort, TwoOfOneNameKeepTheirOrder)
{
    InstalledApp mine = app("Kite", 5);
    mine.path = "/home/x/Applications/Kite.app";
    const std::vector<InstalledApp> apps{mine, app("Kite", 5)};
    for (const AppSort sort : {AppSort::name, AppSort::lastUsed, AppSort::size}) {
        const std::vector<AppRow> rows = AppRows(apps, now, utc).visible({}, sort);
        EXPECT_EQ(rows[0].path, "/Applications/Kite.app");
        EXPECT_EQ(rows[1].path, mine.path);
    }
}

// --- The search

TEST(AppSearch, FindsInTheNameWhateverTheCase)
{
    const std::vector<InstalledApp> apps{app("Signal Deck", 1), app("Kite Mail", 1)};
    EXPECT_THAT(names(apps, AppSort::name, QStringLiteral("NAL d")), ElementsAre("Signal Deck"));
    EXPECT_THAT(names(apps, AppSort::name, QStringLiteral("xyz")), IsEmpty());
}

TEST(AppSearch, FindsInTheIdentifier)
{
    InstalledApp kite = app("Kite Mail", 1);
    kite.bundleID = "com.PaperKite.mailtool";
    EXPECT_THAT(names({app("Signal Deck", 1), kite}, AppSort::name, QStringLiteral("paperkite.M")),
                ElementsAre("Kite Mail"));
}

TEST(AppSearch, DoesNotFindAcrossNameAndIdentifier)
{
    EXPECT_THAT(names({app("ab", 1)}, AppSort::name, QStringLiteral("aborg")), IsEmpty());
}

TEST(AppSearch, AnAccentIsFoundHoweverItIsEncoded)
{
    EXPECT_THAT(names({app("Cafe\u0301", 1)}, AppSort::name, QStringLiteral("caf\u00e9")), ElementsAre("Cafe\u0301"));
}

TEST(AppSearch, ALetterIsNotFoundInOneWithAnAccent)
{
    EXPECT_THAT(names({app("Caf\u00e9", 1)}, AppSort::name, QStringLiteral("cafe")), IsEmpty());
}

TEST(AppSearch, WithoutATextEverythingIsListed)
{
    EXPECT_THAT(names({app("a", 1), app("b", 1)}, AppSort::name), ElementsAre("a", "b"));
}

} // namespace
} // namespace corvane
