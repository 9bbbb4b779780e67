#pragma once

#include <string>

#include <gio/gio.h>

#include "platform/error.h"

namespace corvane {

/// What GIO failed at, with its sentence and the system's code that comes closest.
[[nodiscard]] Error gioError(std::string operation, std::string path, const GError &error);

} // namespace corvane
