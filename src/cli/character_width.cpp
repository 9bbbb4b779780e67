#include "cli/character_width.h"

#include <algorithm>

#include <utf8proc.h>

#include "core/words/utf8.h"

namespace corvane {

namespace {

constexpr utf8proc_int32_t emojiPresentation = 0xFE0F;

/// The library gives a spacing combining mark no column; terminals give it one.
std::size_t widthAlone(utf8proc_int32_t character)
{
    const bool isBeside = utf8proc_category(character) == UTF8PROC_CATEGORY_MC;
    return isBeside ? 1 : static_cast<std::size_t>(utf8proc_charwidth(character));
}

/// Whether a character usually drawn as text, in one column, also has an emoji presentation.
bool canBeEmoji(utf8proc_int32_t character)
{
    const bool isOfKeycap = (character >= '0' && character <= '9') || character == '#' || character == '*';
    return isOfKeycap || utf8proc_get_property(character)->boundclass == UTF8PROC_BOUNDCLASS_EXTENDED_PICTOGRAPHIC;
}

} // namespace

Cluster nextCluster(std::string_view text, std::size_t position)
{
    constexpr std::size_t most = 2;
    Cluster cluster;
    utf8proc_int32_t before = 0;
    utf8proc_int32_t state = 0;
    while (position + cluster.length < text.size()) {
        const DecodedCharacter next = decodeUtf8(text, position + cluster.length);
        const auto character = static_cast<utf8proc_int32_t>(next.codePoint);
        if (cluster.length > 0 && utf8proc_grapheme_break_stateful(before, character, &state))
            break;
        const bool becomesEmoji = character == emojiPresentation && canBeEmoji(before);
        cluster.width = becomesEmoji ? most : std::min(most, cluster.width + widthAlone(character));
        cluster.length += next.length;
        before = character;
    }
    return cluster;
}

} // namespace corvane
