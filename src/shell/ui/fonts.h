#pragma once

#include <QFont>

namespace corvane {

enum class Figures { proportional, tabular };

/// Registers the program's embedded fonts with Qt. Call once, before the first text is laid out; requires a
/// QGuiApplication.
void registerFonts();

/// Registers the text font; a no-op if that is the system's own.
void registerTextFonts();

/// The program's font, without size or weight; `tabular` uses figures of equal width if available.
[[nodiscard]] QFont textFont(Figures figures);

/// The same font with colour emoji if the system has them. Without this, another font's monochrome glyphs might be
/// preferred.
[[nodiscard]] QFont fontWithEmoji(QFont font);

/// The rounded font of the one large figure, without size; it exists in bold only.
[[nodiscard]] QFont roundedFont();

} // namespace corvane
