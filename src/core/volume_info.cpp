#include "core/volume_info.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/foreign_sum.h"
#include "core/mount_map.h"
#include "core/systems/system_table.h"

namespace corvane {

namespace {

using Figure = std::optional<std::int64_t>;

Figure sumOf(const Figure &a, const Figure &b)
{
    Figure sum = a;
    return a && b && addForeign(*sum, *b) ? sum : std::nullopt;
}

} // namespace

VolumeFacts withoutImplausibleFigures(VolumeFacts facts)
{
    for (Figure VolumeFacts::*const figure : {&VolumeFacts::total, &VolumeFacts::available,
                                              &VolumeFacts::availableForImportantUse, &VolumeFacts::reserved}) {
        if (facts.*figure && !isPlausibleSize(*(facts.*figure)))
            return {.name = std::move(facts.name), .total = {}, .available = {}, .availableForImportantUse = {}};
    }
    return facts;
}

std::string diskName(FileSystem &files)
{
    const SystemTable &system = systemTableOf(files.systemKind());
    const std::optional<std::string> name = system.isMadeOfMounts ? files.diskName() : std::nullopt;
    return name.value_or(std::string(system.diskName));
}

VolumeFacts startupDiskFacts(const Host &host)
{
    VolumeFacts facts = withoutImplausibleFigures(host.volumes.facts("/"));
    if (!systemTableOf(host.files.systemKind()).isMadeOfMounts)
        return facts;
    if (!facts.name)
        facts.name = diskName(host.files);
    const MountMap mounts(host.files.mounts());
    if (mounts.isEmpty())
        return facts;
    const std::string home = host.files.homeFolder();
    const std::string realHome = host.files.realPath(home).value_or(home);
    const MountedFolder *const ofRoot = mounts.holding("/");
    const MountedFolder *const ofHome = mounts.holding(realHome);
    if (ofRoot == nullptr || ofHome == nullptr || ofRoot->fileSystem == ofHome->fileSystem)
        return facts;
    VolumeFacts second = withoutImplausibleFigures(host.volumes.facts(realHome));
    // The free space of a pool is shared by its file systems, so count it once.
    if (!ofRoot->pool.empty() && ofRoot->pool == ofHome->pool && second.total && second.available) {
        second.total = std::max<std::int64_t>(0, *second.total - *second.available);
        second.available = 0;
    }
    facts.total = sumOf(facts.total, second.total);
    facts.available = sumOf(facts.available, second.available);
    facts.availableForImportantUse = sumOf(facts.availableForImportantUse, second.availableForImportantUse);
    facts.reserved = sumOf(facts.reserved, second.reserved);
    return facts;
}

VolumeInfo VolumeInfo::current(const Host &host)
{
    const VolumeFacts facts = startupDiskFacts(host);
    return {.name = facts.name.value_or(diskName(host.files)),
            .total = facts.total.value_or(0),
            .available = std::max(facts.availableForImportantUse.value_or(0), facts.available.value_or(0))};
}

double VolumeInfo::usedFraction() const
{
    if (total <= 0)
        return 0;
    return std::clamp(1.0 - static_cast<double>(available) / static_cast<double>(total), 0.0, 1.0);
}

} // namespace corvane
