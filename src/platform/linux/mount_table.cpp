#include "platform/linux/mount_table.h"

#include <fstream>
#include <sstream>
#include <string>

namespace corvane {

std::string unescapedOctal(const std::string &text)
{
    const auto isDigit = [&](std::size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '7'; };
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && isDigit(i + 1) && isDigit(i + 2) && isDigit(i + 3)) {
            path += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
            i += 3;
        } else {
            path += text[i];
        }
    }
    return path;
}

std::vector<MountedFolder> mountsIn(std::istream &mounts)
{
    std::vector<MountedFolder> table;
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string number, parent, root, point;
        std::uint32_t major = 0;
        std::uint32_t minor = 0;
        char colon = 0;
        // The numbers are those of the file system, also where each of its volumes has a device of its own (btrfs).
        if (!(fields >> number >> parent >> major >> colon >> minor >> root >> point))
            continue;
        // Behind the options, of which there may be any number.
        std::string option, type, source;
        while (fields >> option && option != "-")
            continue;
        fields >> type >> source;
        source = unescapedOctal(source);
        const std::string pool = type == "zfs" ? source.substr(0, source.find('/')) : std::string();
        table.push_back(
            {unescapedOctal(point), std::uint64_t{major} << 32 | minor, unescapedOctal(root), source, pool});
    }
    return table;
}

std::vector<MountedFolder> readMountTable()
{
    std::ifstream mounts("/proc/self/mountinfo");
    return mountsIn(mounts);
}

} // namespace corvane
