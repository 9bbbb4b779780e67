#include "shell/ui/app_icon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace corvane {

QImage renderAppIcon(int pixels)
{
    QSvgRenderer drawing(QStringLiteral(":/corvane/icon/corvane.svg"));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter, QRectF(image.rect()));
    return image;
}

QIcon appIcon()
{
    QIcon icon;
    for (const int pixels : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(QPixmap::fromImage(renderAppIcon(pixels)));
    return icon;
}

AppIconProvider::AppIconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage AppIconProvider::requestImage(const QString &, QSize *size, const QSize &requestedSize)
{
    QImage image = renderAppIcon(requestedSize.width() > 0 ? requestedSize.width() : 64);
    if (size)
        *size = image.size();
    return image;
}

} // namespace corvane
