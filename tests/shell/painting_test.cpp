#include <gtest/gtest.h>

#include <QKeySequence>
#include <QPainter>

#include "shell/ui/app_icon.h"
#include "shell/ui/gradient_bar.h"
#include "shell/ui/key_text.h"
#include "shell/ui/shadow_provider.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

TEST(ShadowProvider, ShadowIsDarkestUnderThePanelAndGoneAtItsReach)
{
    const QImage image = renderShadow(2, false, QSize(200, 120));
    const int reach = ShadowMetrics::reach(2);
    EXPECT_EQ(image.size(), QSize(200 + 2 * reach, 120 + 2 * reach));
    EXPECT_NEAR(qAlpha(image.pixel(reach + 100, reach + 60)), 0.16 * 255, 2);
    EXPECT_LE(qAlpha(image.pixel(0, reach + 60)), 1);
    // At the panel's edge half of the opacity is left.
    EXPECT_NEAR(qAlpha(image.pixel(reach, reach + 60)), 0.08 * 255, 2);
}

TEST(ShadowProvider, SheetsThrowAWiderShadowThanMenus)
{
    EXPECT_GT(ShadowMetrics::reach(3), ShadowMetrics::reach(2));
    EXPECT_GT(ShadowMetrics::drop(3), ShadowMetrics::drop(2));
}

TEST(ShadowProvider, ReadsMeasuresFromTheAddress)
{
    ShadowProvider provider;
    QSize size;
    const QImage image = provider.requestImage(QStringLiteral("3/dark/40x30"), &size, {});
    EXPECT_EQ(image, renderShadow(3, true, QSize(40, 30)));
    EXPECT_EQ(size, image.size());
}

QImage painted(GradientBar &bar)
{
    bar.setSize(QSizeF(200, 10));
    QImage image(200, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    bar.paint(&painter);
    return image;
}

TEST(GradientBar, FillsItsFractionFromOneBrandColorToTheOther)
{
    const Theme &theme = *Theme::instance();
    GradientBar bar;
    bar.setFraction(0.5);
    const QImage image = painted(bar);
    const auto distance = [](QRgb pixel, const QColor &color) {
        return qAbs(qRed(pixel) - color.red()) + qAbs(qGreen(pixel) - color.green()) +
               qAbs(qBlue(pixel) - color.blue());
    };
    EXPECT_LT(distance(image.pixel(1, 5), theme.brandA()), 6);
    EXPECT_LT(distance(image.pixel(98, 5), theme.brandB()), 6);
    EXPECT_GT(distance(image.pixel(102, 5), theme.brandB()), 60);
}

TEST(GradientBar, CornersOfTheTrackAreRound)
{
    GradientBar bar;
    bar.setFraction(1);
    bar.setRadius(5);
    EXPECT_EQ(painted(bar).pixel(0, 0), QColor(Qt::white).rgb());
}

TEST(GradientBar, FractionBeyondTheWholeFillsJustTheWhole)
{
    GradientBar bar;
    bar.setFraction(1.7);
    const QImage over = painted(bar);
    bar.setFraction(1);
    EXPECT_EQ(over, painted(bar));
}

TEST(AppIcon, HasEverySizeThatDesktopsAskFor)
{
    for (const int size : {16, 32, 48, 256})
        EXPECT_TRUE(appIcon().availableSizes().contains(QSize(size, size))) << size;
}

TEST(AppIcon, ShowsTheBrandGradientWithRoundCorners)
{
    const QImage image = renderAppIcon(64);
    EXPECT_EQ(qAlpha(image.pixel(3, 3)), 0);
    const QColor topLeft(image.pixel(10, 10));
    const QColor bottomRight(image.pixel(54, 54));
    EXPECT_GT(topLeft.blue() - topLeft.red(), 120);
    EXPECT_GT(bottomRight.red(), topLeft.red() + 40);
}

TEST(KeyText, WritesShortcutsAsTheSystemDoes)
{
    EXPECT_EQ(KeyText::text(QStringLiteral("Ctrl+R")),
              QKeySequence(QStringLiteral("Ctrl+R")).toString(QKeySequence::NativeText));
    EXPECT_EQ(KeyText::text(QVariant::fromValue(QKeySequence(QKeySequence::Copy))),
              QKeySequence(QKeySequence::Copy).toString(QKeySequence::NativeText));
    EXPECT_EQ(KeyText::text(int(QKeySequence::Copy)),
              QKeySequence(QKeySequence::Copy).toString(QKeySequence::NativeText));
    EXPECT_TRUE(KeyText::text({}).isEmpty());
}

} // namespace
} // namespace corvane
