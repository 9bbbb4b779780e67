#pragma once

#include <memory>
#include <optional>

#include <QObject>

namespace corvane {

/// The desktop's light or dark setting, on desktops that store it separately from the palette. Main thread only.
class ColorSchemeSetting : public QObject {
    Q_OBJECT

public:
    /// nullopt if the desktop has no preference, or has not answered yet.
    [[nodiscard]] virtual std::optional<bool> prefersDark() const = 0;

signals:
    void changed();
};

/// The setting of the current system; null if the palette already reflects it.
[[nodiscard]] std::unique_ptr<ColorSchemeSetting> systemColorSchemeSetting();

} // namespace corvane
