#include "duplicates/fingerprint.h"

#include <cstdlib>
#include <span>

#include <openssl/evp.h>

namespace corvane {

namespace {

constexpr std::size_t chunkSize = 1024UL * 1024;
constexpr std::int64_t endSize = 64 * 1024;
// The disk should read the next chunks while one is hashed. Two suffice for the fastest disk; more would only evict
// other data from the cache.
constexpr std::int64_t aheadSize = 2 * static_cast<std::int64_t>(chunkSize);

std::int64_t lengthOf(FileReader &file)
{
    const Expected<FileStatus> status = file.status();
    return status ? status->length : 0;
}

/// The library fails only for lack of memory or of the algorithm itself.
void require(int result)
{
    if (result != 1)
        std::abort();
}

} // namespace

struct Fingerprinter::Digest {
    Digest() { require(context != nullptr ? 1 : 0); }
    ~Digest() { EVP_MD_CTX_free(context); }
    Digest(const Digest &) = delete;
    Digest &operator=(const Digest &) = delete;

    void start() const { require(EVP_DigestInit_ex(context, EVP_sha256(), nullptr)); }
    void add(std::span<const std::byte> bytes) const { require(EVP_DigestUpdate(context, bytes.data(), bytes.size())); }
    [[nodiscard]] Fingerprint finish() const
    {
        Fingerprint fingerprint{};
        require(EVP_DigestFinal_ex(context, reinterpret_cast<unsigned char *>(fingerprint.data()), nullptr));
        return fingerprint;
    }

    EVP_MD_CTX *const context = EVP_MD_CTX_new();
};

Fingerprinter::Fingerprinter() : m_digest(std::make_unique<Digest>()), m_chunk(chunkSize) {}

Fingerprinter::~Fingerprinter() = default;

std::optional<Fingerprint> Fingerprinter::ofEnds(FileReader &file)
{
    m_digest->start();
    if (!feed(file, 0, endSize))
        return std::nullopt;
    const std::int64_t length = lengthOf(file);
    if (length > 2 * endSize && !feed(file, length - endSize, endSize))
        return std::nullopt;
    return m_digest->finish();
}

std::optional<Fingerprint> Fingerprinter::ofAll(FileReader &file, const StopFlag &stop)
{
    m_digest->start();
    for (std::int64_t offset = 0; !stop;) {
        file.willRead(offset + aheadSize, chunkSize);
        const std::optional<std::size_t> count = feed(file, offset, chunkSize);
        if (!count)
            return std::nullopt;
        if (*count == 0)
            break;
        offset += static_cast<std::int64_t>(*count);
    }
    return m_digest->finish();
}

void Fingerprinter::announceEnds(FileReader &file)
{
    file.willRead(0, endSize);
    if (const std::int64_t length = lengthOf(file); length > 2 * endSize)
        file.willRead(length - endSize, endSize);
}

void Fingerprinter::announceAll(FileReader &file)
{
    file.willRead(0, aheadSize);
}

std::optional<std::size_t> Fingerprinter::feed(FileReader &file, std::int64_t offset, std::size_t length)
{
    const Expected<std::size_t> count = file.read(offset, std::span(m_chunk).first(length));
    if (!count)
        return std::nullopt;
    m_digest->add(std::span(m_chunk).first(*count));
    return *count;
}

} // namespace corvane
