#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// "3 folders could not be opened".
[[nodiscard]] std::string deniedText(std::int64_t count);

/// One sentence for `ScanProgress::failure`: why the scan failed and what would help.
[[nodiscard]] std::string scanFailureText(const Error &failure);

/// A sentence of `SystemWords` about a folder that the user may not open, with "{}" replaced by the name of its owner.
/// Empty if the system's words name no owner, if the owner is unknown, or if it also owns the user's home folder.
[[nodiscard]] std::string ownerText(std::string_view words, const std::string &path, FileSystem &files);

} // namespace corvane
