#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "core/stop_flag.h"
#include "platform/file_reader.h"

namespace corvane {

/// The SHA-256 digest of what was read of a file.
using Fingerprint = std::array<std::byte, 32>;

/// Takes fingerprints of files, one after another, with the memory of one chunk. One thread.
class Fingerprinter {
public:
    Fingerprinter();
    ~Fingerprinter();
    Fingerprinter(const Fingerprinter &) = delete;
    Fingerprinter &operator=(const Fingerprinter &) = delete;

    /// Of the first 64 KiB and, where the file is longer than 128 KiB, of the last 64 KiB. Nothing where it cannot be
    /// read: two files that fail alike are not alike.
    [[nodiscard]] std::optional<Fingerprint> ofEnds(FileReader &file);

    /// Of the whole file. Once stopped, of a part. Nothing where it cannot be read.
    [[nodiscard]] std::optional<Fingerprint> ofAll(FileReader &file, const StopFlag &stop);

    /// Tells the system what the two will read first.
    static void announceEnds(FileReader &file);
    static void announceAll(FileReader &file);

private:
    struct Digest;

    /// Feeds what the file holds from there on, at most `length` bytes; how many there were.
    [[nodiscard]] std::optional<std::size_t> feed(FileReader &file, std::int64_t offset, std::size_t length);

    const std::unique_ptr<Digest> m_digest;
    std::vector<std::byte> m_chunk;
};

} // namespace corvane
