#pragma once

#include <string_view>

#include <QByteArray>
#include <QString>

namespace corvane {

/// The text that people see for bytes of a path or name: what is not valid UTF-8 becomes U+FFFD, and control
/// characters (a name may hold line breaks) become their visible pictures, so that a name stays on one line.
[[nodiscard]] QString displayText(std::string_view bytes);

/// The file address of a path, percent-encoded from its bytes, so that a name that is not valid text keeps them.
[[nodiscard]] QByteArray fileUrl(std::string_view path);

} // namespace corvane
