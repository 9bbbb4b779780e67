#pragma once

#include "shell/ui/icon_provider.h"

namespace corvane {

/// The system's own drawings of symbols; empty if it has none.
[[nodiscard]] SystemSymbols systemSymbols();

} // namespace corvane
