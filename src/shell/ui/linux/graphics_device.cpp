#include "shell/ui/graphics_device.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace corvane {

namespace {

// Of the kernel's graphics drivers; of drivers that are no part of it: NVIDIA's, Arm's and Qualcomm's; and of Windows
// beneath this system.
constexpr std::string_view deviceStarts[] = {"dri/renderD", "nvidia0", "mali0", "kgsl-3d0", "dxg"};

} // namespace

bool hasGraphicsDevice(const std::string &devices)
{
    return std::ranges::any_of(deviceStarts, [&](std::string_view start) {
        const std::filesystem::path wanted = std::filesystem::path(devices) / start;
        std::error_code failure;
        // Reading past an entry may throw, which increment() does not.
        std::filesystem::directory_iterator entry(wanted.parent_path(), failure);
        for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
            if (entry->path().filename().string().starts_with(wanted.filename().string()))
                return true;
        }
        return false;
    });
}

} // namespace corvane
