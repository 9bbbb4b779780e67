#pragma once

#include <memory>
#include <optional>

#include <QObject>

namespace corvane {

/// The desktop's own setting of light and dark, where it keeps one apart from the palette. Main thread only.
class ColorSchemeSetting : public QObject {
    Q_OBJECT

public:
    /// Nothing when the desktop does not say, or has not answered yet.
    [[nodiscard]] virtual std::optional<bool> prefersDark() const = 0;

signals:
    void changed();
};

/// What the system that the program runs on offers; null where the palette already says everything.
[[nodiscard]] std::unique_ptr<ColorSchemeSetting> systemColorSchemeSetting();

} // namespace corvane
