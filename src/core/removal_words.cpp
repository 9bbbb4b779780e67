#include "core/removal_words.h"

#include <fmt/format.h>

#include "core/words/figures.h"

namespace corvane {

std::string inTrashText(std::int64_t inTrash, std::int64_t count)
{
    if (inTrash == 0)
        return {};
    if (inTrash == count)
        return count == 1 ? "It is in the Trash and will be deleted permanently"
                          : "All of them are in the Trash and will be deleted permanently";
    return fmt::format("{} of them {} in the Trash and will be deleted permanently", formatCount(inTrash),
                       plural(inTrash, "is", "are"));
}

std::string deletionQuestion(std::int64_t count)
{
    return fmt::format("Permanently delete {}?", formatCount(count, "item", "items"));
}

std::string deletionAnswer(std::int64_t bytes)
{
    return fmt::format("Delete {} Permanently", formatByteCount(bytes));
}

} // namespace corvane
