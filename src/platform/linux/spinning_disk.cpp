#include "platform/spinning_disk.h"

#include <map>
#include <mutex>
#include <optional>

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/linux/block_device.h"

namespace corvane {

bool isOnSpinningDisk(const std::string &folder)
{
    // Measuring queries thousands of folders, most of them on one disk.
    static std::mutex lock;
    static std::map<dev_t, bool> known;

    struct stat facts;
    if (::stat(folder.c_str(), &facts) != 0)
        return false;
    const std::scoped_lock guard(lock);
    const auto [place, isNew] = known.try_emplace(facts.st_dev, false);
    if (isNew) {
        // An anonymous device number means a file system with volumes, or one without a device.
        const std::optional<dev_t> device =
            ::major(facts.st_dev) != 0 ? std::optional(facts.st_dev) : blockDeviceOf(folder);
        place->second = device && isSpinning("/sys/dev/block", numberOf(*device));
    }
    return place->second;
}

} // namespace corvane
