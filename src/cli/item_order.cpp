#include "cli/item_order.h"

#include <array>
#include <utility>

#include "cli/argument_values.h"

namespace corvane {

std::optional<ItemOrder> orderNamed(std::string_view text)
{
    constexpr std::array<std::pair<std::string_view, ItemOrder>, 4> choices{{
        {"size", ItemOrder::size},
        {"files", ItemOrder::files},
        {"name", ItemOrder::name},
        {"modified", ItemOrder::modified},
    }};
    return choiceNamed(text, choices);
}

bool standsBefore(const FileNode &a, const FileNode &b, ItemOrder order)
{
    switch (order) {
    case ItemOrder::size:
        return a.size > b.size;
    case ItemOrder::files:
        return a.fileCount > b.fileCount;
    case ItemOrder::name:
        return a.name < b.name;
    case ItemOrder::modified:
        return a.modified > b.modified;
    }
    return false;
}

} // namespace corvane
