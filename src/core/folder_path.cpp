#include "core/folder_path.h"

#include <atomic>
#include <new>

namespace corvane {

/// One allocation with the bytes after it: a folder's name, or the whole path of a top folder.
struct FolderPath::Record {
    std::atomic<std::uint32_t> owners;
    std::uint32_t length;
    Record *folder; // the containing folder, owned; null for a top folder
    std::uint64_t hash;

    [[nodiscard]] std::string_view bytes() const { return {reinterpret_cast<const char *>(this + 1), length}; }

    /// The separator between this folder's path and a name inside it.
    [[nodiscard]] std::string_view separator() const { return folder == nullptr && bytes() == "/" ? "" : "/"; }
};

FolderPath::Record *FolderPath::makeRecord(Record *folder, std::string_view bytes, std::uint64_t hash)
{
    char *memory = static_cast<char *>(::operator new(sizeof(Record) + bytes.size()));
    bytes.copy(memory + sizeof(Record), bytes.size());
    return new (memory)
        Record{.owners = 1, .length = static_cast<std::uint32_t>(bytes.size()), .folder = folder, .hash = hash};
}

FolderPath::FolderPath(std::string_view path) : m_record(makeRecord(nullptr, path, hashPath(path))) {}

FolderPath::FolderPath(FolderPath folder, std::string_view name)
    : m_record(makeRecord(folder.m_record, name, folder.hashOf(name)))
{
    folder.m_record = nullptr;
}

FolderPath::FolderPath(const FolderPath &other) noexcept : m_record(other.m_record)
{
    if (m_record != nullptr)
        m_record->owners.fetch_add(1, std::memory_order_relaxed);
}

FolderPath::~FolderPath()
{
    // Iterate rather than recurse: a path may have a hundred thousand levels.
    Record *record = m_record;
    while (record != nullptr && record->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        Record *const above = record->folder;
        record->~Record();
        ::operator delete(record);
        record = above;
    }
}

std::string FolderPath::text() const
{
    std::size_t length = 0;
    for (const Record *record = m_record; record != nullptr; record = record->folder)
        length += record->length + (record->folder != nullptr ? record->folder->separator().size() : 0);

    std::string text(length, '\0');
    std::size_t end = length;
    const auto putInFront = [&](std::string_view bytes) {
        end -= bytes.size();
        bytes.copy(text.data() + end, bytes.size());
    };
    for (const Record *record = m_record; record != nullptr; record = record->folder) {
        putInFront(record->bytes());
        if (record->folder != nullptr)
            putInFront(record->folder->separator());
    }
    return text;
}

bool FolderPath::is(std::string_view path) const
{
    const auto takeFromEnd = [&](std::string_view bytes) {
        if (!path.ends_with(bytes))
            return false;
        path.remove_suffix(bytes.size());
        return true;
    };
    const Record *record = m_record;
    for (; record->folder != nullptr; record = record->folder) {
        if (!takeFromEnd(record->bytes()) || !takeFromEnd(record->folder->separator()))
            return false;
    }
    return path == record->bytes();
}

std::uint64_t FolderPath::hash() const
{
    return m_record->hash;
}

std::string FolderPath::textOf(std::string_view name) const
{
    return text().append(m_record->separator()).append(name);
}

bool FolderPath::isFolderOf(std::string_view name, std::string_view path) const
{
    const std::string_view separator = m_record->separator();
    if (!path.ends_with(name))
        return false;
    path.remove_suffix(name.size());
    if (!path.ends_with(separator))
        return false;
    path.remove_suffix(separator.size());
    return is(path);
}

std::uint64_t FolderPath::hashOf(std::string_view name) const
{
    return hashPath(name, hashPath(m_record->separator(), m_record->hash));
}

} // namespace corvane
