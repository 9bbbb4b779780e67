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

std::vector<std::string> allTrashFolders(const ProtectedLocations &locations, std::vector<std::string> ofSystem)
{
    ofSystem.push_back(locations.home() + "/.Trash");
    return ofSystem;
}

bool liesInTrash(const std::string &path, const ProtectedLocations &locations,
                 const std::vector<std::string> &trashFolders)
{
    const std::string standardized = standardizedPath(path, locations.home());
    return std::ranges::any_of(trashFolders,
                               [&](const std::string &folder) { return liesBeneath(standardized, folder); });
}

/// Whether the item lies in the Trash with every link on the way to it followed.
bool liesReallyInTrash(const std::string &path, const std::vector<std::string> &trashFolders, FileSystem &files)
{
    const Expected<std::string> folder = files.realPath(std::string(containingFolder(path)));
    return folder && std::ranges::any_of(trashFolders, [&](const std::string &trashFolder) {
               const Expected<std::string> real = files.realPath(trashFolder);
               return real && (*folder == *real || liesBeneath(*folder, *real));
           });
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
                                     const std::vector<std::string> &trashFolders, const Host &host)
{
    static constexpr const char *protectedLocation = "protected location";
    if (step.action == RemovalStep::Action::refuse)
        return protectedLocation;

    // The plan may be old: the item may be gone, or a folder on its way may be a link by now.
    const Expected<ItemFacts> facts = host.files.facts(step.path);
    if (!facts)
        return facts.error().description();
    if (locations.isProtected(step.path, host.files))
        return protectedLocation;

    if (step.action == RemovalStep::Action::erase) {
        // What only seems to be in the Trash, behind a link that lies there, was never meant to be deleted.
        if (liesInTrash(step.path, locations, trashFolders) && !liesReallyInTrash(step.path, trashFolders, host.files))
            return "not in the Trash";
        const Expected<void> erased = host.files.removeItem(step.path);
        return erased ? std::nullopt : std::optional(erased.error().description());
    }
    const Expected<void> trashed = host.trash.trashItem(step.path);
    if (trashed || (!isMissing(trashed.error()) && trashOtherwise(step.path, *facts, host)))
        return std::nullopt;
    return trashed.error().description();
}

} // namespace

std::vector<RemovalStep> Removal::plan(const Selection &entries, bool permanently, const ProtectedLocations &locations,
                                       const std::vector<std::string> &trashFolders)
{
    const std::vector<std::string> allFolders = allTrashFolders(locations, trashFolders);
    std::vector<RemovalStep> steps;
    steps.reserve(entries.size());
    for (const auto &[path, size] : entries) {
        RemovalStep step{.path = path, .size = size, .action = RemovalStep::Action::trash};
        // "~/x" is judged as an item of the home folder, but the system would take it for one called "~".
        if (!path.starts_with('/') || locations.isProtected(path))
            step.action = RemovalStep::Action::refuse;
        else if (permanently || liesInTrash(path, locations, allFolders))
            step.action = RemovalStep::Action::erase;
        steps.push_back(std::move(step));
    }
    return steps;
}

RemovalOutcome Removal::perform(const std::vector<RemovalStep> &steps, const ProtectedLocations &locations,
                                const Host &host)
{
    const std::vector<std::string> trashFolders = allTrashFolders(locations, host.trash.trashFolders());
    RemovalOutcome outcome;
    for (const RemovalStep &step : steps) {
        if (const std::optional<std::string> reason = failureOf(step, locations, trashFolders, host)) {
            const std::string name(lastPathComponent(standardizedPath(step.path, locations.home())));
            outcome.failures.push_back(name + ": " + *reason);
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
        message += fmt::format(" · {} couldn't be removed ({})", outcome.failures.size(), outcome.failures.front());
    }
    return message;
}

std::string Removal::logText(const RemovalOutcome &outcome)
{
    if (outcome.failures.empty())
        return {};
    return fmt::format("Corvane removal failures:\n{}", fmt::join(outcome.failures, "\n"));
}

} // namespace corvane
