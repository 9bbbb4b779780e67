#include "apps/icon_search.h"

#include <gtest/gtest.h>

#include "platform/fake_file_system.h"

namespace corvane {
namespace {

/// A Linux system with the home folder "/home/u".
class IconSearchTest : public testing::Test {
protected:
    IconSearchTest() { files.setHome("/home/u"); }

    void add(const std::string &path) { files.addText(path, "picture"); }
    std::string find(const std::string &icon) { return IconSearch(files).find(icon); }

    FakeFileSystem files;
};

TEST_F(IconSearchTest, APathIsTheFileItself)
{
    EXPECT_EQ(find("/opt/chart/chart.png"), "/opt/chart/chart.png");
}

TEST_F(IconSearchTest, ThePicturesOfTheUserComeFirst)
{
    const std::vector<std::string> places{
        "/home/u/.icons/hicolor/48x48/apps/chart.png",
        "/home/u/.local/share/icons/hicolor/128x128/apps/chart.png",
        "/opt/share/icons/hicolor/128x128/apps/chart.png",
        "/home/u/.local/share/flatpak/exports/share/icons/hicolor/64x64/apps/chart.png",
        "/var/lib/flatpak/exports/share/icons/hicolor/scalable/apps/chart.svg",
        "/usr/share/icons/hicolor/128x128/apps/chart.png",
        "/home/u/.icons/chart.png",
        "/usr/share/pixmaps/chart.png",
        "/usr/share/icons/Adwaita/64x64/apps/chart.png",
        "/usr/share/icons/breeze/apps/48/chart.svg"};
    files.setSharedDataFolders({"/opt/share"});
    for (const std::string &place : places)
        add(place);
    for (const std::string &place : places) {
        EXPECT_EQ(find("chart"), place);
        files.take(place);
    }
    EXPECT_EQ(find("chart"), "");
}

TEST_F(IconSearchTest, LargePicturesComeBeforeDrawingsAndThoseBeforeSmallPictures)
{
    const std::string theme = "/usr/share/icons/hicolor/";
    for (const char *const place : {"128x128/apps/chart.png", "256x256/apps/chart.png", "64x64/apps/chart.png",
                                    "scalable/apps/chart.svg", "48x48/apps/chart.png"})
        add(theme + place);
    for (const char *const place : {"128x128/apps/chart.png", "256x256/apps/chart.png", "64x64/apps/chart.png",
                                    "scalable/apps/chart.svg", "48x48/apps/chart.png"}) {
        EXPECT_EQ(find("chart"), theme + place);
        files.take(theme + place);
    }
}

TEST_F(IconSearchTest, TheEndingOfAFileInPlaceOfAnIconIsLeftOut)
{
    add("/usr/share/pixmaps/chart.png");
    EXPECT_EQ(find("chart.xpm"), "/usr/share/pixmaps/chart.png");
    EXPECT_EQ(find("chart.png"), "/usr/share/pixmaps/chart.png");
}

TEST_F(IconSearchTest, ANameThatLeadsElsewhereIsNotFollowed)
{
    add("/usr/share/secret.png");
    EXPECT_EQ(find("../secret"), "");
    EXPECT_EQ(find("x/../../secret"), "");
    EXPECT_EQ(find(""), "");
    EXPECT_EQ(find(".png"), "");
}

} // namespace
} // namespace corvane
