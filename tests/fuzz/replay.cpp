// Hands every file of a folder to a fuzz target, so that its seeds, which are the odd cases that somebody thought of
// or a fuzzer found, are tried wherever tests run: replay FOLDER

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: replay FOLDER\n", stderr);
        return 2;
    }
    int count = 0;
    for (const auto &entry : std::filesystem::directory_iterator(argv[1])) {
        std::printf("%s\n", entry.path().c_str());
        std::fflush(stdout);
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
        // The same cut off at several places, as by a tool that was ended.
        for (const std::size_t divisor : {2U, 3U, 10U}) {
            const std::string cut = bytes.substr(0, bytes.size() - bytes.size() / divisor);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(cut.data()), cut.size());
        }
        ++count;
    }
    return count > 0 ? 0 : 1;
}
