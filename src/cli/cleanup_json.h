#pragma once

#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "cli/output.h"

namespace corvane {

/// The measured catalogue as one JSON array, in its order.
void writeCleanupJson(const std::vector<CleanupItem> &items, Output &out);

} // namespace corvane
