#include "cli/commands/file_list_fixture.h"

namespace corvane {

namespace {

using nlohmann::json;

class LargeCommandTest : public FileListCommandTest {};

TEST_F(LargeCommandTest, LargeFilesAreThoseOfAtLeast100MBUnlessAnotherSizeIsGiven)
{
    EXPECT_EQ(names({"large", "set"}), Names{});
    EXPECT_EQ(names({"large", "set", "--min", "2000000"}), (Names{"deep/old film.mov", "Film.MOV", "archive.zip"}));
    EXPECT_EQ(names({"large", "set", "--min", "3100000"}), (Names{"deep/old film.mov"}));
}

TEST_F(LargeCommandTest, LargeFilesAreFilteredByTypeAndByNameInAnyCase)
{
    EXPECT_EQ(names({"large", "set", "--min", "0", "--type", "archive"}), (Names{"archive.zip"}));
    EXPECT_EQ(names({"large", "set", "--min", "0", "--name", "FILM"}), (Names{"deep/old film.mov", "Film.MOV"}));
    EXPECT_EQ(names({"large", "set", "--min=0", "--name=OLD", "--type=video"}), (Names{"deep/old film.mov"}));
    EXPECT_EQ(names({"large", "set", "--min", "0", "--name", "nothing"}), Names{});
}

TEST_F(LargeCommandTest, JsonHasTheHeaderAndNoFileWhereThereIsNone)
{
    EXPECT_EQ(document({"large", "set"}),
              (json{{"title", "Large Files"}, {"subtitle", "0 items · Zero KB"}, {"files", json::array()}}));
}

TEST_F(LargeCommandTest, AnEmptyListIsASentence)
{
    EXPECT_EQ(run({"large", "set"}).out, "No files match\n");
}

TEST_F(LargeCommandTest, InvalidValuesAreRefusedWithAHint)
{
    EXPECT_EQ(run({"large", "set", "--min", "1 GB"}).errors,
              "corvane-cli: \"1 GB\" is not a valid --min; use a number of bytes without a unit, from 0 to "
              "9223372036854775807; see \"corvane-cli large --help\"\n");
    EXPECT_EQ(run({"large", "set", "--type", "folder"}).exitStatus, 2);
    EXPECT_EQ(run({"large"}).exitStatus, 2);
}

} // namespace

} // namespace corvane
