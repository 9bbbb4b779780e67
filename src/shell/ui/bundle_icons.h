#pragma once

#include <string>

#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QMutex>
#include <QQuickImageProvider>
#include <QString>

namespace corvane {

/// The `iconKey` of `BundleIcon` for the application bundle at this path (bytes). Any thread.
[[nodiscard]] QString bundleIconKey(const std::string &path);

/// The fallback icon of an application without one, `pixels` wide and high. Any thread.
[[nodiscard]] QImage drawnBundleIcon(int pixels);

/// The same icon for a dark ground: with a light outline, inside its shape, if its edge hardly differs from the ground.
/// Any thread.
[[nodiscard]] QImage outlinedOnDark(QImage icon);

/// Serves QML image://bundle/KEY, the icon of an application bundle, at the requested source size, and
/// image://bundle/dark/KEY, the same for a dark ground. Reads the disk on a thread of the engine's, never on the render
/// thread.
class BundleIconProvider : public QQuickImageProvider {
public:
    BundleIconProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    [[nodiscard]] QImage icon(const std::string &path);

    QMutex m_mutex;
    QCache<QByteArray, QImage> m_icons; // guarded by m_mutex; by path, costs are bytes
};

} // namespace corvane
