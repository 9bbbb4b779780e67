// What a disk tool prints, as containers: whatever the bytes are, the answer is a list or nothing.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "disk/apfs_container_info.h"
#include "fuzz/expect.h"

using corvane::APFSContainerInfo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view listing(reinterpret_cast<const char *>(data), size);
    const auto containers = APFSContainerInfo::parse(listing);
    if (!containers)
        return 0;
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    for (const std::int64_t total : {std::int64_t{0}, std::int64_t{494'384'795'648}, largest, smallest}) {
        const auto chosen = APFSContainerInfo::choose(*containers, total);
        corvane::fuzz::expect(!chosen || std::ranges::find(*containers, *chosen) != containers->end());
    }
    for (const APFSContainerInfo &container : *containers)
        corvane::fuzz::expect(APFSContainerInfo::choose(*containers, container.ceiling).has_value());
    return 0;
}
