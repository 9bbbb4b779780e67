#pragma once

#include <string_view>

#include <Qt>

#include "core/file_node.h"
#include "platform/path.h"

namespace corvane {

/// Where a name that does not fit is shortened: in the middle if its end is the extension of a file or package, which
/// then stays visible, otherwise at its end.
[[nodiscard]] inline Qt::TextElideMode elideModeOf(std::string_view name, FileNode::Kind kind)
{
    return kind != FileNode::Kind::directory && !nameExtension(name).empty() ? Qt::ElideMiddle : Qt::ElideRight;
}
[[nodiscard]] inline Qt::TextElideMode elideModeOf(const FileNode &node)
{
    return elideModeOf(node.name, node.kind);
}

} // namespace corvane
