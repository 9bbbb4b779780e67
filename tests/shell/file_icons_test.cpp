#include "shell/ui/file_icons.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace corvane {
namespace {

using Kind = FileNode::Kind;

/// The colour of the image's opaque pixels; in a generated icon all are equal.
QColor inkOf(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255)
                return QColor(image.pixel(x, y));
    return {};
}

TEST(FileIcons, FilmsShareOneKey)
{
    EXPECT_EQ(fileIconKey("/home/x/a.mov", Kind::file), fileIconKey("/elsewhere/b.MOV", Kind::file));
    EXPECT_NE(fileIconKey("/home/x/a.mov", Kind::file), fileIconKey("/home/x/a.zip", Kind::file));
}

TEST(FileIcons, KindIsPartOfTheKey)
{
    EXPECT_NE(fileIconKey("/a.app", Kind::package), fileIconKey("/a.app", Kind::file));
    EXPECT_NE(fileIconKey("/a.app", Kind::package), fileIconKey("/a.app", Kind::directory));
}

TEST(FileIcons, FolderHasOneKeyWhateverItsName)
{
    EXPECT_EQ(fileIconKey("/home/x/Movies.old", Kind::directory), fileIconKey("/home/x", Kind::directory));
}

TEST(FileIcons, NodeAndPathGiveTheSameKey)
{
    const FileNode node("/home/x/film.mov", Kind::file);
    EXPECT_EQ(fileIconKey(node), fileIconKey("/home/x/film.mov", Kind::file));
}

TEST(FileIcons, KeyHoldsOnlyWhatAnAddressCanHold)
{
    for (const QChar c : fileIconKey("/a.\xff #?%/\xc3\xa9", Kind::file))
        EXPECT_TRUE(c.isLetterOrNumber() || c == u'/' || c == u'-' || c == u'_') << int(c.unicode());
}

TEST(FileIcons, ColorIsTheTypesColorDarkenedBySixPercent)
{
    EXPECT_EQ(fileIconColor(FileType::video, Kind::file), QColor(149, 86, 230));
    EXPECT_EQ(fileIconColor(FileType::app, Kind::package), QColor(57, 125, 235));
    EXPECT_EQ(fileIconColor(FileType::other, Kind::directory), QColor(0x4e, 0x9c, 0xeb));
}

TEST(FileIcons, ProviderDrawsTheKeysIconAtTheSizeAskedFor)
{
    FileIconProvider provider;
    QSize size;
    const QImage image = provider.requestImage(fileIconKey("/x/film.mov", Kind::file), &size, QSize(36, 36));
    EXPECT_EQ(image.size(), QSize(36, 36));
    EXPECT_EQ(size, QSize(36, 36));
    EXPECT_EQ(inkOf(image), QColor(149, 86, 230));
}

/// A provider, asked for whole images.
struct FileIconsOfAProvider : testing::Test {
    QImage icon(const char *path, Kind kind) { return provider.requestImage(fileIconKey(path, kind), nullptr, {}); }

    FileIconProvider provider;
};

TEST_F(FileIconsOfAProvider, AreMadeLargerThanTheyAreUsed)
{
    EXPECT_EQ(icon("/x/film.mov", Kind::file).size(), QSize(128, 128));
}

TEST_F(FileIconsOfAProvider, DrawnIconsHaveTheColorOfTheirType)
{
    EXPECT_EQ(inkOf(icon("/x", Kind::directory)), QColor(0x4e, 0x9c, 0xeb));
    EXPECT_EQ(inkOf(icon("/x/a.zip", Kind::file)), fileIconColor(FileType::archive, Kind::file));
    EXPECT_EQ(inkOf(icon("/x/a.photoslibrary", Kind::package)), fileIconColor(FileType::image, Kind::package));
}

TEST_F(FileIconsOfAProvider, PackagesLookUnlikeFilesOfTheirType)
{
    EXPECT_NE(icon("/x/a.photoslibrary", Kind::package), icon("/x/a.png", Kind::file));
    EXPECT_NE(icon("/x/a.app", Kind::package), icon("/x/a.framework", Kind::package));
}

TEST_F(FileIconsOfAProvider, SameIconIsHandedOutAgain)
{
    const QImage first = icon("/x/film.mov", Kind::file);
    // Copies of an image share their pixels until modified.
    EXPECT_EQ(icon("/x/film.mov", Kind::file).constBits(), first.constBits());
}

TEST_F(FileIconsOfAProvider, ManyThreadsMayAskAtOnce)
{
    const char *const paths[] = {"/a.mov", "/b.zip", "/c.png", "/d.json"};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round)
                for (const char *const path : paths)
                    EXPECT_FALSE(icon(path, Kind::file).isNull());
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace
} // namespace corvane
