#include "shell/ui/graphics_device.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace corvane {

namespace {

// Device files of the kernel's graphics drivers, of three drivers outside the kernel, and of a Linux guest's
// paravirtual GPU.
constexpr std::string_view deviceStarts[] = {"dri/renderD", "nvidia0", "mali0", "kgsl-3d0", "dxg"};

} // namespace

bool hasGraphicsDevice(const std::string &devices)
{
    return std::ranges::any_of(deviceStarts, [&](std::string_view start) {
        const std::filesystem::path wanted = std::filesystem::path(devices) / start;
        std::error_code failure;
        // Use increment(): operator++ may throw.
        std::filesystem::directory_iterator entry(wanted.parent_path(), failure);
        for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
            if (entry->path().filename().string().starts_with(wanted.filename().string()))
                return true;
        }
        return false;
    });
}

} // namespace corvane
