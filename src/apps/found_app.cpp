#include "apps/found_app.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "apps/folder_listing.h"
#include "apps/leftover_rules.h"
#include "apps/name_pieces.h"
#include "apps/program_names.h"
#include "core/concurrent_perform.h"
#include "core/words/lower_case.h"
#include "platform/path.h"

namespace corvane {

bool isThisApplication(std::string_view id)
{
    return id == CORVANE_APP_ID;
}

std::vector<std::string> sortedNames(const std::string &folder, const SearchContext &context, bool &areAllKnown)
{
    Expected<std::vector<std::string>> names = namesIn(folder, context.files, context.stop);
    if (!names) {
        areAllKnown = areAllKnown && names.error().isMissing();
        return {};
    }
    std::ranges::sort(*names);
    return *std::move(names);
}

std::vector<DesktopEntry> entriesIn(const std::string &folder, const SearchContext &context)
{
    constexpr std::size_t most = 10'000; // a desktop has hundreds
    bool areAllKnown = true;
    std::vector<std::string> names = sortedNames(folder, context, areAllKnown);
    std::erase_if(names, [](const std::string &name) { return !desktopFileID(name); });
    names.resize(std::min(names.size(), most));
    std::vector<std::optional<DesktopEntry>> read(names.size());
    concurrentPerform(names.size(), [&](std::size_t i) {
        if (!context.stop)
            read[i] = DesktopEntry::read(joined(folder, names[i]), context.files);
    });
    std::vector<DesktopEntry> entries;
    for (std::optional<DesktopEntry> &entry : read) {
        if (entry && entry->isShown && !isThisApplication(entry->id))
            entries.push_back(*std::move(entry));
    }
    return entries;
}

DataOwner ownerOf(const std::vector<DesktopEntry> &entries, std::string place)
{
    DataOwner owner{.ids = {}, .names = {}, .flatpak = {}, .snap = {}, .place = std::move(place)};
    std::vector<std::string> names;
    std::set<std::string> ids;
    for (const DesktopEntry &entry : entries) {
        if (isReverseDomainName(entry.id)) {
            ids.insert(lowerCase(entry.id));
            names.push_back(entry.id.substr(entry.id.rfind('.') + 1));
        } else {
            names.push_back(entry.id);
        }
        const std::string_view program = programName(entry.program);
        names.emplace_back(program);
        names.emplace_back(withoutVersion(program));
        names.push_back(entry.windowClass);
    }
    owner.ids.assign(ids.begin(), ids.end());
    owner.names = candidateNames(std::move(names));
    return owner;
}

} // namespace corvane
