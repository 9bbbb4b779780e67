#include "apps/library_listings.h"

#include <utility>

#include "core/concurrent_perform.h"
#include "platform/path.h"

namespace corvane {

LibraryListings LibraryListings::read(const std::string &home, FileSystem &files, const StopFlag &stop)
{
    LibraryListings result{.library = joined(home, "Library")};
    concurrentPerform(leftoverLocations.size(), [&](std::size_t i) {
        result.listings[i] = make(i, namesIn(joined(result.library, leftoverLocations[i].folder), files, stop)
                                         .value_or(std::vector<std::string>()));
    });
    return result;
}

FolderListing LibraryListings::make(std::size_t location, std::vector<std::string> names)
{
    const bool isGroups = leftoverLocations[location].naming == LeftoverLocation::Naming::groupContainer;
    return FolderListing(std::move(names), isGroups ? FolderListing::Ends::findable : FolderListing::Ends::ignored);
}

std::string LibraryListings::pathOf(std::size_t location, const FolderListing::Item &item) const
{
    return joined(joined(library, leftoverLocations[location].folder), item.name);
}

} // namespace corvane
