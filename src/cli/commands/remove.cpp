#include "cli/commands/commands.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <optional>
#include <set>

#include <fmt/format.h>

#include "cli/json_writer.h"
#include "cli/removal_question.h"
#include "cli/scan_watch.h"
#include "cli/watch.h"
#include "core/allocated_size.h"
#include "core/path_argument.h"
#include "core/removal.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/selection.h"
#include "core/stop_flag.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

void writeFailedItems(const std::vector<RemovalFailure> &failures, JsonWriter &json)
{
    json.key("failedItems");
    json.beginArray();
    for (const RemovalFailure &failure : failures) {
        json.beginObject();
        json.bytes("path", failure.path);
        json.text("line", failure.line);
        if (failure.left == RemovalFailure::Left::aPart) {
            json.value("freed", failure.freed);
        }
        json.endObject();
    }
    json.endArray();
}

/// As `allocatedSize`, but on several threads, with progress, and stoppable.
std::int64_t sizeOf(const std::string &path, ScanProgress &progress, FileSystem &files)
{
    const Expected<ItemFacts> facts = files.facts(path);
    return facts && facts->type == EntryType::directory ? Scanner::scan(path, progress, files)->size
                                                        : allocatedSize(path, files);
}

/// The selection with the size of each item; otherwise why the measurement was not completed.
tl::expected<Selection, std::string> measured(Selection selection, const Console &console, FileSystem &files)
{
    ScanProgress progress;
    const ScanWatch watch(progress, console.progressDisplay());
    for (auto &[path, size] : selection)
        size = sizeOf(path, progress, files);
    if (const std::optional<Error> failure = progress.failure())
        return tl::unexpected(scanFailureText(*failure));
    if (progress.isCancelled())
        return tl::unexpected(std::string("stopped"));
    return selection;
}

/// The progress of a removal, written by the thread that removes and read by the one that displays it.
class RemovalProgress {
public:
    explicit RemovalProgress(std::size_t count) : m_count(static_cast<std::int64_t>(count)) {}

    void begin(const RemovalStep &step)
    {
        const std::scoped_lock lock(m_lock);
        ++m_begun;
        m_path = step.path;
    }

    [[nodiscard]] std::string line(std::size_t columns) const
    {
        const std::scoped_lock lock(m_lock);
        const std::string figures =
            fmt::format("Removing… {} of {}", formatCount(m_begun), formatCount(m_count, "item", "items"));
        return lineWithPath(figures, m_path, columns);
    }

private:
    mutable std::mutex m_lock;
    const std::int64_t m_count;
    std::int64_t m_begun = 0; // guarded by m_lock, like the members below
    std::string m_path;
};

RemovalOutcome perform(const std::vector<RemovalStep> &steps, const Console &console, const Host &host)
{
    StopFlag stop = false;
    RemovalProgress progress(steps.size());
    const Watch watch([&] { stop = true; }, [&](std::size_t columns) { return progress.line(columns); },
                      console.progressDisplay());
    return Removal::perform(steps, PathGuard::locations(), host, stop,
                            [&](const RemovalStep &step) { progress.begin(step); });
}

bool isRefused(const RemovalStep &step)
{
    return step.action == RemovalStep::Action::refuse;
}

std::string_view nameOf(RemovalStep::Action action)
{
    switch (action) {
    case RemovalStep::Action::refuse:
        return "refuse";
    case RemovalStep::Action::trash:
        return "trash";
    case RemovalStep::Action::erase:
        return "delete";
    }
    return {};
}

void writeSteps(const std::vector<RemovalStep> &steps, JsonWriter &json)
{
    json.key("steps");
    json.beginArray();
    for (const RemovalStep &step : steps) {
        json.beginObject();
        json.bytes("path", step.path);
        json.value("size", step.size);
        json.text("action", nameOf(step.action));
        json.endObject();
    }
    json.endArray();
}

/// The outcome of a removal as one JSON document; for a dry run, also the planned steps.
void writeRemovalJson(const RemovalOutcome &outcome, std::string_view message, Output &out,
                      const std::vector<RemovalStep> *tried = nullptr)
{
    JsonWriter json(out);
    json.beginObject();
    json.text("message", message);
    json.key("removed");
    json.beginArray();
    for (const SelectedEntry &entry : outcome.removed) {
        json.beginObject();
        json.bytes("path", entry.path);
        json.value("size", entry.size);
        json.endObject();
    }
    json.endArray();
    json.key("failures");
    json.beginArray();
    for (const RemovalFailure &failure : outcome.failures)
        json.text(failure.line);
    json.endArray();
    if (!outcome.failures.empty())
        writeFailedItems(outcome.failures, json);
    if (outcome.isStopped)
        json.value("cancelled", true);
    if (tried != nullptr)
        writeSteps(*tried, json);
    json.endObject();
    json.finish();
}

/// How the removal is done and reported.
struct Manner {
    bool permanently;
    bool yes;
    bool json;
    bool isDryRun;
};

/// The items named by the arguments.
struct NamedItems {
    Selection selection; ///< without sizes
    std::set<std::string> refused;
    SeenItems seen; ///< only the items found first may be removed, not replacements
};

/// Looks up the arguments' paths; the sentence of the first that names no item.
Judged<NamedItems> namedItems(const Arguments &arguments, const Host &host)
{
    const ProtectedLocations &locations = PathGuard::locations();
    NamedItems items;
    for (const std::string &path : arguments.paths) {
        const Judged<ExistingItem> item = existingItem(path, host.files);
        if (!item)
            return tl::unexpected(item.error());
        // Never select a protected item, so that it does not stand for selected items inside it.
        if (locations.isProtected(item->path, host.files))
            items.refused.insert(item->path);
        else
            items.selection.emplace(item->path, 0);
    }
    items.seen = Removal::look(selectedEntries(items.selection), locations, host);
    return items;
}

/// What would happen to each item; otherwise why the items could not be measured.
tl::expected<std::vector<RemovalStep>, std::string> plan(const NamedItems &items, bool permanently,
                                                         const Console &console, const Host &host)
{
    tl::expected<Selection, std::string> entries = measured(effectiveSelection(items.selection), console, host.files);
    if (!entries)
        return tl::unexpected(entries.error());
    for (const std::string &path : items.refused)
        entries->emplace(path, 0);
    std::vector<RemovalStep> steps =
        Removal::plan(*entries, permanently, PathGuard::locations(), host.trash.trashFolders(), items.seen);
    for (RemovalStep &step : steps) {
        if (items.refused.contains(step.path))
            step.action = RemovalStep::Action::refuse;
    }
    return steps;
}

/// Whether the steps may be performed. Asks only if something would be removed.
bool isConfirmed(const std::vector<RemovalStep> &steps, Manner manner, const RemovalQuestion &question)
{
    return manner.yes || std::ranges::all_of(steps, isRefused) || question.ask(steps, manner.permanently);
}

/// Performs only the steps that would be refused, so that they are reported as in a real run.
RemovalOutcome performRefusals(const std::vector<RemovalStep> &steps, const Console &console, const Host &host)
{
    std::vector<RemovalStep> refusals;
    std::ranges::copy_if(steps, std::back_inserter(refusals), isRefused);
    return perform(refusals, console, host);
}

ExitStatus reportNotMeasured(const std::string &reason, Manner manner, Console &console)
{
    if (manner.json) {
        const RemovalOutcome nothing{.removed = {}, .failures = {}, .isStopped = true};
        writeRemovalJson(nothing, Removal::message(nothing, manner.permanently), console.out);
    }
    console.complain(reason + "; nothing was removed");
    return ExitStatus::doneWithFailures;
}

ExitStatus report(const RemovalOutcome &outcome, const std::vector<RemovalStep> &steps, Manner manner, Console &console)
{
    const std::string message = Removal::message(outcome, manner.permanently);
    if (manner.json) {
        writeRemovalJson(outcome, message, console.out, manner.isDryRun ? &steps : nullptr);
    } else {
        if (manner.isDryRun)
            console.out.write(planText(steps, manner.permanently));
        console.out.write(displayUtf8(message) + "\n");
    }
    for (const RemovalFailure &failure : outcome.failures)
        console.complain(failure.line);
    if (outcome.isStopped) {
        const std::size_t untouched = steps.size() - outcome.removed.size() - outcome.failures.size();
        console.complain(fmt::format("stopped; {} left as before",
                                     formatCount(static_cast<std::int64_t>(untouched), "item", "items")));
    }
    return outcome.failures.empty() && !outcome.isStopped ? ExitStatus::done : ExitStatus::doneWithFailures;
}

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const Manner manner{.permanently = arguments.has("permanently"),
                        .yes = arguments.has("yes"),
                        .json = arguments.has("json"),
                        .isDryRun = arguments.has("dry-run")};
    const Judged<NamedItems> items = namedItems(arguments, host);
    if (!items) {
        console.complain(items.error());
        return ExitStatus::refused;
    }
    const RemovalQuestion question;
    if (!manner.yes && !manner.isDryRun && !question.canBeAsked()) {
        console.complain("there is no terminal to ask on; --yes removes without asking");
        return ExitStatus::refused;
    }
    const auto steps = plan(*items, manner.permanently, console, host);
    if (!steps)
        return reportNotMeasured(steps.error(), manner, console);

    RemovalOutcome outcome;
    if (manner.isDryRun)
        outcome = performRefusals(*steps, console, host);
    else if (isConfirmed(*steps, manner, question))
        outcome = perform(*steps, console, host);
    return report(outcome, *steps, manner, console);
}

} // namespace

Command removeCommand()
{
    return {.name = "remove",
            .summary = "Move items to the Trash, after asking.",
            .paths = {.help = "Files, folders and links; of a link, only the link is removed",
                      .least = 1,
                      .most = PathArguments::anyNumber},
            .options = {{.name = "permanently", .help = "Delete for good instead of moving to the Trash"},
                        {.name = "yes", .help = "Do not ask; needed if there is no terminal to ask on", .letter = 'y'},
                        {.name = "dry-run", .help = "Show what would be done, without doing it"}},
            .example = "corvane-cli remove ~/Downloads/old.iso ~/build",
            .home = Command::Home::needed,
            .run = run};
}

} // namespace corvane
