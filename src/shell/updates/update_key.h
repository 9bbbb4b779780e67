#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include <QByteArray>
#include <QString>

#include "platform/error.h"

namespace corvane {

/// The public Ed25519 key that updates are signed for. Constant; any thread.
class UpdateKey {
public:
    static constexpr std::size_t size = 32;

    /// From base64; nothing for what is not a key of 32 bytes.
    [[nodiscard]] static std::optional<UpdateKey> fromBase64(const QString &text);

    [[nodiscard]] bool verifies(std::span<const std::byte> message, const QByteArray &signature) const;

    /// The same for the content of an open file. The algorithm needs all of it at once, so the file is mapped; nothing
    /// may shorten it meanwhile.
    [[nodiscard]] Expected<bool> verifiesFile(int descriptor, const QByteArray &signature) const;

private:
    explicit UpdateKey(const QByteArray &bytes);

    std::array<unsigned char, size> m_bytes{};
};

} // namespace corvane
