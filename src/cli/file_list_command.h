#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/argument_values.h"
#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "lists/file_lists.h"
#include "platform/host.h"

namespace corvane {

// The common part of the commands that list files: their options, their table and their JSON.

/// A list of files and its heading.
struct FoundFiles {
    std::string_view title;
    std::string subtitle;
    std::string_view none; ///< message for an empty list
    FileList files;
    std::size_t more = 0; ///< files beyond the requested number; `writeFilesOf` counts them
};

/// Scans the folders and writes the files that `select` takes of theirs.
[[nodiscard]] ExitStatus writeFilesOf(const Arguments &arguments, Console &console, const Host &host,
                                      const std::function<FoundFiles(const FileList &)> &select);

/// Sets what `minOption` and `withFileListOptions` offer of a filter.
template <typename Filter>
void readFilter(const Arguments &arguments, Filter &filter)
{
    filter.minSize = arguments.value("min", byteCount, validBytes()).value_or(filter.minSize);
    filter.query = arguments.text("name").value_or("");
}

/// The option for the smallest size; `usual` is its default, in bytes.
[[nodiscard]] Option minOption(std::string_view usual);

/// A command's own options, followed by those that all lists of files accept.
[[nodiscard]] std::vector<Option> withFileListOptions(std::vector<Option> options);

} // namespace corvane
