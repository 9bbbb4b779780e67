#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <tuple>

#include <QString>

#include "core/file_node.h"

namespace corvane {

/// One row of the list of duplicates: what it stands for, and its figures. There may be tens of thousands, of which
/// few are ever seen, so their words are made when a row is shown.
struct DuplicateRow {
    enum class Kind : std::uint8_t {
        group, ///< opens a group, whose files stand in one box
        file,
    };

    Kind kind = Kind::file;
    int group = 0;                               ///< its number, the same as long as any of its files is in one
    std::shared_ptr<FileNode> file;              ///< of a group the first
    std::shared_ptr<FileNode> storageOwner = {}; ///< of a file the other name of the same file on the disk
    std::size_t count = 0;                       ///< of a group its files
    std::int64_t size = 0;                       ///< bytes of one file
    std::int64_t wasted = 0;                     ///< bytes, of a group
    bool isExpanded = false;                     ///< of a group
    bool isNewest = false;                       ///< of a file
    bool startsBox = false;
    bool endsBox = false;

    /// What it stands for, whatever its figures are by now.
    using Key = std::tuple<Kind, int, const FileNode *>;
    [[nodiscard]] Key key() const;

    friend bool operator==(const DuplicateRow &, const DuplicateRow &) = default;

    /// The name of a group, the path of a file.
    [[nodiscard]] QString title() const;
    /// The copies of a group, the date of a file.
    [[nodiscard]] QString note() const;
    /// What a group wastes.
    [[nodiscard]] QString wastedText() const;
    /// What a reader says of it.
    [[nodiscard]] QString description() const;
};

} // namespace corvane
