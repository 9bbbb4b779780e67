#pragma once

#include <string>

#include <QImage>

#include "core/file_node.h"

namespace corvane {

/// The desktop's own icon of an item (path in bytes), `pixels` wide and high; null where it has none. One thread
/// at a time.
[[nodiscard]] QImage systemFileIcon(const std::string &path, FileNode::Kind kind, int pixels);

/// The icon of the application bundle, or the picture, at a path (bytes), as large as it is at hand, `pixels` wide
/// where it can be chosen; null where it has none of its own. Reads the disk. Any thread.
[[nodiscard]] QImage systemBundleIcon(const std::string &path, int pixels);

/// A path that stands for every item with the same icon as this one: where the name's extension decides, all
/// films share one. Any thread.
[[nodiscard]] std::string iconPath(const std::string &path, FileNode::Kind kind);

} // namespace corvane
