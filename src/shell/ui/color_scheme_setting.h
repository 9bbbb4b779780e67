#pragma once

#include <memory>

#include <QObject>

namespace corvane {

enum class ColorScheme { noPreference, light, dark };

/// The desktop's light or dark setting, on desktops that store it separately from the palette. Main thread only.
class ColorSchemeSetting : public QObject {
    Q_OBJECT

public:
    /// No preference until the desktop has answered.
    [[nodiscard]] virtual ColorScheme scheme() const = 0;

signals:
    void changed();
};

/// The setting of the current system; null if the palette already reflects it.
[[nodiscard]] std::unique_ptr<ColorSchemeSetting> systemColorSchemeSetting();

} // namespace corvane
