#include "apps/app_description.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "apps/name_pieces.h"
#include "core/words/utf8.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr std::size_t longestName = 255;
constexpr std::string_view blanks = " \t\r\n";

/// The text trimmed, with its entities decoded. Empty if it is not usable as a name.
std::string plainText(std::string_view text)
{
    constexpr std::array<std::pair<std::string_view, char>, 5> entities{
        {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    text = trimmed(text);
    std::string plain;
    while (!text.empty() && plain.size() <= longestName) {
        const auto *const entity =
            std::ranges::find_if(entities, [&](const auto &each) { return text.starts_with(each.first); });
        const bool isEntity = entity != entities.end();
        plain += isEntity ? entity->second : text.front();
        text.remove_prefix(isEntity ? entity->first.size() : 1);
    }
    return plain.size() <= longestName && isValidUtf8(plain) ? withoutControls(std::move(plain)) : std::string();
}

/// The value of an attribute in a tag; empty if missing.
std::string_view attribute(std::string_view tag, std::string_view name)
{
    for (std::size_t at = 0; (at = tag.find(name, at)) != std::string_view::npos; ++at) {
        const std::size_t value = at + name.size();
        const bool isWhole = at > 0 && blanks.find(tag[at - 1]) != std::string_view::npos;
        if (!isWhole || value + 1 >= tag.size() || tag[value] != '=')
            continue;
        const char quote = tag[value + 1];
        const std::size_t end = tag.find(quote, value + 2);
        if ((quote != '"' && quote != '\'') || end == std::string_view::npos)
            return {};
        return tag.substr(value + 2, end - value - 2);
    }
    return {};
}

} // namespace

AppDescription AppDescription::parse(std::string_view text)
{
    constexpr std::string_view comment = "!--";
    constexpr std::string_view commentEnd = "-->";
    AppDescription description;
    bool isInDeveloper = false; // whose name may precede that of the application
    std::size_t start = 0;
    while ((description.name.empty() || description.version.empty()) &&
           (start = text.find('<', start)) != std::string_view::npos) {
        ++start;
        if (text.substr(start).starts_with(comment)) {
            start = text.find(commentEnd, start);
            if (start == std::string_view::npos)
                break;
            continue;
        }
        const std::size_t end = text.find('>', start);
        if (end == std::string_view::npos)
            break;
        const std::string_view tag = text.substr(start, end - start);
        const std::string_view element = tag.substr(0, tag.find_first_of(blanks));
        if (element == "developer") {
            isInDeveloper = !tag.ends_with('/');
        } else if (element == "/developer") {
            isInDeveloper = false;
        } else if (description.name.empty() && !isInDeveloper && tag == "name") {
            // Names in other languages have an attribute.
            description.name = plainText(text.substr(end + 1, text.find('<', end) - end - 1));
        } else if (description.version.empty() && element == "release") {
            const std::string_view version = attribute(tag, "version");
            if (isVersion(version))
                description.version = version;
        }
        start = end + 1;
    }
    return description;
}

} // namespace corvane
