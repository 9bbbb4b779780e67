#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/error.h"

namespace corvane {

/// What a call of the kernel failed at, by its number for that (`errno`), and a sentence for people where there is a
/// better one than the system's.
[[nodiscard]] inline Error kernelError(std::string_view operation, std::string_view path, int code = errno,
                                       std::string text = {})
{
    return {std::string(operation), std::string(path), {code, std::generic_category()}, std::move(text)};
}

/// The same, for a function to return.
[[nodiscard]] inline tl::unexpected<Error> failure(std::string_view operation, std::string_view path, int code = errno,
                                                   std::string text = {})
{
    return tl::unexpected(kernelError(operation, path, code, std::move(text)));
}

} // namespace corvane
