#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "duplicates/file_lists.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli large`: the large files of one folder.
struct LargeCommand {
    std::string path;
    LargeFilesFilter filter;
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

/// `corvane-cli old`: the files of one folder that have not been modified for long.
struct OldCommand {
    std::string path;
    OldFilesFilter filter;
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

/// A count of bytes as `--min` takes it; nothing for any other text.
[[nodiscard]] std::optional<std::int64_t> byteCount(std::string_view text);

/// A count of months as `--months` takes it, at least 1; nothing for any other text.
[[nodiscard]] std::optional<int> monthCount(std::string_view text);

/// A type as `--type` takes it, by its name on the command line, among those that files have; nothing for any other.
[[nodiscard]] std::optional<FileType> fileTypeNamed(std::string_view text);

/// The names of those, with commas between them.
[[nodiscard]] std::string fileTypeNames();

} // namespace corvane
