#include "cli/commands/commands.h"

#include "cli/argument_values.h"
#include "cli/file_list_command.h"
#include "core/words/shared_texts.h"
#include "lists/file_lists.h"

namespace corvane {

namespace {

ExitStatus runLarge(const Arguments &arguments, Console &console, const Host &host)
{
    LargeFilesFilter filter;
    readFilter(arguments, filter);
    filter.type = arguments.value("type", fileTypeNamed, "one of " + fileTypeNames());
    return writeFilesOf(arguments, console, host, [&](const FileList &files) {
        FoundFiles found{.title = "Large Files", .subtitle = {}, .none = noLargeFilesTitle, .files = {}};
        found.files = largeFiles(files, filter, SearchableNames(files, userCasing()));
        found.subtitle = largeFilesSubtitle(found.files);
        return found;
    });
}

} // namespace

Command largeCommand()
{
    return {.name = "large",
            .summary = "List the large files in a folder.",
            .paths = {.help = "The folders", .least = 1, .most = PathArguments::anyNumber},
            .options = withFileListOptions(
                {minOption("100000000"),
                 {.name = "type", .value = "TYPE", .help = "Only files of TYPE: " + fileTypeNames()}}),
            .example = "corvane-cli large ~ --min 1000000000 --type video",
            .run = runLarge};
}

} // namespace corvane
