#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

/// Finds the pictures of applications by the names that their desktop files give them: in the fallback theme of the
/// icon folders of the user, the system, and of Flatpaks and Snaps, in the folders of pictures without a theme, and in
/// the themes that desktops bring along. Looks once at which folders there are. Immutable; any thread.
class IconSearch {
public:
    /// `files` outlives the object.
    explicit IconSearch(FileSystem &files);

    /// The path of a picture of that name, of 64 pixels or more where there is one, those of the user first; an
    /// absolute path itself. Empty where there is none. What is there may be no picture all the same.
    [[nodiscard]] std::string find(const std::string &icon) const;

private:
    void addFolder(std::string folder);

    FileSystem &m_files;
    std::vector<std::string> m_folders; // those that exist, in the order of the search
};

} // namespace corvane
