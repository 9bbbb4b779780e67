#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/file_node.h"
#include "core/file_type.h"
#include "core/words/text_search.h"
#include "platform/time.h"

namespace corvane {

using FileList = std::vector<std::shared_ptr<FileNode>>;

/// The filter of "Large Files".
struct LargeFilesFilter {
    std::int64_t minSize = 100'000'000; ///< bytes
    std::optional<FileType> type;       ///< absent: all types
    std::string query;                  ///< substring of the name, ignoring case; bytes

    friend bool operator==(const LargeFilesFilter &, const LargeFilesFilter &) = default;
};

/// The filter of "Old Files".
struct OldFilesFilter {
    int months = 12;                   ///< calendar months without modification
    std::int64_t minSize = 10'000'000; ///< bytes
    std::string query;

    friend bool operator==(const OldFilesFilter &, const OldFilesFilter &) = default;
};

/// Whether a file passes the filter, apart from its name.
[[nodiscard]] inline bool passes(const LargeFilesFilter &filter, std::int64_t size, FileType type)
{
    return size >= filter.minSize && (!filter.type || type == *filter.type);
}
/// The same, for files last modified before `cutoff`; a file of unknown date never passes.
[[nodiscard]] inline bool passes(const OldFilesFilter &filter, std::int64_t size, Time modified, Time cutoff)
{
    return size >= filter.minSize && modified != distantPast && modified < cutoff;
}

/// Whether files can have the type; the others only label things that are not single files.
[[nodiscard]] constexpr bool isOfFiles(FileType type)
{
    return type != FileType::folder && type != FileType::small;
}

/// The node's type as shown and filtered in lists: folder for a folder, for a package that of its extension.
[[nodiscard]] FileType typeOf(const FileNode &node);

/// The names of files, prepared once for searching: half a million are then searched within milliseconds. Immutable;
/// any thread.
class SearchableNames {
public:
    SearchableNames() = default;
    SearchableNames(std::span<const std::shared_ptr<FileNode>> files, Casing casing);

    /// Whether the name of the file at that index contains the query.
    [[nodiscard]] bool holds(std::size_t file, std::string_view searchableQuery) const;

    /// The `searchable` name of the file at that index.
    [[nodiscard]] std::string_view at(std::size_t file) const
    {
        const std::size_t start = file == 0 ? 0 : m_ends[file - 1];
        return std::string_view(m_names).substr(start, m_ends[file] - start);
    }

    [[nodiscard]] Casing casing() const { return m_casing; }

private:
    std::string m_names; // concatenated
    std::vector<std::size_t> m_ends;
    Casing m_casing = Casing::usual;
};

/// The files that pass, in the given order. `names` belong to `files` and are used only if there is a query.
[[nodiscard]] FileList largeFiles(std::span<const std::shared_ptr<FileNode>> files, const LargeFilesFilter &filter,
                                  const SearchableNames &names);
/// The same for files last modified before `cutoff`.
[[nodiscard]] FileList oldFiles(std::span<const std::shared_ptr<FileNode>> files, const OldFilesFilter &filter,
                                Time cutoff, const SearchableNames &names);

/// The sum of the sizes.
[[nodiscard]] std::int64_t totalSize(std::span<const std::shared_ptr<FileNode>> files);

/// "6 months", "1 year", "3 years".
[[nodiscard]] std::string ageLabel(int months);

/// The text below the titles: number, kind and total size of the files.
[[nodiscard]] std::string largeFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files);
[[nodiscard]] std::string oldFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files, int months);
/// The same for a given number of files and bytes.
[[nodiscard]] std::string largeFilesSubtitle(std::size_t count, std::int64_t total);
[[nodiscard]] std::string oldFilesSubtitle(std::size_t count, std::int64_t total, int months);

} // namespace corvane
