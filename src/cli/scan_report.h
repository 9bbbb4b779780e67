#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "cli/folder_scan.h"
#include "cli/json_writer.h"

namespace corvane {

// What a command tells about its scans beside their results: why they are incomplete, and what a filter left out.

/// Reports on standard error why the result is incomplete, unless the result on the same terminal already says so.
[[nodiscard]] ExitStatus report(const FolderScan &scan, Console &console, bool resultSaysSo);

/// The same for several scans; returns the worst status.
[[nodiscard]] ExitStatus report(std::span<const FolderScan> scans, Console &console, bool resultSaysSo);

/// What a filter left out of the figures, as display lines. All scans have the same filter.
[[nodiscard]] std::vector<std::string> filterNotes(std::span<const FolderScan> scans);

/// Writes the same as the member "filter" of an object; nothing if the filter is the default one.
void writeFilter(std::span<const FolderScan> scans, JsonWriter &json);

} // namespace corvane
