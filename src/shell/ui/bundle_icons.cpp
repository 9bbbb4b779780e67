#include "shell/ui/bundle_icons.h"

#include <algorithm>

#include <QMutexLocker>
#include <QPainter>

#include "shell/ui/file_icons.h"
#include "shell/ui/icon_provider.h"
#include "shell/ui/system_file_icon.h"

namespace corvane {

namespace {

// For the largest use: 64 points on a screen of two pixels per point.
constexpr int largestPixels = 128;
// Room for five hundred icons of that size.
constexpr qsizetype largestCache = 32'000'000;

constexpr double cornerPart = 0.235; // of the side
constexpr double glyphPart = 0.56;
const QColor tileColor(0x6b, 0x71, 0x80);

} // namespace

QString bundleIconKey(const std::string &path)
{
    return encodedPath(path);
}

QImage drawnBundleIcon(int pixels)
{
    QImage tile(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tileColor);
    painter.drawRoundedRect(tile.rect(), pixels * cornerPart, pixels * cornerPart);
    const int glyph = qRound(pixels * glyphPart);
    const int inset = (pixels - glyph) / 2;
    painter.drawImage(inset, inset, renderIcon("app-window", IconWeight::fill, Qt::white, glyph));
    return tile;
}

BundleIconProvider::BundleIconProvider()
    : QQuickImageProvider(QQuickImageProvider::Image, QQuickImageProvider::ForceAsynchronousImageLoading),
      m_icons(largestCache)
{
}

QImage BundleIconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    QImage image = icon(decodedPath(id));
    if (requestedSize.width() > 0)
        image = image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (size)
        *size = image.size();
    return image;
}

QImage BundleIconProvider::icon(const std::string &path)
{
    const QByteArray key = QByteArray::fromStdString(path);
    {
        const QMutexLocker lock(&m_mutex);
        if (const QImage *const known = m_icons.object(key))
            return *known;
    }
    // Without the lock, because reading the disk may take long.
    QImage image = systemBundleIcon(path, largestPixels);
    if (image.isNull())
        image = drawnBundleIcon(largestPixels);
    if (std::max(image.width(), image.height()) > largestPixels)
        image = image.scaled(largestPixels, largestPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const QMutexLocker lock(&m_mutex);
    m_icons.insert(key, new QImage(image), image.sizeInBytes());
    return image;
}

} // namespace corvane
