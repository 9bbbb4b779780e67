#pragma once

#include <QImage>
#include <QObject>
#include <QQuickImageProvider>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The dimensions of the soft shadow under floating panels, by elevation: 2 for menus, pills and tips, 3 for sheets.
class ShadowMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// How far the shadow reaches beyond its panel on every side, in points.
    Q_INVOKABLE [[nodiscard]] static int reach(int elevation);
    /// The vertical offset of the shadow, in points.
    Q_INVOKABLE [[nodiscard]] static int drop(int elevation);
};

/// The shadow of a panel of that size, larger by `ShadowMetrics::reach` on every side. Any thread.
[[nodiscard]] QImage renderShadow(int elevation, bool dark, const QSize &panel);

/// Serves QML image://shadow/ELEVATION/SCHEME/WIDTHxHEIGHT, where the scheme is "light" or "dark".
class ShadowProvider : public QQuickImageProvider {
public:
    ShadowProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace corvane
