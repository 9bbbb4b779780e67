#pragma once

#include <QNetworkRequest>
#include <QUrl>

namespace corvane {

/// A request that tells nothing of the user or of the version, keeps and sends no cookies, and is answered by the
/// server, uncompressed. Left alone, Qt sends the user's language, calls itself a browser, and unpacks what arrives,
/// which may be small and become large. Redirects are the caller's to decide.
[[nodiscard]] QNetworkRequest plainRequest(const QUrl &address);

} // namespace corvane
