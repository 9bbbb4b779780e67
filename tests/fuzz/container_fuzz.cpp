// A disk tool's output, parsed as containers. For any input, the result is a list or nothing, and a breakdown can be
// computed from it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "disk/apfs_container_info.h"
#include "disk/disk_accountant.h"
#include "fuzz/expect.h"

using corvane::APFSContainerInfo;

namespace {

void checkBreakdown(const APFSContainerInfo &container, const corvane::VolumeFacts &volume)
{
    using corvane::DiskAccountant;
    constexpr std::int64_t scannedSize = 5'000'000'000;
    DiskAccountant::Sources sources;
    sources.volume = [&] { return volume; };
    sources.container = [&](std::int64_t) { return container; };
    sources.snapshots = [] { return std::vector<corvane::LocalSnapshot>(); };
    sources.exists = [](const std::string &) { return true; };
    sources.measure = [](const std::string &, const std::optional<std::string> &) {
        return DiskAccountant::Measurement{60'000'000, {}};
    };
    sources.home = "/Users/u";
    corvane::ScanContext scan;
    scan.rootPath = "/Users/u";
    scan.rootSize = scannedSize;
    const corvane::DiskBreakdown breakdown = DiskAccountant::compute(scan, sources);
    corvane::fuzz::expect(breakdown.total >= 0 && breakdown.free >= 0 && breakdown.purgeable >= 0);
    for (const corvane::BreakdownSegment &segment : breakdown.segments)
        corvane::fuzz::expect(segment.size >= 0);
}

} // namespace

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
    for (const APFSContainerInfo &container : *containers) {
        corvane::fuzz::expect(APFSContainerInfo::choose(*containers, container.ceiling).has_value());
        // The volume's figures are untrusted as well, so reuse the tool's for them.
        for (const std::optional<std::int64_t> figure : {std::optional<std::int64_t>(), std::optional(container.free)})
            checkBreakdown(container, {"Disk", container.ceiling, figure, figure});
    }
    return 0;
}
