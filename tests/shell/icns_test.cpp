#include "shell/ui/icns.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "shell/icns_bytes.h"

namespace corvane {
namespace {

using test::icnsEntry;
using test::icnsFile;
using test::number;

/// The part of a PNG that is parsed, and a tail that distinguishes images of the same size.
std::string png(std::uint32_t width, std::uint32_t height, const std::string &tail = "pixels")
{
    return std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16) + number(width) + number(height) + tail;
}

std::string png(std::uint32_t width)
{
    return png(width, width);
}

TEST(Icns, TheSmallestPictureThatIsWideEnoughIsTaken)
{
    const std::string file = icnsFile(icnsEntry("ic07", png(128)) + icnsEntry("ic09", png(512)) +
                                      icnsEntry("ic08", png(256)) + icnsEntry("ic11", png(32)));
    EXPECT_EQ(findPng(file, 128), png(128));
    EXPECT_EQ(findPng(file, 129), png(256));
    EXPECT_EQ(findPng(file, 16), png(32));
}

TEST(Icns, WithoutOneThatIsWideEnoughTheLargestIsTaken)
{
    EXPECT_EQ(
        findPng(icnsFile(icnsEntry("ic11", png(32)) + icnsEntry("ic12", png(64)) + icnsEntry("icp4", png(16))), 128),
        png(64));
}

TEST(Icns, OfTwoOfOneSizeTheFirstIsTaken)
{
    const std::string file =
        icnsFile(icnsEntry("ic07", png(128, 128, "first")) + icnsEntry("ic13", png(128, 128, "second")));
    EXPECT_EQ(findPng(file, 128), png(128, 128, "first"));
    EXPECT_EQ(findPng(file, 256), png(128, 128, "first"));
}

/// A PNG chunk.
std::string chunk(const std::string &type, const std::string &contents)
{
    return number(contents.size()) + type + contents + "sum.";
}

TEST(Icns, OfAPictureOnlyThePixelsAreKept)
{
    const std::string mark = "\x89PNG\r\n\x1a\n";
    const std::string head = mark + chunk("IHDR", std::string(13, '\1')) + chunk("PLTE", "colors") + chunk("tRNS", "t");
    const std::string tail = chunk("IDAT", "pixels") + chunk("IDAT", "") + chunk("IEND", "");
    EXPECT_EQ(
        pixelsAlone(head + chunk("zTXt", "a") + chunk("iTXt", "") + chunk("iCCP", "b") + tail + chunk("tEXt", "c")),
        head + tail);
    EXPECT_EQ(pixelsAlone(head + tail), head + tail);
}

TEST(Icns, OfAPictureThatIsCutOffThereIsWhatIsWhole)
{
    const std::string mark = "\x89PNG\r\n\x1a\n";
    const std::string whole = mark + chunk("IDAT", "pixels");
    EXPECT_EQ(pixelsAlone(whole + chunk("IDAT", "more").substr(0, 15)), whole);
    EXPECT_EQ(pixelsAlone(whole + number(0xffff'ffff) + "zTXt" + std::string(100, 'x')), whole);
    EXPECT_EQ(pixelsAlone(mark.substr(0, 3)), mark.substr(0, 3));
    EXPECT_EQ(pixelsAlone({}), "");
}

TEST(Icns, OtherEntriesAreReadOver)
{
    const std::string file =
        icnsFile(icnsEntry("TOC ", "ic07" + number(32)) + icnsEntry("is32", std::string(700, '\1')) +
                 icnsEntry("ic10", std::string("\0\0\0\x0cjP  ", 8)) + icnsEntry("ic07", png(128)) +
                 icnsEntry("info", "bplist00"));
    EXPECT_EQ(findPng(file, 128), png(128));
}

TEST(Icns, SizesThatNoIconHasAreLeftOut)
{
    const std::string file =
        icnsFile(icnsEntry("ic09", png(0)) + icnsEntry("ic09", png(512, 0)) + icnsEntry("ic10", png(1025)) +
                 icnsEntry("ic10", png(512, 0x7fffffff)) + icnsEntry("ic10", png(0xffffffff)));
    EXPECT_EQ(findPng(file, 128), "");
    EXPECT_EQ(findPng(icnsFile(icnsEntry("ic10", png(1024))), 128), png(1024));
}

TEST(Icns, AnInvalidFileHasNoImage)
{
    EXPECT_EQ(findPng("", 128), "");
    EXPECT_EQ(findPng("icns", 128), "");
    EXPECT_EQ(findPng("icns\0\0\0", 128), "");
    EXPECT_EQ(findPng(png(128), 128), "");
    EXPECT_EQ(findPng("snci" + icnsFile(icnsEntry("ic07", png(128))).substr(4), 128), "");
    EXPECT_EQ(findPng(icnsFile(""), 128), "");
}

TEST(Icns, AnEntryThatIsLongerThanTheFileEndsIt)
{
    const std::string good = icnsEntry("ic07", png(128));
    for (const std::uint32_t length : {0U, 7U, 1'000U, 0x7fffffffU, 0xffffffffU}) {
        const std::string bad = "ic09" + number(length) + png(512);
        EXPECT_EQ(findPng(icnsFile(good + bad), 512), png(128)) << length;
        EXPECT_EQ(findPng(icnsFile(bad + good), 512), "") << length;
    }
}

TEST(Icns, WhatLiesBehindTheFilesOwnLengthIsNotLookedAt)
{
    const std::string file = icnsFile(icnsEntry("ic07", png(128)));
    EXPECT_EQ(findPng(file + icnsEntry("ic08", png(256)), 256), png(128));
    EXPECT_EQ(findPng("icns" + number(4) + icnsEntry("ic07", png(128)), 128), "");
    EXPECT_EQ(findPng("icns" + number(0xffffffff) + icnsEntry("ic07", png(128)), 128), png(128));
}

TEST(Icns, NoCutAndNoFlippedByteReadsOutsideOfTheFile)
{
    const std::string whole =
        icnsFile(icnsEntry("ic07", png(128)) + icnsEntry("ic08", png(256)) + icnsEntry("icp4", png(16)));
    const auto liesInside = [](const std::string &file) {
        for (const int pixels : {0, 16, 200, 1'000}) {
            const std::string_view found = findPng(file, pixels);
            if (!found.empty() &&
                (found.data() < file.data() || found.data() + found.size() > file.data() + file.size()))
                return false;
        }
        return true;
    };
    for (std::size_t length = 0; length <= whole.size(); ++length)
        EXPECT_TRUE(liesInside(whole.substr(0, length))) << length;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int bit : {0, 3, 7}) {
            std::string flipped = whole;
            flipped[at] = static_cast<char>(flipped[at] ^ 1 << bit);
            EXPECT_TRUE(liesInside(flipped)) << at << ", " << bit;
        }
    }
}

} // namespace
} // namespace corvane
