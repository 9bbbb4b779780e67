#include "cli/json_writer.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "core/words/utf8.h"

namespace corvane {

namespace {

bool standsAsItIs(char c)
{
    return c >= 0x20 && c < 0x7F && c != '"' && c != '\\';
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

void JsonWriter::text(std::string_view bytes)
{
    separate();
    // Nearly every name is plain ASCII; a value object for each would double the time of a large document.
    if (std::all_of(bytes.begin(), bytes.end(), standsAsItIs)) {
        m_out.write('"');
        m_out.write(bytes);
        m_out.write('"');
        return;
    }
    using nlohmann::json;
    m_out.write(json(bytes).dump(-1, ' ', false, json::error_handler_t::replace));
}

void JsonWriter::bytes(std::string_view name, std::string_view value)
{
    key(name);
    text(value);
    hexUnlessText(std::string(name) + "Hex", value);
}

void JsonWriter::hexUnlessText(std::string_view name, std::string_view value)
{
    if (isValidUtf8(value))
        return;
    key(name);
    text(hexadecimal(value));
}

void JsonWriter::finish()
{
    m_out.write('\n');
}

} // namespace corvane
