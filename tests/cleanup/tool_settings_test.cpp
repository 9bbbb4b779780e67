#include <cstdlib>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "cleanup/cleanup_catalog.h"
#include "cleanup/place_rule.h"
#include "platform/linux/linux_places.h"
#include "platform/linux/place_settings.h"
#include "support/temporary_folder.h"

namespace corvane {

// The test framework finds it in the type's own namespace.
static void PrintTo(const PlaceSetting &setting, std::ostream *out) // NOLINT(readability-identifier-naming)
{
    *out << setting.place;
}

namespace {

/// A temporary home folder in which each variable and configuration file that sets a tool's folder can point to any
/// folder.
class ToolSettingsTest : public testing::TestWithParam<PlaceSetting> {
protected:
    ToolSettingsTest()
    {
        for (const char *name : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
            change(name, nullptr);
        for (const PlaceSetting &setting : placeSettings) {
            if (setting.variable != nullptr)
                change(setting.variable, nullptr);
        }
        change("HOME", home.c_str());
        for (const char *name : {"Documents/thesis", ".ssh", ".local/bin", ".local/state", ".thunderbird", ".var/app",
                                 "snap", "elsewhere"})
            folder.makeFolder("me/" + std::string(name));
    }
    ~ToolSettingsTest() override
    {
        for (const auto &[name, value] : m_before)
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
    }

    /// Makes the setting name this folder, or a folder whose remaining path is a link to it.
    void lead(const PlaceSetting &setting, const std::string &target)
    {
        std::string named = target;
        if (!setting.rest.empty()) {
            named = folder / ("me/trap" + std::to_string(++m_traps));
            folder.link(("me/trap" + std::to_string(m_traps) + "/").append(setting.rest), target);
        }
        if (setting.variable != nullptr) {
            change(setting.variable, named.c_str());
            return;
        }
        const std::string base = setting.base == PlaceBase::configFolder ? "me/.config/" : "me/";
        folder.writeText(base + std::string(setting.file), textOf(setting, named));
    }

    static std::string textOf(const PlaceSetting &setting, const std::string &named)
    {
        const std::string key(setting.key);
        switch (setting.notation) {
        case SettingNotation::none:
            break;
        case SettingNotation::keyAndValue:
            return "[global]\n" + key + " = \"" + named + "\"\n";
        case SettingNotation::keyAndQuoted:
            return "# comment\n" + key + " \"" + named + "\"\n";
        case SettingNotation::yamlValue:
            return "other:\n  " + key + ": /wrong\n" + key + ":\n  # comment\n  - " + named + " # comment\n  - /x\n";
        case SettingNotation::xmlElement:
            return "<settings><" + key + ">" + named + "</" + key + "></settings>";
        }
        return {};
    }

    const TemporaryFolder folder;
    const std::string home = folder / "me";

private:
    void change(const std::string &name, const char *value)
    {
        const char *const before = std::getenv(name.c_str());
        m_before.try_emplace(name, before != nullptr ? std::optional<std::string>(before) : std::nullopt);
        value != nullptr ? ::setenv(name.c_str(), value, 1) : ::unsetenv(name.c_str());
    }

    std::map<std::string, std::optional<std::string>> m_before;
    int m_traps = 0;
};

TEST_P(ToolSettingsTest, LeadsToAFolderOfItsOwnAndToNothingElse)
{
    const PlaceSetting &setting = GetParam();
    FileSystem &files = systemHost().files;
    lead(setting, home + "/elsewhere");
    EXPECT_EQ(files.realPath(PlaceRule(files).placeFor(setting.place).value_or("/none")).value_or("nothing"),
              home + "/elsewhere");
    for (const std::string &target :
         {std::string("/"), folder.path(), home, home + "/Documents", home + "/Documents/thesis", home + "/.ssh",
          home + "/.local/bin", home + "/.local/state", home + "/.thunderbird", home + "/.var", home + "/.var/app",
          home + "/snap", std::string("/etc")}) {
        SCOPED_TRACE(target);
        lead(setting, target);
        const std::optional<OwnPlace> own = linuxPlaceFor(setting.place, home);
        ASSERT_TRUE(own);
        ASSERT_EQ(files.realPath(own->path).value_or("nothing"), target) << "the setting is not followed";
        EXPECT_EQ(PlaceRule(files).placeFor(setting.place), std::nullopt);
    }
}

std::string nameOf(const testing::TestParamInfo<PlaceSetting> &info)
{
    std::string name = std::to_string(info.index) + "_";
    name += info.param.variable != nullptr ? info.param.variable : std::string(info.param.file) += info.param.key;
    std::erase_if(name, [](char each) { return std::isalnum(static_cast<unsigned char>(each)) == 0 && each != '_'; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(EverySetting, ToolSettingsTest, testing::ValuesIn(placeSettings), nameOf);

TEST(ToolSettings, EachIsForAPlaceOfARow)
{
    std::set<std::string_view> places;
    const auto note = [&](const CleanupDefinition &row) {
        places.insert(row.relativePath);
        places.insert(row.morePaths.begin(), row.morePaths.end());
    };
    for (const CleanupDefinition &row : CleanupCatalog::definitions)
        note(row);
    for (const CleanupDefinition &row : cleanupTableOf(SystemKind::linuxSystem).rows)
        note(row);
    for (const PlaceSetting &setting : placeSettings)
        EXPECT_TRUE(places.contains(setting.place)) << setting.place;
}

} // namespace
} // namespace corvane
