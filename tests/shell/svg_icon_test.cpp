#include "shell/ui/linux/svg_icon.h"

#include <string>

#include <gtest/gtest.h>

#include <QColor>

namespace corvane {
namespace {

std::string drawing(const std::string &contents)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- made by hand -->\n"
           "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"48\" "
           "height=\"48\">" +
           contents + "</svg>";
}

TEST(SvgIcon, APlainDrawingIsDrawnAtTheSizeAskedFor)
{
    const QImage icon = drawnIcon(drawing("<g><rect x='0' y='0' width=\"48\" height=\"48\" fill=\"#e0662b\" "
                                          "style=\"stroke-dasharray:none\"/></g>"),
                                  128);
    EXPECT_EQ(icon.size(), QSize(128, 128));
    EXPECT_EQ(icon.pixelColor(64, 64), QColor(0xe0, 0x66, 0x2b));
}

TEST(SvgIcon, WhatRefersToFilesOrGrowsOrMovesIsRefused)
{
    const std::string shape = "<rect width=\"48\" height=\"48\" fill=\"red\"/>";
    EXPECT_TRUE(isPlainDrawing(drawing(shape)));
    std::string uses;
    std::string nested;
    for (int i = 0; i < 20; ++i)
        uses += "<use xlink:href=\"#a\"/>";
    for (int i = 0; i < 100; ++i)
        nested += "<g a=\"/>\">";
    for (const std::string &contents :
         {std::string("<image xlink:href=\"file:///dev/zero\"/>"), std::string("<svg:image href=\"/etc/passwd\"/>"),
          std::string("<x:image\n href=\"/etc/passwd\"/>"), uses, nested, std::string("<text>x</text>"),
          std::string("<pattern width=\"1e9\" height=\"1e9\"/>"), std::string("<animate dur=\"1s\"/>"),
          std::string("<feImage href=\"/etc/passwd\"/>"), std::string("<path stroke-dasharray=\"0.0001\"/>"),
          std::string("<path style=\"stroke-dash&#97;rray:0.0001\"/>"), std::string("<style>@import 'x';</style>"),
          std::string("<g fill=\"url(file:///etc/passwd)\"/>"), std::string("<!-- -- ><image href=\"x\"/>"),
          std::string("<script>x</script>"), std::string("<g"), std::string("<![CDATA[x]]>")})
        EXPECT_FALSE(isPlainDrawing(drawing(shape + contents))) << contents;
    EXPECT_FALSE(isPlainDrawing("<!DOCTYPE svg [<!ENTITY a \"<image/>\">]><svg>&a;</svg>"));
    EXPECT_FALSE(isPlainDrawing(std::string("<svg>\0</svg>", 12)));
    EXPECT_FALSE(isPlainDrawing("\x1f\x8b zipped"));
    EXPECT_FALSE(isPlainDrawing(""));
}

TEST(SvgIcon, AnInvalidDrawingGivesNoImage)
{
    EXPECT_TRUE(drawnIcon("<svg>", 64).isNull());
    EXPECT_TRUE(drawnIcon("<svg", 64).isNull());
    EXPECT_TRUE(drawnIcon("", 64).isNull());
    EXPECT_TRUE(drawnIcon(drawing("<image href=\"/x.png\"/>"), 64).isNull());
}

TEST(SvgIcon, AnotherEncodingThanTheOneThatIsCheckedIsNotBelieved)
{
    // In UTF-7 this decodes to "<image/>".
    const std::string hidden = "<?xml version=\"1.0\" encoding=\"UTF-7\"?><svg xmlns=\"http://www.w3.org/2000/svg\" "
                               "width=\"8\" height=\"8\"><title>+ADw-image/+AD4-</title>"
                               "<rect width=\"8\" height=\"8\" fill=\"#0000ff\"/></svg>";
    EXPECT_EQ(drawnIcon(hidden, 8).pixelColor(4, 4), QColor(0, 0, 255));
}

} // namespace
} // namespace corvane
