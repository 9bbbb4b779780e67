// Generates the files for the duplicate search benchmark: bench_duplicates_generator SEED FOLDER
//
// About 3 GB in files of 1 to 60 MB, half of the bytes in each of the two cases that a search has to handle: groups of
// 2 to 5 files with the same contents, and pairs of equal size that differ in a single byte: at the start, in the
// middle or at the end. A few files have a unique size and need not be read at all.
//
// The same seed always generates the same files.

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include <fmt/format.h>

namespace {

constexpr std::int64_t wholeSize = 3'000'000'000;
constexpr std::int64_t leastSize = 1'000'000;
constexpr std::int64_t mostSize = 60'000'000;
constexpr std::int64_t blockSize = 4'096;

using Contents = std::vector<std::uint64_t>;

class FileSet {
public:
    FileSet(std::uint64_t seed, std::string folder) : m_engine(seed), m_folder(std::move(folder)) {}

    void make()
    {
        std::filesystem::create_directories(m_folder);
        while (m_written < wholeSize) {
            addGroup();
            addPair();
            write(contents()); // almost certainly the only one of its size
        }
        fmt::print("{} files, {} bytes\n", m_count, m_written);
    }

private:
    /// Contents of a whole number of blocks, in a size that no other group has, so that only intended groups share one.
    Contents contents()
    {
        std::int64_t size = 0;
        do {
            // Log-uniform, because small files are more frequent than large ones.
            const double share = static_cast<double>(m_engine() >> 11) * 0x1.0p-53;
            size = static_cast<std::int64_t>(static_cast<double>(leastSize) * std::pow(60.0, share));
            size = std::clamp(size, leastSize, mostSize) / blockSize * blockSize + blockSize;
        } while (std::ranges::find(m_sizes, size) != m_sizes.end());
        m_sizes.push_back(size);
        Contents words(static_cast<std::size_t>(size) / sizeof(std::uint64_t));
        std::ranges::generate(words, m_engine);
        return words;
    }

    void addGroup()
    {
        const Contents same = contents();
        const std::uint64_t copies = 2 + m_engine() % 4;
        for (std::uint64_t i = 0; i < copies; ++i)
            write(same);
    }

    void addPair()
    {
        Contents words = contents();
        write(words);
        const std::size_t places[] = {0, words.size() / 2, words.size() - 1};
        words[places[m_engine() % 3]] ^= 1;
        write(words);
    }

    void write(const Contents &words)
    {
        const std::string path = fmt::format("{}/file {:04}", m_folder, m_count++);
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        if (file < 0)
            throw std::system_error(errno, std::generic_category(), path);
        std::span<const std::byte> rest = std::as_bytes(std::span(words));
        while (!rest.empty()) {
            const ssize_t count = ::write(file, rest.data(), rest.size());
            if (count < 0)
                throw std::system_error(errno, std::generic_category(), path);
            rest = rest.subspan(static_cast<std::size_t>(count));
            m_written += count;
        }
        ::close(file);
    }

    std::mt19937_64 m_engine;
    const std::string m_folder;
    std::vector<std::int64_t> m_sizes;
    std::int64_t m_written = 0;
    int m_count = 0;
};

} // namespace

int main(int argc, char **argv)
try {
    std::uint64_t seed = 0;
    if (argc != 3 || std::from_chars(argv[1], argv[1] + std::string_view(argv[1]).size(), seed).ec != std::errc()) {
        fmt::print(stderr, "usage: bench_duplicates_generator SEED FOLDER\n");
        return 2;
    }
    FileSet(seed, argv[2]).make();
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_duplicates_generator: {}\n", error.what());
    return EXIT_FAILURE;
}
