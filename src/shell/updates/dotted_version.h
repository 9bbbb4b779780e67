#pragma once

#include <compare>
#include <optional>
#include <string>
#include <vector>

#include <QStringView>

namespace corvane {

/// A version made of numbers, such as "10200" or "1.2.10". Compared number by number, each of any length; a number that
/// is missing at the end counts as 0.
class DottedVersion {
public:
    /// Nothing for any other text, and for one of more than 256 characters.
    [[nodiscard]] static std::optional<DottedVersion> parse(QStringView text);

    /// The version that a text begins with: that of "6.1.0-13-amd64" is 6.1.0.
    [[nodiscard]] static std::optional<DottedVersion> leading(QStringView text);

    friend std::strong_ordering operator<=>(const DottedVersion &left, const DottedVersion &right);
    friend bool operator==(const DottedVersion &, const DottedVersion &) = default;

private:
    std::vector<std::string> m_numbers; // without zeros in front, the last one not 0
};

} // namespace corvane
