#include <ctime>
#include <string>
#include <vector>

#include "cli/argument_values.h"
#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

class FileListsCommandTest : public CliTest {
protected:
    /// Three files of over 1 MB: from today, from about a year and a half ago, from 2001.
    FileListsCommandTest()
    {
        m_folder.writeFile("set/Film.MOV", 3'000'000);
        m_folder.writeFile("set/archive.zip", 2'000'000);
        m_folder.writeFile("set/deep/old film.mov", 5'000'000);
        const std::int64_t now = std::time(nullptr);
        m_folder.setModified("set/archive.zip", now - 540 * std::int64_t{86'400});
        m_folder.setModified("set/deep/old film.mov", 1'000'000'000);
    }

    std::vector<std::string> names(std::vector<std::string> arguments) const
    {
        const json found = document(std::move(arguments));
        std::vector<std::string> result;
        for (const json &file : found["files"])
            result.push_back(file["path"].get<std::string>().substr((m_folder / "set/").size()));
        return result;
    }
    using Names = std::vector<std::string>;
};

TEST_F(FileListsCommandTest, LargeFilesAreThoseOfAtLeast100MBUnlessAnotherSizeIsGiven)
{
    EXPECT_EQ(names({"large", "set"}), Names{});
    EXPECT_EQ(names({"large", "set", "--min", "2000000"}), (Names{"deep/old film.mov", "Film.MOV", "archive.zip"}));
    EXPECT_EQ(names({"large", "set", "--min", "3100000"}), (Names{"deep/old film.mov"}));
}

TEST_F(FileListsCommandTest, LargeFilesAreFilteredByTypeAndByNameInAnyCase)
{
    EXPECT_EQ(names({"large", "set", "--min", "0", "--type", "archive"}), (Names{"archive.zip"}));
    EXPECT_EQ(names({"large", "set", "--min", "0", "--name", "FILM"}), (Names{"deep/old film.mov", "Film.MOV"}));
    EXPECT_EQ(names({"large", "set", "--min=0", "--name=OLD", "--type=video"}), (Names{"deep/old film.mov"}));
    EXPECT_EQ(names({"large", "set", "--min", "0", "--name", "nothing"}), Names{});
}

TEST_F(FileListsCommandTest, OldFilesAreThoseOfBeforeTheMonths)
{
    EXPECT_EQ(names({"old", "set", "--min", "0"}), (Names{"deep/old film.mov", "archive.zip"}));
    EXPECT_EQ(names({"old", "set", "--min", "0", "--months", "24"}), (Names{"deep/old film.mov"}));
    EXPECT_EQ(names({"old", "set", "--min", "0", "--name", "zip"}), (Names{"archive.zip"}));
    EXPECT_EQ(names({"old", "set"}), Names{}) << "10 MB";
}

TEST_F(FileListsCommandTest, JsonHasTheHeaderAndEachFile)
{
    const json found = document({"old", "set", "--min", "0", "--months", "24"});
    EXPECT_EQ(found["title"], "Old Files");
    EXPECT_EQ(found["subtitle"], "1 item untouched for 2 years · 5 MB");
    EXPECT_EQ(found["files"], (json{{{"path", m_folder / "set/deep/old film.mov"},
                                     {"size", m_folder.allocated("set/deep/old film.mov")},
                                     {"kindLabel", "Videos"},
                                     {"modified", 1'000'000'000}}}));
    EXPECT_EQ(document({"large", "set"}),
              (json{{"title", "Large Files"}, {"subtitle", "0 items · Zero KB"}, {"files", json::array()}}));
}

TEST_F(FileListsCommandTest, TheTableHasSizeDateAndPath)
{
    const std::string table = program({"old", "set", "--min", "0", "--months", "24"}).with("TZ", "UTC").run().out;
    EXPECT_EQ(table, "Old Files · 1 item untouched for 2 years · 5 MB\n\n      5 MB  2001-09-09  " +
                         (m_folder / "set/deep/old film.mov") + "\n");
    EXPECT_EQ(run({"large", "set"}).out, "No files match\n");
    EXPECT_EQ(run({"old", "set"}).out, "Nothing stale here\n");
}

TEST_F(FileListsCommandTest, InvalidValuesAreRefusedWithAHint)
{
    EXPECT_EQ(run({"large", "set", "--min", "1 GB"}).errors,
              "corvane-cli: \"1 GB\" is not a valid --min; use a number of bytes without a unit, from 0 to "
              "9223372036854775807; see \"corvane-cli large --help\"\n");
    EXPECT_EQ(run({"large", "set", "--type", "folder"}).exitStatus, 2);
    EXPECT_EQ(run({"old", "set", "--months", "0"}).exitStatus, 2);
    EXPECT_EQ(run({"old", "set", "--months", "99999999999"}).exitStatus, 2);
    EXPECT_EQ(run({"large"}).exitStatus, 2);
    EXPECT_EQ(run({"old", "nowhere"}).exitStatus, 2);
}

TEST(FileListArguments, AreNumbersAndTypesOfFiles)
{
    EXPECT_EQ(byteCount("0"), 0);
    EXPECT_EQ(byteCount("9223372036854775807"), 9'223'372'036'854'775'807);
    EXPECT_EQ(byteCount("9223372036854775808"), std::nullopt);
    EXPECT_EQ(byteCount("-1"), std::nullopt);
    EXPECT_EQ(byteCount(""), std::nullopt);
    EXPECT_EQ(monthCount("12000"), 12'000);
    EXPECT_EQ(monthCount("12001"), std::nullopt);
    EXPECT_EQ(fileTypeNamed("diskImage"), FileType(FileType::diskImage));
    EXPECT_EQ(fileTypeNamed("small"), std::nullopt);
}

} // namespace

} // namespace corvane
