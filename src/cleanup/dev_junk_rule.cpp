#include "cleanup/dev_junk_rule.h"

#include <algorithm>
#include <span>
#include <string>

namespace corvane {
namespace {

enum class MarkerPlace { beside, inside };

struct Rule {
    std::string_view folderName;
    MarkerPlace place;
    std::span<const std::string_view> markers; ///< the first that exists decides
    std::string_view kind;
};

constexpr std::string_view nodePackage[] = {"package.json"};
constexpr std::string_view gradleBuild[] = {"build.gradle", "build.gradle.kts"};
constexpr std::string_view gradleProject[] = {"settings.gradle", "settings.gradle.kts", "build.gradle",
                                              "build.gradle.kts"};
constexpr std::string_view cargoManifest[] = {"Cargo.toml"};
constexpr std::string_view virtualenvConfig[] = {"pyvenv.cfg"};
constexpr std::string_view podfile[] = {"Podfile"};
constexpr std::string_view dartPackage[] = {"pubspec.yaml"};

constexpr Rule rules[] = {
    {"node_modules", MarkerPlace::beside, nodePackage, "node_modules"},
    {"build", MarkerPlace::beside, gradleBuild, "Gradle build output"},
    {".gradle", MarkerPlace::beside, gradleProject, "Gradle project cache"},
    {"target", MarkerPlace::beside, cargoManifest, "Rust target"},
    {".venv", MarkerPlace::inside, virtualenvConfig, "Python virtualenv"},
    {"venv", MarkerPlace::inside, virtualenvConfig, "Python virtualenv"},
    {".next", MarkerPlace::beside, nodePackage, "Next.js build"},
    {"Pods", MarkerPlace::beside, podfile, "CocoaPods"},
    {".dart_tool", MarkerPlace::beside, dartPackage, "Dart tool cache"},
};

} // namespace

std::optional<std::string_view> DevJunkRule::match(const FileNode &node, FileSystem &files)
{
    if (node.size < 1)
        return std::nullopt;
    const auto rule = std::ranges::find(rules, std::string_view(node.name), &Rule::folderName);
    if (rule == std::ranges::end(rules))
        return std::nullopt;

    std::string folder = rule->place == MarkerPlace::inside ? node.path() : node.folderPath();
    if (!folder.ends_with('/'))
        folder += '/';
    for (const std::string_view marker : rule->markers) {
        if (files.exists(folder + std::string(marker)))
            return rule->kind;
    }
    return std::nullopt;
}

} // namespace corvane
