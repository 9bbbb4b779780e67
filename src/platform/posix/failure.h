#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/error.h"

namespace corvane {

/// What a call of the kernel failed at, by its number for that (`errno`), and a sentence for people where there is a
/// better one than the system's.
[[nodiscard]] inline tl::unexpected<Error> failure(std::string_view operation, std::string_view path, int code,
                                                   std::string text = {})
{
    return tl::unexpected(
        Error{std::string(operation), std::string(path), {code, std::generic_category()}, std::move(text)});
}

} // namespace corvane
