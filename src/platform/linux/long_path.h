#pragma once

#include <string>

#include "platform/error.h"
#include "platform/file_descriptor.h"

namespace corvane {

/// A path in the form used by the *at calls. The kernel rejects paths of PATH_MAX bytes and more, but folders may be
/// deeper than that: the leading part of such a path is opened, and the name is relative to it. A shorter path is
/// passed through at no cost.
class LongPath {
public:
    /// Fails if the leading part of an overlong path cannot be opened.
    [[nodiscard]] static Expected<LongPath> resolve(const std::string &path);

    /// The folder that `name()` is relative to, for the *at calls.
    [[nodiscard]] int folder() const;
    [[nodiscard]] const char *name() const { return m_name.c_str(); }

private:
    FileDescriptor m_folder;
    std::string m_name;
};

} // namespace corvane
