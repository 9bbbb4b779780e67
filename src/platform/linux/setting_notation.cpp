#include "platform/linux/setting_notation.h"

#include <utility>

#include "platform/text.h"

namespace corvane {

namespace {

/// The text between a pair of equal quotes around it, or the whole text. Escapes stay as they are.
std::string_view withoutOuterQuotes(std::string_view text)
{
    const bool isQuoted =
        text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

/// The unquoted value of the last line "key = value"; empty if there is none.
std::string valueOfKey(std::string_view text, std::string_view key)
{
    std::string_view found;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && trimmed(line.substr(0, equals)) == key)
            found = withoutOuterQuotes(trimmed(line.substr(equals + 1)));
    }
    return std::string(found);
}

/// The value of the last line "key value"; empty if there is none.
std::string valueBehindKey(std::string_view text, std::string_view key)
{
    std::string_view found;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (line.starts_with(key) && line.size() > key.size() && (line[key.size()] == ' ' || line[key.size()] == '\t'))
            found = withoutOuterQuotes(trimmed(line.substr(key.size())));
    }
    return std::string(found);
}

/// The value of the first unindented "key: value", or the first of its list; empty if there is none.
std::string valueInYaml(std::string_view text, std::string_view key)
{
    const auto plain = [](std::string_view value) {
        const std::size_t comment = value.find(" #");
        return std::string(withoutOuterQuotes(trimmed(value.substr(0, comment))));
    };
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (!line.starts_with(key) || line.size() == key.size() || line[key.size()] != ':')
            continue;
        std::string value = plain(line.substr(key.size() + 1));
        if (value.starts_with('['))
            return plain(std::string_view(value).substr(1, value.find_first_of(",]") - 1));
        if (!value.empty())
            return value;
        while (!text.empty()) {
            const std::string_view item = trimmed(takeLine(text));
            if (item.starts_with("- "))
                return plain(item.substr(1));
            if (!item.empty() && !item.starts_with('#'))
                break;
        }
        return {};
    }
    return {};
}

/// The contents of the first element of that name outside comments; empty if there is none.
std::string textOfElement(std::string text, const std::string &name)
{
    constexpr std::string_view opens = "<!--";
    constexpr std::string_view closes = "-->";
    for (std::size_t start = 0; (start = text.find(opens, start)) != std::string::npos;) {
        const std::size_t end = text.find(closes, start);
        text.erase(start, end == std::string::npos ? end : end + closes.size() - start);
    }
    const std::string tag = "<" + name + ">";
    const std::size_t start = text.find(tag);
    const std::size_t end = start == std::string::npos ? start : text.find("</" + name + ">", start);
    if (end == std::string::npos)
        return {};
    return std::string(trimmed(std::string_view(text).substr(start + tag.size(), end - start - tag.size())));
}

} // namespace

std::string settingIn(std::string text, SettingNotation notation, std::string_view key)
{
    switch (notation) {
    case SettingNotation::none:
        break;
    case SettingNotation::keyAndValue:
        return valueOfKey(text, key);
    case SettingNotation::keyAndQuoted:
        return valueBehindKey(text, key);
    case SettingNotation::yamlValue:
        return valueInYaml(text, key);
    case SettingNotation::xmlElement:
        return textOfElement(std::move(text), std::string(key));
    }
    return {};
}

} // namespace corvane
