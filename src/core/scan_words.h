#pragma once

#include <cstdint>
#include <string>

#include "platform/error.h"

namespace corvane {

/// "3 folders could not be opened".
[[nodiscard]] std::string deniedText(std::int64_t count);

/// Why a scan could not go on, as `ScanProgress::failure` has it, in a sentence that says what would help.
[[nodiscard]] std::string scanFailureText(const Error &failure);

} // namespace corvane
