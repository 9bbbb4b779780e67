// One scan with its summary, as the window runs it: bench_scan FOLDER prints the time of each, and the memory of the
// finished tree and its path index per folder in the tree.

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <malloc.h>

#include <fmt/format.h>

#include "cleanup/dev_junk_rule.h"
#include "core/scan_summary.h"
#include "core/scanner.h"
#include "support.h"

namespace {

/// Bytes allocated by malloc, including its overhead.
std::int64_t heapInUse()
{
    const struct mallinfo2 facts = ::mallinfo2();
    return static_cast<std::int64_t>(facts.uordblks + facts.hblkhd);
}

double seconds(std::chrono::steady_clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

struct Counts {
    std::int64_t folders = 0;
    std::int64_t files = 0;
};

Counts countNodes(const corvane::FileNode &root)
{
    Counts counts;
    std::vector<const corvane::FileNode *> pending{&root};
    while (!pending.empty()) {
        const corvane::FileNode *node = pending.back();
        pending.pop_back();
        ++(node->kind == corvane::FileNode::Kind::file ? counts.files : counts.folders);
        for (const auto &child : node->children)
            pending.push_back(child.get());
    }
    return counts;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        fmt::print(stderr, "usage: bench_scan FOLDER\n");
        return 2;
    }
    corvane::ScanProgress progress;
    const std::int64_t before = heapInUse();
    const auto start = std::chrono::steady_clock::now();
    const auto root = corvane::Scanner::scan(argv[1], progress);
    const auto scanned = std::chrono::steady_clock::now();
    const auto summary = corvane::ScanSummary::make(root, corvane::DevJunkRule::match);
    const auto end = std::chrono::steady_clock::now();
    const std::int64_t held = heapInUse() - before;

    const Counts counts = countNodes(*root);
    fmt::print("scan {:.3f} s, summary {:.3f} s; {} files, {} bytes\n", seconds(scanned - start),
               seconds(end - scanned), root->fileCount, root->size);
    fmt::print("{} folder nodes, {} file nodes, {} in the index\n", counts.folders, counts.files, summary.index.size());
    const double bytes = static_cast<double>(held) / static_cast<double>(counts.folders);
    fmt::print("bytes per folder node, path index included: {:.0f} ({})\n", bytes, goalAtMost(250, "", bytes));
    return EXIT_SUCCESS;
}
