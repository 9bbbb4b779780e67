#include "disk/apfs_container_info.h"

#include <algorithm>

#include "core/shell.h"
#include "platform/property_list.h"

namespace corvane {

namespace {

// The tool's figures and the volume's own may differ by block rounding.
constexpr std::uint64_t ceilingTolerance = 1'000'000;

APFSVolumeInfo volumeFrom(const PropertyList &entry)
{
    APFSVolumeInfo volume;
    const PropertyList *name = entry.find("Name");
    volume.name = name != nullptr && name->string() != nullptr ? *name->string() : "Volume";
    if (const PropertyList *roles = entry.find("Roles"); roles != nullptr && roles->array() != nullptr) {
        const auto isText = [](const PropertyList &role) { return role.string() != nullptr; };
        if (std::ranges::all_of(*roles->array(), isText)) {
            for (const PropertyList &role : *roles->array())
                volume.roles.push_back(*role.string());
        }
    }
    if (const PropertyList *used = entry.find("CapacityInUse"))
        volume.used = used->integer().value_or(0);
    return volume;
}

// A list is valid only if every entry is a dictionary.
const PropertyList::Array *dictionariesOf(const PropertyList *value)
{
    if (value == nullptr || value->array() == nullptr)
        return nullptr;
    const auto isDictionary = [](const PropertyList &entry) { return entry.dictionary() != nullptr; };
    return std::ranges::all_of(*value->array(), isDictionary) ? value->array() : nullptr;
}

bool isSystemContainer(const APFSContainerInfo &container)
{
    return std::ranges::any_of(container.volumes, [](const APFSVolumeInfo &volume) {
        return std::ranges::find(volume.roles, "System") != volume.roles.end();
    });
}

std::uint64_t distance(std::int64_t a, std::int64_t b)
{
    // Unsigned, so that extreme figures in a malicious listing cannot overflow.
    return a > b ? static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b)
                 : static_cast<std::uint64_t>(b) - static_cast<std::uint64_t>(a);
}

} // namespace

std::optional<APFSContainerInfo> APFSContainerInfo::load(std::int64_t matchingTotal, const StopFlag &stop)
{
    const auto listing = Shell::run("/usr/sbin/diskutil", {"apfs", "list", "-plist"}, stop);
    if (!listing)
        return std::nullopt;
    const auto containers = parse(*listing);
    if (!containers)
        return std::nullopt;
    return choose(*containers, matchingTotal);
}

std::optional<std::vector<APFSContainerInfo>> APFSContainerInfo::parse(std::string_view listing)
{
    const auto root = PropertyList::parse(listing);
    if (!root)
        return std::nullopt;
    const PropertyList::Array *entries = dictionariesOf(root->find("Containers"));
    if (entries == nullptr)
        return std::nullopt;

    std::vector<APFSContainerInfo> containers;
    for (const PropertyList &entry : *entries) {
        const PropertyList *ceiling = entry.find("CapacityCeiling");
        const PropertyList *free = entry.find("CapacityFree");
        if (ceiling == nullptr || free == nullptr || !ceiling->integer() || !free->integer())
            continue;
        APFSContainerInfo container{*ceiling->integer(), *free->integer(), {}};
        if (const PropertyList::Array *volumes = dictionariesOf(entry.find("Volumes"))) {
            for (const PropertyList &volume : *volumes)
                container.volumes.push_back(volumeFrom(volume));
        }
        containers.push_back(std::move(container));
    }
    return containers;
}

std::optional<APFSContainerInfo> APFSContainerInfo::choose(const std::vector<APFSContainerInfo> &containers,
                                                           std::int64_t matchingTotal)
{
    const auto fits = [matchingTotal](const APFSContainerInfo &container) {
        return distance(container.ceiling, matchingTotal) < ceilingTolerance;
    };
    const auto first = [&containers](const auto &condition) -> const APFSContainerInfo * {
        const auto position = std::ranges::find_if(containers, condition);
        return position == containers.end() ? nullptr : &*position;
    };
    const APFSContainerInfo *chosen =
        first([&](const APFSContainerInfo &container) { return isSystemContainer(container) && fits(container); });
    if (chosen == nullptr)
        chosen = first(fits);
    if (chosen == nullptr)
        chosen = first(isSystemContainer);
    if (chosen == nullptr)
        return std::nullopt;
    return *chosen;
}

} // namespace corvane
