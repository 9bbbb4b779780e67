#pragma once

#include <string_view>

#include "cli/output.h"
#include "core/removal.h"

namespace corvane {

/// Writes what became of a removal as one JSON document.
void writeRemovalJson(const RemovalOutcome &outcome, std::string_view message, Output &out);

} // namespace corvane
