#pragma once

#include <functional>

#include <QColor>
#include <QImage>
#include <QQuickImageProvider>
#include <QString>

#include "shell/ui/symbols.h"

namespace corvane {

/// One icon in one colour, `pixels` wide and high. A name that is not embedded gives a crossed box, to make the mistake
/// visible, and a warning. Any thread.
[[nodiscard]] QImage renderIcon(std::string_view icon, IconWeight weight, const QColor &color, int pixels);

/// The system's own drawing of a symbol (a name from `allSymbols()`), or a null image if it has none.
using SystemSymbols =
    std::function<QImage(std::string_view symbol, IconWeight weight, const QColor &color, int pixels)>;

/// Serves QML icons: image://icon/NAME/WEIGHT/AARRGGBB by the icon's own name, and image://symbol/NAME/WEIGHT/AARRGGBB
/// by a symbol's name, where the weight "rest" is the symbol's default. The requested source size is in device pixels.
class IconProvider : public QQuickImageProvider {
public:
    enum class Names { icons, symbols };

    /// Symbols are looked up in `system` first; it may be empty.
    explicit IconProvider(Names names, SystemSymbols system = {});

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    const Names m_names;
    const SystemSymbols m_system;
};

} // namespace corvane
