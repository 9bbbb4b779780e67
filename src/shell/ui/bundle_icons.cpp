#include "shell/ui/bundle_icons.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QMutexLocker>
#include <QPainter>

#include "core/color.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/icon_provider.h"
#include "shell/ui/qt_color.h"
#include "shell/ui/system_file_icon.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

// For the largest use: 64 points on a screen of two pixels per point.
constexpr int largestPixels = 128;
// Room for five hundred icons of that size.
constexpr qsizetype largestCache = 32'000'000;

constexpr double cornerPart = 0.235; // of the side
constexpr double glyphPart = 0.56;

const QString darkMark = QStringLiteral("dark/");
constexpr double leastContrast = 1.5; // between an icon's edge and the ground
constexpr double outlineOpacity = 0.3;
constexpr int sideOfOneLine = 48; // pixels of an icon whose outline is one pixel wide; larger icons have a wider one

/// How much each pixel belongs to the edge of a shape, as alpha: the difference from its most transparent neighbour.
QImage edgeOf(const QImage &icon)
{
    const int reach = std::max(1, icon.width() / sideOfOneLine);
    const auto alphaAt = [&](int x, int y) { return icon.valid(x, y) ? qAlpha(icon.pixel(x, y)) : 0; };
    QImage edge(icon.size(), QImage::Format_ARGB32);
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const int least =
                std::min({alphaAt(x - reach, y), alphaAt(x + reach, y), alphaAt(x, y - reach), alphaAt(x, y + reach)});
            edge.setPixel(x, y, qRgba(255, 255, 255, std::max(0, alphaAt(x, y) - least)));
        }
    }
    return edge;
}

/// The mean colour of an icon's edge; nothing for an icon without one.
std::optional<Color> colorOfEdge(const QImage &icon, const QImage &edge)
{
    Color sum;
    double weights = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const double weight = qAlpha(edge.pixel(x, y));
            const QRgb pixel = icon.pixel(x, y);
            sum.red += weight * qRed(pixel) / 255;
            sum.green += weight * qGreen(pixel) / 255;
            sum.blue += weight * qBlue(pixel) / 255;
            weights += weight;
        }
    }
    if (weights <= 0)
        return std::nullopt;
    return Color{sum.red / weights, sum.green / weights, sum.blue / weights};
}

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
    painter.setBrush(Theme::appTile());
    painter.drawRoundedRect(tile.rect(), pixels * cornerPart, pixels * cornerPart);
    const int glyph = qRound(pixels * glyphPart);
    const int inset = (pixels - glyph) / 2;
    painter.drawImage(inset, inset, renderIcon("app-window", IconWeight::fill, Theme::onFill(), glyph));
    return tile;
}

QImage outlinedOnDark(QImage icon)
{
    const QImage edge = edgeOf(icon);
    const std::optional<Color> color = colorOfEdge(icon, edge);
    if (!color || contrast(*color, toColor(Theme::surface(Theme::Scheme::dark))) >= leastContrast)
        return icon;
    icon.convertTo(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&icon);
    painter.setOpacity(outlineOpacity);
    painter.drawImage(0, 0, edge);
    painter.end();
    return icon;
}

BundleIconProvider::BundleIconProvider()
    : QQuickImageProvider(QQuickImageProvider::Image, QQuickImageProvider::ForceAsynchronousImageLoading),
      m_icons(largestCache)
{
}

QImage BundleIconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const bool isOnDark = id.startsWith(darkMark);
    QImage image = icon(decodedPath(isOnDark ? id.mid(darkMark.size()) : id));
    if (requestedSize.width() > 0)
        image = image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (isOnDark)
        image = outlinedOnDark(std::move(image));
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
