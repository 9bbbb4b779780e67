#pragma once

#include <QFont>

namespace corvane {

enum class Figures { proportional, tabular };

/// Makes the fonts that the program carries known to Qt. Where the program uses the system's own font, there is
/// nothing to do. Once, before the first text is laid out; needs a QGuiApplication.
void registerFonts();

/// The program's font, without size or weight; `tabular` has figures of one width where that is to be had.
[[nodiscard]] QFont textFont(Figures figures);

} // namespace corvane
