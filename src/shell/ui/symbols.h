#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace corvane {

enum class IconWeight { regular, fill, bold, light };

/// A symbol that screens ask for by its macOS name, and the icon that stands for it elsewhere.
struct Symbol {
    std::string_view name;
    std::string_view icon;
    IconWeight weight; ///< where the asker names none
};

/// Every symbol that the program knows.
[[nodiscard]] std::span<const Symbol> allSymbols();

[[nodiscard]] std::optional<Symbol> findSymbol(std::string_view name);

/// The weight's own name, as icon files and QML spell it; nothing for any other text.
[[nodiscard]] std::string_view weightName(IconWeight weight);
[[nodiscard]] std::optional<IconWeight> findWeight(std::string_view name);

} // namespace corvane
