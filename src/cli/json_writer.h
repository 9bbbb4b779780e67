#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "cli/output.h"
#include "core/color.h"
#include "platform/time.h"

namespace corvane {

/// Writes one JSON document incrementally, so that a large tree is not copied. The caller opens and closes objects and
/// arrays in the right order; the writer inserts the commas.
class JsonWriter {
public:
    explicit JsonWriter(Output &out);

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);

    void value(std::int64_t number);
    void value(int number) { value(std::int64_t{number}); }
    void value(double number);
    void value(bool flag);
    /// Unix seconds; null for `distantPast`.
    void value(Time time);
    /// Red, green and blue as an array, each from 0 to 1.
    void value(const Color &color);
    void null();

    /// A key and its value. Use `text` for strings.
    template <typename Value>
    void value(std::string_view name, const Value &value)
    {
        key(name);
        this->value(value);
    }
    template <typename Value>
    void value(std::string_view name, const std::optional<Value> &value)
    {
        key(name);
        value ? this->value(*value) : null();
    }
    void value(const char *text) = delete;
    void null(std::string_view name);

    /// A string given as bytes; invalid UTF-8 becomes U+FFFD.
    void text(std::string_view bytes);
    void text(std::string_view name, std::string_view bytes);

    /// `"key": text`, and if the bytes are not valid UTF-8 also `"keyHex"` with all of them in hexadecimal.
    void bytes(std::string_view name, std::string_view value);

    /// `"key"` with the bytes in hexadecimal; nothing if they are valid UTF-8.
    void hexUnlessText(std::string_view name, std::string_view value);

    /// Ends the document with a line break.
    void finish();

    /// Whether the reader has gone away.
    [[nodiscard]] bool isClosed() const { return m_out.isClosed(); }

private:
    void separate();

    Output &m_out;
    bool m_needsComma = false;
};

} // namespace corvane
