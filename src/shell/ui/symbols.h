#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace corvane {

enum class IconWeight { regular, fill, bold, light };

/// A symbol that screens refer to by its macOS name, and the icon used for it on other systems.
struct Symbol {
    std::string_view name;
    std::string_view icon;
    IconWeight weight; ///< the default weight
};

/// Every symbol that the program knows.
[[nodiscard]] std::span<const Symbol> allSymbols();

[[nodiscard]] std::optional<Symbol> findSymbol(std::string_view name);

/// The weight's name in icon files and in QML, and back; nullopt for any other text.
[[nodiscard]] std::string_view weightName(IconWeight weight);
[[nodiscard]] std::optional<IconWeight> findWeight(std::string_view name);

} // namespace corvane
