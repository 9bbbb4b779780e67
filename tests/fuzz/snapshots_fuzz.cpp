// The snapshot tool's output. For any input, the result is a list of names as they occur in it, and a breakdown can be
// computed from it.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "disk/disk_accountant.h"
#include "disk/local_snapshot.h"
#include "disk/snapshot_listing.h"
#include "fuzz/expect.h"

namespace {

/// A delete command affects only the snapshot that it names, whatever that name contains.
void expectHarmless(const std::vector<corvane::LocalSnapshot> &snapshots)
{
    for (const corvane::LocalSnapshot &snapshot : snapshots) {
        corvane::fuzz::expect(snapshot.deleteCommand.starts_with("sudo "));
        corvane::fuzz::expect(snapshot.deleteCommand.find_first_of("\n;&|<>$`\"\\,%(){}*?") == std::string::npos);
        corvane::fuzz::expect(!snapshot.size || *snapshot.size >= 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view listing(reinterpret_cast<const char *>(data), size);
    const std::vector<corvane::LocalSnapshot> snapshots = corvane::LocalSnapshot::parse(listing);
    std::size_t position = 0;
    for (const corvane::LocalSnapshot &snapshot : snapshots) {
        corvane::fuzz::expect(snapshot.name.starts_with("com.apple"));
        corvane::fuzz::expect(snapshot.name.find('\n') == std::string::npos);
        corvane::fuzz::expect(snapshot.name.back() != ' ' && snapshot.name.back() != '\t');
        // In the listing's order, without overlaps.
        const std::size_t found = listing.find(snapshot.name, position);
        corvane::fuzz::expect(found != std::string_view::npos);
        position = found + snapshot.name.size();
    }

    corvane::DiskAccountant::Sources sources;
    sources.volume = [] { return corvane::VolumeFacts{"Disk", 900'000'000'000, 100'000'000'000, 200'000'000'000}; };
    sources.container = [](std::int64_t) { return std::nullopt; };
    sources.snapshots = [&] { return snapshots; };
    sources.exists = [](const std::string &) { return false; };
    sources.home = "/Users/u";
    corvane::fuzz::expect(corvane::DiskAccountant::compute({}, sources).snapshots == snapshots);

    using corvane::SnapshotListing;
    for (const std::string &name : SnapshotListing::snapperConfigurations(listing))
        expectHarmless(SnapshotListing::ofSnapper(name, listing));
    const auto zfs = SnapshotListing::ofZfs(listing, {"rpool"});
    expectHarmless(zfs);
    for (const corvane::LocalSnapshot &snapshot : zfs)
        corvane::fuzz::expect(snapshot.name.starts_with("rpool") && snapshot.name.find('@') != std::string::npos);
    if (const auto timeshift = SnapshotListing::ofTimeshift(listing))
        expectHarmless({*timeshift});
    static_cast<void>(SnapshotListing::dateInInfo(listing));
    return 0;
}
