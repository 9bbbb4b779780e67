#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// What keeps a text from being well-formed XML (elements, attributes, character data and the five named
/// references; no comments, sections or document types), or an empty text where nothing does.
[[nodiscard]] std::string xmlFault(std::string_view text);

} // namespace corvane
