#include "core/words/lower_case.h"

#include <utf8proc.h>

#include "core/words/utf8.h"
#include "platform/ascii_case.h"

namespace corvane {

std::string lowerCase(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (static_cast<unsigned char>(text[i]) < 0x80) { // the common case
            result += lowerAscii(text[i++]);
            continue;
        }
        const DecodedCharacter character = decodeUtf8(text, i);
        if (character.isValid)
            appendUtf8(result,
                       static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(character.codePoint))));
        else
            result += text.substr(i, character.length);
        i += character.length;
    }
    return result;
}

} // namespace corvane
