#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "cli/commands/cleanup.h"
#include "cli/written.h"

namespace corvane {

namespace {

using nlohmann::json;

CleanupItem item(std::string_view id)
{
    for (const CleanupDefinition &definition : CleanupCatalog::definitions) {
        if (definition.id == id)
            return {&definition, {}, true};
    }
    ADD_FAILURE() << id;
    return {};
}

CleanupItem item(std::string_view id, std::vector<CleanupEntry> entries)
{
    CleanupItem filled = item(id);
    filled.entries = std::move(entries);
    return filled;
}

CleanupItem closed(std::string_view id)
{
    CleanupItem unreadable = item(id);
    unreadable.accessible = false;
    return unreadable;
}

std::string table(const std::vector<CleanupItem> &items, SystemKind kind = SystemKind::mac,
                  const std::vector<AdminCommand> &commands = {})
{
    return printedOn([&](Console &console) {
        writeCleanupTable({items, commands, cleanupTableOf(kind), "/home/u"}, console);
    });
}

TEST(CleanupJson, HasEveryFieldOfAnItemInTheGivenOrder)
{
    std::vector<CleanupItem> items{
        item("downloads", {{"/home/u/Downloads/a", 5'000}, {"/home/u/Downloads/caf\xE9", 3}}), closed("trash")};
    items.front().path = "/home/u/Downloads";

    EXPECT_EQ(json::parse(writtenTo([&](Output &out) { writeCleanupJson(items, out); })),
              (json{{{"id", "downloads"},
                     {"title", "Downloads"},
                     {"detail", "Everything in your Downloads folder — installers and one-off files pile up here."},
                     {"risk", "review"},
                     {"group", "personal"},
                     {"relativePath", "Downloads"},
                     {"path", "/home/u/Downloads"},
                     {"accessible", true},
                     {"total", 5'003},
                     {"entries",
                      {{{"path", "/home/u/Downloads/a"}, {"size", 5'000}},
                       {{"path", "/home/u/Downloads/caf\xEF\xBF\xBD"},
                        {"pathHex", "2f686f6d652f752f446f776e6c6f6164732f636166e9"},
                        {"size", 3}}}}},
                    {{"id", "trash"},
                     {"title", "Trash"},
                     {"detail", "Items already in your Trash. Removing them here deletes them permanently."},
                     {"risk", "safe"},
                     {"group", "system"},
                     {"relativePath", ".Trash"},
                     {"path", nullptr},
                     {"accessible", false},
                     {"total", 0},
                     {"entries", json::array()}}}));
}

TEST(CleanupTable, ShowsGroupsInTheirOrderAndLeavesOutEmptyFolders)
{
    EXPECT_EQ(table({item("downloads", {{"/home/u/Downloads/a", 2'000'000}, {"/home/u/Downloads/b", 1'000'000}}),
                     item("npm", {{"/home/u/.npm/_cacache/a", 400'000}}), item("logs"), closed("trash"),
                     item("caches", {{"/fast/cache/a", 100'000}})}),
              "3.5 MB could be cleaned up, 500 KB of it safely\n"
              "\n"
              "System\n"
              "         ?  safe    Trash                         cannot be read\n"
              "    100 KB  safe    App Caches                    1 item in /fast/cache\n"
              "\n"
              "Developer\n"
              "    400 KB  safe    npm Cache                     1 item in ~/.npm/_cacache\n"
              "\n"
              "Personal\n"
              "      3 MB  review  Downloads                     2 items in ~/Downloads\n"
              "\n"
              "\"corvane-cli cleanup --json\" names what lies in each; \"corvane-cli remove PATH\" removes it\n");
}

TEST(CleanupTable, AFolderThatCannotBeReadSaysWhoseItIs)
{
    CleanupItem unreadable = closed("npm");
    unreadable.owner = "Belongs to root";
    EXPECT_THAT(table({unreadable}, SystemKind::linuxSystem),
                testing::HasSubstr("         ?  safe    npm Cache                     Belongs to root\n"));
}

TEST(CleanupTable, OnALinuxSystemWhatDoesNotExistIsFoldedAndTheCommandsFollow)
{
    CleanupItem nothing = item("npm");
    nothing.exists = false;
    CleanupItem foreign = item("deriveddata");
    foreign.exists = false;
    CleanupItem empty = item("androidimages");
    empty.path = "/home/u/Android/Sdk/system-images";
    const std::vector<AdminCommand> commands{
        {.id = "apt", .title = "Package cache", .command = "sudo apt clean", .bytes = 5'900'000},
        {.id = "docker", .title = "Unused container images", .command = "sudo docker system prune"}};
    EXPECT_EQ(table({item("caches", {{"/home/u/.cache/a", 100'000}}), empty, nothing, foreign}, SystemKind::linuxSystem,
                    commands),
              "100 KB could be cleaned up, 100 KB of it safely\n"
              "\n"
              "System\n"
              "    100 KB  safe    App Caches                    1 item in ~/.cache\n"
              "\n"
              "Developer\n"
              "   Zero KB  review  Android System Images         0 items in ~/Android/Sdk/system-images\n"
              "\n"
              "1 more place holds nothing\n"
              "\n"
              "Needs the Administrator\n"
              "    5.9 MB  Package cache                         sudo apt clean\n"
              "         ?  Unused container images               sudo docker system prune\n"
              "Corvane never runs these. Copy a command and run it in a terminal.\n"
              "\n"
              "\"corvane-cli cleanup --json\" names what lies in each; \"corvane-cli remove PATH\" removes it\n");
}

TEST(CleanupTable, EveryTitleFitsItsColumn)
{
    std::vector<CleanupDefinition> definitions(CleanupCatalog::definitions.begin(), CleanupCatalog::definitions.end());
    const auto own = cleanupTableOf(SystemKind::linuxSystem).rows;
    definitions.insert(definitions.end(), own.begin(), own.end());
    for (const CleanupDefinition &definition : definitions) {
        const std::string text = table({{&definition, {{"/x/a", 1}}, true}});
        EXPECT_NE(text.find("1 item in /x\n"), std::string::npos);
        const std::size_t row = text.find("    1 byte");
        EXPECT_EQ(text.find("1 item in /x\n", row) - row, 50u) << definition.title;
    }
}

TEST(CleanupTable, FoldersHoldNoControlCharacters)
{
    const std::string text = table({item("caches", {{"/a\x1b[31m\n/b", 1}})});
    EXPECT_NE(text.find("1 item in /a␛[31m␊\n"), std::string::npos) << text;
}

} // namespace

} // namespace corvane
