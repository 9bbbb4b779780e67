#include <string>

#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

/// A home with AppImages, besides whatever this machine has installed.
class AppsCommandTest : public CliTest {
protected:
    void addApp(const std::string &name, const std::string &id) const
    {
        m_folder.writeText("data/applications/" + id + ".desktop", "[Desktop Entry]\nType=Application\nName=" + name +
                                                                       "\nExec=" + m_folder.path() + "/home/apps/" +
                                                                       id + ".AppImage\n");
        m_folder.writeFile("home/apps/" + id + ".AppImage", 200'000);
    }

    [[nodiscard]] Program ownProgram(std::vector<std::string> arguments) const
    {
        Program result = program(std::move(arguments));
        for (const char *name : {"config", "cache", "state"})
            result.with(variableOf(name), m_folder / "home/" + name);
        return result;
    }
    [[nodiscard]] json ownDocument() const { return parsed(ownProgram({"apps", "--json"}).run()); }

    /// The element with this value; fails the test if there is none.
    static json one(const json &all, const std::string &key, const std::string &value)
    {
        for (const json &each : all) {
            if (each[key] == value)
                return each;
        }
        ADD_FAILURE() << value << " in " << all;
        return nullptr;
    }

private:
    static std::string variableOf(const std::string &name)
    {
        return name == "config" ? "XDG_CONFIG_HOME" : name == "cache" ? "XDG_CACHE_HOME" : "XDG_STATE_HOME";
    }
};

TEST_F(AppsCommandTest, JsonHasTheAppsOfTheHomeWithTheirData)
{
    REQUIRE_OWN_HOME();
    addApp("Sea Chart", "org.sea.chart");
    m_folder.writeFile("home/cache/org.sea.chart/tiles", 300'000);
    m_folder.makeFolder("home/config/other");

    const json found = one(ownDocument()["apps"], "name", "Sea Chart");

    EXPECT_EQ(found["bundleID"], "org.sea.chart");
    EXPECT_EQ(found["path"], m_folder / "home/apps/org.sea.chart.AppImage");
    EXPECT_EQ(found["source"], "AppImage");
    EXPECT_FALSE(found.contains("removeCommand"));
    EXPECT_EQ(found["appSize"], m_folder.allocated("home/apps/org.sea.chart.AppImage"));
    ASSERT_EQ(found["leftovers"].size(), 1U);
    EXPECT_EQ(found["leftovers"][0]["path"], m_folder / "home/cache/org.sea.chart");
    EXPECT_EQ(found["leftovers"][0]["size"], m_folder.allocated("home/cache/org.sea.chart/tiles"));
    EXPECT_EQ(found["leftovers"][0]["location"], "Cache");
    EXPECT_EQ(found["leftovers"][0]["match"], "exact");
}

TEST_F(AppsCommandTest, JsonHasWhatDeletedAppsLeft)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/config/org.gone.tool/settings", 5'000);
    m_folder.setModified("home/config/org.gone.tool/settings", 1'700'000'000);
    m_folder.setModified("home/config/org.gone.tool", 1'700'000'000);
    m_folder.writeFile("home/config/org.recent.tool/settings", 5'000);

    const json groups = ownDocument()["orphanGroups"];

    ASSERT_EQ(groups.size(), 1U) << groups;
    EXPECT_EQ(groups[0]["id"], "org.gone.tool");
    EXPECT_EQ(groups[0]["items"], (json{{{"path", m_folder / "home/config/org.gone.tool"},
                                         {"size", m_folder.allocated("home/config/org.gone.tool/settings")},
                                         {"location", "Settings"},
                                         {"match", "orphan"},
                                         {"modified", 1'700'000'000}}}));
}

TEST_F(AppsCommandTest, TheTableNamesAppsAndWhatDeletedOnesLeft)
{
    REQUIRE_OWN_HOME();
    addApp("Sea Chart", "org.sea.chart");
    m_folder.writeFile("home/cache/net.gone.tool/x", 5'000);
    m_folder.setModified("home/cache/net.gone.tool/x", 1'700'000'000);
    m_folder.setModified("home/cache/net.gone.tool", 1'700'000'000);

    const ProgramResult result = ownProgram({"apps"}).run();

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.out.find("  Sea Chart"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find(", AppImage\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\nLeft behind by deleted apps, "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  net.gone.tool  1 item\n"), std::string::npos) << result.out;
}

TEST_F(AppsCommandTest, NothingIsTouched)
{
    REQUIRE_OWN_HOME();
    addApp("Sea Chart", "org.sea.chart");
    m_folder.writeFile("home/cache/org.sea.chart/x", 1'000);
    EXPECT_EQ(ownProgram({"apps"}).run().exitStatus, 0);
    EXPECT_TRUE(m_folder.has("home/apps/org.sea.chart.AppImage"));
    EXPECT_TRUE(m_folder.has("data/applications/org.sea.chart.desktop"));
    EXPECT_TRUE(m_folder.has("home/cache/org.sea.chart/x"));
}

} // namespace

} // namespace corvane
