#include "apps/folder_listing.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <tuple>
#include <utility>

#include "core/scanner.h"
#include "core/words/lower_case.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

using Item = FolderListing::Item;

std::string_view firstBytes(std::string_view text, std::size_t length)
{
    return text.substr(0, length);
}

std::string_view lastBytes(std::string_view text, std::size_t length)
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

FolderListing::FolderListing(std::vector<std::string> names, Ends ends)
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

std::span<const Item> FolderListing::named(std::string_view lowered) const
{
    return equalTo(lowered, m_items, std::ranges::less(), &Item::lowered);
}

std::span<const Item> FolderListing::startingWith(std::string_view lowered) const
{
    return equalTo(lowered, m_items, std::ranges::less(),
                   [&](const Item &item) { return firstBytes(item.lowered, lowered.size()); });
}

std::vector<const Item *> FolderListing::endingWith(std::string_view lowered) const
{
    std::vector<const Item *> found;
    for (const std::uint32_t i : equalTo(lowered, m_byEnding, isBeforeReadBackwards, [&](std::uint32_t each) {
             return lastBytes(m_items[each].lowered, lowered.size());
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

} // namespace corvane
