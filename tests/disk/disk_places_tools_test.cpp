#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "disk/disk_places_fixture.h"

namespace corvane {
namespace {

using testing::IsEmpty;

TEST_F(DiskPlacesTest, WhatTheUserMayNotReadIsMeasuredByItsTool)
{
    add("/var/lib/docker/layer", 8);
    fake.files.failOpening("/var/lib/docker");
    add("/var/log/syslog", 1);
    add("/var/log/journal/machine", 500);
    fake.files.failOpening("/var/log/journal");
    answers["/usr/bin/docker"] = "12.5GB\n1.2kB\n0B\n500MB\n";
    answers["/usr/bin/journalctl"] = "Archived and active journals take up 512.0M in the file system.\n";
    measure();
    EXPECT_EQ(size("/var/lib/docker"), 13'000);
    EXPECT_EQ(size("/var/log"), 537); // 512 x 1,024 x 1,024, plus what could be read
    EXPECT_EQ(denied, 2);
    EXPECT_EQ(segment("/var/log").children.front(), (NamedSize{"journal", 512 * 1'024 * 1'024}));
}

TEST_F(DiskPlacesTest, PodmanAndFlatpakAnswerForTheirFoldersToo)
{
    add("/var/lib/containers/storage/x", 8);
    add("/var/lib/flatpak/app", 8);
    fake.files.failOpening("/var/lib/containers");
    fake.files.failOpening("/var/lib/flatpak");
    answers["/usr/bin/podman"] = "1.5GB\n0B\n1.2kB\n";
    answers["/usr/bin/flatpak"] = "1.2\u00a0GB\n450.5\u00a0MB\n12.3 kB\n";
    measure();
    EXPECT_EQ(size("/var/lib/containers"), 1'500);
    EXPECT_EQ(size("/var/lib/flatpak"), 1'650);
}

TEST_F(DiskPlacesTest, AToolThatKeepsThingsElsewhereMeasuresNoFolder)
{
    add("/var/lib/docker/layer", 8);
    fake.files.failOpening("/var/lib/docker");
    answers["/usr/bin/docker"] = "12.5GB\n";
    for (const char *place : {"/data/docker\n", "/var/lib/docker-data\n", "", "\n", "/var/lib\n", "error: denied\n"}) {
        answers["/usr/bin/docker place"] = place;
        measure();
        EXPECT_EQ(size("/var/lib/docker"), 0) << place;
    }
    answers["/usr/bin/docker place"] = "/var/lib/docker/100000.100000\n"; // with user namespaces
    measure();
    EXPECT_EQ(size("/var/lib/docker"), 12'500);
    answers.erase("/usr/bin/docker place");
    measure();
    EXPECT_EQ(size("/var/lib/docker"), 0);
}

TEST_F(DiskPlacesTest, TheToolsAreAskedOfThisComputerAlone)
{
    for (const SizeTool &tool : diskTableOf(SystemKind::linuxSystem).tools) {
        if (tool.path == "/usr/bin/docker" || tool.path == "/usr/bin/podman") {
            for (const SizeTool::Arguments &arguments : {tool.arguments, tool.placeArguments})
                EXPECT_TRUE(arguments[1].starts_with("unix:///")) << tool.path;
        }
    }
}

TEST_F(DiskPlacesTest, WhatToolsOfSeveralVersionsWriteIsRead)
{
    using Answer = SizeTool::Answer;
    // The second line is the tool's format of a figure that rounds up to four digits.
    EXPECT_EQ(DiskPlaces::sizeIn("1.087kB\n", Answer::sizes), 1'087);
    EXPECT_EQ(DiskPlaces::sizeIn("1e+03MB\n", Answer::sizes), 1'000 * mb);
    EXPECT_EQ(DiskPlaces::sizeIn("34.7 GB\n0 B\n", Answer::sizes), 34'700 * mb);
    EXPECT_EQ(DiskPlaces::sizeIn("512 bytes\n", Answer::sizes), 512);
    constexpr std::int64_t halfGibibyte = 512 * 1'024 * 1'024;
    for (const char *sentence :
         {"Journals take up 512.0M on disk.\n", "Archived and active journals take up 512.0M on disk.\n",
          "Archived and active journals take up 512.0M in the file system.\n",
          "Archived and active journals take up 512M in the file system."})
        EXPECT_EQ(DiskPlaces::sizeIn(sentence, Answer::journalUsage), halfGibibyte) << sentence;
    for (const char *absurd : {"1e30GB\n", "-1B\n", "1,2 GB\n", "N/A\n", "1GB\n\n2GB\n", "infGB\n", "0x10GB\n"})
        EXPECT_EQ(DiskPlaces::sizeIn(absurd, Answer::sizes), std::nullopt) << absurd;
    for (const char *absurd : {"take up -1.0G", "take up 1e30P", "take up ", "take up .", "take up"})
        EXPECT_EQ(DiskPlaces::sizeIn(absurd, Answer::journalUsage), std::nullopt) << absurd;
}

TEST_F(DiskPlacesTest, AToolIsAskedOnlyForWhatCannotBeRead)
{
    add("/var/lib/docker/layer", 8);
    add("/var/log/journal/machine", 5);
    measure();
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(size("/var/lib/docker"), 8);
}

TEST_F(DiskPlacesTest, AScanOfEverythingStillAsksForWhatItCouldNotRead)
{
    add("/var/lib/docker/layer", 8);
    fake.files.failOpening("/var/lib/docker");
    answers["/usr/bin/docker"] = "2GB\n";
    measure("/");
    EXPECT_EQ(size("/var/lib/docker"), 2'000);
}

TEST_F(DiskPlacesTest, ATornAnswerOfAToolCountsAsNone)
{
    for (const char *output : {"", "garbage", "12.5", "-3GB", "nanGB", "99999999EB\n", "1GB\nx\n"})
        EXPECT_EQ(DiskPlaces::sizeIn(output, SizeTool::Answer::sizes), std::nullopt) << output;
    for (const char *output : {"", "journals take up a lot", "take up 1.0Z"})
        EXPECT_EQ(DiskPlaces::sizeIn(output, SizeTool::Answer::journalUsage), std::nullopt) << output;
    EXPECT_EQ(DiskPlaces::sizeIn("0B\n", SizeTool::Answer::sizes), 0);
    EXPECT_EQ(DiskPlaces::sizeIn("1.5kB\n2GB\n", SizeTool::Answer::sizes), 2'000'001'500);
    EXPECT_EQ(DiskPlaces::sizeIn("... take up 8.0K in ...", SizeTool::Answer::journalUsage), 8'192);
}

} // namespace
} // namespace corvane
