#pragma once

#include <memory>

#include <dirent.h>
#include <fcntl.h>

#include "platform/file_descriptor.h"

namespace corvane {

struct CloseDirectory {
    void operator()(DIR *directory) const { ::closedir(directory); }
};

/// Reads the names in a folder; owns the folder's descriptor, which is closed with it. One thread at a time.
using DirectoryStream = std::unique_ptr<DIR, CloseDirectory>;

/// A stream of an open folder, starting at the descriptor's position. Null, with `errno` set, if there can be none or
/// the descriptor is not open.
[[nodiscard]] inline DirectoryStream streamOf(FileDescriptor folder)
{
    DirectoryStream stream(folder.isOpen() ? ::fdopendir(folder.number()) : nullptr);
    if (stream)
        static_cast<void>(folder.release()); // the stream closes it
    return stream;
}

/// A stream of the folder with that descriptor, from its first name on. It opens the folder again, so that the position
/// of the descriptor, which stays the caller's, is not shared.
[[nodiscard]] inline DirectoryStream ownStreamOf(int folder)
{
    return streamOf(FileDescriptor(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
}

} // namespace corvane
