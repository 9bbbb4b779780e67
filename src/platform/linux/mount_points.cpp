#include "platform/linux/mount_points.h"

#include <cerrno>
#include <fstream>
#include <sstream>

namespace corvane {

namespace {

/// A path as the kernel's list writes it, where blanks and the like stand as "\040".
std::string unescaped(const std::string &text)
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

} // namespace

Expected<std::vector<std::string>> listedMountPoints()
{
    static constexpr const char *list = "/proc/self/mountinfo";
    std::ifstream mounts(list);
    std::vector<std::string> points;
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string number, parent, device, root, point;
        if (fields >> number >> parent >> device >> root >> point)
            points.push_back(unescaped(point));
    }
    if (points.empty()) {
        return tl::unexpected(Error{
            "read", list, {ENOENT, std::generic_category()}, "The system does not tell which disks are mounted."});
    }
    return points;
}

} // namespace corvane
