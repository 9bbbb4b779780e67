#include "apps/leftover.h"

#include "core/checked_add.h"

namespace corvane {

std::string_view caseName(Leftover::Match match)
{
    switch (match) {
    case Leftover::Match::exact:
        return "exact";
    case Leftover::Match::name:
        return "name";
    case Leftover::Match::orphan:
        return "orphan";
    }
    return {};
}

std::int64_t OrphanGroup::size() const
{
    std::int64_t sum = 0;
    for (const Leftover &item : items)
        sum = checkedAdd(sum, item.size);
    return sum;
}

} // namespace corvane
