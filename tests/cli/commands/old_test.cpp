#include "cli/commands/file_list_fixture.h"

namespace corvane {

namespace {

using nlohmann::json;

class OldCommandTest : public FileListCommandTest {};

TEST_F(OldCommandTest, OldFilesAreThoseOfBeforeTheMonths)
{
    EXPECT_EQ(names({"old", "set", "--min", "0"}), (Names{"deep/old film.mov", "archive.zip"}));
    EXPECT_EQ(names({"old", "set", "--min", "0", "--months", "24"}), (Names{"deep/old film.mov"}));
    EXPECT_EQ(names({"old", "set", "--min", "0", "--name", "zip"}), (Names{"archive.zip"}));
    EXPECT_EQ(names({"old", "set"}), Names{}) << "10 MB";
}

TEST_F(OldCommandTest, JsonHasTheHeaderAndEachFile)
{
    const json found = document({"old", "set", "--min", "0", "--months", "24"});
    EXPECT_EQ(found["title"], "Old Files");
    EXPECT_EQ(found["subtitle"], "1 item untouched for 2 years · 5 MB");
    EXPECT_EQ(found["files"], (json{{{"path", m_folder / "set/deep/old film.mov"},
                                     {"size", m_folder.allocated("set/deep/old film.mov")},
                                     {"kindLabel", "Videos"},
                                     {"modified", 1'000'000'000}}}));
}

TEST_F(OldCommandTest, TheTableHasSizeDateAndPath)
{
    const std::string table = program({"old", "set", "--min", "0", "--months", "24"}).with("TZ", "UTC").run().out;
    EXPECT_EQ(table, "Old Files · 1 item untouched for 2 years · 5 MB\n\n      5 MB  2001-09-09  " +
                         (m_folder / "set/deep/old film.mov") + "\n");
}

TEST_F(OldCommandTest, AnEmptyListIsASentence)
{
    EXPECT_EQ(run({"old", "set"}).out, "Nothing stale here\n");
}

TEST_F(OldCommandTest, InvalidValuesAreRefused)
{
    EXPECT_EQ(run({"old", "set", "--months", "0"}).exitStatus, 2);
    EXPECT_EQ(run({"old", "set", "--months", "99999999999"}).exitStatus, 2);
    EXPECT_EQ(run({"old", "nowhere"}).exitStatus, 2);
}

} // namespace

} // namespace corvane
