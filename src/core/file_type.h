#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/color.h"

namespace corvane {

/// The display category of a file. `folder` and `small` only label folders and folded small files; `from` never returns
/// them. A value, cheap to copy, usable from any thread.
class FileType {
public:
    enum Case : std::uint8_t { video, image, audio, archive, diskImage, app, document, code, other, folder, small };

    static constexpr std::size_t count = 11;

    constexpr FileType(Case value = other) : m_value(value) {}
    constexpr operator Case() const { return m_value; }

    /// The category for a name's extension (bytes, no dot, any case). A package is classified by its own extension
    /// only, never by the sets for plain files.
    [[nodiscard]] static FileType from(std::string_view extension, bool isPackage);

    /// All cases in declaration order.
    [[nodiscard]] static const std::array<FileType, count> &allCases();

    /// The display name.
    [[nodiscard]] std::string_view label() const;

    /// The case's own name ("diskImage"), used on command lines and in JSON.
    [[nodiscard]] std::string_view caseName() const;

    [[nodiscard]] Color color() const;

private:
    Case m_value;
};

} // namespace corvane
