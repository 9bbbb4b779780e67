#include "map/ui/rounded_fill.h"

#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include <QPainter>

namespace corvane {
namespace {

constexpr QRgb blue = 0xff2060c0;

QImage ground()
{
    QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(0xfff0e0d0);
    return image;
}

QImage filled(const QRect &rect, double radius)
{
    QImage image = ground();
    RoundedFill(image).fill(rect, radius, blue);
    return image;
}

QImage paintedByQt(const QRect &rect, double radius)
{
    QImage image = ground();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(blue));
    painter.drawRoundedRect(QRectF(rect), radius, radius);
    painter.end();
    return image;
}

int largestDifference(const QImage &one, const QImage &other)
{
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
        }
    }
    return largest;
}

TEST(RoundedFillTest, PaintsWhatQPainterPaints)
{
    for (const double radius : {0.0, 2.0, 3.0, 3.75, 4.0, 8.0}) {
        for (const QRect &rect : {QRect(5, 4, 40, 30), QRect(0, 0, 60, 40), QRect(10, 10, 17, 16)})
            EXPECT_LE(largestDifference(filled(rect, radius), paintedByQt(rect, radius)), 2)
                << "radius " << radius << ", width " << rect.width();
    }
}

TEST(RoundedFillTest, LeavesOutWhatIsOutsideThePicture)
{
    for (const QRect &rect : {QRect(-10, -10, 30, 30), QRect(50, 30, 30, 30), QRect(-5, 10, 100, 10)})
        EXPECT_LE(largestDifference(filled(rect, 4), paintedByQt(rect, 4)), 2) << "left " << rect.left();
    EXPECT_EQ(filled(QRect(70, 50, 10, 10), 4), ground());
    EXPECT_EQ(filled(QRect(), 4), ground());
}

TEST(RoundedFillTest, ARectangleOfOnePixelIsFilled)
{
    EXPECT_EQ(filled(QRect(3, 3, 1, 1), 0).pixel(3, 3), blue);
}

} // namespace
} // namespace corvane
