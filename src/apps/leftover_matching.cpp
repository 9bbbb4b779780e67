#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <unordered_map>
#include <utility>

#include "apps/app_inventory.h"
#include "apps/leftover_rules.h"
#include "apps/name_pieces.h"
#include "core/allocated_size.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/item_kind.h"
#include "core/words/lower_case.h"
#include "core/words/utf8.h"
#include "platform/path.h"

namespace corvane {

namespace {

using Item = LibraryListing::Item;
using Match = Leftover::Match;
using Naming = LeftoverLocation::Naming;

constexpr std::size_t fewestCharacters = 4;
constexpr std::chrono::days untouchedFor{30};

bool isOneOf(std::string_view text, std::span<const std::string_view> texts)
{
    return std::ranges::find(texts, text) != texts.end();
}

bool isPropertyListName(std::string_view name)
{
    return name.ends_with(".plist") || name.ends_with(".binarycookies");
}

void append(std::vector<const Item *> &into, std::span<const Item> items)
{
    for (const Item &item : items)
        into.push_back(&item);
}

/// The items whose name matches the identifier under the location's naming; longer identifiers are not considered here.
std::vector<const Item *> namedAfter(const std::string &id, Naming naming, const LibraryListing &listing)
{
    std::vector<const Item *> found;
    switch (naming) {
    case Naming::plain:
        append(found, listing.named(id));
        append(found, listing.startingWith(id + "."));
        break;
    case Naming::groupContainer: // "group." plus the identifier is covered by this
        return listing.endingWith("." + id);
    case Naming::savedState:
        append(found, listing.named(id + ".savedstate"));
        break;
    case Naming::propertyList:
        append(found, listing.startingWith(id + "."));
        std::erase_if(found, [](const Item *item) { return !isPropertyListName(item->lowered); });
        break;
    }
    return found;
}

/// The identifiers that start with this one and a dot, such as that of an application's helper.
std::vector<std::string> longerIDs(const std::string &id, const std::vector<std::string> &allIDs)
{
    std::vector<std::string> longer;
    std::ranges::copy_if(allIDs, std::back_inserter(longer),
                         [start = id + "."](const std::string &other) { return other.starts_with(start); });
    return longer;
}

/// User-perceived characters: a combining accent counts with its letter.
std::size_t characterCount(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size();) {
        const DecodedCharacter character = decodeUtf8(text, i);
        if (character.codePoint < 0x0300 || character.codePoint > 0x036F)
            ++count;
        i += character.length;
    }
    return count;
}

/// The name without suffixes that applications append to their identifier.
std::string_view withoutSuffixes(std::string_view name)
{
    for (const std::string_view suffix : {".plist", ".savedstate", ".binarycookies"}) {
        if (name.ends_with(suffix))
            name.remove_suffix(suffix.size());
    }
    return name;
}

std::vector<Orphan> orphansWithoutSizes(const std::unordered_set<std::string> &vendors, const LibraryListings &listings,
                                        const AppInventory::Surroundings &surroundings)
{
    std::vector<Orphan> orphans;
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        if (!leftoverLocations[i].hasOrphans)
            continue;
        for (const Item &item : listings.listings[i].items()) {
            if (surroundings.stop)
                return orphans;
            const std::string_view name = withoutSuffixes(item.lowered);
            if (!isOrphanName(name, vendors))
                continue;
            std::optional<Leftover> leftover =
                leftoverAt(listings.pathOf(i, item), leftoverLocations[i].label, Match::orphan, surroundings);
            if (leftover && isUntouched(*leftover, surroundings.now))
                orphans.push_back({*std::move(leftover), leadingPieces(name, 3)});
        }
    }
    return orphans;
}

} // namespace

bool isClaimed(std::string_view name, std::span<const std::string> ids)
{
    if (ids.empty())
        return false;
    for (std::size_t end = name.find('.');; end = name.find('.', end + 1)) {
        if (std::ranges::find(ids, name.substr(0, end)) != ids.end())
            return true;
        if (end == std::string_view::npos)
            return false;
    }
}

std::vector<std::string> candidateNames(std::vector<std::string> names)
{
    for (std::string &name : names)
        name = lowerCase(name);
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::erase_if(names, [](const std::string &name) {
        return characterCount(name) < fewestCharacters || isOneOf(name, AppInventory::genericNames);
    });
    return names;
}

std::optional<Leftover> leftoverAt(std::string path, std::string_view location, Match match,
                                   const AppInventory::Surroundings &surroundings)
{
    if (surroundings.locations.isProtected(path, surroundings.files))
        return std::nullopt;
    Leftover leftover{.path = std::move(path), .location = location, .match = match, .modified = {}};
    if (const Expected<ItemFacts> facts = surroundings.files.facts(leftover.path)) {
        leftover.kind = kindOf(facts->type, facts->isPackage);
        if (facts->modified != distantPast)
            leftover.modified = facts->modified;
    }
    return leftover;
}

bool isUntouched(const Leftover &leftover, Time now)
{
    return !leftover.modified || *leftover.modified <= now - untouchedFor;
}

bool isOrphanName(std::string_view name, const std::unordered_set<std::string> &vendors)
{
    return name.find(' ') == std::string_view::npos &&
           isOneOf(name.substr(0, name.find('.')), AppInventory::orphanTLDs) && !name.starts_with("com.apple") &&
           !name.starts_with("group.") && !name.starts_with("systemgroup.") &&
           !vendors.contains(leadingPieces(name, 2));
}

std::vector<OrphanGroup> measuredGroups(std::vector<Orphan> orphans, const AppInventory::Surroundings &surroundings)
{
    concurrentPerform(orphans.size(), [&](std::size_t i) {
        if (!surroundings.stop)
            orphans[i].item.size = allocatedSize(orphans[i].item.path, surroundings.files, surroundings.stop);
    });
    std::vector<OrphanGroup> groups;
    std::unordered_map<std::string, std::size_t> places;
    ForeignSum sum;
    for (Orphan &orphan : orphans) {
        orphan.item.size = sum.counted(orphan.item.size);
        const auto [place, isNew] = places.try_emplace(orphan.group, groups.size());
        if (isNew)
            groups.push_back({orphan.group, {}});
        groups[place->second].items.push_back(std::move(orphan.item));
    }
    for (OrphanGroup &group : groups)
        std::ranges::stable_sort(group.items, std::ranges::greater(), &Leftover::size);
    std::ranges::stable_sort(groups, std::ranges::greater(), &OrphanGroup::size);
    return groups;
}

std::vector<std::string> AppInventory::allIDs(const std::vector<BundleInfo> &bundles)
{
    std::vector<std::string> ids;
    ids.reserve(bundles.size());
    for (const BundleInfo &bundle : bundles)
        ids.push_back(lowerCase(bundle.bundleID));
    return ids;
}

std::unordered_set<std::string> AppInventory::vendors(const std::vector<std::string> &allIDs)
{
    std::unordered_set<std::string> vendors;
    for (const std::string &id : allIDs)
        vendors.insert(leadingPieces(id, 2));
    return vendors;
}

std::vector<Leftover> AppInventory::findLeftovers(const BundleInfo &bundle, const std::vector<std::string> &allIDs,
                                                  const LibraryListings &listings, const Surroundings &surroundings)
{
    std::vector<Leftover> leftovers;
    std::unordered_set<std::string> taken;
    const auto take = [&](std::size_t location, const Item &item, Match match) {
        std::string path = listings.pathOf(location, item);
        if (surroundings.stop || !taken.insert(path).second)
            return;
        std::optional<Leftover> leftover =
            leftoverAt(std::move(path), leftoverLocations[location].label, match, surroundings);
        if (!leftover)
            return;
        leftover->size = allocatedSize(leftover->path, surroundings.files, surroundings.stop);
        leftovers.push_back(*std::move(leftover));
    };

    const std::string id = lowerCase(bundle.bundleID);
    if (id.empty()) // every hidden name would match
        return leftovers;
    const std::vector<std::string> longer = longerIDs(id, allIDs);
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        for (const Item *const item : namedAfter(id, leftoverLocations[i].naming, listings.listings[i])) {
            if (!isClaimed(item->lowered, longer))
                take(i, *item, Match::exact);
        }
    }
    const std::vector<std::string> names = candidateNames({bundle.name, bundle.altName});
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        if (!leftoverLocations[i].hasNameMatches)
            continue;
        for (const std::string &name : names) {
            for (const Item &item : listings.listings[i].named(name)) {
                if (!isClaimed(item.lowered, allIDs))
                    take(i, item, Match::name);
            }
        }
    }
    std::ranges::stable_sort(leftovers, std::ranges::greater(), &Leftover::size);
    return leftovers;
}

std::vector<OrphanGroup> AppInventory::findOrphans(const std::unordered_set<std::string> &vendors,
                                                   const LibraryListings &listings, const Surroundings &surroundings)
{
    return measuredGroups(orphansWithoutSizes(vendors, listings, surroundings), surroundings);
}

} // namespace corvane
