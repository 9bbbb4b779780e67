#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvane {

/// A value of a property list. Dates and raw data are skipped because no caller needs them.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    using Dictionary = std::map<std::string, PropertyList>;

    PropertyList() = default;
    explicit PropertyList(bool value) : m_value(value) {}
    explicit PropertyList(std::int64_t value) : m_value(value) {}
    explicit PropertyList(double value) : m_value(value) {}
    explicit PropertyList(std::string value) : m_value(std::move(value)) {}
    explicit PropertyList(Array value) : m_value(std::move(value)) {}
    explicit PropertyList(Dictionary value) : m_value(std::move(value)) {}

    /// Parses an XML or binary property list; nothing for any other input.
    [[nodiscard]] static std::optional<PropertyList> parse(std::string_view bytes);

    /// Null if the value is of another type.
    [[nodiscard]] const std::string *string() const { return std::get_if<std::string>(&m_value); }
    [[nodiscard]] const Array *array() const { return std::get_if<Array>(&m_value); }
    [[nodiscard]] const Dictionary *dictionary() const { return std::get_if<Dictionary>(&m_value); }
    /// The value of a dictionary's key, or null.
    [[nodiscard]] const PropertyList *find(const std::string &key) const;
    /// A number, truncated; nothing for anything else.
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    /// A boolean, or whether a number is not 0.
    [[nodiscard]] std::optional<bool> boolean() const;

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, Array, Dictionary> m_value;
};

} // namespace corvane
