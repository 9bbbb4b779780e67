#pragma once

#include <string>
#include <string_view>

#include <QUrl>

namespace corvane {

/// The path, byte for byte, that a file address stands for; empty for any other address. A name that is not
/// valid UTF-8 stands percent-encoded in the address and keeps its bytes.
[[nodiscard]] std::string pathOfFileUrl(const QUrl &url);

/// The file address of a path, from which `pathOfFileUrl` makes the same bytes again.
[[nodiscard]] QUrl fileUrlOfPath(std::string_view path);

} // namespace corvane
