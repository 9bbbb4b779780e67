#include "core/words/utf8.h"

namespace corvane {

namespace {

struct LeadByte {
    std::size_t length;
    char32_t bits;
    char32_t smallest; ///< a smaller value would have had a shorter form
};

LeadByte leadByte(unsigned char byte)
{
    if (byte < 0x80)
        return {1, byte, 0};
    if ((byte & 0xE0U) == 0xC0)
        return {2, byte & 0x1FU, 0x80};
    if ((byte & 0xF0U) == 0xE0)
        return {3, byte & 0x0FU, 0x800};
    if ((byte & 0xF8U) == 0xF0)
        return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

} // namespace

DecodedCharacter decodeUtf8(std::string_view bytes, std::size_t position)
{
    const LeadByte lead = leadByte(static_cast<unsigned char>(bytes[position]));
    if (lead.length == 0 || bytes.size() - position < lead.length)
        return {};
    char32_t codePoint = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[position + i]);
        if ((byte & 0xC0U) != 0x80)
            return {};
        codePoint = (codePoint << 6U) | (byte & 0x3FU);
    }
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < lead.smallest || codePoint > 0x10FFFF || isSurrogate)
        return {};
    return {codePoint, lead.length, true};
}

void appendUtf8(std::string &text, char32_t codePoint)
{
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0U | (codePoint >> 6U));
        append(0x80U | (codePoint & 0x3FU));
    } else if (codePoint < 0x10000) {
        append(0xE0U | (codePoint >> 12U));
        append(0x80U | ((codePoint >> 6U) & 0x3FU));
        append(0x80U | (codePoint & 0x3FU));
    } else {
        append(0xF0U | (codePoint >> 18U));
        append(0x80U | ((codePoint >> 12U) & 0x3FU));
        append(0x80U | ((codePoint >> 6U) & 0x3FU));
        append(0x80U | (codePoint & 0x3FU));
    }
}

bool isValidUtf8(std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size();) {
        const DecodedCharacter character = decodeUtf8(bytes, i);
        if (!character.isValid)
            return false;
        i += character.length;
    }
    return true;
}

} // namespace corvane
