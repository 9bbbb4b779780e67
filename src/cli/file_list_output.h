#pragma once

#include <string>
#include <string_view>

#include "cli/console.h"
#include "duplicates/file_lists.h"

namespace corvane {

/// A list of single files with what stands above it.
struct FoundFiles {
    std::string_view title;
    std::string subtitle;
    std::string_view none; ///< what is said where there are no files
    FileList files;
};

/// The list as one JSON document.
void writeFileListJson(const FoundFiles &found, Output &out);

/// The list for people, with size, date and path of each file.
void writeFileListTable(const FoundFiles &found, std::string_view home, Console &console);

} // namespace corvane
