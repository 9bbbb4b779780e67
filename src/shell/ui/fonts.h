#pragma once

#include <QFont>

namespace corvane {

enum class Figures { proportional, tabular };

/// Makes the fonts that the program carries known to Qt. Once, before the first text is laid out; needs a
/// QGuiApplication.
void registerFonts();

/// The same for the font of ordinary text. Where that is the system's own, there is nothing to do.
void registerTextFonts();

/// The program's font, without size or weight; `tabular` has figures of one width where that is to be had.
[[nodiscard]] QFont textFont(Figures figures);

/// The same font, which draws emoji in colour where the system can. Another font's plain drawing of them might come
/// first otherwise.
[[nodiscard]] QFont fontWithEmoji(QFont font);

/// The rounded font of the one large figure, without size or weight; it has one weight, bold.
[[nodiscard]] QFont roundedFont();

} // namespace corvane
