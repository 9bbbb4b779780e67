#pragma once

#include <string>
#include <string_view>

#include <QUrl>

namespace corvane {

/// The path of a file URL, byte for byte; empty for any other URL. A name that is not valid UTF-8 is percent-encoded in
/// the URL and keeps its bytes.
[[nodiscard]] std::string pathOfFileUrl(const QUrl &url);

/// The file URL of a path; `pathOfFileUrl` restores the same bytes.
[[nodiscard]] QUrl fileUrlOfPath(std::string_view path);

} // namespace corvane
