#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "support/mac_words.h"

namespace corvane {
namespace {

using testing::ElementsAre;

/// A file that may use macOS terms in its texts, and why they do not appear on Linux.
struct Exemption {
    std::string_view file; ///< or folder, relative to src/
    std::string_view why;
};

constexpr Exemption exemptions[] = {
    {"platform/macos/", "built on a Mac only"},
    {"core/words/system_words.cpp", "the table of both systems; SystemWords tests that of a Linux system"},
    {"core/systems/mac_disk.h", "a Mac's table"},
    {"core/systems/mac_places.h", "a protected folder"},
    {"core/systems/system_table.cpp", "the table of both systems; a Linux system's disk has another name"},
    {"core/file_node.h", "what \"/\" is called in a tree that was made without a disk's name; a scan gives it one"},
    {"disk/apfs_container_info.cpp", "the path of a tool"},
    {"disk/snapshot_listing.cpp", "the path of a tool"},
    {"disk/disk_accountant.cpp", "a Mac's name for its disk, and purgeable space"},
    {"cleanup/cleanup_catalog.cpp", "the rows of every system; a Linux system shows those of a Mac where they exist"},
    {"core/path_guard.cpp", "a line of the system's log"},
    {"platform/finder_script.h", "a script that a Mac runs"},
    {"shell/app_info.cpp", "the name of a field that is sent"},
    {"shell/ui/services/onboarding_presenter.cpp", "the path inside a bundle"},
};

/// The string literals in the source, with adjacent ones joined. Skips comments.
std::vector<std::string> textsIn(std::string_view source, bool isQml)
{
    std::vector<std::string> texts;
    bool followsText = false;
    for (std::size_t i = 0; i < source.size(); ++i) {
        const char c = source[i];
        if (source.substr(i, 2) == "//") {
            i = std::min(source.find('\n', i), source.size());
        } else if (source.substr(i, 2) == "/*") {
            i = std::min(source.find("*/", i), source.size()) + 1;
        } else if (!isQml && source.substr(i, 2) == "R\"") {
            const std::size_t open = source.find('(', i);
            const std::string end = ")" + std::string(source.substr(i + 2, open - i - 2)) + "\"";
            const std::size_t close = std::min(source.find(end, open), source.size());
            texts.emplace_back(source.substr(open + 1, close - open - 1));
            i = close + end.size() - 1;
            followsText = false;
        } else if (c == '"' || c == '\'' || (isQml && c == '`')) {
            // C++ numbers use these characters as digit separators.
            if (!isQml && c == '\'' && i > 0 && std::isalnum(static_cast<unsigned char>(source[i - 1])) != 0)
                continue;
            std::string text;
            for (++i; i < source.size() && source[i] != c; ++i) {
                if (source[i] == '\\')
                    ++i;
                text += source.substr(i, 1);
            }
            if (followsText)
                texts.back() += text;
            else
                texts.push_back(std::move(text));
            followsText = c == '"';
        } else if (std::isspace(static_cast<unsigned char>(c)) == 0) {
            followsText = false;
        }
    }
    return texts;
}

std::string contentOf(const std::filesystem::path &file)
{
    std::ifstream stream(file);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

TEST(SourceWords, TextsAreFoundAndCommentsAreNot)
{
    EXPECT_THAT(
        textsIn("f(\"one\", 'x', 1'000'000, u\"tw\\\"o\"); // \"Finder\"\n /* \"Mac\" */ g(\"Time \"\n  \"Machine\")",
                false),
        ElementsAre("one", "x", "tw\"o", "Time Machine"));
    EXPECT_THAT(textsIn("a = R\"x(say \"Mac\")x\" + \"b\"", false), ElementsAre("say \"Mac\"", "b"));
    EXPECT_THAT(textsIn("text: qsTr('Mac') + `macOS`", true), ElementsAre("Mac", "macOS"));
}

TEST(SourceWords, OnlyWhatALinuxSystemNeverShowsSpeaksOfAMac)
{
    const std::filesystem::path sources = CORVANE_SOURCE_FOLDER;
    std::vector<std::string_view> used;
    int files = 0;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(sources)) {
        const std::string extension = entry.path().extension();
        if (extension != ".cpp" && extension != ".h" && extension != ".mm" && extension != ".qml")
            continue;
        ++files;
        const std::string file = entry.path().lexically_relative(sources);
        const auto exemption = std::ranges::find_if(
            exemptions, [&](const Exemption &one) { return std::string_view(file).starts_with(one.file); });
        for (const std::string &text : textsIn(contentOf(entry.path()), extension == ".qml")) {
            const std::string word = macWordIn(text);
            if (word.empty())
                continue;
            if (exemption == std::end(exemptions))
                ADD_FAILURE() << file << " says \"" << word << "\": " << text;
            else
                used.push_back(exemption->file);
        }
    }
    EXPECT_GT(files, 400) << sources;
    for (const Exemption &exemption : exemptions) {
        EXPECT_NE(std::ranges::find(used, exemption.file), used.end())
            << exemption.file << " needs no exemption any more: " << exemption.why;
    }
}

} // namespace
} // namespace corvane
