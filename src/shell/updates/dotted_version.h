#pragma once

#include <compare>
#include <optional>
#include <string>
#include <vector>

#include <QStringView>

namespace corvane {

/// A version of dot-separated numbers, such as "10200" or "1.2.10". Compared number by number, each of any length;
/// missing trailing numbers count as 0.
class DottedVersion {
public:
    /// nullopt for any other text, and for one of more than 256 characters.
    [[nodiscard]] static std::optional<DottedVersion> parse(QStringView text);

    /// The version at the start of a text: 6.1.0 for "6.1.0-13-amd64".
    [[nodiscard]] static std::optional<DottedVersion> leading(QStringView text);

    friend std::strong_ordering operator<=>(const DottedVersion &left, const DottedVersion &right);
    friend bool operator==(const DottedVersion &, const DottedVersion &) = default;

private:
    std::vector<std::string> m_numbers; // without leading zeros; the last one is not 0
};

} // namespace corvane
