#include "cli/commands/commands.h"

#include <chrono>

#include "cli/argument_values.h"
#include "cli/file_list_command.h"
#include "core/calendar.h"
#include "core/words/shared_texts.h"
#include "lists/file_lists.h"

namespace corvane {

namespace {

ExitStatus runOld(const Arguments &arguments, Console &console, const Host &host)
{
    OldFilesFilter filter;
    filter.months = arguments.value("months", monthCount, validMonths()).value_or(filter.months);
    readFilter(arguments, filter);
    return writeFilesOf(arguments, console, host, [&](const FileList &files) {
        FoundFiles found{.title = "Old Files", .subtitle = {}, .none = noOldFilesTitle, .files = {}};
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        found.files = oldFiles(files, filter, systemCalendar().monthsBefore(now, filter.months),
                               SearchableNames(files, userCasing()));
        found.subtitle = oldFilesSubtitle(found.files, filter.months);
        return found;
    });
}

} // namespace

Command oldCommand()
{
    return {.name = "old",
            .summary = "List the files in a folder that were last modified long ago.",
            .paths = {.help = "The folders", .least = 1, .most = PathArguments::anyNumber},
            .options = withFileListOptions(
                {{.name = "months", .value = "N", .help = "Only files not modified for N months, by default 12"},
                 minOption("10000000")}),
            .example = "corvane-cli old ~ --months 24",
            .run = runOld};
}

} // namespace corvane
