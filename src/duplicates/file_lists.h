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

/// Which files "Large Files" lists.
struct LargeFilesFilter {
    std::int64_t minSize = 100'000'000; ///< bytes
    std::optional<FileType> type;       ///< all types where there is none
    std::string query;                  ///< what the name holds, whatever the case; bytes

    friend bool operator==(const LargeFilesFilter &, const LargeFilesFilter &) = default;
};

/// Which files "Old Files" lists.
struct OldFilesFilter {
    int months = 12;                   ///< not modified since; calendar months
    std::int64_t minSize = 10'000'000; ///< bytes
    std::string query;

    friend bool operator==(const OldFilesFilter &, const OldFilesFilter &) = default;
};

/// Whether a file passes, whatever its name.
[[nodiscard]] inline bool passes(const LargeFilesFilter &filter, std::int64_t size, FileType type)
{
    return size >= filter.minSize && (!filter.type || type == *filter.type);
}
/// The same for one last modified before `cutoff`; a file of unknown date never passes.
[[nodiscard]] inline bool passes(const OldFilesFilter &filter, std::int64_t size, Time modified, Time cutoff)
{
    return size >= filter.minSize && modified != distantPast && modified < cutoff;
}

/// Whether the type is one that a file may have; the others only label what is no single file.
[[nodiscard]] constexpr bool isOfFiles(FileType type)
{
    return type != FileType::folder && type != FileType::small;
}

/// The node's type as the lists show and filter it: a folder is a folder, a package what its own extension says.
[[nodiscard]] FileType typeOf(const FileNode &node);

/// The names of files, made ready for search once: half a million are then searched within milliseconds. Immutable;
/// any thread.
class SearchableNames {
public:
    SearchableNames() = default;
    SearchableNames(std::span<const std::shared_ptr<FileNode>> files, Casing casing);

    /// Whether the name of the file at that place in the list holds the query.
    [[nodiscard]] bool holds(std::size_t file, std::string_view searchableQuery) const;

    /// The name, `searchable`, of the file at that place in the list.
    [[nodiscard]] std::string_view at(std::size_t file) const
    {
        const std::size_t start = file == 0 ? 0 : m_ends[file - 1];
        return std::string_view(m_names).substr(start, m_ends[file] - start);
    }

    [[nodiscard]] Casing casing() const { return m_casing; }

private:
    std::string m_names; // one after the other
    std::vector<std::size_t> m_ends;
    Casing m_casing = Casing::usual;
};

/// The files that pass, in the order given. `names` are those of `files`; they are not looked at without a query.
[[nodiscard]] FileList largeFiles(std::span<const std::shared_ptr<FileNode>> files, const LargeFilesFilter &filter,
                                  const SearchableNames &names);
/// The same of those last modified before `cutoff`.
[[nodiscard]] FileList oldFiles(std::span<const std::shared_ptr<FileNode>> files, const OldFilesFilter &filter,
                                Time cutoff, const SearchableNames &names);

/// The sum of the sizes.
[[nodiscard]] std::int64_t totalSize(std::span<const std::shared_ptr<FileNode>> files);

/// "6 months", "1 year", "3 years".
[[nodiscard]] std::string ageLabel(int months);

/// What stands below the titles: how many files, which, and what they come to.
[[nodiscard]] std::string largeFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files);
[[nodiscard]] std::string oldFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files, int months);
/// The same of so many files that come to so many bytes.
[[nodiscard]] std::string largeFilesSubtitle(std::size_t count, std::int64_t total);
[[nodiscard]] std::string oldFilesSubtitle(std::size_t count, std::int64_t total, int months);

} // namespace corvane
