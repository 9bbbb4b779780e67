#include "lists/file_lists.h"

#include <fmt/format.h>

#include "core/checked_add.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

template <typename Passes>
FileList filtered(std::span<const std::shared_ptr<FileNode>> files, std::string_view query,
                  const SearchableNames &names, const Passes &passes)
{
    const std::string part = searchable(query, names.casing());
    FileList list;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (passes(*files[i]) && (part.empty() || names.holds(i, part)))
            list.push_back(files[i]);
    }
    return list;
}

std::string countOf(std::size_t count)
{
    return formatCount(static_cast<std::int64_t>(count), "item", "items");
}

} // namespace

FileType typeOf(const FileNode &node)
{
    if (node.kind == FileNode::Kind::directory)
        return FileType::folder;
    return FileType::from(node.extension(), node.kind == FileNode::Kind::package);
}

SearchableNames::SearchableNames(std::span<const std::shared_ptr<FileNode>> files, Casing casing) : m_casing(casing)
{
    m_ends.reserve(files.size());
    for (const std::shared_ptr<FileNode> &file : files) {
        m_names += searchable(file->name, casing);
        m_ends.push_back(m_names.size());
    }
}

bool SearchableNames::holds(std::size_t file, std::string_view searchableQuery) const
{
    return corvane::holds(at(file), searchableQuery);
}

FileList largeFiles(std::span<const std::shared_ptr<FileNode>> files, const LargeFilesFilter &filter,
                    const SearchableNames &names)
{
    return filtered(files, filter.query, names, [&](const FileNode &file) {
        return passes(filter, file.size, filter.type ? typeOf(file) : FileType());
    });
}

FileList oldFiles(std::span<const std::shared_ptr<FileNode>> files, const OldFilesFilter &filter, Time cutoff,
                  const SearchableNames &names)
{
    return filtered(files, filter.query, names,
                    [&](const FileNode &file) { return passes(filter, file.size, file.modified, cutoff); });
}

std::int64_t totalSize(std::span<const std::shared_ptr<FileNode>> files)
{
    std::int64_t total = 0;
    for (const std::shared_ptr<FileNode> &file : files)
        total = checkedAdd(total, file->size);
    return total;
}

std::string ageLabel(int months)
{
    if (months < 12)
        return fmt::format("{} {}", months, plural(months, "month", "months"));
    return months < 24 ? "1 year" : fmt::format("{} years", months / 12);
}

std::string largeFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files)
{
    return largeFilesSubtitle(files.size(), totalSize(files));
}

std::string oldFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files, int months)
{
    return oldFilesSubtitle(files.size(), totalSize(files), months);
}

std::string largeFilesSubtitle(std::size_t count, std::int64_t total)
{
    return countOf(count) + " · " + formatByteCount(total);
}

std::string oldFilesSubtitle(std::size_t count, std::int64_t total, int months)
{
    return fmt::format("{} untouched for {} · {}", countOf(count), ageLabel(months), formatByteCount(total));
}

} // namespace corvane
