#include "cli/json_writer.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "core/words/utf8.h"

namespace corvane {

namespace {

bool standsAsItIs(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x80 && c != '"' && c != '\\';
}

constexpr std::string_view replacement = "\uFFFD";

/// The escape sequence of an ASCII character.
std::string escaped(char c)
{
    switch (c) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return fmt::format("\\u{:04x}", static_cast<unsigned char>(c));
    }
}

std::string hexadecimal(std::string_view bytes)
{
    std::string digits;
    digits.reserve(bytes.size() * 2);
    for (const char c : bytes)
        fmt::format_to(std::back_inserter(digits), "{:02x}", static_cast<unsigned char>(c));
    return digits;
}

} // namespace

JsonWriter::JsonWriter(Output &out) : m_out(out) {}

void JsonWriter::separate()
{
    if (m_needsComma)
        m_out.write(',');
    m_needsComma = true;
}

void JsonWriter::beginObject()
{
    separate();
    m_out.write('{');
    m_needsComma = false;
}

void JsonWriter::endObject()
{
    m_out.write('}');
    m_needsComma = true;
}

void JsonWriter::beginArray()
{
    separate();
    m_out.write('[');
    m_needsComma = false;
}

void JsonWriter::endArray()
{
    m_out.write(']');
    m_needsComma = true;
}

void JsonWriter::key(std::string_view name)
{
    text(name);
    m_out.write(':');
    m_needsComma = false;
}

void JsonWriter::value(std::int64_t number)
{
    separate();
    m_out.write(fmt::format_int(number).c_str());
}

void JsonWriter::value(double number)
{
    separate();
    m_out.write(fmt::format("{}", number));
}

void JsonWriter::value(bool flag)
{
    separate();
    m_out.write(flag ? "true" : "false");
}

void JsonWriter::value(Time time)
{
    if (time == distantPast)
        null();
    else
        value(std::int64_t{time.time_since_epoch().count()});
}

void JsonWriter::value(const Color &color)
{
    beginArray();
    for (const double part : {color.red, color.green, color.blue})
        value(part);
    endArray();
}

void JsonWriter::null()
{
    separate();
    m_out.write("null");
}

void JsonWriter::null(std::string_view name)
{
    key(name);
    null();
}

void JsonWriter::text(std::string_view bytes)
{
    separate();
    m_out.write('"');
    while (!bytes.empty()) {
        const auto *const special = std::ranges::find_if_not(bytes, standsAsItIs);
        const auto plain = static_cast<std::size_t>(special - bytes.begin());
        m_out.write(bytes.substr(0, plain));
        bytes.remove_prefix(plain);
        if (bytes.empty())
            break;
        const DecodedCharacter character = decodeUtf8(bytes, 0);
        if (!character.isValid)
            m_out.write(replacement);
        else if (character.length > 1)
            m_out.write(bytes.substr(0, character.length));
        else
            m_out.write(escaped(bytes.front()));
        bytes.remove_prefix(character.length);
    }
    m_out.write('"');
}

void JsonWriter::text(std::string_view name, std::string_view bytes)
{
    key(name);
    text(bytes);
}

void JsonWriter::bytes(std::string_view name, std::string_view value)
{
    text(name, value);
    hexUnlessText(std::string(name) + "Hex", value);
}

void JsonWriter::hexUnlessText(std::string_view name, std::string_view value)
{
    if (isValidUtf8(value))
        return;
    text(name, hexadecimal(value));
}

void JsonWriter::finish()
{
    m_out.write('\n');
}

} // namespace corvane
