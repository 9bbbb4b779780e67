#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/color.h"

namespace corvane {

/// The display category of a file. `folder` and `small` only label folders and folded small files;
/// classification never gives them. A value, cheap to copy, usable from any thread.
class FileType {
public:
    enum Case : std::uint8_t { video, image, audio, archive, diskImage, app, document, code, other, folder, small };

    static constexpr std::size_t count = 11;

    constexpr FileType(Case value = other) : m_value(value) {}
    constexpr operator Case() const { return m_value; }

    /// The category of a name's extension (bytes, no dot, any case). For a package its own extension alone
    /// decides; the sets for plain files are not consulted.
    [[nodiscard]] static FileType from(std::string_view extension, bool isPackage);

    /// Every case, in the order in which they are declared.
    [[nodiscard]] static const std::array<FileType, count> &allCases();

    /// The name shown to people; also the type's raw value.
    [[nodiscard]] std::string_view label() const;

    /// The case's own name ("diskImage"), as command lines and JSON spell it.
    [[nodiscard]] std::string_view caseName() const;

    [[nodiscard]] Color color() const;

private:
    Case m_value;
};

} // namespace corvane
