#include "core/removal.h"

#include <algorithm>
#include <optional>

#include <fmt/format.h>

#include "core/byte_count.h"
#include "core/checked_add.h"

namespace corvane {
namespace {

bool isMissing(const Error &error)
{
    return error.code == std::errc::no_such_file_or_directory;
}

/// The Trash folders of one system, standardized.
class TrashFolders {
public:
    TrashFolders(const ProtectedLocations &locations, const std::vector<std::string> &ofSystem)
        : m_home(locations.home()), m_folders{joined(m_home, ".Trash")}
    {
        for (const std::string &folder : ofSystem)
            m_folders.push_back(standardizedPath(folder, m_home));
    }

    [[nodiscard]] bool contain(const std::string &path) const
    {
        return std::ranges::any_of(m_folders, [&](const std::string &folder) { return liesBeneath(path, folder); });
    }

    /// Whether the item really lies in the Trash, given the real path of its folder. Resolves only the folders of
    /// which that may be true: a volume that no longer answers would block. A Trash folder that is itself a link
    /// counts for those items alone that were given as lying in it: what it leads to may be any folder.
    [[nodiscard]] bool reallyContain(const std::string &path, const std::string &realFolder, FileSystem &files) const
    {
        const auto isOrLiesIn = [&](const std::string &trash) {
            return realFolder == trash || liesBeneath(realFolder, trash);
        };
        return std::ranges::any_of(m_folders, [&](const std::string &folder) {
            if (isOrLiesIn(folder))
                return true;
            if (liesBeneath(path, folder)) {
                const Expected<std::string> real = files.realPath(folder);
                return real && isOrLiesIn(*real);
            }
            if (!liesBeneath(folder, m_home))
                return false;
            const Expected<std::string> around = files.realPath(std::string(containingFolder(folder)));
            return around && isOrLiesIn(joined(*around, lastPathComponent(folder)));
        });
    }

private:
    std::string m_home;
    std::vector<std::string> m_folders;
};

/// Whether the text of an entry leads the system to the very item that is judged by that text. "~/x" is judged as
/// an item of the home folder, but the system would take it for one called "~"; and it follows "link/.." through
/// the link.
bool isPlain(const std::string &path, const ProtectedLocations &locations)
{
    return path.starts_with('/') && path == standardizedPath(path, locations.home());
}

/// The last ways to the Trash, for what it did not take. Nothing here deletes.
bool trashOtherwise(const std::string &path, const ItemFacts &facts, const Host &host)
{
    if (path.ends_with(".app"))
        return host.trash.recycle(path).has_value();

    // The script addresses an alias, and an alias of a link is one of the link's target.
    if (facts.type == EntryType::symbolicLink)
        return false;
    // What the file manager answers says little; what is left at the path says all.
    (void)host.trash.deleteThroughFinder(path);
    const Expected<ItemFacts> left = host.files.facts(path);
    return !left && isMissing(left.error());
}

/// Carries one step out; the reason when the item could not be removed.
std::optional<std::string> failureOf(const RemovalStep &step, const ProtectedLocations &locations,
                                     const TrashFolders &trashFolders, const Host &host)
{
    static constexpr const char *protectedLocation = "protected location";
    if (!isPlain(step.path, locations))
        return "not a plain path";
    if (step.action == RemovalStep::Action::refuse)
        return protectedLocation;

    // The plan may be old: the item may be gone, or a folder on its way may be a link by now. What is acted on is
    // the path that is judged here, without a link on its way.
    const Expected<std::string> folder = host.files.realPath(std::string(containingFolder(step.path)));
    if (!folder)
        return folder.error().description();
    const std::string path = joined(*folder, lastPathComponent(step.path));
    const Expected<ItemFacts> facts = host.files.facts(path);
    if (!facts)
        return facts.error().description();
    if (locations.isProtected(step.path) || locations.isProtectedReally(path))
        return protectedLocation;

    const bool isInTrash = trashFolders.reallyContain(step.path, *folder, host.files);
    if (step.action == RemovalStep::Action::erase || isInTrash) {
        // What only seems to be in the Trash, behind a link that lies there, was never meant to be deleted.
        if (!isInTrash && trashFolders.contain(step.path))
            return "not in the Trash";
        const Expected<void> erased = host.files.removeItem(path);
        if (!erased)
            return erased.error().description();
        if (isInTrash)
            host.trash.forget(path);
        return std::nullopt;
    }
    const Expected<void> trashed = host.trash.trashItem(path);
    if (trashed || (!isMissing(trashed.error()) && trashOtherwise(path, *facts, host)))
        return std::nullopt;
    return trashed.error().description();
}

} // namespace

std::vector<RemovalStep> Removal::plan(const Selection &entries, bool permanently, const ProtectedLocations &locations,
                                       const std::vector<std::string> &trashFolders, const SeenItems &seen)
{
    const TrashFolders folders(locations, trashFolders);
    std::vector<RemovalStep> steps;
    steps.reserve(entries.size());
    for (const auto &[path, size] : entries) {
        RemovalStep step{.path = path, .size = size, .action = RemovalStep::Action::trash};
        if (!isPlain(path, locations) || locations.isProtected(path))
            step.action = RemovalStep::Action::refuse;
        else if (permanently || folders.contain(path))
            step.action = RemovalStep::Action::erase;
        if (const auto item = seen.find(path); item != seen.end())
            step.seen = item->second;
        steps.push_back(std::move(step));
    }
    return steps;
}

RemovalOutcome Removal::perform(const std::vector<RemovalStep> &steps, const ProtectedLocations &locations,
                                const Host &host, const StopFlag &stop)
{
    const TrashFolders trashFolders(locations, host.trash.trashFolders());
    RemovalOutcome outcome;
    for (const RemovalStep &step : steps) {
        if (stop) {
            outcome.isStopped = true;
            break;
        }
        if (const std::optional<std::string> reason = failureOf(step, locations, trashFolders, host)) {
            const std::string name(lastPathComponent(standardizedPath(step.path, locations.home())));
            outcome.failures.push_back({.path = step.path, .line = name + ": " + *reason});
        } else {
            outcome.removed.push_back({step.path, step.size});
        }
    }
    return outcome;
}

std::string Removal::message(const RemovalOutcome &outcome, bool permanently)
{
    std::int64_t total = 0;
    for (const SelectedEntry &entry : outcome.removed)
        total = checkedAdd(total, entry.size);

    const std::size_t count = outcome.removed.size();
    const std::string items = fmt::format("{} item{}", count, count == 1 ? "" : "s");
    std::string message;
    if (count == 0)
        message = "Nothing was removed";
    else if (permanently)
        message = fmt::format("Deleted {} · freed {}", items, formatByteCount(total));
    else
        message = fmt::format("Moved {} ({}) to Trash — empty it to free the space", items, formatByteCount(total));

    if (!outcome.failures.empty()) {
        message +=
            fmt::format(" · {} couldn't be removed ({})", outcome.failures.size(), outcome.failures.front().line);
    }
    return message;
}

std::string Removal::logText(const RemovalOutcome &outcome)
{
    if (outcome.failures.empty())
        return {};
    std::string text = "Corvane removal failures:";
    for (const RemovalFailure &failure : outcome.failures)
        text.append("\n").append(failure.line);
    return text;
}

} // namespace corvane
