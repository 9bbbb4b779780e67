#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

/// Finds application icons by the names in desktop files: in the fallback theme of the user, the system, Flatpaks and
/// Snaps, in folders of images without a theme, and in the themes of desktops. Checks once which folders exist.
/// Immutable; any thread.
class IconSearch {
public:
    /// `files` must outlive the object.
    explicit IconSearch(FileSystem &files);

    /// The path of an image with that name, of 64 pixels or more if possible, the user's own first; an absolute path is
    /// returned as is. Empty if there is none. The file is not verified to be an image.
    [[nodiscard]] std::string find(const std::string &icon) const;

private:
    void addFolder(std::string folder);

    FileSystem &m_files;
    std::vector<std::string> m_folders; // existing ones, in search order
};

} // namespace corvane
