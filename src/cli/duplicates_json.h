#pragma once

#include "cli/duplicates_table.h"
#include "cli/output.h"

namespace corvane {

/// The groups as one JSON document.
void writeDuplicatesJson(const DuplicatesFound &found, Output &out);

} // namespace corvane
