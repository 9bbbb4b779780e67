#include <string>

#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

class RemoveOptionsTest : public CliTest {};

TEST_F(RemoveOptionsTest, ADryRunShowsWhatWouldBeDoneAndDoesNothing)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("old.iso", 2'000'000);
    m_folder.writeText("data/Trash/files/old.txt", "x");

    const ProgramResult result = run({"remove", "--dry-run", "old.iso", "data/Trash/files/old.txt"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.out.find("      2 MB  " + m_folder / "old.iso" + "\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("old.txt  (in the Trash already: deleted for good)\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\nWould move 2 items (2 MB) to Trash\nNothing was removed\n"), std::string::npos)
        << result.out;
    EXPECT_TRUE(m_folder.has("old.iso"));
    EXPECT_TRUE(m_folder.has("data/Trash/files/old.txt"));
}

TEST_F(RemoveOptionsTest, ADryRunThatWouldDeleteSaysSoAlsoWithYes)
{
    m_folder.writeFile("old.iso", 2'000'000);

    const ProgramResult result = run({"remove", "--dry-run", "--permanently", "--yes", "old.iso"});

    EXPECT_NE(result.out.find("\nWould permanently delete 1 item (2 MB)\n"), std::string::npos) << result.out;
    EXPECT_TRUE(m_folder.has("old.iso"));
}

TEST_F(RemoveOptionsTest, TheDocumentOfADryRunNamesEachStep)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("old.iso", 2'000'000);
    m_folder.makeFolder("home/Documents");

    const ProgramResult result = run({"remove", "--dry-run", "--json", "old.iso", "home/Documents"});

    const json removal = parsed(result, 1);
    EXPECT_EQ(removal["removed"], json::array());
    EXPECT_EQ(removal["steps"],
              (json{{{"path", m_folder / "home/Documents"}, {"size", 0}, {"action", "refuse"}},
                    {{"path", m_folder / "old.iso"}, {"size", m_folder.allocated("old.iso")}, {"action", "trash"}}}));
    EXPECT_EQ(removal["failures"].size(), 1u);
    EXPECT_EQ(result.errors, "corvane-cli: " + removal["failures"][0].get<std::string>() + "\n");
    EXPECT_TRUE(m_folder.has("old.iso"));
    EXPECT_TRUE(m_folder.has("home/Documents"));
}

TEST_F(RemoveOptionsTest, WhatReallyHappenedHasNoSteps)
{
    m_folder.writeText("old.txt", "x");

    EXPECT_FALSE(document({"remove", "--yes", "old.txt"}).contains("steps"));
}

} // namespace

} // namespace corvane
