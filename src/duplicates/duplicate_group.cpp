#include "duplicates/duplicate_group.h"

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
    std::size_t copies = 0;
    for (std::size_t i = 0; i < files.size(); ++i)
        copies += sharesStorageWith(i) ? 0 : 1;
    return copies == 0 ? 0 : times(size, copies - 1);
}

std::optional<std::size_t> DuplicateGroup::sharesStorageWith(std::size_t file) const
{
    for (std::size_t i = 0; i < file; ++i) {
        if (seen[i].identity.isKnown() && seen[i].identity == seen[file].identity)
            return i;
    }
    return std::nullopt;
}

std::int64_t totalReclaimable(std::span<const DuplicateGroup> groups)
{
    std::int64_t total = 0;
    for (const DuplicateGroup &group : groups)
        total = checkedAdd(total, group.reclaimable());
    return total;
}

} // namespace corvane
