#include <csignal>
#include <string>

#include "cli/cli_test.h"
#include "core/systems/disk_table.h"
#include "platform/host.h"

namespace corvane {

namespace {

using nlohmann::json;

class BreakdownCommandTest : public CliTest {
protected:
    /// The only segment of a kind, or null.
    static json segment(const json &breakdown, const std::string &kind)
    {
        for (const json &one : breakdown["segments"]) {
            if (one["kind"] == kind)
                return one;
        }
        return nullptr;
    }
};

TEST_F(BreakdownCommandTest, TellsOfTheWholeDiskWithoutAScan)
{
    const json breakdown = document({"breakdown"});

    EXPECT_EQ(breakdown["hasScan"], false);
    EXPECT_GT(breakdown["total"].get<std::int64_t>(), 0);
    EXPECT_GE(breakdown["total"].get<std::int64_t>(), breakdown["free"].get<std::int64_t>());
    EXPECT_EQ(segment(breakdown, "scanned"), nullptr);
    std::int64_t hidden = 0;
    for (const json &one : breakdown["segments"]) {
        if (one["kind"] != "hidden")
            continue;
        if (diskTableOf(systemHost().files.systemKind()).leavesHomeToTheScan) {
            EXPECT_EQ(one["title"], "Not Scanned Yet");
            EXPECT_EQ(one["action"], (json{{"kind", "scanHome"}}));
        } else {
            EXPECT_EQ(one["title"], "Not Measured");
            EXPECT_EQ(one["action"], nullptr);
        }
        hidden += one["size"].get<std::int64_t>();
    }
    EXPECT_EQ(breakdown["hidden"], hidden);
}

TEST_F(BreakdownCommandTest, AScannedFolderIsASegmentOfItsOwn)
{
    m_folder.writeFile("tree/films/one.mov", 2'000'000);
    m_folder.writeFile("tree/two.mov", 1'000'000);
    const std::int64_t size = m_folder.allocated("tree/films/one.mov") + m_folder.allocated("tree/two.mov");

    const json breakdown = document({"breakdown", "--scan", "tree"});

    EXPECT_EQ(breakdown["hasScan"], true);
    const json scanned = segment(breakdown, "scanned");
    EXPECT_EQ(scanned["title"], "Scanned: tree");
    EXPECT_EQ(scanned["size"], size);
    EXPECT_EQ(scanned["children"][0], (json{{"name", "films"}, {"size", m_folder.allocated("tree/films/one.mov")}}));
    EXPECT_EQ(scanned["action"], (json{{"kind", "openMap"}}));
    EXPECT_EQ(breakdown["cancelled"], false);
}

TEST_F(BreakdownCommandTest, TheHomeFolderIsNamedAsSuch)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/film.mov", 1'000'000);
    EXPECT_EQ(segment(document({"breakdown", "--scan", m_folder / "home"}), "scanned")["title"], "Your Home Folder");
}

TEST_F(BreakdownCommandTest, AHomeThatIsALinkKeepsItsName)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/film.mov", 1'000'000);
    m_folder.link("house", "home");
    const json breakdown =
        parsed(program({"breakdown", "--json", "--scan", m_folder / "house"}).with("HOME", m_folder / "house").run());
    EXPECT_EQ(segment(breakdown, "scanned")["title"], "Your Home Folder");
}

TEST_F(BreakdownCommandTest, OfALinkTheFolderBehindItIsMeant)
{
    m_folder.writeFile("tree/film.mov", 1'000'000);
    m_folder.link("alias", "tree");
    EXPECT_EQ(segment(document({"breakdown", "--scan", "alias"}), "scanned")["title"], "Scanned: tree");
}

TEST_F(BreakdownCommandTest, TheTableShowsWhatIsExplained)
{
    m_folder.writeFile("tree/film.mov", 1'000'000);

    const ProgramResult result = run({"breakdown", "--scan", "tree"});

    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.out.find("% explained\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find(" used of "), std::string::npos);
    EXPECT_NE(result.out.find("  Scanned: tree\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("    film.mov\n"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);
}

TEST_F(BreakdownCommandTest, AFolderThatDoesNotExistIsRefused)
{
    const ProgramResult result = run({"breakdown", "--json", "--scan", "missing"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.errors.find(m_folder / "missing"), std::string::npos) << result.errors;
}

TEST_F(BreakdownCommandTest, AnUnreadableFolderIsNamedAndTheRestIsExplained)
{
    m_folder.makeUnreadable("closed");
    openToOrdinaryUser();

    const ProgramResult result = program({"breakdown", "--scan", "closed", "--json"}).asOrdinaryUser().run();

    const json breakdown = parsed(result, 1);
    EXPECT_EQ(segment(breakdown, "scanned")["size"], 0);
    EXPECT_EQ(result.errors, "corvane-cli: cannot read " + m_folder / "closed" + ": Permission denied\n");
}

} // namespace

} // namespace corvane
