#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/file_node.h"
#include "core/file_type.h"
#include "lists/file_lists.h"
#include "platform/time.h"

namespace corvane {

/// The sortable columns of a table of files.
enum class FileColumn : std::uint8_t { name, size, kind, modified, location };
inline constexpr std::size_t fileColumnCount = 5;

struct FileSort {
    FileColumn column = FileColumn::size;
    bool descending = true;

    friend bool operator==(const FileSort &, const FileSort &) = default;
};

/// The rows of a table, owned by the `ListedFiles` that returned them.
struct FileRows {
    std::vector<const FileNode *> files;
    std::int64_t total = 0; ///< bytes
};

/// The files of a scan with all values needed to filter and sort tables of them, computed once per tree: filtering or
/// sorting half a million then takes milliseconds. Files with equal values in a column keep the given order in either
/// direction.
///
/// Create it on the thread that owns the tree, whose sizes and dates it copies; `prepare`, which takes long, may run on
/// another thread. Immutable afterwards.
class ListedFiles {
public:
    /// `home` is shortened to "~" in locations.
    ListedFiles(FileList files, Casing casing, std::string home);

    void prepare();

    [[nodiscard]] const FileList &files() const { return m_files; }

    [[nodiscard]] FileRows large(const LargeFilesFilter &filter, FileSort sort) const;
    [[nodiscard]] FileRows old(const OldFilesFilter &filter, Time cutoff, FileSort sort) const;

private:
    /// All files in the ascending order of a column.
    struct Order {
        std::vector<std::uint32_t> places; ///< indices into `m_files`
        std::vector<bool> startsGroup;     ///< for each index: whether its value differs from that of the previous one
    };

    [[nodiscard]] Order orderBy(const std::function<bool(std::uint32_t, std::uint32_t)> &isLess) const;
    [[nodiscard]] Order orderByName() const;
    [[nodiscard]] Order orderByRank(const std::vector<std::uint32_t> &ranks) const;
    [[nodiscard]] std::vector<std::uint32_t> kindRanks() const;
    [[nodiscard]] std::vector<std::uint32_t> locationRanks() const;
    template <typename Passes>
    [[nodiscard]] FileRows rows(const std::string &query, FileSort sort, const Passes &passes) const;

    const FileList m_files;
    const Casing m_casing;
    const std::string m_home;
    std::vector<std::int64_t> m_sizes;
    std::vector<Time> m_dates;
    std::vector<FileType> m_types;
    SearchableNames m_names;
    std::array<Order, fileColumnCount> m_orders; // indexed by `FileColumn`
};

} // namespace corvane
