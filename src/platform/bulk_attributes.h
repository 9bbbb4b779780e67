#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

/// The buffer format in which macOS returns hundreds of folder entries per call (getattrlistbulk). Plain C++, so that
/// the parser can be tested on every system; on macOS the constants are checked against the system headers.

/// The requested attributes, by attribute group.
struct BulkAttributes {
    static constexpr std::uint32_t name = 0x0000'0001;
    static constexpr std::uint32_t objectType = 0x0000'0008;
    static constexpr std::uint32_t modificationTime = 0x0000'0400;
    static constexpr std::uint32_t finderInfo = 0x0000'4000;
    static constexpr std::uint32_t fileNumber = 0x0200'0000;
    static constexpr std::uint32_t error = 0x2000'0000;
    static constexpr std::uint32_t returnedAttributes = 0x8000'0000;

    /// Names and returned attributes are mandatory; without the object type the kernel takes a slower path.
    static constexpr std::uint32_t common =
        returnedAttributes | error | name | objectType | modificationTime | finderInfo | fileNumber;

    static constexpr std::uint32_t linkCount = 0x0000'0001;
    static constexpr std::uint32_t totalAllocated = 0x0000'0004; ///< all forks
    static constexpr std::uint32_t dataLength = 0x0000'0200;
    static constexpr std::uint32_t dataAllocated = 0x0000'0400;
    static constexpr std::uint32_t file = linkCount | totalAllocated | dataLength | dataAllocated;
};

/// One entry as returned by the kernel; attributes it did not return are absent.
struct BulkEntry {
    static constexpr std::uint32_t directoryType = 2;
    static constexpr std::uint32_t symbolicLinkType = 5;

    std::string_view name; ///< points into the buffer
    int error = 0;         ///< if set, only the name is valid
    std::optional<EntryType> type;
    std::optional<Time> modified;
    bool hasBundleBit = false;             ///< the Finder's package flag
    std::uint64_t fileNumber = 0;          ///< 0 if unknown
    std::uint32_t links = 1;               ///< number of hard links; files only
    std::optional<std::int64_t> allocated; ///< all forks if known, otherwise the data fork; files only
    std::int64_t length = 0;               ///< data fork; files only

    /// Whether a listing needs no further attributes of the item.
    [[nodiscard]] bool isComplete() const { return error == 0 && type && (*type != EntryType::file || allocated); }
};

/// Reads the fields of one entry in order. Fields are only 4-byte aligned, so each one is copied out.
class BulkReader {
public:
    explicit BulkReader(std::span<const std::byte> entry) : m_entry(entry) {}

    template <typename Value>
    Value take()
    {
        Value value{};
        const std::span<const std::byte> field = takeBytes(sizeof value);
        if (!field.empty())
            std::memcpy(&value, field.data(), sizeof value);
        return value;
    }

    std::span<const std::byte> takeBytes(std::size_t size)
    {
        m_whole = m_whole && m_entry.size() - m_position >= size;
        if (!m_whole)
            return {};
        m_position += size;
        return m_entry.subspan(m_position - size, size);
    }

    /// A string elsewhere in the entry: the offset is relative to the reference itself, and the length includes the
    /// terminating NUL.
    std::string_view takeText()
    {
        const auto reference = static_cast<std::int64_t>(m_position);
        const std::int64_t start = reference + take<std::int32_t>();
        const auto length = static_cast<std::int64_t>(take<std::uint32_t>());
        const auto size = static_cast<std::int64_t>(m_entry.size());
        m_whole = m_whole && start >= 0 && start <= size && length >= 1 && length <= size - start;
        if (!m_whole)
            return {};
        const std::span<const std::byte> text =
            m_entry.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(length - 1));
        return {reinterpret_cast<const char *>(text.data()), text.size()};
    }

    [[nodiscard]] bool isWhole() const { return m_whole; }

private:
    std::span<const std::byte> m_entry;
    std::size_t m_position = 0;
    bool m_whole = true; // every field so far was inside the entry
};

/// Consumes the first entry from `bytes`. Nothing if the bytes are malformed; the rest is then unusable.
[[nodiscard]] inline std::optional<BulkEntry> takeBulkEntry(std::span<const std::byte> &bytes)
{
    struct Returned {
        std::uint32_t common, volume, directory, file, fork;
    };

    std::uint32_t length = 0; // of the whole entry, including this field
    if (bytes.size() < sizeof length)
        return std::nullopt;
    std::memcpy(&length, bytes.data(), sizeof length);
    if (length < sizeof length + sizeof(Returned) || length > bytes.size())
        return std::nullopt;

    BulkReader reader(bytes.first(length));
    reader.takeBytes(sizeof length);
    const auto returned = reader.take<Returned>();
    BulkEntry entry;
    // An unexpected field would shift all fields after it.
    if ((returned.common & ~BulkAttributes::common) != 0 || (returned.file & ~BulkAttributes::file) != 0 ||
        returned.volume != 0 || returned.directory != 0 || returned.fork != 0)
        return std::nullopt;
    if (returned.common & BulkAttributes::error)
        entry.error = static_cast<int>(reader.take<std::uint32_t>());
    if (returned.common & BulkAttributes::name)
        entry.name = reader.takeText();
    if (entry.error == 0) {
        if (returned.common & BulkAttributes::objectType) {
            const auto type = reader.take<std::uint32_t>();
            entry.type = type == BulkEntry::directoryType      ? EntryType::directory
                         : type == BulkEntry::symbolicLinkType ? EntryType::symbolicLink
                                                               : EntryType::file;
        }
        if (returned.common & BulkAttributes::modificationTime) {
            entry.modified = Time(std::chrono::seconds(reader.take<std::int64_t>()));
            reader.take<std::int64_t>(); // nanoseconds
        }
        if (returned.common & BulkAttributes::finderInfo) {
            // 32 bytes in the Finder's on-disk format: the flags are big-endian on every machine.
            constexpr std::byte bundleFlag{0x20};
            const auto info = reader.take<std::array<std::byte, 32>>();
            entry.hasBundleBit = (info[8] & bundleFlag) != std::byte{};
        }
        if (returned.common & BulkAttributes::fileNumber)
            entry.fileNumber = reader.take<std::uint64_t>();
        std::optional<std::int64_t> total;
        std::optional<std::int64_t> data;
        if (entry.type != EntryType::directory) {
            if (returned.file & BulkAttributes::linkCount)
                entry.links = reader.take<std::uint32_t>();
            if (returned.file & BulkAttributes::totalAllocated)
                total = reader.take<std::int64_t>();
            if (returned.file & BulkAttributes::dataLength)
                entry.length = reader.take<std::int64_t>();
            if (returned.file & BulkAttributes::dataAllocated)
                data = reader.take<std::int64_t>();
        }
        entry.allocated = total ? total : data;
    }
    if (!reader.isWhole() || entry.name.empty())
        return std::nullopt;
    bytes = bytes.subspan(length);
    return entry;
}

} // namespace corvane
