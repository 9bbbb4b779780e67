#pragma once

#include <string>

#include <QByteArray>
#include <QCache>
#include <QImage>
#include <QMutex>
#include <QQuickImageProvider>
#include <QString>

namespace corvane {

/// What `BundleIcon` takes as `iconKey`, for the application bundle at that path (bytes). Any thread.
[[nodiscard]] QString bundleIconKey(const std::string &path);

/// What stands for an application without an icon of its own, `pixels` wide and high. Any thread.
[[nodiscard]] QImage drawnBundleIcon(int pixels);

/// Gives QML image://bundle/KEY, the icon of an application bundle, at the source size asked for. The disk is read on a
/// thread of the engine's, never on the one that draws.
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
