// Times the filters and sort orders of a table of files: bench_lists [ROUNDS]
//
// 500,000 files in 20,000 folders, created in memory, all large enough for every filter except the one by name: far
// more than the lists of a home folder contain. Names share prefixes, like those of cameras and downloads, and some are
// not ASCII, so that neither sorting nor searching is an easy case. Each change is timed until the table has its new
// rows; after that the window only draws the visible ones.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "lists/listed_files.h"
#include "support.h"

namespace {

using corvane::FileColumn;
using corvane::FileList;
using corvane::FileNode;
using corvane::FileRows;
using corvane::ListedFiles;
using corvane::Time;
using Clock = std::chrono::steady_clock;

constexpr int folders = 20'000;
constexpr int filesInAFolder = 25;
constexpr double filterLimit = 50; // milliseconds
constexpr double sortLimit = 150;

FileList makeFiles(const std::shared_ptr<FileNode> &root, std::vector<std::shared_ptr<FileNode>> &parents)
{
    constexpr std::string_view starts[] = {"IMG_", "Bildschirmfoto ", "Écran ", "backup-", "Interview "};
    constexpr std::string_view ends[] = {".mov", ".zip", ".JPG", ".pdf", ".dmg", ".wav", "", ".sqlite"};
    std::mt19937_64 random(11);
    FileList files;
    files.reserve(static_cast<std::size_t>(folders) * filesInAFolder);
    for (int i = 0; i < folders; ++i) {
        parents.push_back(std::make_shared<FileNode>(root->pathForChildren(), fmt::format("Projects {}", i),
                                                     FileNode::Kind::directory, root));
        for (int k = 0; k < filesInAFolder; ++k) {
            const std::string name = fmt::format("{}{:06}{}", starts[random() % std::size(starts)],
                                                 random() % 1'000'000, ends[random() % std::size(ends)]);
            auto file = std::make_shared<FileNode>(parents.back()->pathForChildren(), name, FileNode::Kind::file,
                                                   parents.back());
            file->size = static_cast<std::int64_t>(100'000'000 + random() % 4'000'000'000);
            file->modified = Time(std::chrono::seconds(random() % 1'700'000'000));
            files.push_back(std::move(file));
        }
    }
    std::ranges::sort(files, std::ranges::greater{}, [](const auto &file) { return file->size; });
    return files;
}

/// Prints the median and the maximum of `rounds` runs beside the goal.
void time(std::string_view what, int rounds, double limit, const std::function<FileRows()> &work)
{
    std::vector<double> times;
    std::size_t count = 0;
    for (int i = 0; i < rounds; ++i) {
        const Clock::time_point start = Clock::now();
        const FileRows rows = work();
        times.push_back(milliseconds(Clock::now() - start));
        count = rows.files.size();
    }
    fmt::print("  {:<34} {:>7} rows  median {:>7.2f} ms, worst {:>7.2f} ms ({})\n", what, count, median(times),
               std::ranges::max(times), goalAtMost(limit, "ms", median(times)));
}

} // namespace

int main(int argc, char **argv)
{
    const int rounds = roundsFrom(argc, argv, 5);
    const auto root = std::make_shared<FileNode>("/home/studio", FileNode::Kind::directory);
    std::vector<std::shared_ptr<FileNode>> parents;
    const FileList files = makeFiles(root, parents);

    Clock::time_point start = Clock::now();
    ListedFiles listed(files, corvane::Casing::usual, "/home/studio");
    const double taking = milliseconds(Clock::now() - start);
    start = Clock::now();
    listed.prepare();
    fmt::print("  once for a tree: {:.0f} ms on the main thread, {:.0f} ms in the background\n", taking,
               milliseconds(Clock::now() - start));

    const Time now(std::chrono::seconds(1'700'000'000));
    time("filter: all", rounds, filterLimit, [&] { return listed.large({}, {}); });
    time("filter: from 1 GB", rounds, filterLimit,
         [&] { return listed.large({.minSize = 1'000'000'000, .type = {}, .query = {}}, {}); });
    time("filter: videos", rounds, filterLimit,
         [&] { return listed.large({.type = corvane::FileType::video, .query = {}}, {}); });
    time("filter: old", rounds, filterLimit, [&] { return listed.old({}, now, {}); });
    for (const std::string_view query : {"i", "mg_0", "ÉCRAN", "no such name"})
        time(fmt::format("filter: name holds \"{}\"", query), rounds, filterLimit,
             [&] { return listed.large({.type = {}, .query = std::string(query)}, {}); });
    constexpr std::string_view columns[] = {"name", "size", "kind", "modified", "location"};
    for (std::size_t i = 0; i < std::size(columns); ++i) {
        for (const bool descending : {false, true})
            time(fmt::format("sort: {}, {}", columns[i], descending ? "descending" : "ascending"), rounds, sortLimit,
                 [&] {
                     return listed.large({}, {static_cast<FileColumn>(i), descending});
                 });
    }
    return EXIT_SUCCESS;
}
