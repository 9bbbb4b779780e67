// Runs a fuzz target on every file of a folder, so that its seeds, hand-written edge cases or fuzzer findings, are
// covered in every test run: replay FOLDER

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
        // The same input truncated at several points, as from a tool that was killed.
        for (const std::size_t divisor : {2U, 3U, 10U}) {
            const std::string cut = bytes.substr(0, bytes.size() - bytes.size() / divisor);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(cut.data()), cut.size());
        }
        ++count;
    }
    return count > 0 ? 0 : 1;
}
