#pragma once

#include <cstdint>

#include <QString>

#include "cleanup/cleanup_catalog.h"
#include "core/words/system_words.h"

namespace corvane {

// Texts about the catalogue that several screens share.

/// The total of a measured item; "–" if it could not be read.
[[nodiscard]] QString totalText(const CleanupItem &item);

/// How many entries a measured item has, or that it could not be read.
[[nodiscard]] QString countText(const CleanupItem &item, const SystemWords &words);

} // namespace corvane
