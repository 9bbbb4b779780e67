#pragma once

#include "shell/ui/icon_provider.h"

namespace corvane {

/// The system's own drawings of symbols; empty where it has none at all.
[[nodiscard]] SystemSymbols systemSymbols();

} // namespace corvane
