#include "shell/ui/icon_provider.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <QFile>

#include "cleanup/cleanup_catalog.h"
#include "core/systems/cleanup_table.h"
#include "core/systems/disk_table.h"

namespace corvane {
namespace {

int coveredPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

QString file(std::string_view icon, IconWeight weight)
{
    return QStringLiteral(":/corvane/icons/%1/%2.svg")
        .arg(QString::fromLatin1(weightName(weight).data()),
             QString::fromLatin1(icon.data(), static_cast<qsizetype>(icon.size())));
}

TEST(IconProvider, DrawsInTheColorAskedFor)
{
    const QColor color(191, 35, 55);
    const QImage image = renderIcon("trash", IconWeight::fill, color, 32);
    EXPECT_GT(coveredPixels(image), 200);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) == 255) {
                EXPECT_EQ(pixel, color.rgb());
            }
        }
    }
}

TEST(IconProvider, DrawsAtTheSizeAskedFor)
{
    IconProvider provider(IconProvider::Names::icons);
    QSize size;
    const QImage image = provider.requestImage(QStringLiteral("house/regular/ff000000"), &size, QSize(44, 44));
    EXPECT_EQ(image.size(), QSize(44, 44));
    EXPECT_EQ(size, QSize(44, 44));
}

TEST(IconProvider, KeepsTheOpacityOfTheColor)
{
    IconProvider provider(IconProvider::Names::icons);
    const QImage image = provider.requestImage(QStringLiteral("hard-drive/fill/80ffffff"), nullptr, QSize(32, 32));
    int strongest = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            strongest = qMax(strongest, qAlpha(image.pixel(x, y)));
    EXPECT_EQ(strongest, 0x80);
}

TEST(IconProvider, WeightsDiffer)
{
    const QImage regular = renderIcon("trash", IconWeight::regular, Qt::black, 32);
    const QImage fill = renderIcon("trash", IconWeight::fill, Qt::black, 32);
    const QImage light = renderIcon("trash", IconWeight::light, Qt::black, 32);
    EXPECT_NE(regular, light);
    EXPECT_GT(coveredPixels(fill), coveredPixels(regular));
}

TEST(IconProvider, EverySymbolIsEmbeddedInTheWeightsThatScreensUse)
{
    EXPECT_EQ(allSymbols().size(), 62u);
    for (const Symbol &symbol : allSymbols()) {
        EXPECT_TRUE(QFile::exists(file(symbol.icon, symbol.weight))) << symbol.name;
        EXPECT_TRUE(QFile::exists(file(symbol.icon, IconWeight::regular))) << symbol.name;
        EXPECT_TRUE(QFile::exists(file(symbol.icon, IconWeight::fill))) << symbol.name;
        EXPECT_TRUE(QFile::exists(file(symbol.icon, IconWeight::light))) << symbol.name;
        EXPECT_GT(coveredPixels(renderIcon(symbol.icon, symbol.weight, Qt::black, 32)), 20) << symbol.name;
    }
}

TEST(IconProvider, EverySymbolOfTheTablesIsKnown)
{
    const auto expectKnown = [](const auto &rows) {
        for (const auto &row : rows)
            EXPECT_TRUE(findSymbol(row.symbol)) << row.id << ": " << row.symbol;
    };
    expectKnown(CleanupCatalog::definitions);
    for (const SystemKind kind : {SystemKind::mac, SystemKind::linuxSystem}) {
        expectKnown(cleanupTableOf(kind).rows);
        expectKnown(cleanupTableOf(kind).commands);
        expectKnown(diskTableOf(kind).places);
    }
}

TEST(IconProvider, SymbolRestsInItsOwnWeight)
{
    IconProvider provider(IconProvider::Names::symbols);
    const QSize size(24, 24);
    EXPECT_EQ(provider.requestImage(QStringLiteral("xmark.circle.fill/rest/ff000000"), nullptr, size),
              renderIcon("x-circle", IconWeight::fill, Qt::black, 24));
    EXPECT_EQ(provider.requestImage(QStringLiteral("chart.pie/rest/ff000000"), nullptr, size),
              renderIcon("chart-pie-slice", IconWeight::regular, Qt::black, 24));
    EXPECT_EQ(provider.requestImage(QStringLiteral("chart.pie/fill/ff000000"), nullptr, size),
              renderIcon("chart-pie-slice", IconWeight::fill, Qt::black, 24));
}

TEST(IconProvider, SystemsOwnSymbolsComeFirst)
{
    QImage own(8, 8, QImage::Format_ARGB32);
    own.fill(Qt::red);
    IconProvider provider(IconProvider::Names::symbols, [&own](std::string_view symbol, IconWeight, const QColor &,
                                                               int) { return symbol == "trash" ? own : QImage(); });
    EXPECT_EQ(provider.requestImage(QStringLiteral("trash/rest/ff000000"), nullptr, QSize(8, 8)), own);
    EXPECT_EQ(provider.requestImage(QStringLiteral("house/rest/ff000000"), nullptr, QSize(8, 8)),
              renderIcon("house", IconWeight::regular, Qt::black, 8));
}

TEST(IconProviderDeathTest, UnknownNameIsWarnedAbout)
{
    testing::GTEST_FLAG(death_test_style) = "fast";
    EXPECT_DEATH((void)renderIcon("no-such-icon", IconWeight::regular, Qt::black, 16), "no icon \"no-such-icon\"");
    EXPECT_DEATH((void)IconProvider(IconProvider::Names::symbols)
                     .requestImage(QStringLiteral("no.such.symbol/rest/ff000000"), nullptr, QSize(16, 16)),
                 "no symbol \"no.such.symbol\"");
}

/// For a child process in which warnings are not fatal: exits with 0 if the image of an unknown name is visible.
[[noreturn]] void leaveWithWhatUnknownNamesShow()
{
    qunsetenv("QT_FATAL_WARNINGS");
    const QImage image = renderIcon("no-such-icon", IconWeight::regular, Qt::black, 16);
    std::exit(image.size() == QSize(16, 16) && coveredPixels(image) > 40 && qAlpha(image.pixel(8, 8)) > 0 ? 0 : 1);
}

TEST(IconProviderDeathTest, UnknownNameIsSeenAsACrossedBox)
{
    testing::GTEST_FLAG(death_test_style) = "fast";
    EXPECT_EXIT(leaveWithWhatUnknownNamesShow(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace corvane
