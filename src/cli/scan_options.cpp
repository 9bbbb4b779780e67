#include "cli/scan_options.h"

#include <algorithm>

namespace corvane {

std::vector<Option> excludeOptions()
{
    return {
        {.name = "exclude",
         .value = "PATTERN",
         .help =
             "Leave out items that match PATTERN, such as \"*.iso\", node_modules or Library/Caches; may be repeated"},
        {.name = "one-file-system", .help = "Leave out everything mounted in the folder"}};
}

Option apparentOption()
{
    return {.name = "apparent", .help = "Count the lengths of files, not the space they take up"};
}

ScanFilter scanFilterOf(const Arguments &arguments)
{
    ScanFilter filter{.excluded = arguments.texts("exclude")};
    if (std::ranges::find(filter.excluded, "") != filter.excluded.end())
        throw UsageError("\"\" is not a valid --exclude; use a pattern such as \"*.iso\"");
    if (arguments.has("one-file-system"))
        filter.mounts = ScanFilter::Mounts::none;
    if (arguments.has("apparent"))
        filter.sizes = ScanFilter::Sizes::apparent;
    return filter;
}

} // namespace corvane
