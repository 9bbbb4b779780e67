#include "shell/ui/icon_provider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace corvane {

namespace {

constexpr int defaultPixels = 16;

QString toText(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QImage emptyImage(int pixels)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// A crossed box, the placeholder of a missing icon.
QImage missingIcon(const QColor &color, int pixels)
{
    QImage image = emptyImage(pixels);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = pixels / 12.0;
    painter.setPen(QPen(color, width));
    const QRectF box = QRectF(image.rect()).adjusted(width, width, -width, -width);
    painter.drawRect(box);
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.topRight(), box.bottomLeft());
    return image;
}

} // namespace

QImage renderIcon(std::string_view icon, IconWeight weight, const QColor &color, int pixels)
{
    const auto file = QStringLiteral(":/corvane/icons/%1/%2.svg").arg(toText(weightName(weight)), toText(icon));
    QSvgRenderer drawing;
    if (!QFile::exists(file) || !drawing.load(file)) {
        qWarning("There is no icon \"%s\" of weight %s", qPrintable(toText(icon)), weightName(weight).data());
        return missingIcon(color, pixels);
    }
    QImage image = emptyImage(pixels);
    QPainter painter(&image);
    drawing.render(&painter, QRectF(image.rect()));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

IconProvider::IconProvider(Names names, SystemSymbols system)
    : QQuickImageProvider(QQuickImageProvider::Image), m_names(names), m_system(std::move(system))
{
}

QImage IconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QString name = id.section(u'/', 0, 0);
    const std::string nameBytes = name.toStdString();
    const std::optional<IconWeight> weight = findWeight(id.section(u'/', 1, 1).toStdString());
    const QColor color(u'#' + id.section(u'/', 2, 2));
    const int pixels = requestedSize.width() > 0 ? requestedSize.width() : defaultPixels;
    if (size)
        *size = QSize(pixels, pixels);

    if (m_names == Names::icons)
        return renderIcon(nameBytes, weight.value_or(IconWeight::regular), color, pixels);

    const std::optional<Symbol> symbol = findSymbol(nameBytes);
    if (!symbol) {
        qWarning("There is no symbol \"%s\"", qPrintable(name));
        return missingIcon(color, pixels);
    }
    const IconWeight drawn = weight.value_or(symbol->weight);
    if (m_system) {
        QImage own = m_system(symbol->name, drawn, color, pixels);
        if (!own.isNull())
            return own;
    }
    return renderIcon(symbol->icon, drawn, color, pixels);
}

} // namespace corvane
