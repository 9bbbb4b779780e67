#include <string>

#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

class AppsCommandTest : public CliTest {
protected:
    void addApp(const std::string &path, const std::string &bundleID) const
    {
        m_folder.writeText(path + "/Contents/Info.plist",
                           "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + bundleID +
                               "</string></dict></plist>");
        m_folder.writeFile(path + "/Contents/MacOS/program", 200'000);
    }

    /// The application of that name.
    static json app(const json &result, const std::string &name)
    {
        for (const json &one : result["apps"]) {
            if (one["name"] == name)
                return one;
        }
        ADD_FAILURE() << name << " in " << result;
        return nullptr;
    }
};

TEST_F(AppsCommandTest, JsonHasTheAppsOfTheHomeWithTheirLeftovers)
{
    REQUIRE_OWN_HOME();
    addApp("home/Applications/Sea Chart.app", "org.sea.chart");
    m_folder.writeFile("home/Library/Caches/org.sea.chart/tiles", 300'000);
    m_folder.writeFile("home/Library/Logs/Sea Chart", 100'000);

    const json found = app(document({"apps"}), "Sea Chart");

    EXPECT_EQ(found["bundleID"], "org.sea.chart");
    EXPECT_EQ(found["path"], m_folder / "home/Applications/Sea Chart.app");
    EXPECT_EQ(found["appSize"], m_folder.allocated("home/Applications/Sea Chart.app/Contents/MacOS/program") +
                                    m_folder.allocated("home/Applications/Sea Chart.app/Contents/Info.plist"));
    ASSERT_EQ(found["leftovers"].size(), 2U);
    EXPECT_EQ(found["leftovers"][0]["path"], m_folder / "home/Library/Caches/org.sea.chart");
    EXPECT_EQ(found["leftovers"][0]["size"], m_folder.allocated("home/Library/Caches/org.sea.chart/tiles"));
    EXPECT_EQ(found["leftovers"][0]["match"], "exact");
    EXPECT_EQ(found["leftovers"][1]["match"], "name");
}

TEST_F(AppsCommandTest, JsonHasWhatDeletedAppsLeft)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/Library/Preferences/org.gone.tool.plist", 5'000);
    m_folder.setModified("home/Library/Preferences/org.gone.tool.plist", 1'700'000'000);
    m_folder.writeFile("home/Library/Preferences/org.recent.tool.plist", 5'000);

    const json groups = document({"apps"})["orphanGroups"];

    ASSERT_EQ(groups.size(), 1U) << groups;
    EXPECT_EQ(groups[0]["id"], "org.gone.tool");
    EXPECT_EQ(groups[0]["items"], (json{{{"path", m_folder / "home/Library/Preferences/org.gone.tool.plist"},
                                         {"size", m_folder.allocated("home/Library/Preferences/org.gone.tool.plist")},
                                         {"location", "Preferences"},
                                         {"match", "orphan"},
                                         {"modified", 1'700'000'000}}}));
}

TEST_F(AppsCommandTest, TheTableNamesAppsAndWhatDeletedOnesLeft)
{
    REQUIRE_OWN_HOME();
    addApp("home/Applications/Sea Chart.app", "org.sea.chart");
    m_folder.writeFile("home/Library/Caches/net.gone.tool", 5'000);
    m_folder.setModified("home/Library/Caches/net.gone.tool", 1'700'000'000);

    const ProgramResult result = run({"apps"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.out.find("  Sea Chart  app "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\nLeft behind by deleted apps, "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  net.gone.tool  1 item\n"), std::string::npos) << result.out;
}

TEST_F(AppsCommandTest, NothingIsTouched)
{
    REQUIRE_OWN_HOME();
    addApp("home/Applications/Sea Chart.app", "org.sea.chart");
    m_folder.writeFile("home/Library/Caches/org.sea.chart", 1'000);
    EXPECT_EQ(run({"apps"}).exitStatus, 0);
    EXPECT_TRUE(m_folder.has("home/Applications/Sea Chart.app/Contents/MacOS/program"));
    EXPECT_TRUE(m_folder.has("home/Library/Caches/org.sea.chart"));
}

} // namespace

} // namespace corvane
