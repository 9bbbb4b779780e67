#pragma once

#include <string_view>

#include <QString>

namespace corvane {

/// The text that people see for bytes of a path or name: what is not valid UTF-8 becomes U+FFFD, and control
/// characters (a name may hold line breaks) become their visible pictures, so that a name stays on one line.
[[nodiscard]] QString displayText(std::string_view bytes);

} // namespace corvane
