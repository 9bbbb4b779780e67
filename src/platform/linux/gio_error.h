#pragma once

#include <string>

#include <gio/gio.h>

#include "platform/error.h"

namespace corvane {

/// A GIO failure with GIO's message and the closest system error code.
[[nodiscard]] Error gioError(std::string operation, std::string path, const GError &error);

} // namespace corvane
