#include "platform/linux/swap_files.h"

#include <fstream>
#include <sstream>
#include <string>

#include "platform/block_count.h"
#include "platform/linux/mount_table.h"

namespace corvane {

std::vector<SwapFile> swapFilesIn(std::string_view text)
{
    std::vector<SwapFile> files;
    std::istringstream lines{std::string(text)};
    std::string line;
    std::getline(lines, line); // column headings
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string path, type;
        std::uint64_t kibibytes = 0;
        if (!(fields >> path >> type >> kibibytes) || type != "file")
            continue;
        if (const auto size = bytesOfBlocks(kibibytes, 1024))
            files.push_back({unescapedOctal(path), *size});
    }
    return files;
}

std::vector<SwapFile> listedSwapFiles()
{
    std::ifstream swaps("/proc/swaps");
    std::ostringstream text;
    text << swaps.rdbuf();
    return swapFilesIn(text.view());
}

} // namespace corvane
