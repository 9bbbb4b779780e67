#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "cli/output.h"
#include "core/color.h"
#include "platform/time.h"

namespace corvane {

/// Writes one JSON document piece by piece, so that a tree of any size needs no second copy of itself. The
/// caller opens and closes objects and arrays in the right order; commas are put by the writer.
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

    /// A key with its value. Texts are written by `text`.
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

    /// A text given as bytes; what is not UTF-8 becomes U+FFFD.
    void text(std::string_view bytes);
    void text(std::string_view name, std::string_view bytes);

    /// `"key": text`, and where the bytes are not UTF-8 also `"keyHex"` with all of them in hexadecimal.
    void bytes(std::string_view name, std::string_view value);

    /// `"key": the bytes in hexadecimal`, and nothing where they are UTF-8 and so told by their text.
    void hexUnlessText(std::string_view name, std::string_view value);

    /// Ends the document with a line break.
    void finish();

    /// Whether further text would reach nobody.
    [[nodiscard]] bool isClosed() const { return m_out.isClosed(); }

private:
    void separate();

    Output &m_out;
    bool m_needsComma = false;
};

} // namespace corvane
