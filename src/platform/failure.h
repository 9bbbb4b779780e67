#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/error.h"

namespace corvane {

/// The error of a failed system call. `code` is an `errno` value; pass it explicitly if making the other arguments may
/// change `errno`. `text` is the message for users if there is a better one than the system's.
[[nodiscard]] inline Error kernelError(std::string_view operation, std::string_view path, int code = errno,
                                       std::string text = {})
{
    return {std::string(operation), std::string(path), {code, std::generic_category()}, std::move(text)};
}

/// The same, as the return value of a function that returns an `Expected`.
[[nodiscard]] inline tl::unexpected<Error> failure(std::string_view operation, std::string_view path, int code = errno,
                                                   std::string text = {})
{
    return tl::unexpected(kernelError(operation, path, code, std::move(text)));
}

} // namespace corvane
