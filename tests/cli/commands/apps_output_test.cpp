#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/commands/apps.h"
#include "cli/written.h"

namespace corvane {

namespace {

using nlohmann::json;

const Calendar utc{[](Time) { return std::chrono::seconds{0}; }};
constexpr Time now{std::chrono::sys_days{std::chrono::year{2025} / 11 / 19}};
constexpr Time lastYear{std::chrono::sys_days{std::chrono::year{2024} / 9 / 19}};

AppInventory::Result inventory()
{
    const Leftover exact{.path = "/Users/u/Library/Caches/a.b",
                         .size = 300'000,
                         .location = "Caches",
                         .match = Leftover::Match::exact,
                         .modified = lastYear};
    const Leftover named{.path = "/Users/u/Library/Logs/Caf\xe9",
                         .size = 200'000,
                         .location = "Logs",
                         .match = Leftover::Match::name,
                         .modified = {}};
    const Leftover orphan{.path = "/Users/u/Library/Caches/org.x.y.z",
                          .size = 7,
                          .location = "Caches",
                          .match = Leftover::Match::orphan,
                          .modified = {}};
    InstalledApp bought{.path = "/Applications/Caf\xe9.app",
                        .name = "Caf\xe9",
                        .bundleID = "A.b",
                        .version = "2.1",
                        .isAppStore = true,
                        .appSize = 1'200'000,
                        .lastUsed = lastYear,
                        .leftovers = {exact, named}};
    InstalledApp other{.path = "/Applications/Sea Chart.app",
                       .name = "Sea Chart",
                       .bundleID = "org.sea",
                       .version = {},
                       .appSize = 1'000'000,
                       .lastUsed = {},
                       .leftovers = {}};
    return {.apps = {bought, other}, .orphanGroups = {{.id = "org.x.y", .items = {orphan}}}};
}

std::string table(const AppInventory::Result &result)
{
    return printedOn([&](Console &console) { writeAppsTable(result, now, utc, console); });
}

TEST(AppsJson, HasEveryFieldOfAppsAndGroupsInTheGivenOrder)
{
    EXPECT_EQ(json::parse(writtenTo([](Output &out) { writeAppsJson(inventory(), now, utc, out); })),
              (json{{"apps",
                     {{{"name", "Caf\xEF\xBF\xBD"},
                       {"nameHex", "436166e9"},
                       {"bundleID", "A.b"},
                       {"version", "2.1"},
                       {"isAppStore", true},
                       {"appSize", 1'200'000},
                       {"lastUsed", 1'726'704'000},
                       {"unusedForMonths", 14},
                       {"path", "/Applications/Caf\xEF\xBF\xBD.app"},
                       {"pathHex", "2f4170706c69636174696f6e732f436166e92e617070"},
                       {"leftovers",
                        {{{"path", "/Users/u/Library/Caches/a.b"},
                          {"size", 300'000},
                          {"location", "Caches"},
                          {"match", "exact"},
                          {"modified", 1'726'704'000}},
                         {{"path", "/Users/u/Library/Logs/Caf\xEF\xBF\xBD"},
                          {"pathHex", "2f55736572732f752f4c6962726172792f4c6f67732f436166e9"},
                          {"size", 200'000},
                          {"location", "Logs"},
                          {"match", "name"},
                          {"modified", nullptr}}}}},
                      {{"name", "Sea Chart"},
                       {"bundleID", "org.sea"},
                       {"version", ""},
                       {"isAppStore", false},
                       {"appSize", 1'000'000},
                       {"lastUsed", nullptr},
                       {"unusedForMonths", nullptr},
                       {"path", "/Applications/Sea Chart.app"},
                       {"leftovers", json::array()}}}},
                    {"orphanGroups",
                     {{{"id", "org.x.y"},
                       {"items",
                        {{{"path", "/Users/u/Library/Caches/org.x.y.z"},
                          {"size", 7},
                          {"location", "Caches"},
                          {"match", "orphan"},
                          {"modified", nullptr}}}}}}}}));
}

TEST(AppsJson, WithoutAppsBothListsAreEmpty)
{
    EXPECT_EQ(writtenTo([](Output &out) { writeAppsJson({}, now, utc, out); }), "{\"apps\":[],\"orphanGroups\":[]}\n");
}

TEST(AppsTable, ShowsAppsWithTheirDataAndWhatDeletedOnesLeft)
{
    EXPECT_EQ(table(inventory()),
              "2 apps use 2.7 MB, including their data\n"
              "\n"
              "    1.7 MB  Caf�       app 1.2 MB + data 500 KB, not opened in 14 months\n"
              "      1 MB  Sea Chart  app 1 MB\n"
              "\n"
              "Left behind by deleted apps, 7 bytes\n"
              "   7 bytes  org.x.y  1 item\n"
              "\n"
              "\"corvane-cli apps --json\" names what they keep; \"corvane-cli remove PATH\" removes it\n");
}

TEST(AppsTable, AnItemOfTwoAppsCountsOnceInTheTotalAndTheLargestStandsFirst)
{
    AppInventory::Result result = inventory();
    result.apps[1].leftovers = {result.apps[0].leftovers[1]};
    result.apps[1].leftovers[0].size = result.apps[0].leftovers[1].size = 2'000'000;
    result.apps[0].leftovers.pop_back();
    result.apps[0].leftovers.push_back(result.apps[1].leftovers[0]);
    result.apps[1].appSize = 1'900'000;
    const std::string text = table(result);
    EXPECT_TRUE(text.starts_with("2 apps use 5.4 MB, including their data\n")) << text;
    EXPECT_LT(text.find("Sea Chart"), text.find("Caf")) << text;
}

TEST(AppsTable, CountsOneAppInTheSingular)
{
    AppInventory::Result result = inventory();
    result.apps.pop_back();
    result.orphanGroups.clear();
    EXPECT_TRUE(table(result).starts_with("1 app uses 1.7 MB, including its data\n")) << table(result);
}

TEST(AppsTable, SaysSoWhereThereIsNothing)
{
    EXPECT_EQ(table({}), "No apps found\n");
}

TEST(AppsTable, LongNamesAreCutAndHoldNoControlCharacters)
{
    AppInventory::Result result = inventory();
    result.apps.pop_back();
    result.apps[0].name = "a\x1b[31m\n" + std::string(60, 'x');
    const std::string text = table(result);
    EXPECT_NE(text.find("  a␛[31m␊xxxxxxxxxxxxxxxxxxxxxxxx…  app"), std::string::npos) << text;
}

TEST(AppsOutput, WhereAnApplicationIsFromAndHowItIsRemovedIsToldWhereItIsKnown)
{
    AppInventory::Result result = inventory();
    InstalledApp &packed = result.apps[1];
    packed.source = InstalledApp::Source::flatpak;
    packed.removeCommand = "flatpak uninstall org.sea";
    EXPECT_NE(table(result).find("Sea Chart  app 1 MB, Flatpak\n"), std::string::npos) << table(result);
    const json document = json::parse(writtenTo([&](Output &out) { writeAppsJson(result, now, utc, out); }));
    EXPECT_EQ(document["apps"][1]["source"], "Flatpak");
    EXPECT_EQ(document["apps"][1]["removeCommand"], "flatpak uninstall org.sea");
    EXPECT_FALSE(document["apps"][0].contains("source"));
    EXPECT_FALSE(document["apps"][0].contains("removeCommand"));
}

} // namespace

} // namespace corvane
