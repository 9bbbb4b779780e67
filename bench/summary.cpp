// Measures what recognising build folders adds to the summary of a scan: bench_summary [ROUNDS]
//
// The tree, created in memory, has 1,000,000 files in 100,000 folders of 1000 projects, as on a developer's disk: every
// folder's name is checked, and in each project one or two have a name that requires disk access. For that, the
// projects' own folders and marker files really exist, in a temporary folder. Every file is large enough for its own
// node. The cost of the recognition is also printed for a tree whose files are all counted in their folders, for which
// the summary itself has next to nothing to do.
//
// Folders of size 0 are never recognised or examined. Therefore the summary of the tree as it is and that of the same
// tree with its folders' sizes set to 0 differ by the recognition alone; they alternate, so that other load on the
// machine affects both alike.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "cleanup/dev_junk_rule.h"
#include "core/scan_summary.h"
#include "support.h"

namespace {

using corvane::FileNode;
using corvane::ScanSummary;
using NodePointer = std::shared_ptr<FileNode>;

constexpr int projects = 1'000;
constexpr int foldersInAProject = 100;
constexpr int filesInAFolder = 10;
constexpr std::int64_t fileSize = 1'200'000;
constexpr double limit = 2; // percent of the summary without recognition

/// A temporary folder with the projects' folders and the marker files that identify a build folder.
class Projects {
public:
    Projects()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "corvane-bench-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr)
            std::abort();
        m_path = pattern;
        for (int i = 0; i < projects; ++i) {
            const std::filesystem::path project = m_path / fmt::format("project{}", i);
            std::filesystem::create_directory(project);
            if (i % 4 != 3)
                std::ofstream(project / "package.json") << "{}";
        }
    }
    Projects(const Projects &) = delete;
    Projects &operator=(const Projects &) = delete;
    ~Projects() { std::filesystem::remove_all(m_path); }

    [[nodiscard]] std::string path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

NodePointer add(const NodePointer &folder, std::string name, FileNode::Kind kind, std::int64_t size)
{
    auto node = std::make_shared<FileNode>(folder->pathForChildren(), std::move(name), kind, folder);
    node->size = size;
    folder->children.push_back(node);
    return node;
}

enum class Files { nodes, folded };

NodePointer makeTree(const std::string &path, Files files)
{
    constexpr std::int64_t folderSize = filesInAFolder * fileSize;
    auto root = std::make_shared<FileNode>(path, FileNode::Kind::directory);
    root->size = folderSize * foldersInAProject * projects;
    for (int i = 0; i < projects; ++i) {
        const NodePointer project =
            add(root, fmt::format("project{}", i), FileNode::Kind::directory, folderSize * foldersInAProject);
        for (int k = 0; k < foldersInAProject; ++k) {
            std::string name = fmt::format("folder{}", k);
            if (k == 0)
                name = "node_modules";
            else if (k == 1 && i % 2 == 0)
                name = "build"; // of a tool that is not Gradle
            const NodePointer folder = add(project, std::move(name), FileNode::Kind::directory, folderSize);
            for (int file = 0; files == Files::nodes && file < filesInAFolder; ++file)
                add(folder, fmt::format("film{}.mov", file), FileNode::Kind::file, fileSize);
        }
    }
    return root;
}

void collectFolders(const NodePointer &folder, std::vector<NodePointer> &into)
{
    into.push_back(folder);
    for (const NodePointer &child : folder->children) {
        if (child->kind == FileNode::Kind::directory)
            collectFolders(child, into);
    }
}

/// The tree, with two sets of sizes for its folders.
class Tree {
public:
    explicit Tree(NodePointer root) : m_root(std::move(root))
    {
        collectFolders(m_root, m_folders);
        for (const NodePointer &folder : m_folders)
            m_sizes.push_back(folder->size);
    }

    enum class Sizes { kept, takenAway };

    /// The time of one summary in milliseconds.
    double summarise(Sizes sizes)
    {
        for (std::size_t i = 0; i < m_folders.size(); ++i)
            m_folders[i]->size = sizes == Sizes::kept ? m_sizes[i] : 0;
        const auto start = std::chrono::steady_clock::now();
        const ScanSummary summary = ScanSummary::make(m_root, corvane::DevJunkRule::match, corvane::systemHost().files);
        const double taken = milliseconds(std::chrono::steady_clock::now() - start);
        if ((sizes == Sizes::kept) == summary.devJunk.empty())
            std::abort();
        m_recognised = std::max(m_recognised, summary.devJunk.size());
        return taken;
    }

    [[nodiscard]] std::size_t folders() const { return m_folders.size(); }
    [[nodiscard]] std::size_t recognised() const { return m_recognised; }

private:
    const NodePointer m_root;
    std::vector<NodePointer> m_folders;
    std::vector<std::int64_t> m_sizes;
    std::size_t m_recognised = 0;
};

/// Returns what the recognition adds, in percent.
double compare(std::string_view title, Tree tree, int rounds)
{
    std::vector<double> with;
    std::vector<double> without;
    std::vector<double> added;
    for (int round = -1; round < rounds; ++round) {
        // Alternate which one goes first.
        const Tree::Sizes first = round % 2 == 0 ? Tree::Sizes::kept : Tree::Sizes::takenAway;
        const Tree::Sizes second = round % 2 == 0 ? Tree::Sizes::takenAway : Tree::Sizes::kept;
        double whole = tree.summarise(first);
        double bare = tree.summarise(second);
        if (first == Tree::Sizes::takenAway)
            std::swap(whole, bare);
        if (round < 0)
            continue;
        with.push_back(whole);
        without.push_back(bare);
        added.push_back(100 * (whole / bare - 1));
    }
    const double percent = median(added);
    fmt::print("  {}: {} folders, {} of them recognised\n", title, tree.folders(), tree.recognised());
    fmt::print("    summary with the recognition {:.1f} ms, without {:.1f} ms (medians of {} rounds), {:+.2f}%\n",
               median(with), median(without), rounds, percent);
    return percent;
}

} // namespace

int main(int argc, char **argv)
{
    const int rounds = roundsFrom(argc, argv, 15);
    const Projects disk;
    const double added = compare("1,000,000 files of a node each", Tree(makeTree(disk.path(), Files::nodes)), rounds);
    fmt::print("    recognition adds {:+.2f}%, {}\n", added, goalAtMost(limit, "%", added));
    compare("1,000,000 files counted in their folders", Tree(makeTree(disk.path(), Files::folded)), rounds);
    return EXIT_SUCCESS;
}
