#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// The status of an open file at one moment.
struct FileStatus {
    std::int64_t length = 0; ///< bytes, holes included
    Time modified = distantPast;
    ItemIdentity identity;

    friend bool operator==(const FileStatus &, const FileStatus &) = default;
};

/// A regular file opened for reading; closed by its destructor. One thread at a time.
class FileReader {
public:
    FileReader() = default;
    FileReader(const FileReader &) = delete;
    FileReader &operator=(const FileReader &) = delete;
    virtual ~FileReader() = default;

    [[nodiscard]] virtual Expected<FileStatus> status() = 0;

    /// Reads from `offset` into the buffer; returns the number of bytes read, fewer than requested only at the end of
    /// the file.
    [[nodiscard]] virtual Expected<std::size_t> read(std::int64_t offset, std::span<std::byte> buffer) = 0;

    /// Hints to the system that those bytes will be read soon, so that it can prefetch them. Does not wait.
    virtual void willRead(std::int64_t offset, std::int64_t length) = 0;
};

} // namespace corvane
