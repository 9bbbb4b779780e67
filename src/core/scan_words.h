#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// "3 folders could not be opened".
[[nodiscard]] std::string deniedText(std::int64_t count);

/// Why a scan could not go on, as `ScanProgress::failure` has it, in a sentence, with what would help.
[[nodiscard]] std::string scanFailureText(const Error &failure);

/// A sentence of `SystemWords` about a folder that the user may not open, with the name of its owner in the place of
/// "{}". Empty where the system's words tell no owner, where none is known, and where the user's home folder has the
/// same one.
[[nodiscard]] std::string ownerText(std::string_view words, const std::string &path, FileSystem &files);

} // namespace corvane
