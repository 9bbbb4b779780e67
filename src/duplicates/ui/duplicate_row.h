#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>

#include <QString>

#include "core/file_node.h"

namespace corvane {

/// One row of the list of duplicates: its identity and figures. Texts are computed when a row is shown, because there
/// may be tens of thousands of rows, of which few are ever visible.
struct DuplicateRow {
    enum class Kind : std::uint8_t {
        group, ///< starts a group, whose files share one box
        file,
    };

    Kind kind = Kind::file;
    int group = 0;                               ///< its number, kept as long as any of its files is in a group
    std::shared_ptr<FileNode> file;              ///< the first file of a group
    std::shared_ptr<FileNode> storageOwner = {}; ///< for a file: another hard link to the same storage
    std::size_t count = 0;                       ///< the files of a group
    std::int64_t size = 0;                       ///< bytes of one file
    std::int64_t wasted = 0;                     ///< bytes, of a group
    bool isExpanded = false;                     ///< of a group
    bool isNewest = false;                       ///< of a file
    bool startsBox = false;
    bool endsBox = false;

    /// The row's identity, independent of its figures.
    using Key = std::tuple<Kind, int, const FileNode *>;
    [[nodiscard]] Key key() const;

    friend bool operator==(const DuplicateRow &, const DuplicateRow &) = default;

    /// The name of a group, or the path of a file.
    [[nodiscard]] QString title() const;
    /// The number of copies of a group, or the date of a file.
    [[nodiscard]] QString note() const;
    /// The space wasted by a group.
    [[nodiscard]] QString wastedText() const;
    /// The row's description for screen readers.
    [[nodiscard]] QString description() const;
};

} // namespace corvane
