#include "core/removal.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include <fmt/format.h>

#include "core/allocated_size.h"
#include "core/checked_add.h"
#include "core/second_paths.h"
#include "core/trash_move.h"
#include "core/words/figures.h"

namespace corvane {
namespace {

/// The Trash folders of one system, standardized.
class TrashFolders {
public:
    TrashFolders(const ProtectedLocations &locations, const std::vector<std::string> &ofSystem)
        : m_home(locations.home()), m_realHome(locations.realHome()), m_folders{joined(m_home, ".Trash")}
    {
        for (const std::string &folder : ofSystem)
            m_folders.push_back(standardizedPath(folder, m_home));
    }

    [[nodiscard]] bool contain(const std::string &path) const
    {
        return std::ranges::any_of(m_folders, [&](const std::string &folder) { return liesBeneath(path, folder); });
    }

    /// Resolves only the Trash folders that contain a step's path: querying a volume that no longer answers would
    /// block. Changes to a Trash folder's links after this are ignored.
    void resolveThoseOf(const std::vector<RemovalStep> &steps, FileSystem &files)
    {
        for (const std::string &folder : m_folders) {
            if (std::ranges::none_of(steps, [&](const auto &step) { return liesBeneath(step.path, folder); }))
                continue;
            if (Expected<std::string> real = files.realPath(folder))
                m_resolved.emplace_back(folder, std::move(*real));
        }
    }

    /// Whether the item really lies in the Trash, given the real path of its folder. If a Trash folder is itself a
    /// link, only items given by a path inside it count: the link may point to any folder.
    [[nodiscard]] bool reallyContain(const std::string &path, const std::string &realFolder) const
    {
        const auto isOrLiesIn = [&](const std::string &trash) { return isOrLiesBeneath(realFolder, trash); };
        return std::ranges::any_of(m_folders,
                                   [&](const std::string &folder) {
                                       return isOrLiesIn(folder) ||
                                              (liesBeneath(folder, m_home) &&
                                               isOrLiesIn(m_realHome + folder.substr(m_home.size())));
                                   }) ||
               std::ranges::any_of(m_resolved, [&](const auto &folder) {
                   return liesBeneath(path, folder.first) && isOrLiesIn(folder.second);
               });
    }

private:
    std::string m_home;
    std::string m_realHome;
    std::vector<std::string> m_folders;
    std::vector<std::pair<std::string, std::string>> m_resolved; // as given, and with links resolved
};

/// Whether the system resolves the entry's path to the very item that the checks judge by its text. The checks treat
/// "~/x" as an item of the home folder, but the system looks for an item called "~"; and the system resolves "link/.."
/// through the link.
bool isPlain(const std::string &path, const ProtectedLocations &locations)
{
    return path.starts_with('/') && path == standardizedPath(path, locations.home());
}

/// The reason not to remove a folder that is a mount point or contains one: emptying the Trash afterwards would empty
/// the mounted disk. Other kinds of items pass: the system itself refuses to remove such a mount point.
std::optional<std::string> mountedOn(const std::string &path, const ItemFacts &facts,
                                     const Expected<std::vector<std::string>> &mountPoints,
                                     const ProtectedLocations &locations)
{
    if (facts.type != EntryType::directory)
        return std::nullopt;
    if (!mountPoints)
        return mountPoints.error().description();
    const std::string folder = locations.folded(path);
    const auto anyPoint = [&](const auto &condition) {
        return std::ranges::any_of(*mountPoints,
                                   [&](const std::string &point) { return condition(locations.folded(point)); });
    };
    if (anyPoint([&](const std::string &point) { return point == folder; }))
        return "Another disk is mounted there.";
    if (anyPoint([&](const std::string &point) { return liesBeneath(point, folder); }))
        return diskMountedInside;
    return std::nullopt;
}

/// Why an item could not be removed, and what is left of it.
struct Refusal {
    Refusal(const char *why) : reason(why) {}
    Refusal(std::string why, RemovalFailure::Left what = RemovalFailure::Left::asItWas, std::int64_t bytes = 0)
        : reason(std::move(why)), left(what), freed(bytes)
    {
    }

    std::string reason;
    RemovalFailure::Left left = RemovalFailure::Left::asItWas;
    std::int64_t freed = 0;
};

/// The system's error; also records that nothing is left if the error says so.
Refusal systemRefusal(const Error &error)
{
    return {error.description(), error.isMissing() ? RemovalFailure::Left::nothing : RemovalFailure::Left::asItWas};
}

/// What is at the path after an operation that changed nothing: the judged item may have gone meanwhile, and another
/// may have replaced it.
RemovalFailure::Left leftAt(const std::string &path, const ItemIdentity &judged, FileSystem &files)
{
    const Expected<ItemFacts> found = files.facts(path);
    if (!found)
        return found.error().isMissing() ? RemovalFailure::Left::nothing : RemovalFailure::Left::asItWas;
    return found->identity == judged ? RemovalFailure::Left::asItWas : RemovalFailure::Left::somethingElse;
}

/// A failed deletion: names the item inside that could not be deleted, and checks what is left.
Refusal deletionRefusal(const RemovalStep &step, const std::string &path, const ItemIdentity &judged,
                        const Error &error, FileSystem &files)
{
    std::string reason = error.description();
    if (liesBeneath(error.path, path))
        reason = error.path.substr(path.size() + (path.ends_with('/') ? 0 : 1)) + ": " + reason;
    if (!error.inPart)
        return {reason, leftAt(step.path, judged, files)};
    const std::int64_t freed = std::max<std::int64_t>(0, step.size - folderSize(path, files));
    return {reason + "; the rest was deleted", RemovalFailure::Left::aPart, freed};
}

/// Whether the file is unchanged since its contents were compared.
bool isUnchanged(const std::string &path, const FileStatus &seen, FileSystem &files)
{
    const Expected<std::unique_ptr<FileReader>> file = files.openFile(path);
    if (!file)
        return false;
    const Expected<FileStatus> status = (*file)->status();
    return status && *status == seen;
}

/// Whether the path is a second path to the very item being removed, as when a folder is mounted twice: then it is
/// removed as well. Another hard link to the same file is not.
bool isSameEntry(const std::string &path, const HeldFolder &folder, const std::string &name, FileSystem &files)
{
    if (lastPathComponent(path) != name)
        return false;
    const Expected<std::unique_ptr<HeldFolder>> around = files.holdFolder(std::string(containingFolder(path)));
    return around && (*around)->identity() == folder.identity();
}

/// Why a duplicate, or a folder that contains some, must not be removed: no copy of its contents would be left.
std::optional<Refusal> lastCopyRefusal(const RemovalStep &step, const HeldFolder &folder, const std::string &name,
                                       bool isInTrash, const TrashFolders &trashFolders, FileSystem &files)
{
    const RemovalCondition &condition = step.condition;
    if (condition.holdsKeptCopy)
        return "it holds the copy to keep";
    if (condition.itself && !isUnchanged(step.path, *condition.itself, files))
        return "it has changed since it was compared";
    for (const KeptCopies &copies : condition.copies) {
        const auto isThere = [&](const KeptCopy &copy) {
            return isUnchanged(copy.path, copy.seen, files) && !isSameEntry(copy.path, folder, name, files);
        };
        // A copy in the Trash does not count: users are told to empty the Trash next.
        const auto stays = [&](const KeptCopy &copy) {
            return (isInTrash || !trashFolders.contain(copy.path)) && isThere(copy);
        };
        if (std::ranges::any_of(*copies, stays))
            continue;
        return std::ranges::any_of(*copies, isThere) ? "the only other copy is in the Trash"
                                                     : "the kept copy has changed";
    }
    return std::nullopt;
}

/// Carries out one step; returns the reason if the item could not be removed.
std::optional<Refusal> failureOf(const RemovalStep &step, const ProtectedLocations &locations,
                                 const TrashFolders &trashFolders, SecondPaths &secondPaths, const Host &host)
{
    static constexpr const char *protectedLocation = "protected location";
    if (!isPlain(step.path, locations))
        return "not a plain path";
    if (step.action == RemovalStep::Action::refuse)
        return protectedLocation;

    // The plan may be stale: the item may be gone, or a folder on its path may have become a link. Everything below
    // acts on the folder opened here, even if its path changes afterwards.
    const Expected<std::unique_ptr<HeldFolder>> folder =
        host.files.holdFolder(std::string(containingFolder(step.path)));
    if (!folder) {
        Refusal refusal = systemRefusal(folder.error());
        // A file has replaced a folder on the path.
        if (folder.error().code == std::errc::not_a_directory && !host.files.exists(step.path))
            refusal.left = RemovalFailure::Left::nothing;
        return refusal;
    }
    const std::string name(lastPathComponent(step.path));
    const std::string path = joined((*folder)->path(), name);
    const Expected<ItemFacts> facts = (*folder)->facts(name);
    if (!facts)
        return systemRefusal(facts.error());
    const Expected<std::vector<std::string>> mountPoints = host.files.mountPoints();
    if (locations.isProtected(step.path) || locations.isProtectedReally(path) ||
        (mountPoints && secondPaths.leadToProtected(path, *mountPoints)))
        return protectedLocation;
    if (std::optional<std::string> mounted = mountedOn(path, *facts, mountPoints, locations))
        return mounted;

    if (step.seen && !(step.seen->isKnown() && *step.seen == facts->identity))
        return Refusal("it has changed since you selected it", RemovalFailure::Left::somethingElse);

    const bool isInTrash = trashFolders.reallyContain(step.path, (*folder)->path());
    if (std::optional<Refusal> refusal = lastCopyRefusal(step, **folder, name, isInTrash, trashFolders, host.files))
        return refusal;
    if (step.action == RemovalStep::Action::erase || isInTrash) {
        // An item reached through a link inside the Trash only appears to be in it, and must not be deleted.
        if (!isInTrash && trashFolders.contain(step.path))
            return "not in the Trash";
        const Expected<void> erased = (*folder)->removeItem(name, facts->identity);
        if (!erased)
            return deletionRefusal(step, path, facts->identity, erased.error(), host.files);
        if (isInTrash)
            host.trash.forget(**folder, name);
        return std::nullopt;
    }
    const Expected<void> trashed = TrashMove(**folder, name, *facts, host).perform();
    if (!trashed)
        return Refusal(trashed.error().description(), leftAt(step.path, facts->identity, host.files));
    return std::nullopt;
}

/// Ends the request when it goes out of scope.
class RequestToTrash {
public:
    explicit RequestToTrash(Trash &trash) : m_trash(trash) {}
    RequestToTrash(const RequestToTrash &) = delete;
    RequestToTrash &operator=(const RequestToTrash &) = delete;
    ~RequestToTrash() { m_trash.endRequest(); }

private:
    Trash &m_trash;
};

} // namespace

SeenItems Removal::look(std::span<const SelectedEntry> entries, const ProtectedLocations &locations, const Host &host)
{
    TrashFolders trashFolders(locations, host.trash.trashFolders());
    std::vector<RemovalStep> steps(entries.size());
    std::ranges::transform(entries, steps.begin(), [](const SelectedEntry &entry) {
        return RemovalStep{.path = entry.path, .size = entry.size};
    });
    trashFolders.resolveThoseOf(steps, host.files);
    // Thousands of items of one folder may be selected at once, so cache the answer per folder.
    std::unordered_map<std::string, bool> isTrash;
    const auto liesInTrash = [&](const std::string &path) {
        if (trashFolders.contain(path))
            return true;
        const auto [known, isNew] = isTrash.try_emplace(std::string(containingFolder(path)), false);
        if (isNew) {
            const Expected<std::string> folder = host.files.realPath(known->first);
            known->second = folder && trashFolders.reallyContain(path, *folder);
        }
        return known->second;
    };
    SeenItems seen;
    for (const SelectedEntry &entry : entries) {
        const Expected<ItemFacts> facts = host.files.facts(entry.path);
        seen.insert_or_assign(entry.path, SeenItem{.identity = facts ? facts->identity : ItemIdentity(),
                                                   .isInTrash = liesInTrash(entry.path)});
    }
    return seen;
}

std::vector<RemovalStep> Removal::plan(const Selection &entries, bool permanently, const ProtectedLocations &locations,
                                       const std::vector<std::string> &trashFolders, const SeenItems &seen,
                                       const RemovalConditions &conditions)
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
        if (const auto item = seen.find(path); item != seen.end()) {
            step.seen = item->second.identity;
            if (item->second.isInTrash && step.action == RemovalStep::Action::trash)
                step.action = RemovalStep::Action::erase;
        }
        if (const auto condition = conditions.find(path); condition != conditions.end())
            step.condition = condition->second;
        steps.push_back(std::move(step));
    }
    return steps;
}

RemovalOutcome Removal::perform(const std::vector<RemovalStep> &steps, const ProtectedLocations &locations,
                                const Host &host, const StopFlag &stop,
                                const std::function<void(const RemovalStep &)> &announce)
{
    TrashFolders trashFolders(locations, host.trash.trashFolders());
    trashFolders.resolveThoseOf(steps, host.files);
    RemovalOutcome outcome;
    outcome.removed.reserve(steps.size());
    SecondPaths secondPaths(locations, host.files);
    const RequestToTrash request(host.trash);
    for (const RemovalStep &step : steps) {
        if (stop) {
            outcome.isStopped = true;
            break;
        }
        if (announce)
            announce(step);
        if (const std::optional<Refusal> refusal = failureOf(step, locations, trashFolders, secondPaths, host)) {
            const std::string name(lastPathComponent(standardizedPath(step.path, locations.home())));
            outcome.failures.push_back({.path = step.path,
                                        .line = name + ": " + refusal->reason,
                                        .left = refusal->left,
                                        .freed = refusal->freed});
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
    bool hasDeletedParts = false;
    for (const RemovalFailure &failure : outcome.failures) {
        total = checkedAdd(total, failure.freed);
        hasDeletedParts |= failure.left == RemovalFailure::Left::aPart;
    }

    const auto count = static_cast<std::int64_t>(outcome.removed.size());
    const std::string items = fmt::format("{} {}", count, plural(count, "item", "items"));
    std::string message;
    if (count == 0 && !hasDeletedParts)
        message = "Nothing was removed";
    else if (permanently || count == 0) // nothing was moved: only a deletion leaves a part
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
