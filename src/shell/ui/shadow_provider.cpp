#include "shell/ui/shadow_provider.h"

#include <cmath>
#include <vector>

#include <QColor>

#include "shell/ui/theme.h"

namespace corvane {

namespace {

/// The standard deviation of the blur, in points.
int deviation(int elevation)
{
    return elevation >= 3 ? 30 : 11;
}

QColor shadowColor(int elevation, bool dark)
{
    const Theme::Scheme scheme = dark ? Theme::Scheme::dark : Theme::Scheme::light;
    return elevation >= 3 ? Theme::sheetShadow(scheme) : Theme::panelShadow(scheme);
}

/// The coverage of two opposite blurred edges along one axis. A blurred rectangle is the product of two of these; with
/// a blur this wide, the rounding of the corners is not visible.
std::vector<float> blurredSpan(int length, int reach, int sigma)
{
    std::vector<float> cover(static_cast<std::size_t>(length + 2 * reach));
    const double scale = sigma * std::sqrt(2.0);
    for (std::size_t i = 0; i < cover.size(); ++i) {
        const double position = static_cast<double>(i) + 0.5 - reach;
        cover[i] = static_cast<float>(0.5 * (std::erf(position / scale) - std::erf((position - length) / scale)));
    }
    return cover;
}

} // namespace

int ShadowMetrics::reach(int elevation)
{
    // Beyond three standard deviations less than 0.2 % of the shadow is left.
    return 3 * deviation(elevation);
}

int ShadowMetrics::drop(int elevation)
{
    return elevation >= 3 ? 18 : 6;
}

QImage renderShadow(int elevation, bool dark, const QSize &panel)
{
    const int reach = ShadowMetrics::reach(elevation);
    const std::vector<float> across = blurredSpan(panel.width(), reach, deviation(elevation));
    const std::vector<float> down = blurredSpan(panel.height(), reach, deviation(elevation));
    const QColor color = shadowColor(elevation, dark);

    QImage image(panel + QSize(2 * reach, 2 * reach), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const float cover = across[static_cast<std::size_t>(x)] * down[static_cast<std::size_t>(y)];
            line[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(),
                                         static_cast<int>(std::lround(color.alphaF() * cover * 255))));
        }
    }
    return image;
}

ShadowProvider::ShadowProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage ShadowProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const QString measures = id.section(u'/', 2, 2);
    const QSize panel(measures.section(u'x', 0, 0).toInt(), measures.section(u'x', 1, 1).toInt());
    QImage image =
        renderShadow(id.section(u'/', 0, 0).toInt(), id.section(u'/', 1, 1) == u"dark", panel.expandedTo(QSize(1, 1)));
    if (size)
        *size = image.size();
    return image;
}

} // namespace corvane
