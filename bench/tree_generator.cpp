// Generates the folders for the scan benchmark: bench_tree_generator wide|deep|uneven SEED FOLDER
//
// The work of a scan is one open and one listing per folder and one stat per file; the contents of files do not matter.
// Therefore the files are empty or sparse, and only the parameters that determine this work are realistic: ten files
// per folder, as in home folders full of source code, mail and caches; half of all folders without subfolders and a few
// with dozens; names of 5 to 30 bytes; sizes from zero to a few megabytes, with one file in a thousand large enough for
// its own node.
//
// "wide" spreads 40,000 folders over many folders at the top, which a scan can walk in parallel. "deep" puts the same
// number below a chain of single folders, so that nothing can be parallelised at the top, as when scanning a mail store
// or the dependencies of one project.
//
// The same seed always generates the same tree.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "support.h"

namespace {

constexpr std::size_t folderCount = 40'000;
constexpr std::size_t fileCount = 400'000;
constexpr std::size_t topFolders = 24;
constexpr int chainLength = 8;
constexpr int deepestLevel = 14; // below the top
constexpr int deepestUnevenLevel = 12;
constexpr double largestPart = 0.9; // share of the folders in the largest part of an uneven tree
constexpr std::int64_t largeFile = 1'000'000;

// The distributions of standard libraries differ; this class gives the same numbers with all of them.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_engine(seed) {}

    std::size_t below(std::size_t count) { return static_cast<std::size_t>(m_engine() % count); }
    double unit() { return static_cast<double>(m_engine() >> 11) * 0x1.0p-53; }

private:
    std::mt19937_64 m_engine;
};

std::string word(Dice &dice, std::size_t shortest, std::size_t longest)
{
    static constexpr std::string_view letters = "eeeetaaoinshrdlucmfwypvbgkjqxz-_0123456789";
    std::string text(shortest + dice.below(longest - shortest + 1), '\0');
    std::ranges::generate(text, [&] { return letters[dice.below(letters.size())]; });
    return text;
}

struct Folder {
    std::string path;
    int level;
};

std::vector<Folder> makeFolders(const std::string &top, bool isUneven, Dice &dice)
{
    const int deepest = isUneven ? deepestUnevenLevel : deepestLevel;
    std::vector<Folder> folders;
    std::vector<std::size_t> largest; // indexes of the folders in the largest part of an uneven tree
    folders.reserve(folderCount);
    while (folders.size() < folderCount) {
        // Choose the parent among all folders so far, because files and folders accumulate where some exist already;
        // the index in the name keeps it unique.
        const bool isTop = folders.size() < topFolders;
        const bool isInLargest = isUneven && (folders.empty() || (!isTop && dice.unit() < largestPart));
        const std::size_t chosen = isTop         ? 0
                                   : isInLargest ? largest[dice.below(largest.size())]
                                                 : dice.below(folders.size());
        const Folder *parent = isTop ? nullptr : &folders[chosen];
        if (parent && parent->level == deepest)
            continue;
        std::string path = fmt::format("{}/{}{}", parent ? parent->path : top, word(dice, 3, 12), folders.size());
        check(::mkdir(path.c_str(), 0755) == 0, path);
        if (isInLargest)
            largest.push_back(folders.size());
        folders.push_back({std::move(path), parent ? parent->level + 1 : 1});
    }
    return folders;
}

/// The allocated size, and the length beyond that.
struct Size {
    std::int64_t allocated;
    std::int64_t length;
};

Size fileSize(Dice &dice)
{
    const std::size_t kind = dice.below(1'000);
    if (kind == 0)
        return {largeFile + static_cast<std::int64_t>(dice.below(1'000'000)), 0};
    const auto length = static_cast<std::int64_t>(std::exp(4 + 6 * dice.unit())); // 55 bytes to 22 kB
    if (kind < 500)
        return {length, length};
    return {0, length};
}

/// The number of files in each folder; some have far more than others.
std::vector<std::size_t> shareOutFiles(std::size_t folders, Dice &dice)
{
    std::vector<std::size_t> counts(folders);
    for (std::size_t file = 0; file < fileCount; ++file)
        ++counts[static_cast<std::size_t>(std::pow(dice.unit(), 1.5) * static_cast<double>(folders))];
    return counts;
}

void makeFile(const std::string &path, Size size)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    check(file >= 0, path);
    check(::ftruncate(file, size.length) == 0, path);
#ifdef __linux__
    if (size.allocated > 0)
        checkCode(::posix_fallocate(file, 0, size.allocated), path);
#else
    const std::string bytes(static_cast<std::size_t>(size.allocated), 'x');
    check(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), path);
#endif
    ::close(file);
}

void makeFiles(const std::vector<Folder> &folders, Dice &dice)
{
    static constexpr std::array<std::string_view, 12> extensions{"js", "json", "txt", "h",    "cpp", "png",
                                                                 "md", "py",   "o",   "html", "xml", "dat"};
    const std::vector<std::size_t> counts = shareOutFiles(folders.size(), dice);
    // Folder by folder, as when unpacking programs or receiving mail, so that the files of a folder are close together
    // on the disk and in the kernel's caches.
    for (std::size_t folder = 0; folder < folders.size(); ++folder) {
        for (std::size_t i = 0; i < counts[folder]; ++i) {
            const std::string name =
                fmt::format("{}{}.{}", word(dice, 2, 20), i, extensions[dice.below(extensions.size())]);
            makeFile(folders[folder].path + "/" + name, fileSize(dice));
        }
    }
}

} // namespace

int main(int argc, char **argv)
try {
    const std::string_view shape = argc == 4 ? argv[1] : "";
    std::uint64_t seed = 0;
    const std::string_view seedText = argc == 4 ? argv[2] : "";
    const auto [end, code] = std::from_chars(seedText.data(), seedText.data() + seedText.size(), seed);
    if ((shape != "wide" && shape != "deep" && shape != "uneven") || code != std::errc{} ||
        end != seedText.data() + seedText.size()) {
        fmt::print(stderr, "usage: bench_tree_generator wide|deep|uneven SEED FOLDER\n");
        return 2;
    }
    std::string top = argv[3];
    check(::mkdir(top.c_str(), 0755) == 0, top);
    for (int i = 0; shape == "deep" && i < chainLength; ++i) {
        top += fmt::format("/level{}", i + 1);
        check(::mkdir(top.c_str(), 0755) == 0, top);
    }
    Dice dice(seed);
    makeFiles(makeFolders(top, shape == "uneven", dice), dice);
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_tree_generator: {}\n", error.what());
    return EXIT_FAILURE;
}
