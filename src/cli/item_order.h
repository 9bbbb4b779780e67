#pragma once

#include <optional>
#include <string_view>

#include "core/file_node.h"

namespace corvane {

/// Sort keys for items: largest first, most files first, latest modification first, or by name.
enum class ItemOrder { size, files, name, modified };

/// The order for a value of `--sort`; nothing for invalid text.
[[nodiscard]] std::optional<ItemOrder> orderNamed(std::string_view text);

/// Whether `a` sorts before `b`.
[[nodiscard]] bool standsBefore(const FileNode &a, const FileNode &b, ItemOrder order);

} // namespace corvane
