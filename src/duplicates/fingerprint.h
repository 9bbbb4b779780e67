#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "core/stop_flag.h"
#include "platform/file_reader.h"

namespace corvane {

/// The SHA-256 digest of the bytes read from a file.
using Fingerprint = std::array<std::byte, 32>;

/// Computes fingerprints of files one after another, using one chunk of memory. One thread.
class Fingerprinter {
public:
    Fingerprinter();
    ~Fingerprinter();
    Fingerprinter(const Fingerprinter &) = delete;
    Fingerprinter &operator=(const Fingerprinter &) = delete;

    /// Covers the first 64 KiB and, for a file longer than 128 KiB, the last 64 KiB. Nothing if it cannot be read: two
    /// unreadable files must not compare equal.
    [[nodiscard]] std::optional<Fingerprint> ofEnds(FileReader &file);

    /// Covers the whole file, or only a part if stopped. Nothing if it cannot be read.
    [[nodiscard]] std::optional<Fingerprint> ofAll(FileReader &file, const StopFlag &stop);

    /// Hints to the system which bytes `ofEnds` and `ofAll` will read first.
    static void announceEnds(FileReader &file);
    static void announceAll(FileReader &file);

private:
    struct Digest;

    /// Hashes at most `length` bytes of the file from `offset`; returns how many there were.
    [[nodiscard]] std::optional<std::size_t> feed(FileReader &file, std::int64_t offset, std::size_t length);

    const std::unique_ptr<Digest> m_digest;
    std::vector<std::byte> m_chunk;
};

} // namespace corvane
