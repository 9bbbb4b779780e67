#include "cli/remove_command.h"

#include <algorithm>
#include <optional>
#include <set>

#include <fmt/format.h>

#include "cli/path_argument.h"
#include "cli/removal_question.h"
#include "cli/remove_json.h"
#include "cli/scan_watch.h"
#include "cli/stop_signal.h"
#include "core/allocated_size.h"
#include "core/removal.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/selection.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

/// As `allocatedSize`, but on several threads, which can be watched and stopped.
std::int64_t sizeOf(const std::string &path, ScanProgress &progress, FileSystem &files)
{
    const Expected<ItemFacts> facts = files.facts(path);
    return facts && facts->type == EntryType::directory ? Scanner::scan(path, progress, files)->size
                                                        : allocatedSize(path, files);
}

/// The selection with what each item occupies; else why the measuring did not come to its end.
tl::expected<Selection, std::string> measured(Selection selection, const Console &console, FileSystem &files)
{
    ScanProgress progress;
    const ScanWatch watch(progress, console.canShowProgress() ? ScanWatch::Display::shown : ScanWatch::Display::hidden);
    for (auto &[path, size] : selection)
        size = sizeOf(path, progress, files);
    if (const std::optional<Error> failure = progress.failure())
        return tl::unexpected(scanFailureText(*failure));
    if (progress.isCancelled())
        return tl::unexpected(std::string("stopped"));
    return selection;
}

bool isRefused(const RemovalStep &step)
{
    return step.action == RemovalStep::Action::refuse;
}

} // namespace

ExitStatus RemoveCommand::run(Console &console, const Host &host) const
{
    const ProtectedLocations &locations = PathGuard::locations();
    std::set<std::string> refused;
    Selection selection;
    for (const std::string &path : paths) {
        const Judged<ExistingItem> item = existingItem(path, host.files);
        if (!item) {
            console.complain(item.error());
            return ExitStatus::refused;
        }
        // What is protected is never in a selection, and so stands for nothing that lies inside it.
        if (locations.isProtected(item->path, host.files))
            refused.insert(item->path);
        else
            selection.emplace(item->path, 0);
    }
    // What is shown from here on is what may be removed, and nothing that takes its place.
    const SeenItems seen = Removal::look(selectedEntries(selection), locations, host);
    RemovalQuestion question;
    if (!yes && !question.canBeAsked()) {
        console.complain("there is no terminal to ask on; --yes removes without asking");
        return ExitStatus::refused;
    }

    tl::expected<Selection, std::string> entries = measured(effectiveSelection(selection), console, host.files);
    if (!entries) {
        if (json) {
            const RemovalOutcome nothing{.removed = {}, .failures = {}, .isStopped = true};
            writeRemovalJson(nothing, Removal::message(nothing, permanently), console.out);
        }
        console.complain(entries.error() + "; nothing was removed");
        return ExitStatus::doneWithFailures;
    }
    for (const std::string &path : refused)
        entries->emplace(path, 0);
    std::vector<RemovalStep> steps = Removal::plan(*entries, permanently, locations, host.trash.trashFolders(), seen);
    for (RemovalStep &step : steps) {
        if (refused.contains(step.path))
            step.action = RemovalStep::Action::refuse;
    }

    RemovalOutcome outcome;
    if (yes || std::ranges::all_of(steps, isRefused) || question.ask(steps, permanently)) {
        const StopSignal signal;
        outcome = Removal::perform(steps, locations, host, StopSignal::flag());
    }
    const std::string message = Removal::message(outcome, permanently);
    if (json)
        writeRemovalJson(outcome, message, console.out);
    else
        console.out.write(displayUtf8(message) + "\n");
    for (const RemovalFailure &failure : outcome.failures)
        console.complain(failure.line);
    if (outcome.isStopped) {
        const std::size_t untouched = steps.size() - outcome.removed.size() - outcome.failures.size();
        console.complain(fmt::format("stopped; {} left as before",
                                     formatCount(static_cast<std::int64_t>(untouched), "item", "items")));
    }
    return outcome.failures.empty() && !outcome.isStopped ? ExitStatus::done : ExitStatus::doneWithFailures;
}

} // namespace corvane
