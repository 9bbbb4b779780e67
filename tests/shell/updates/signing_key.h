#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include <QByteArray>
#include <QString>
#include <openssl/evp.h>

namespace corvane {

/// A key pair that tests sign updates with.
class SigningKey {
public:
    explicit SigningKey(unsigned char seed = 7)
    {
        std::array<unsigned char, 32> bytes{};
        bytes.fill(seed);
        m_key.reset(EVP_PKEY_new_raw_private_key(EVP_PKEY_ED25519, nullptr, bytes.data(), bytes.size()));
    }

    [[nodiscard]] QString publicKey() const
    {
        QByteArray bytes(32, '\0');
        std::size_t length = 32;
        EVP_PKEY_get_raw_public_key(m_key.get(), reinterpret_cast<unsigned char *>(bytes.data()), &length);
        return QString::fromLatin1(bytes.toBase64());
    }

    [[nodiscard]] QByteArray sign(const QByteArray &message) const
    {
        const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
        QByteArray signature(64, '\0');
        std::size_t length = 64;
        EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, m_key.get());
        EVP_DigestSign(context.get(), reinterpret_cast<unsigned char *>(signature.data()), &length,
                       reinterpret_cast<const unsigned char *>(message.data()),
                       static_cast<std::size_t>(message.size()));
        return signature;
    }

private:
    std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> m_key{nullptr, EVP_PKEY_free};
};

} // namespace corvane
