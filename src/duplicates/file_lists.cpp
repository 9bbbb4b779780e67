#include "duplicates/file_lists.h"

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

std::string countOf(std::span<const std::shared_ptr<FileNode>> files)
{
    return formatCount(static_cast<std::int64_t>(files.size()), "item", "items");
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
    const std::size_t start = file == 0 ? 0 : m_ends[file - 1];
    return corvane::holds(std::string_view(m_names).substr(start, m_ends[file] - start), searchableQuery);
}

FileList largeFiles(std::span<const std::shared_ptr<FileNode>> files, const LargeFilesFilter &filter,
                    const SearchableNames &names)
{
    return filtered(files, filter.query, names, [&](const FileNode &file) {
        return file.size >= filter.minSize && (!filter.type || typeOf(file) == *filter.type);
    });
}

FileList oldFiles(std::span<const std::shared_ptr<FileNode>> files, const OldFilesFilter &filter, Time cutoff,
                  const SearchableNames &names)
{
    return filtered(files, filter.query, names, [&](const FileNode &file) {
        return file.size >= filter.minSize && file.modified != distantPast && file.modified < cutoff;
    });
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
        return fmt::format("{} months", months);
    return months < 24 ? "1 year" : fmt::format("{} years", months / 12);
}

std::string largeFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files)
{
    return countOf(files) + " · " + formatByteCount(totalSize(files));
}

std::string oldFilesSubtitle(std::span<const std::shared_ptr<FileNode>> files, int months)
{
    return fmt::format("{} untouched for {} · {}", countOf(files), ageLabel(months), formatByteCount(totalSize(files)));
}

} // namespace corvane
