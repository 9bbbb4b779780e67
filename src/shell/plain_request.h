#pragma once

#include <QNetworkRequest>
#include <QUrl>

namespace corvane {

/// A request that reveals neither the user's language nor the program's version, without cookies or cached responses,
/// and answered uncompressed. By default Qt sends the user's language, identifies as a browser, and decompresses
/// responses, so that a small one can expand to a huge one. The caller sets the redirect policy.
[[nodiscard]] QNetworkRequest plainRequest(const QUrl &address);

} // namespace corvane
