#include "cleanup/dev_junk_rule.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/fake_file_system.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFolder;
using test::addSmallFiles;
using test::makeRoot;
using test::NodePtr;

/// Matches a folder with one file in a project that contains these markers.
std::optional<std::string_view> matchOf(const std::string &name, const std::vector<std::string> &markers,
                                        std::vector<std::string> *calls = nullptr, const char *project = "/p/app")
{
    FakeFileSystem files;
    for (const std::string &marker : markers)
        files.addFile(marker, 1);
    const NodePtr folder = addFolder(makeRoot(project), name);
    addSmallFiles(folder, 1, 1);
    const auto match = DevJunkRule::match(*folder, files);
    if (calls != nullptr)
        *calls = files.log()->lines();
    return match;
}

TEST(DevJunkRule, EveryFolderNeedsOneOfItsMarkers)
{
    struct Case {
        const char *name;
        const char *marker;
        const char *kind;
    };
    constexpr Case cases[] = {
        {"node_modules", "/p/app/package.json", "node_modules"},
        {"build", "/p/app/build.gradle", "Gradle build output"},
        {"build", "/p/app/build.gradle.kts", "Gradle build output"},
        {".gradle", "/p/app/settings.gradle", "Gradle project cache"},
        {".gradle", "/p/app/settings.gradle.kts", "Gradle project cache"},
        {".gradle", "/p/app/build.gradle", "Gradle project cache"},
        {".gradle", "/p/app/build.gradle.kts", "Gradle project cache"},
        {"target", "/p/app/Cargo.toml", "Rust target"},
        {".venv", "/p/app/.venv/pyvenv.cfg", "Python virtualenv"},
        {"venv", "/p/app/venv/pyvenv.cfg", "Python virtualenv"},
        {".next", "/p/app/package.json", "Next.js build"},
        {"Pods", "/p/app/Podfile", "CocoaPods"},
        {".dart_tool", "/p/app/pubspec.yaml", "Dart tool cache"},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(matchOf(each.name, {each.marker}), each.kind) << each.name << " " << each.marker;
        EXPECT_EQ(matchOf(each.name, {}), std::nullopt) << each.name;
    }
}

TEST(DevJunkRule, NearMissesOfEveryRowAreNotOffered)
{
    struct Case {
        const char *name;
        std::vector<std::string> markers;
    };
    const Case cases[] = {
        // The marker is inside the folder, or one level too high, but must be next to the folder.
        {"node_modules", {"/p/app/node_modules/package.json", "/p/package.json"}},
        {"build", {"/p/app/build/build.gradle", "/p/build.gradle.kts"}},
        {".gradle", {"/p/app/.gradle/settings.gradle", "/p/settings.gradle", "/p/build.gradle"}},
        {"target", {"/p/app/target/Cargo.toml", "/p/Cargo.toml"}},
        {".next", {"/p/app/.next/package.json", "/p/package.json"}},
        {"Pods", {"/p/app/Pods/Podfile", "/p/Podfile"}},
        {".dart_tool", {"/p/app/.dart_tool/pubspec.yaml", "/p/pubspec.yaml"}},
        // The reverse, and nested deeper.
        {"venv", {"/p/app/pyvenv.cfg", "/p/app/.venv/pyvenv.cfg", "/p/app/venv/lib/pyvenv.cfg"}},
        {".venv", {"/p/app/pyvenv.cfg", "/p/app/venv/pyvenv.cfg", "/p/app/.venv/lib/pyvenv.cfg"}},
        // The marker of a rule for another name.
        {"build", {"/p/app/settings.gradle", "/p/app/settings.gradle.kts", "/p/app/package.json"}},
        {"target", {"/p/app/package.json", "/p/app/build.gradle"}},
        {"Pods", {"/p/app/package.json", "/p/app/pubspec.yaml"}},
        // A marker with almost the right name.
        {"node_modules", {"/p/app/package.json5", "/p/app/package-lock.json", "/p/app/Package.json"}},
        {"build", {"/p/app/build.gradle.bak", "/p/app/build.gradle.KTS"}},
        {"target", {"/p/app/cargo.toml", "/p/app/Cargo.lock"}},
        {"Pods", {"/p/app/Podfile.lock", "/p/app/podfile"}},
        {".dart_tool", {"/p/app/pubspec.yml", "/p/app/pubspec.lock"}},
        {".next", {"/p/app/next.config.js"}},
    };
    for (const Case &each : cases)
        EXPECT_EQ(matchOf(each.name, each.markers), std::nullopt) << each.name << " " << each.markers.front();
}

TEST(DevJunkRule, FoldersOfAlmostAKnownNameAreNotOffered)
{
    const std::vector<std::string> markers{"/p/app/package.json", "/p/app/build.gradle", "/p/app/settings.gradle",
                                           "/p/app/Cargo.toml",   "/p/app/Podfile",      "/p/app/pubspec.yaml"};
    for (const std::string name : {"node_modules", "build", ".gradle", "target", ".next", "Pods", ".dart_tool"}) {
        ASSERT_TRUE(matchOf(name, markers)) << name;
        std::string upper = name;
        std::ranges::transform(upper, upper.begin(),
                               [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
        for (const std::string &other : {upper, name + " ", name + "2", " " + name, "." + name, name.substr(1)})
            EXPECT_EQ(matchOf(other, markers), std::nullopt) << other;
    }
    for (const std::string name : {"Venv", ".VENV", "env", "venv2", "..venv"})
        EXPECT_EQ(matchOf(name, {"/p/app/" + name + "/pyvenv.cfg"}), std::nullopt) << name;
}

TEST(DevJunkRule, NodeModulesWithoutAPackageFileBesideItIsNotOffered)
{
    EXPECT_EQ(matchOf("node_modules", {"/p/package.json", "/p/app/node_modules/package.json"}), std::nullopt);
}

TEST(DevJunkRule, BuildFolderWithoutAGradleFileBesideItIsNotOffered)
{
    EXPECT_EQ(matchOf("build", {"/p/app/settings.gradle", "/p/app/Makefile", "/p/app/build/build.gradle"}),
              std::nullopt);
}

TEST(DevJunkRule, MarkerOfAnotherToolDoesNotCount)
{
    EXPECT_EQ(matchOf("target", {"/p/app/package.json", "/p/app/build.gradle"}), std::nullopt);
    EXPECT_EQ(matchOf("Pods", {"/p/app/package.json"}), std::nullopt);
}

TEST(DevJunkRule, VirtualenvFileBesideTheFolderDoesNotCount)
{
    EXPECT_EQ(matchOf("venv", {"/p/app/pyvenv.cfg"}), std::nullopt);
    EXPECT_EQ(matchOf(".venv", {"/p/app/pyvenv.cfg"}), std::nullopt);
}

TEST(DevJunkRule, NameOfAnotherLetterCaseIsNotOffered)
{
    const std::vector<std::string> markers{"/p/app/package.json", "/p/app/Cargo.toml", "/p/app/Podfile"};
    for (const char *name : {"Node_modules", "NODE_MODULES", "Target", "pods"})
        EXPECT_EQ(matchOf(name, markers), std::nullopt) << name;
}

TEST(DevJunkRule, MarkerOfAnotherLetterCaseDoesNotCount)
{
    EXPECT_EQ(matchOf("target", {"/p/app/cargo.toml"}), std::nullopt);
}

TEST(DevJunkRule, FolderOfSizeZeroIsNotOffered)
{
    FakeFileSystem files;
    files.addFile("/p/app/package.json", 1);
    const NodePtr folder = addFolder(makeRoot("/p/app"), "node_modules");
    EXPECT_EQ(DevJunkRule::match(*folder, files), std::nullopt);
    EXPECT_TRUE(files.log()->lines().empty());
    addSmallFiles(folder, 1, 1);
    EXPECT_EQ(DevJunkRule::match(*folder, files), "node_modules");
}

TEST(DevJunkRule, FolderOfAnotherNameIsNotLookedAt)
{
    std::vector<std::string> calls;
    EXPECT_EQ(matchOf("src", {"/p/app/package.json", "/p/app/Cargo.toml"}, &calls), std::nullopt);
    EXPECT_TRUE(calls.empty());
}

TEST(DevJunkRule, MarkersAreTestedInTheirOrderAndAtMostFour)
{
    std::vector<std::string> calls;
    EXPECT_EQ(matchOf(".gradle", {}, &calls), std::nullopt);
    EXPECT_EQ(calls, (std::vector<std::string>{"exists /p/app/settings.gradle", "exists /p/app/settings.gradle.kts",
                                               "exists /p/app/build.gradle", "exists /p/app/build.gradle.kts"}));
}

TEST(DevJunkRule, FirstMarkerThatExistsIsTheLastTested)
{
    std::vector<std::string> calls;
    matchOf(".gradle", {"/p/app/settings.gradle.kts", "/p/app/build.gradle"}, &calls);
    EXPECT_EQ(calls, (std::vector<std::string>{"exists /p/app/settings.gradle", "exists /p/app/settings.gradle.kts"}));
}

TEST(DevJunkRule, ProjectInTheRootOfTheDiskIsRecognised)
{
    std::vector<std::string> calls;
    EXPECT_EQ(matchOf("target", {"/Cargo.toml"}, &calls, "/"), "Rust target");
    EXPECT_EQ(calls, std::vector<std::string>{"exists /Cargo.toml"});
    EXPECT_EQ(matchOf("venv", {"/venv/pyvenv.cfg"}, &calls, "/"), "Python virtualenv");
}

TEST(DevJunkRule, ScannedFolderItselfIsRecognised)
{
    FakeFileSystem files;
    files.addFile("/p/app/Cargo.toml", 1);
    const NodePtr root = makeRoot("/p/app/target");
    addSmallFiles(root, 1, 1);
    EXPECT_EQ(DevJunkRule::match(*root, files), "Rust target");
}

} // namespace
} // namespace corvane
