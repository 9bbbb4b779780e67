#include "cli/commands/snapshots.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/commands/commands.h"
#include "cli/written.h"
#include "platform/fake_host.h"

namespace corvane {

namespace {

using nlohmann::json;

std::string table(const std::vector<LocalSnapshot> &snapshots)
{
    return printedOn([&](Console &console) { writeSnapshotsTable(snapshots, console); });
}

TEST(SnapshotsJson, OneThatTheUserCanDeleteComesWithItsCommandAndASizeWhereThatIsKnown)
{
    const std::vector<LocalSnapshot> snapshots{
        {.name = "rpool@a", .date = {}, .size = 8'192, .listCommand = "l", .deleteCommand = "sudo zfs destroy rpool@a"},
        {.name = "snapper root 3", .date = {}, .listCommand = "l", .deleteCommand = "sudo snapper -c root delete 3"},
        {.name = "com.apple.a", .date = {}}};
    EXPECT_EQ(json::parse(writtenTo([&](Output &out) {
                  JsonWriter writer(out);
                  writeSnapshots(snapshots, writer);
              })),
              (json{{{"name", "rpool@a"}, {"date", nullptr}, {"size", 8'192}, {"command", "sudo zfs destroy rpool@a"}},
                    {{"name", "snapper root 3"},
                     {"date", nullptr},
                     {"size", nullptr},
                     {"command", "sudo snapper -c root delete 3"}},
                    {{"name", "com.apple.a"}, {"date", nullptr}}}));
}

TEST(SnapshotsTable, AKnownSizeFollowsTheNameAndTheCommandStandsBeneath)
{
    EXPECT_EQ(table({{.name = "rpool@a",
                      .date = {},
                      .size = 8'192,
                      .listCommand = "l",
                      .deleteCommand = "sudo zfs destroy rpool@a"},
                     {.name = "snapper root 3",
                      .date = {},
                      .listCommand = "l",
                      .deleteCommand = "sudo snapper -c root delete 3"},
                     {.name = "com.apple.a", .date = {}}}),
              "date unknown      rpool@a (8 KB)\n"
              "                  sudo zfs destroy rpool@a\n"
              "date unknown      snapper root 3\n"
              "                  sudo snapper -c root delete 3\n"
              "date unknown      com.apple.a\n");
}

TEST(SnapshotsTable, NoSnapshotsAreASentence)
{
    EXPECT_EQ(table({}), "No local snapshots\n");
}

TEST(SnapshotsTable, TheCommandStandsBeneathItsSnapshot)
{
    FakeHost fake;
    fake.files.addMount({"/", 1, "/", "/dev/sda1"});
    fake.files.addFolder("/timeshift/snapshots/2024-05-01_10-15-00");
    const std::string text = printedOn(
        [&](Console &console) { EXPECT_EQ(snapshotsCommand().run({}, console, fake.host()), ExitStatus::done); });
    EXPECT_TRUE(text.ends_with("  timeshift 2024-05-01_10-15-00\n"
                               "                  sudo timeshift --delete --snapshot 2024-05-01_10-15-00\n"))
        << text;
}

} // namespace

} // namespace corvane
