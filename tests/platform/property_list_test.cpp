#include "platform/property_list.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {
namespace {

std::string repeated(std::string_view text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

std::string bigEndian(std::uint64_t value, int length)
{
    std::string bytes;
    for (int i = length - 1; i >= 0; --i)
        bytes += static_cast<char>(value >> (8 * static_cast<unsigned>(i)) & 0xffU);
    return bytes;
}

/// A binary property list of these values, the first one at the top, with references of one byte.
std::string binary(const std::vector<std::string> &values)
{
    std::string bytes = "bplist00";
    std::string offsets;
    for (const std::string &value : values) {
        offsets += bigEndian(bytes.size(), 4);
        bytes += value;
    }
    const std::size_t table = bytes.size();
    return bytes + offsets + std::string(6, '\0') + bigEndian(4, 1) + bigEndian(1, 1) + bigEndian(values.size(), 8) +
           bigEndian(0, 8) + bigEndian(table, 8);
}

/// An array of `count` references to one value, for `count` below 15.
std::string arrayOf(int count, char value)
{
    return static_cast<char>(0xa0 + count) + std::string(static_cast<std::size_t>(count), value);
}

/// `levels` nested arrays around one boolean, each of `count` references to the next.
std::string nested(int levels, int count)
{
    std::vector<std::string> values;
    for (int level = 1; level <= levels; ++level)
        values.push_back(arrayOf(count, static_cast<char>(level)));
    values.emplace_back("\x09");
    return binary(values);
}

TEST(PropertyList, ReadsEveryKindOfValueFromXml)
{
    const auto list = PropertyList::parse(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\"><!-- a <array> in a comment --><dict>"
        "<key>text</key><string>a &amp; <![CDATA[<dict>]]></string>"
        "<key>number</key><integer>-5</integer><key>fraction</key><real>2.5</real>"
        "<key>yes</key><true/><key>list</key><array><integer>1</integer><array/></array>"
        "</dict></plist>");
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->find("text")->string(), "a & <dict>");
    EXPECT_EQ(list->find("number")->integer(), -5);
    EXPECT_EQ(list->find("fraction")->integer(), 2);
    EXPECT_EQ(list->find("yes")->boolean(), true);
    EXPECT_EQ(list->find("list")->array()->size(), 2u);
    EXPECT_EQ(list->find("missing"), nullptr);
}

TEST(PropertyList, TextsWithMoreToReplaceThanPatienceAllowsAreRefused)
{
    const auto textOf = [](int entities) {
        return PropertyList::parse("<plist><string>" + repeated("&amp;", entities) + "</string></plist>");
    };
    ASSERT_TRUE(textOf(10'000));
    EXPECT_EQ(*textOf(10'000)->string(), std::string(10'000, '&'));
    EXPECT_FALSE(textOf(100'000));
    const std::string parts = repeated("<string>" + repeated("&amp;", 10'000) + "</string>", 5);
    EXPECT_FALSE(PropertyList::parse("<plist><array>" + parts + "</array></plist>"));
}

TEST(PropertyList, ReadsABinaryList)
{
    const auto list = PropertyList::parse(binary({std::string("\xd2\x01\x02\x03\x04", 5),
                                                  "\x51"
                                                  "a",
                                                  "\x51"
                                                  "b",
                                                  std::string("\x11\x01\x02", 3), "\x53xyz"}));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->find("a")->integer(), 258);
    EXPECT_EQ(*list->find("b")->string(), "xyz");
}

TEST(PropertyList, ListsAsDeepAsSixtyFourAreReadAndDeeperOnesAreAbsent)
{
    const auto xml = [](int depth) {
        return "<plist>" + repeated("<array>", depth) + repeated("</array>", depth) + "</plist>";
    };
    EXPECT_TRUE(PropertyList::parse(xml(64)));
    EXPECT_FALSE(PropertyList::parse(xml(65)));
    EXPECT_TRUE(PropertyList::parse(nested(64, 1)));
    EXPECT_FALSE(PropertyList::parse(nested(65, 1)));
}

TEST(PropertyList, AListOfHalfAMillionLevelsIsAbsent)
{
    EXPECT_FALSE(
        PropertyList::parse("<plist>" + repeated("<array>", 500'000) + repeated("</array>", 500'000) + "</plist>"));
    EXPECT_FALSE(PropertyList::parse("<plist>" + repeated("<dict><key>k</key>", 500'000)));
}

TEST(PropertyList, LevelsCannotBeHidden)
{
    for (const char *const level :
         {"<array><!--</array>-->", "<array><![CDATA[</array>]]>", "<array><?x </array>?>", "<array ><!-- --></arra>"})
        EXPECT_FALSE(PropertyList::parse("<plist>" + repeated(level, 100'000) + "</plist>")) << level;
    EXPECT_FALSE(PropertyList::parse("<plist><array x=\"/>\"></array></plist>"));
    EXPECT_FALSE(PropertyList::parse("<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><true/></plist>"));
}

TEST(PropertyList, AnArrayOfManyItemsIsReadWithoutWalkingToEachOfThem)
{
    constexpr std::size_t count = 900'000;
    const std::string array = "\xaf\x12" + bigEndian(count, 4) + std::string(count - 1, '\x01') + "\x02";
    const auto list = PropertyList::parse(binary({array, "\x09", "\x51z"}));
    ASSERT_TRUE(list);
    ASSERT_EQ(list->array()->size(), count);
    EXPECT_EQ(list->array()->front().boolean(), true);
    EXPECT_EQ(*list->array()->back().string(), "z");
}

TEST(PropertyList, SharedReferencesThatMultiplyAreAbsent)
{
    EXPECT_TRUE(PropertyList::parse(nested(3, 14)));
    EXPECT_FALSE(PropertyList::parse(nested(12, 14)));
}

TEST(PropertyList, ALongTextThatIsReferredToAgainAndAgainIsAbsent)
{
    constexpr std::size_t length = 1'000'000;
    const std::string text = "\x5f\x12" + bigEndian(length, 4) + std::string(length, 'x');
    EXPECT_TRUE(PropertyList::parse(binary({arrayOf(14, 1), text})));
    EXPECT_FALSE(PropertyList::parse(binary({arrayOf(14, 1), arrayOf(14, 2), text})));
}

TEST(PropertyList, ATextWithTheCharacterZeroIsAbsent)
{
    EXPECT_FALSE(PropertyList::parse(binary({std::string("\x53x\0z", 4)})));
    EXPECT_FALSE(PropertyList::parse(binary({std::string("\x62\0x\0\0", 5)})));
    EXPECT_TRUE(PropertyList::parse(binary({std::string("\x62\0x\1\0", 5)})));
    EXPECT_FALSE(PropertyList::parse(binary({std::string("\xd1\1\2", 3), std::string("\x52k\0", 3), "\x09"})));
    for (const char *const zero : {"&#0;", "&#x0;", "&#X000;", "&#"})
        EXPECT_FALSE(PropertyList::parse("<plist><string>a" + std::string(zero) + "b</string></plist>")) << zero;
    EXPECT_FALSE(PropertyList::parse(std::string("<plist><string>a\0b</string></plist>", 35)));
    EXPECT_TRUE(PropertyList::parse("<plist><string>a&#48;b</string></plist>"));
}

TEST(PropertyList, AValueInsideItselfIsAbsent)
{
    EXPECT_FALSE(PropertyList::parse(binary({arrayOf(1, 0)})));
    EXPECT_FALSE(PropertyList::parse(binary({std::string("\xd1\x01\x00", 3), std::string("\x51k")})));
    EXPECT_FALSE(PropertyList::parse(binary({arrayOf(2, 1), arrayOf(2, 0)})));
}

TEST(PropertyList, CountsAndOffsetsThatPointOutsideAreAbsent)
{
    EXPECT_FALSE(PropertyList::parse(binary({"\xaf\x13\x7f\xff\xff\xff\xff\xff\xff\xff"})));
    EXPECT_FALSE(PropertyList::parse(binary({"\x5f\x13\x7f\xff\xff\xff\xff\xff\xff\xff"})));
    EXPECT_FALSE(PropertyList::parse(binary({arrayOf(1, 9)})));
    std::string outside = binary({"\x09"});
    outside[outside.size() - 32 - 1] = '\x7f'; // the value's offset
    EXPECT_FALSE(PropertyList::parse(outside));
}

TEST(PropertyList, EveryBeginningOfABinaryListIsAbsent)
{
    const std::string whole = binary({arrayOf(2, 1), "\x53xyz"});
    ASSERT_TRUE(PropertyList::parse(whole));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(PropertyList::parse(std::string_view(whole).substr(0, length))) << length;
}

TEST(PropertyList, InvalidDataIsRejected)
{
    for (const char *const text :
         {"", "words", "{ a = b; }", "<html></html>", "<plist>", "<plist></plist>", "bplist00"})
        EXPECT_FALSE(PropertyList::parse(text)) << text;
}

} // namespace
} // namespace corvane
