#include "core/words/text_search.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>

#include <utf8proc.h>

#include "core/words/utf8.h"
#include "platform/ascii_case.h"
#include "platform/environment.h"

namespace corvane {

namespace {

constexpr char32_t capitalDottedI = 0x0130;
constexpr char32_t smallDotlessI = 0x0131;
constexpr char32_t dotAbove = 0x0307;

bool isAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The text in valid UTF-8, with "I" and "İ" lowercased the Turkish way if `casing` is turkic.
std::string prepared(std::string_view bytes, Casing casing)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size();) {
        const DecodedCharacter character = decodeUtf8(bytes, i);
        i += character.length;
        char32_t codePoint = character.codePoint;
        if (casing == Casing::turkic && codePoint == capitalDottedI) {
            codePoint = U'i';
        } else if (casing == Casing::turkic && codePoint == U'I') {
            const bool isDotted = i < bytes.size() && decodeUtf8(bytes, i).codePoint == dotAbove;
            if (isDotted)
                i += decodeUtf8(bytes, i).length;
            codePoint = isDotted ? U'i' : smallDotlessI;
        }
        appendUtf8(text, codePoint);
    }
    return text;
}

bool isAccent(char32_t codePoint)
{
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(codePoint))) {
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
        return true;
    default:
        return false;
    }
}

} // namespace

Casing casingOf(std::string_view locale)
{
    const std::string language = lowerAscii(std::string(locale.substr(0, locale.find_first_of("_-.@"))));
    return language == "tr" || language == "az" ? Casing::turkic : Casing::usual;
}

Casing userCasing()
{
    return casingOf(Environment::locale("LC_CTYPE")); // LC_CTYPE determines case mapping
}

std::string searchable(std::string_view bytes, Casing casing)
{
    if (casing == Casing::usual && isAscii(bytes)) // the common case
        return lowerAscii(std::string(bytes));
    const std::string text = prepared(bytes, casing);
    utf8proc_uint8_t *folded = nullptr;
    const utf8proc_ssize_t length = utf8proc_map(
        reinterpret_cast<const utf8proc_uint8_t *>(text.data()), static_cast<utf8proc_ssize_t>(text.size()), &folded,
        static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(folded, std::free);
    return length < 0 ? text : std::string(reinterpret_cast<const char *>(folded), static_cast<std::size_t>(length));
}

bool holds(std::string_view text, std::string_view part)
{
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) {
        const std::size_t end = at + part.size();
        if (part.empty() || end == text.size() || static_cast<unsigned char>(text[end]) < 0x80 ||
            !isAccent(decodeUtf8(text, end).codePoint))
            return true;
    }
    return false;
}

} // namespace corvane
