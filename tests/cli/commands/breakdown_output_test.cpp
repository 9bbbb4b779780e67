#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "cli/commands/breakdown.h"
#include "cli/written.h"

namespace corvane {

namespace {

using nlohmann::json;
using Kind = BreakdownSegment::Kind;
using Action = BreakdownAction::Kind;

constexpr std::int64_t gb = 1'000'000'000;

DiskBreakdown example()
{
    DiskBreakdown breakdown;
    breakdown.volumeName = "Disk";
    breakdown.total = 100 * gb;
    breakdown.free = 60 * gb;
    breakdown.purgeable = 2 * gb;
    breakdown.segments = {
        {"/opt",
         Kind::measured,
         "Homebrew (/opt)",
         "Packages.",
         "mug",
         {0.98, 0.56, 0.22},
         30 * gb,
         {{"homebrew", 29 * gb}, {"caf\xE9", gb}},
         BreakdownAction{Action::reveal, "/opt"},
         "Show in Finder"},
        {"hidden",
         Kind::hidden,
         "Not Scanned Yet",
         "Why.",
         "eye",
         {},
         10 * gb,
         {},
         BreakdownAction{Action::scanHome, {}},
         "Scan Home Folder"},
    };
    breakdown.snapshots = {{"com.apple.a", Time{std::chrono::seconds{1'700'000'000}}}, {"com.apple.b", std::nullopt}};
    breakdown.hasScan = false;
    breakdown.fromAPFS = true;
    breakdown.overcount = 7;
    return breakdown;
}

DiskBreakdown partialExample()
{
    DiskBreakdown breakdown = example();
    breakdown.hasScan = true;
    breakdown.scanIsPartial = true;
    return breakdown;
}

json document(const DiskBreakdown &breakdown)
{
    return json::parse(writtenTo([&](Output &out) { writeBreakdownJson(breakdown, out); }));
}

std::string table(const DiskBreakdown &breakdown)
{
    return printedOn([&](Console &console) { writeBreakdownTable(breakdown, console); });
}

TEST(BreakdownJson, HasEveryFieldOfABreakdown)
{
    EXPECT_EQ(
        document(example()),
        (json{{"volumeName", "Disk"},
              {"total", 100 * gb},
              {"free", 60 * gb},
              {"purgeable", 2 * gb},
              {"segments",
               {{{"id", "/opt"},
                 {"kind", "measured"},
                 {"title", "Homebrew (/opt)"},
                 {"detail", "Packages."},
                 {"symbol", "mug"},
                 {"color", {0.98, 0.56, 0.22}},
                 {"size", 30 * gb},
                 {"children",
                  {{{"name", "homebrew"}, {"size", 29 * gb}},
                   {{"name", "caf\xEF\xBF\xBD"}, {"nameHex", "636166e9"}, {"size", gb}}}},
                 {"action", {{"kind", "reveal"}, {"path", "/opt"}}},
                 {"actionTitle", "Show in Finder"}},
                {{"id", "hidden"},
                 {"kind", "hidden"},
                 {"title", "Not Scanned Yet"},
                 {"detail", "Why."},
                 {"symbol", "eye"},
                 {"color", {0.0, 0.0, 0.0}},
                 {"size", 10 * gb},
                 {"children", json::array()},
                 {"action", {{"kind", "scanHome"}}},
                 {"actionTitle", "Scan Home Folder"}}}},
              {"snapshots",
               {{{"name", "com.apple.a"}, {"date", 1'700'000'000}}, {{"name", "com.apple.b"}, {"date", nullptr}}}},
              {"hasScan", false},
              {"fromAPFS", true},
              {"overcount", 7},
              {"hidden", 10 * gb},
              {"cancelled", false}}));
}

TEST(BreakdownJson, KindsAndActionsCarryTheirOwnNames)
{
    const std::vector<std::pair<Kind, std::string>> kinds{
        {Kind::system, "system"},   {Kind::support, "support"},        {Kind::vm, "vm"},
        {Kind::scanned, "scanned"}, {Kind::measured, "measured"},      {Kind::purgeable, "purgeable"},
        {Kind::hidden, "hidden"},   {Kind::otherVolume, "otherVolume"}};
    for (const auto &[kind, name] : kinds) {
        DiskBreakdown breakdown = example();
        breakdown.segments.front().kind = kind;
        EXPECT_EQ(document(breakdown)["segments"][0]["kind"], name);
    }
    const std::vector<std::pair<Action, std::string>> actions{
        {Action::openMap, "openMap"}, {Action::scanHome, "scanHome"}, {Action::fullDiskAccess, "fullDiskAccess"}};
    for (const auto &[action, name] : actions) {
        DiskBreakdown breakdown = example();
        breakdown.segments.front().action = BreakdownAction{action, {}};
        EXPECT_EQ(document(breakdown)["segments"][0]["action"], (json{{"kind", name}}));
    }
}

TEST(BreakdownJson, ASegmentWithoutAnActionHasNull)
{
    DiskBreakdown breakdown = example();
    breakdown.segments.front().action.reset();
    breakdown.segments.front().actionTitle.reset();
    EXPECT_EQ(document(breakdown)["segments"][0]["action"], nullptr);
    EXPECT_EQ(document(breakdown)["segments"][0]["actionTitle"], nullptr);
}

TEST(BreakdownJson, APartialScanIsMarked)
{
    EXPECT_EQ(document(partialExample())["cancelled"], true);
    EXPECT_EQ(document(example())["cancelled"], false);
}

TEST(BreakdownTable, ShowsFiguresSegmentsAndNotes)
{
    EXPECT_EQ(table(example()), "75% explained\n"
                                "40 GB used of 100 GB, 60 GB free on Disk\n"
                                "\n"
                                "     30 GB   75.0%  ███████████████       Homebrew (/opt)\n"
                                "     29 GB                                  homebrew\n"
                                "      1 GB                                  caf\xEF\xBF\xBD\n"
                                "     10 GB   25.0%  █████                 Not Scanned Yet (unexplained)\n"
                                "\n"
                                "2 local Time Machine snapshots; \"corvane-cli snapshots\" lists them\n"
                                "\"corvane-cli breakdown --scan ~\" explains your home folder too\n"
                                "Scanned files add up to 7 bytes more than the disk actually uses. That's normal: "
                                "copies made in Finder on APFS share their storage (clones), so they're counted twice "
                                "here but stored once.\n"
                                "Sizes are the space files really occupy on disk, so they can differ slightly from the "
                                "sizes Finder shows.\n");
}

TEST(BreakdownTable, ADiskOfWhichNothingIsUsedHasNoShares)
{
    DiskBreakdown breakdown = example();
    breakdown.free = breakdown.total;
    EXPECT_EQ(table(breakdown).find("0% explained\nZero KB used of 100 GB, 100 GB free on Disk\n"), 0u);
}

TEST(BreakdownTable, OneSnapshotIsSingularAndNoneIsNotMentioned)
{
    DiskBreakdown breakdown = example();
    breakdown.snapshots.pop_back();
    EXPECT_NE(table(breakdown).find("\n1 local Time Machine snapshot;"), std::string::npos);
    breakdown.snapshots.clear();
    EXPECT_EQ(table(breakdown).find("napshot"), std::string::npos);
}

TEST(BreakdownTable, SnapshotsOfALinuxSystemAreNobodysInParticular)
{
    DiskBreakdown breakdown = example();
    breakdown.system = SystemKind::linuxSystem;
    EXPECT_NE(table(breakdown).find("\n2 snapshots; \"corvane-cli snapshots\" lists them\n"), std::string::npos);
}

TEST(BreakdownTable, NothingIsSuggestedOnceThereIsAScan)
{
    DiskBreakdown breakdown = example();
    breakdown.hasScan = true;
    EXPECT_EQ(table(breakdown).find("--scan"), std::string::npos);
}

TEST(BreakdownTable, WhatIsUnexplainedHasItsReasonUnlessAScanWouldExplainIt)
{
    DiskBreakdown breakdown = example();
    EXPECT_EQ(table(breakdown).find("Why."), std::string::npos) << "the scan is suggested instead";
    breakdown.hasScan = true;
    EXPECT_NE(table(breakdown).find("\nNot Scanned Yet: Why.\n"), std::string::npos);
    breakdown.hasScan = false;
    breakdown.system = SystemKind::linuxSystem;
    EXPECT_NE(table(breakdown).find("\nNot Scanned Yet: Why.\n"), std::string::npos);
    breakdown.segments.pop_back();
    EXPECT_EQ(table(breakdown).find("Why."), std::string::npos);
}

TEST(BreakdownTable, APartialScanIsMarked)
{
    EXPECT_NE(table(partialExample()).find("\nScan stopped — showing partial results\n"), std::string::npos);
    EXPECT_EQ(table(example()).find("stopped"), std::string::npos);
}

TEST(BreakdownTable, NamesHoldNoControlCharacters)
{
    DiskBreakdown breakdown = example();
    breakdown.volumeName = "a\x1b[31m";
    breakdown.segments.front().title = "b\nc";
    breakdown.segments.front().children.front().name = "d\x7f";
    const std::string text = table(breakdown);
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_EQ(text.find('\x7f'), std::string::npos);
    EXPECT_NE(text.find("b␊c"), std::string::npos) << text;
}

} // namespace

} // namespace corvane
