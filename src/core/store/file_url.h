#pragma once

#include <string>
#include <string_view>

#include <QByteArray>
#include <QUrl>

namespace corvane {

// File URLs keep every byte of a path: a name that is not valid UTF-8 is percent-encoded. QUrl's own conversions decode
// to text, which loses such bytes. Any thread.

/// The file URL of a path, percent-encoded byte by byte.
[[nodiscard]] QByteArray fileUrl(std::string_view path);

/// The same as a QUrl; `pathOfFileUrl` restores the same bytes.
[[nodiscard]] QUrl fileUrlOfPath(std::string_view path);

/// The path of a file URL, byte for byte; empty for any other URL.
[[nodiscard]] std::string pathOfFileUrl(const QUrl &url);

} // namespace corvane
