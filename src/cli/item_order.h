#pragma once

#include <optional>
#include <string_view>

#include "core/file_node.h"

namespace corvane {

/// What items are sorted by: the largest, the one with the most files, the one modified last, or by name.
enum class ItemOrder { size, files, name, modified };

/// The order as `--sort` takes it; nothing for any other text.
[[nodiscard]] std::optional<ItemOrder> orderNamed(std::string_view text);

/// Whether one item stands before another.
[[nodiscard]] bool standsBefore(const FileNode &a, const FileNode &b, ItemOrder order);

} // namespace corvane
