#include "apps/library_listings.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

#include "core/concurrent_perform.h"
#include "core/scanner.h"
#include "core/words/lower_case.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

using Item = LibraryListing::Item;

std::string_view startOf(std::string_view text, std::size_t length)
{
    return text.substr(0, length);
}

std::string_view endOf(std::string_view text, std::size_t length)
{
    return text.substr(text.size() - std::min(text.size(), length));
}

bool isBeforeReadBackwards(std::string_view a, std::string_view b)
{
    return std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend());
}

/// The elements whose projection equals the text, in a vector sorted by the projection. The standard's `equal_range`
/// does not compile with clang 14.
template <typename Element, typename Less, typename Projection>
std::span<const Element> equalTo(std::string_view text, const std::vector<Element> &sorted, Less less,
                                 Projection projection)
{
    return {std::ranges::lower_bound(sorted, text, less, projection),
            std::ranges::upper_bound(sorted, text, less, projection)};
}

} // namespace

LibraryListing::LibraryListing(std::vector<std::string> names, Ends ends)
{
    m_items.reserve(names.size());
    for (std::string &name : names) {
        std::string lowered = lowerCase(name);
        m_items.push_back({std::move(name), std::move(lowered)});
    }
    std::ranges::sort(m_items, [](const Item &a, const Item &b) {
        return std::tie(a.lowered, a.name) < std::tie(b.lowered, b.name);
    });
    if (ends == Ends::ignored)
        return;
    m_byEnding.resize(m_items.size());
    std::iota(m_byEnding.begin(), m_byEnding.end(), 0U);
    std::ranges::sort(m_byEnding, isBeforeReadBackwards, [this](std::uint32_t i) { return m_items[i].lowered; });
}

std::span<const Item> LibraryListing::named(std::string_view lowered) const
{
    return equalTo(lowered, m_items, std::ranges::less(), &Item::lowered);
}

std::span<const Item> LibraryListing::startingWith(std::string_view lowered) const
{
    return equalTo(lowered, m_items, std::ranges::less(),
                   [&](const Item &item) { return startOf(item.lowered, lowered.size()); });
}

std::vector<const Item *> LibraryListing::endingWith(std::string_view lowered) const
{
    std::vector<const Item *> found;
    for (const std::uint32_t i : equalTo(lowered, m_byEnding, isBeforeReadBackwards, [&](std::uint32_t each) {
             return endOf(m_items[each].lowered, lowered.size());
         }))
        found.push_back(&m_items[i]);
    std::ranges::sort(found);
    return found;
}

Expected<std::vector<std::string>> namesIn(const std::string &folder, FileSystem &files, const StopFlag &stop)
{
    const WalkConditions conditions;
    std::vector<std::string> names;
    const auto opened = openPatiently([&] { return files.openFolder(folder); });
    if (!opened)
        return tl::unexpected(opened.error());
    const Expected<void> listed = (*opened)->list([&](const DirectoryEntry &entry) {
        names.emplace_back(entry.name);
        return stop || names.size() > Scanner::keptEntriesLimit ? Listing::stop : Listing::goOn;
    });
    if (!listed)
        return tl::unexpected(listed.error());
    return names;
}

LibraryListings LibraryListings::read(const std::string &home, FileSystem &files, const StopFlag &stop)
{
    LibraryListings result{.library = joined(home, "Library")};
    concurrentPerform(leftoverLocations.size(), [&](std::size_t i) {
        result.listings[i] = make(i, namesIn(joined(result.library, leftoverLocations[i].folder), files, stop)
                                         .value_or(std::vector<std::string>()));
    });
    return result;
}

LibraryListing LibraryListings::make(std::size_t location, std::vector<std::string> names)
{
    const bool isGroups = leftoverLocations[location].naming == LeftoverLocation::Naming::groupContainer;
    return LibraryListing(std::move(names), isGroups ? LibraryListing::Ends::findable : LibraryListing::Ends::ignored);
}

std::string LibraryListings::pathOf(std::size_t location, const LibraryListing::Item &item) const
{
    return joined(joined(library, leftoverLocations[location].folder), item.name);
}

} // namespace corvane
