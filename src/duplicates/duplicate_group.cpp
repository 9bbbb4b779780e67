#include "duplicates/duplicate_group.h"

#include <algorithm>
#include <map>
#include <utility>

#include "core/checked_add.h"

namespace corvane {

namespace {

std::int64_t times(std::int64_t size, std::size_t count)
{
    std::int64_t product = 0;
    for (std::size_t i = 0; i < count; ++i)
        product = checkedAdd(product, size);
    return product;
}

} // namespace

std::int64_t DuplicateGroup::waste() const
{
    return files.empty() ? 0 : times(size, files.size() - 1);
}

std::int64_t DuplicateGroup::reclaimable() const
{
    const std::vector<std::optional<std::size_t>> shared = sharedStorage();
    const auto copies =
        static_cast<std::size_t>(std::ranges::count_if(shared, [](const auto &owner) { return !owner; }));
    return copies == 0 ? 0 : times(size, copies - 1);
}

std::vector<std::optional<std::size_t>> DuplicateGroup::sharedStorage() const
{
    std::map<std::pair<std::uint64_t, std::uint64_t>, std::size_t> first; // by device and inode
    std::vector<std::optional<std::size_t>> shared(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        const ItemIdentity &identity = seen[i].identity;
        if (!identity.isKnown())
            continue;
        const auto [place, isNew] = first.try_emplace({identity.device, identity.inode}, i);
        if (!isNew)
            shared[i] = place->second;
    }
    return shared;
}

std::int64_t totalReclaimable(std::span<const DuplicateGroup> groups)
{
    std::int64_t total = 0;
    for (const DuplicateGroup &group : groups)
        total = checkedAdd(total, group.reclaimable());
    return total;
}

} // namespace corvane
