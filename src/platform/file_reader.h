#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/error.h"
#include "platform/file_system.h"

namespace corvane {

/// What an open file is at one moment.
struct FileStatus {
    std::int64_t length = 0; ///< bytes, holes included
    Time modified = distantPast;
    ItemIdentity identity;

    friend bool operator==(const FileStatus &, const FileStatus &) = default;
};

/// A regular file that is open for reading; closed by its destructor. One thread at a time.
class FileReader {
public:
    FileReader() = default;
    FileReader(const FileReader &) = delete;
    FileReader &operator=(const FileReader &) = delete;
    virtual ~FileReader() = default;

    [[nodiscard]] virtual Expected<FileStatus> status() = 0;

    /// Fills the buffer from that place in the file on; how many bytes there were, fewer only where the file ends.
    [[nodiscard]] virtual Expected<std::size_t> read(std::int64_t offset, std::span<std::byte> buffer) = 0;

    /// Tells the system that those bytes are going to be read, so that the disk may begin. Does not wait.
    virtual void willRead(std::int64_t offset, std::int64_t length) = 0;
};

} // namespace corvane
