#pragma once

#include <string>

#include <QImage>

#include "core/file_node.h"

namespace corvane {

/// The desktop's own icon of an item (path in bytes), `pixels` wide and high; null if it has none. One thread at a
/// time.
[[nodiscard]] QImage systemFileIcon(const std::string &path, FileNode::Kind kind, int pixels);

/// The icon of an application bundle, or the image, at a path (bytes), in its native size, or `pixels` wide if the size
/// can be chosen; null if it has no icon of its own. Reads the disk. Any thread.
[[nodiscard]] QImage systemBundleIcon(const std::string &path, int pixels);

/// A representative path for all items with the same icon as this one: where the extension determines the icon, all
/// films share one. Any thread.
[[nodiscard]] std::string iconPath(const std::string &path, FileNode::Kind kind);

} // namespace corvane
