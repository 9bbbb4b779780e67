#include "apps/sandboxed_apps.h"

#include <algorithm>
#include <utility>

#include "apps/app_description.h"
#include "apps/name_pieces.h"
#include "core/allocated_size.h"
#include "core/foreign_sum.h"
#include "core/size_walk.h"
#include "core/words/lower_case.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

constexpr std::size_t longestDescription = 1024UL * 1024;

AppDescription flatpakDescription(const std::string &app, const std::string &id, FileSystem &files)
{
    const WalkConditions conditions;
    for (const std::string &file :
         {"metainfo/" + id + ".metainfo.xml", "appdata/" + id + ".appdata.xml", "metainfo/" + id + ".appdata.xml"}) {
        const auto text = openPatiently(
            [&] { return files.readFile(joined(app, "current/active/files/share/" + file), longestDescription); });
        if (text)
            return AppDescription::parse(*text);
    }
    return {};
}

/// The version in a Snap's metadata: the value of a key at the start of a line.
std::string snapVersion(const std::string &snap, FileSystem &files)
{
    const WalkConditions conditions;
    const auto text = openPatiently(
        [&] { return files.readFile(joined(mountedSnaps, snap + "/current/meta/snap.yaml"), longestDescription); });
    constexpr std::string_view key = "\nversion:";
    const std::string all = "\n" + text.value_or(std::string());
    const std::size_t start = all.find(key);
    if (start == std::string::npos)
        return {};
    std::string version = all.substr(start + key.size(), all.find('\n', start + 1) - start - key.size());
    std::erase_if(version, [](char each) { return std::string_view(" \"'\r\t").find(each) != std::string_view::npos; });
    return isVersion(version) ? version : std::string();
}

/// A Snap's icon is inside its mounted package, whether or not its entry refers to it.
std::string snapIcon(const std::string &snap, const DesktopEntry &entry, const IconSearch &icons, FileSystem &files)
{
    if (std::string named = icons.find(entry.icon); !named.empty() && files.exists(named))
        return named;
    for (const char *const own : {"icon.png", "icon.svg"}) {
        if (std::string path = joined(mountedSnaps, snap + "/current/meta/gui/" + own); files.exists(path))
            return path;
    }
    return {};
}

} // namespace

std::optional<FoundApp> flatpakAt(const FlatpakFolder &folder, const std::string &id, const IconSearch &icons,
                                  const SearchContext &context)
{
    FileSystem &files = context.files;
    const std::string place = joined(folder.path, "app/" + id);
    const std::string share = joined(folder.path, "exports/share");
    const std::optional<DesktopEntry> entry =
        DesktopEntry::read(joined(share, "applications/" + id + ".desktop"), files);
    if (isThisApplication(id) || (entry && !entry->isShown))
        return std::nullopt;
    AppDescription description = flatpakDescription(place, id, files);
    if (description.name.empty())
        description.name = id;
    FoundApp found{
        .app = {.path = place,
                .name = entry ? entry->name : description.name,
                .bundleID = id,
                .version = description.version,
                .lastUsed = {},
                .leftovers = {},
                .source = InstalledApp::Source::flatpak,
                .removeCommand = folder.command + id,
                .icon = icons.find(entry ? entry->icon : id)},
        .owner = ownerOf(entry ? std::vector{*entry} : std::vector<DesktopEntry>(), place),
        .size = [place, &context]() -> std::int64_t {
            const WalkConditions conditions;
            auto opened = openPatiently([&] { return context.files.openFolder(place); });
            if (!opened)
                return 0;
            const ExcludedItems none;
            return SizeWalk(SizeWalk::Counting::asTheDisk, none, context.stop).walk(*std::move(opened), place);
        }};
    found.owner.flatpak = lowerCase(id);
    if (std::ranges::find(found.owner.ids, found.owner.flatpak) == found.owner.ids.end())
        found.owner.ids.push_back(found.owner.flatpak);
    return found;
}

SnapImages SnapImages::in(const std::vector<std::string> &names)
{
    SnapImages images;
    for (const std::string &name : names) {
        const std::size_t revision = name.rfind('_');
        if (name.ends_with(".snap") && revision != std::string::npos && isPlainName(name.substr(0, revision)))
            images.byName[name.substr(0, revision)].push_back(joined(folder, name));
    }
    return images;
}

std::vector<FoundApp> snaps(const SnapImages &images, const IconSearch &icons, const SearchContext &context)
{
    std::map<std::string, std::vector<DesktopEntry>> entries;
    for (DesktopEntry &entry : entriesIn(std::string(snapEntries), context)) {
        // "name_application.desktop"
        std::string snap = entry.snap.empty() ? entry.id.substr(0, entry.id.find('_')) : entry.snap;
        if (images.byName.contains(snap))
            entries[std::move(snap)].push_back(std::move(entry));
    }
    std::vector<FoundApp> found;
    for (auto &[snap, shown] : entries) {
        const DesktopEntry &entry = shown.front();
        FoundApp each{.app = {.path = entry.path,
                              .name = entry.name,
                              .bundleID = snap,
                              .version = snapVersion(snap, context.files),
                              .lastUsed = {},
                              .leftovers = {},
                              .source = InstalledApp::Source::snap,
                              .removeCommand = "sudo snap remove " + snap,
                              .icon = snapIcon(snap, entry, icons, context.files)},
                      .owner = ownerOf(shown, entry.path),
                      .size = [paths = images.byName.at(snap), &context] {
                          ForeignSum sum;
                          std::int64_t size = 0;
                          for (const std::string &path : paths) {
                              if (const Expected<ItemFacts> facts = context.files.facts(path))
                                  size += sum.counted(fileSize(*facts));
                          }
                          return size;
                      }};
        each.owner.snap = lowerCase(snap);
        found.push_back(std::move(each));
    }
    return found;
}

} // namespace corvane
