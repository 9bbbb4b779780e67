#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The first error that makes a text ill-formed XML (elements, attributes, character data and the five predefined
/// entities; no comments, CDATA sections or document types), or an empty text if there is none.
[[nodiscard]] std::string xmlFault(std::string_view text);

} // namespace corvane
