#include <filesystem>

#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

class SnapshotsCommandTest : public CliTest {};

TEST_F(SnapshotsCommandTest, WhereThereAreNoSnapshotsNoneAreListed)
{
    if (std::filesystem::exists("/usr/bin/tmutil"))
        GTEST_SKIP() << "this system has snapshots of its own";
    EXPECT_EQ(document({"snapshots"}), json::array());
    EXPECT_EQ(run({"snapshots"}).out, "No local snapshots\n");
}

} // namespace

} // namespace corvane
