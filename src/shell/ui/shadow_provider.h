#pragma once

#include <QImage>
#include <QObject>
#include <QQuickImageProvider>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The measures of the soft shadow under what floats, by elevation: 2 for menus, pills and tips, 3 for sheets.
class ShadowMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// How far the shadow reaches beyond its panel on every side, in points.
    Q_INVOKABLE [[nodiscard]] static int reach(int elevation);
    /// How far it lies below its panel, in points.
    Q_INVOKABLE [[nodiscard]] static int drop(int elevation);
};

/// The shadow of a panel of that size, `ShadowMetrics::reach` wider on every side. Any thread.
[[nodiscard]] QImage renderShadow(int elevation, bool dark, const QSize &panel);

/// Gives QML image://shadow/ELEVATION/SCHEME/WIDTHxHEIGHT, where the scheme is "light" or "dark".
class ShadowProvider : public QQuickImageProvider {
public:
    ShadowProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace corvane
