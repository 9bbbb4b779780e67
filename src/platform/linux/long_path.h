#pragma once

#include <string>

#include "platform/error.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// A path in the form that calls relative to a folder take. The kernel refuses text of PATH_MAX bytes and
/// more, but folders may lie deeper than that: the leading part of such a path is opened, and the name is
/// relative to it. A shorter path is passed through at no cost.
class LongPath {
public:
    /// Fails when the leading part of a path that is too long cannot be opened.
    [[nodiscard]] static Expected<LongPath> resolve(const std::string &path);

    /// The folder that `name()` is relative to, as the calls ending in "at" take it.
    [[nodiscard]] int folder() const;
    [[nodiscard]] const char *name() const { return m_name.c_str(); }

private:
    FileDescriptor m_folder;
    std::string m_name;
};

} // namespace corvane
