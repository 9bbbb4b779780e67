#include "apps/leftover_rules.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>
#include <utility>

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

using Match = Leftover::Match;

constexpr std::size_t fewestCharacters = 4;
constexpr std::chrono::days untouchedFor{30};

bool isOneOf(std::string_view text, std::span<const std::string_view> texts)
{
    return std::ranges::find(texts, text) != texts.end();
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
        return characterCount(name) < fewestCharacters || isOneOf(name, genericNames);
    });
    return names;
}

std::optional<Leftover> leftoverAt(std::string path, std::string_view location, Match match,
                                   const SearchContext &context)
{
    if (context.locations.isProtected(path, context.files))
        return std::nullopt;
    Leftover leftover{.path = std::move(path), .location = location, .match = match, .modified = {}};
    if (const Expected<ItemFacts> facts = context.files.facts(leftover.path)) {
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

std::unordered_set<std::string> vendorsOf(const std::vector<std::string> &ids)
{
    std::unordered_set<std::string> vendors;
    for (const std::string &id : ids)
        vendors.insert(leadingPieces(id, 2));
    return vendors;
}

bool isOrphanName(std::string_view name, const std::unordered_set<std::string> &vendors)
{
    return name.find(' ') == std::string_view::npos && isOneOf(name.substr(0, name.find('.')), orphanTLDs) &&
           !name.starts_with("com.apple") && !name.starts_with("group.") && !name.starts_with("systemgroup.") &&
           !vendors.contains(leadingPieces(name, 2));
}

std::vector<OrphanGroup> measuredGroups(std::vector<Orphan> orphans, const SearchContext &context)
{
    concurrentPerform(orphans.size(), [&](std::size_t i) {
        if (!context.stop)
            orphans[i].item.size = allocatedSize(orphans[i].item.path, context.files, context.stop);
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

std::vector<InstalledApp> largestFirst(std::vector<std::optional<InstalledApp>> measured)
{
    std::vector<InstalledApp> apps;
    ForeignSum sum;
    for (std::optional<InstalledApp> &app : measured) {
        if (!app)
            continue;
        app->appSize = sum.counted(app->appSize);
        for (Leftover &leftover : app->leftovers)
            leftover.size = sum.counted(leftover.size);
        apps.push_back(*std::move(app));
    }
    std::ranges::stable_sort(apps, std::ranges::greater(), &InstalledApp::sizeWithExactLeftovers);
    return apps;
}

} // namespace corvane
