#include "shell/ui/bundle_icons.h"

#include <string>

#include <gtest/gtest.h>

#include <QBuffer>

#include "shell/icns_bytes.h"
#include "shell/ui/theme.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

const QColor ownColor(0xe0, 0x66, 0x2b);

constexpr int side = 128;

/// A single-colour image.
QImage plain(const QColor &color, int pixels = side)
{
    QImage picture(pixels, pixels, QImage::Format_ARGB32);
    picture.fill(color);
    return picture;
}

std::string icnsOf(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return test::icnsFile(test::icnsEntry("ic07", buffer.data().toStdString()));
}

std::string plistWith(const std::string &iconFile)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict><key>CFBundleIconFile</key>" +
           iconFile + "</dict></plist>";
}

/// Requests the icon of the bundle "Kite.app" in a folder from the provider.
class BundleIconsTest : public testing::Test {
protected:
    void addBundle(const std::string &iconFile, const std::string &pictureName = "Kite.icns",
                   const QImage &picture = plain(ownColor))
    {
        folder.writeText("Kite.app/Contents/Info.plist", plistWith(iconFile));
        folder.writeText("Kite.app/Contents/Resources/" + pictureName, icnsOf(picture));
    }
    [[nodiscard]] QImage ask(int pixels = 64)
    {
        return provider.requestImage(bundleIconKey(folder / "Kite.app"), nullptr, QSize(pixels, pixels));
    }
    [[nodiscard]] bool isOwn() { return ask().pixelColor(32, 32) == ownColor; }
    [[nodiscard]] bool isDrawn()
    {
        return ask() == drawnBundleIcon(128).scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

    TemporaryFolder folder;
    BundleIconProvider provider;
};

TEST(BundleIcons, AreReadOffTheThreadThatDraws)
{
    EXPECT_TRUE(BundleIconProvider().flags().testFlag(QQuickImageProvider::ForceAsynchronousImageLoading));
}

TEST(BundleIcons, KeyHoldsOnlyWhatAnAddressCanHold)
{
    for (const QChar c : bundleIconKey("/Applications/a.\xff #?%/\xc3\xa9.app"))
        EXPECT_TRUE(c.isLetterOrNumber() || c == u'-' || c == u'_') << int(c.unicode());
}

TEST(BundleIcons, TheDrawnOneIsAFilledTileWithRoundCorners)
{
    const QImage tile = drawnBundleIcon(64);
    EXPECT_EQ(tile.size(), QSize(64, 64));
    EXPECT_EQ(tile.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(tile.pixelColor(32, 3).alpha(), 255);
}

TEST(BundleIcons, OnADarkGroundADarkIconHasALightOutlineInsideItsShape)
{
    QImage icon(64, 64, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    for (int y = 8; y < 56; ++y) {
        for (int x = 8; x < 56; ++x)
            icon.setPixelColor(x, y, QColor(0x20, 0x22, 0x28));
    }
    const QImage outlined = outlinedOnDark(icon);
    EXPECT_GT(outlined.pixelColor(8, 32).lightness(), icon.pixelColor(8, 32).lightness() + 40);
    EXPECT_EQ(outlined.pixelColor(32, 32), icon.pixelColor(32, 32));
    EXPECT_EQ(outlined.pixelColor(7, 32).alpha(), 0);
}

TEST(BundleIcons, AnIconOfTheColorOfTheDarkGroundHasAnOutline)
{
    const QImage icon = plain(Theme::surface(Theme::Scheme::dark));
    EXPECT_NE(outlinedOnDark(icon), icon);
}

TEST(BundleIcons, OnADarkGroundAColorfulIconStaysAsItIs)
{
    EXPECT_EQ(outlinedOnDark(plain(ownColor)), plain(ownColor));
    QImage nothing(side, side, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    EXPECT_EQ(outlinedOnDark(nothing), nothing);
}

#ifndef Q_OS_MACOS // where every item has an icon

TEST_F(BundleIconsTest, TheIconForADarkGroundIsThatOfTheSameBundle)
{
    addBundle("<string>Kite.icns</string>");
    const QString key = bundleIconKey(folder / "Kite.app");
    EXPECT_EQ(provider.requestImage(QStringLiteral("dark/") + key, nullptr, QSize(64, 64)), ask());
    addBundle("<string>Kite.icns</string>", "Kite.icns", plain(QColor(0x20, 0x22, 0x28)));
    BundleIconProvider anew;
    EXPECT_NE(anew.requestImage(QStringLiteral("dark/") + key, nullptr, QSize(64, 64)),
              anew.requestImage(key, nullptr, QSize(64, 64)));
}

TEST_F(BundleIconsTest, ABundleHasTheIconThatItBringsAlong)
{
    addBundle("<string>Kite.icns</string>");
    EXPECT_TRUE(isOwn());
    EXPECT_EQ(ask(36).size(), QSize(36, 36));
}

TEST_F(BundleIconsTest, APictureWithAPaletteKeepsItsColorAtEverySize)
{
    QImage picture(side, side, QImage::Format_Indexed8);
    picture.setColorTable({qRgba(0, 0, 0, 0), ownColor.rgb()});
    picture.fill(1);
    picture.setPixel(0, 0, 0);
    addBundle("<string>Kite.icns</string>", "Kite.icns", picture);
    const QImage scaled = ask(36);
    for (int x = 0; x < scaled.width(); ++x)
        ASSERT_EQ(scaled.pixelColor(x, 18), ownColor) << x;
}

TEST_F(BundleIconsTest, TheTextsThatAPictureCarriesAreNotRead)
{
    QImage picture = plain(ownColor);
    picture.setText("Comment", QString(100'000, u'x')); // compresses to a few bytes
    ASSERT_LT(icnsOf(picture).size(), 10'000u);
    addBundle("<string>Kite.icns</string>", "Kite.icns", picture);
    EXPECT_TRUE(isOwn());
    EXPECT_TRUE(provider.requestImage(bundleIconKey(folder / "Kite.app"), nullptr, {}).textKeys().isEmpty());
}

TEST_F(BundleIconsTest, TheNameOfTheIconNeedsNoExtension)
{
    addBundle("<string>Kite</string>");
    EXPECT_TRUE(isOwn());
}

TEST_F(BundleIconsTest, WithoutAnIconThereIsTheDrawnOne)
{
    EXPECT_TRUE(isDrawn()) << "no bundle";
    folder.writeText("Kite.app/Contents/Info.plist", plistWith("<string>Other</string>"));
    EXPECT_TRUE(isDrawn()) << "no such picture";
}

TEST_F(BundleIconsTest, ANameThatLeadsElsewhereIsNotFollowed)
{
    addBundle("<string>../Resources/Kite.icns</string>");
    EXPECT_TRUE(isDrawn());
}

TEST_F(BundleIconsTest, AnIconNameThatIsNotAStringIsIgnored)
{
    addBundle("<array><string>Kite.icns</string></array>");
    EXPECT_TRUE(isDrawn());
}

TEST_F(BundleIconsTest, ATruncatedImageIsRejected)
{
    addBundle("<string>Kite.icns</string>");
    folder.writeText("Kite.app/Contents/Resources/Kite.icns", icnsOf(plain(ownColor)).substr(0, 60));
    EXPECT_TRUE(isDrawn());
}

TEST_F(BundleIconsTest, APipeInPlaceOfThePictureIsNotWaitedFor)
{
    folder.writeText("Kite.app/Contents/Info.plist", plistWith("<string>Kite.icns</string>"));
    folder.makeFolder("Kite.app/Contents/Resources");
    ASSERT_EQ(::mkfifo((folder / "Kite.app/Contents/Resources/Kite.icns").c_str(), 0600), 0);
    EXPECT_TRUE(isDrawn());
}

TEST_F(BundleIconsTest, APictureByItselfIsAnIcon)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    plain(ownColor).save(&buffer, "PNG");
    folder.writeText("chart.png", buffer.data().toStdString());
    folder.writeText("chart.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"48\" height=\"48\">"
                                  "<rect width=\"48\" height=\"48\" fill=\"#e0662b\"/></svg>");
    for (const char *const name : {"chart.png", "chart.svg"}) {
        const QImage icon = provider.requestImage(bundleIconKey(folder / name), nullptr, QSize(64, 64));
        EXPECT_EQ(icon.pixelColor(32, 32), ownColor) << name;
    }
}

TEST_F(BundleIconsTest, APictureThatUnfoldsToGigabytesIsNotRead)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    plain(ownColor).save(&buffer, "PNG");
    std::string png = buffer.data().toStdString();
    png.replace(16, 8, std::string("\0\0\xff\xff\0\0\xff\xff", 8)); // its width and height
    folder.writeText("bomb.png", png);
    folder.writeText("large.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\">" +
                                      std::string(600'000, ' ') + "<rect width=\"4\" height=\"4\"/></svg>");
    ASSERT_EQ(::mkfifo((folder / "pipe.svg").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("/dev/zero", (folder / "zero.png").c_str()), 0);
    const QImage drawn = drawnBundleIcon(128).scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    for (const char *const name : {"bomb.png", "large.svg", "pipe.svg", "zero.png", "missing.png", "text.svg"})
        EXPECT_EQ(provider.requestImage(bundleIconKey(folder / name), nullptr, QSize(64, 64)), drawn) << name;
}

TEST_F(BundleIconsTest, APictureThatIsLargerThanAnyUseIsMadeSmaller)
{
    addBundle("<string>Kite.icns</string>", "Kite.icns", plain(ownColor, 512));
    EXPECT_EQ(provider.requestImage(bundleIconKey(folder / "Kite.app"), nullptr, {}).size(), QSize(128, 128));
}

TEST_F(BundleIconsTest, AnIconIsReadOnce)
{
    addBundle("<string>Kite.icns</string>");
    ASSERT_TRUE(isOwn());
    std::filesystem::remove(folder / "Kite.app/Contents/Resources/Kite.icns");
    EXPECT_TRUE(isOwn());
}

#endif

} // namespace
} // namespace corvane
