#include "shell/updates/update_key.h"

#include <algorithm>
#include <memory>

#include <openssl/evp.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include "platform/failure.h"

namespace corvane {

UpdateKey::UpdateKey(const QByteArray &bytes)
{
    std::copy(bytes.begin(), bytes.end(), m_bytes.begin());
}

std::optional<UpdateKey> UpdateKey::fromBase64(const QString &text)
{
    const auto bytes = QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!bytes || static_cast<std::size_t>(bytes.decoded.size()) != size)
        return std::nullopt;
    return UpdateKey(bytes.decoded);
}

bool UpdateKey::verifies(std::span<const std::byte> message, const QByteArray &signature) const
{
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(
        EVP_PKEY_new_raw_public_key(EVP_PKEY_ED25519, nullptr, m_bytes.data(), m_bytes.size()), EVP_PKEY_free);
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    if (!key || !context || EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) != 1)
        return false;
    return EVP_DigestVerify(context.get(), reinterpret_cast<const unsigned char *>(signature.data()),
                            static_cast<std::size_t>(signature.size()),
                            reinterpret_cast<const unsigned char *>(message.data()), message.size()) == 1;
}

Expected<bool> UpdateKey::verifiesFile(int descriptor, const QByteArray &signature) const
{
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0)
        return failure("fstat", {});
    const auto length = static_cast<std::size_t>(facts.st_size);
    if (length == 0)
        return verifies({}, signature);
    void *const content = ::mmap(nullptr, length, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (content == MAP_FAILED)
        return failure("mmap", {});
    const bool verified = verifies({static_cast<const std::byte *>(content), length}, signature);
    ::munmap(content, length);
    return verified;
}

} // namespace corvane
