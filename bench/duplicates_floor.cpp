// The lower bound for finding duplicates by fingerprint: reads and hashes exactly the bytes that the comparison needs
// (the ends of files of equal size, and the whole of those with equal ends), on one thread, with no other work.
// bench_duplicates_floor FOLDER prints the number of bytes.

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <fmt/format.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t chunkSize = 1024UL * 1024;
constexpr off_t endSize = 64 * 1024;

using Fingerprint = std::array<unsigned char, 32>;

std::int64_t hashed = 0;

class Hasher {
public:
    ~Hasher() { EVP_MD_CTX_free(m_context); }

    void start() { EVP_DigestInit_ex(m_context, EVP_sha256(), nullptr); }

    std::size_t add(int file, off_t offset, std::size_t length)
    {
        const ssize_t count = ::pread(file, m_chunk.data(), length, offset);
        if (count < 0)
            throw std::system_error(errno, std::generic_category(), "read");
        EVP_DigestUpdate(m_context, m_chunk.data(), static_cast<std::size_t>(count));
        hashed += count;
        return static_cast<std::size_t>(count);
    }

    Fingerprint finish()
    {
        Fingerprint result{};
        EVP_DigestFinal_ex(m_context, result.data(), nullptr);
        return result;
    }

private:
    EVP_MD_CTX *m_context = EVP_MD_CTX_new();
    std::vector<unsigned char> m_chunk = std::vector<unsigned char>(chunkSize);
};

class File {
public:
    explicit File(const std::string &path) : number(::open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
        if (number < 0)
            throw std::system_error(errno, std::generic_category(), path);
    }
    File(const File &) = delete;
    File &operator=(const File &) = delete;
    ~File() { ::close(number); }
    const int number;
};

using Paths = std::vector<std::string>;

} // namespace

int main(int argc, char **argv)
try {
    if (argc != 2) {
        fmt::print(stderr, "usage: bench_duplicates_floor FOLDER\n");
        return 2;
    }
    std::map<off_t, Paths> bySize;
    for (const auto &each : std::filesystem::directory_iterator(argv[1])) {
        struct stat facts {};
        if (::stat(each.path().c_str(), &facts) == 0)
            bySize[facts.st_size].push_back(each.path());
    }
    Hasher hasher;
    std::size_t groups = 0;
    for (const auto &[size, paths] : bySize) {
        if (paths.size() < 2)
            continue;
        std::map<Fingerprint, Paths> alike;
        for (const std::string &path : paths) {
            const File file(path);
            hasher.start();
            hasher.add(file.number, 0, endSize);
            if (size > 2 * endSize)
                hasher.add(file.number, size - endSize, endSize);
            alike[hasher.finish()].push_back(path);
        }
        for (const auto &[ends, tied] : alike) {
            if (tied.size() < 2)
                continue;
            std::map<Fingerprint, int> same;
            for (const std::string &path : tied) {
                const File file(path);
                hasher.start();
                for (off_t offset = 0;;) {
                    const std::size_t count = hasher.add(file.number, offset, chunkSize);
                    if (count == 0)
                        break;
                    offset += static_cast<off_t>(count);
                }
                ++same[hasher.finish()];
            }
            groups +=
                static_cast<std::size_t>(std::ranges::count_if(same, [](const auto &each) { return each.second > 1; }));
        }
    }
    fmt::print("{} groups, {} bytes hashed\n", groups, hashed);
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_duplicates_floor: {}\n", error.what());
    return EXIT_FAILURE;
}
