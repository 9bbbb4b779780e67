#include "core/scan_filter.h"

#include <gtest/gtest.h>

#include "core/scanner.h"
#include "support/temporary_folder.h"

namespace corvane {

namespace {

using Kind = ScanFilter::Kind;

bool leavesOut(const std::string &pattern, const std::string &name, const std::string &folder = "/home/ann",
               Kind kind = Kind::file, const std::string &root = "/home")
{
    return ScanFilter{.excluded = {pattern}}.leavesOut(name, kind, folder, root);
}

TEST(ScanFilter, APatternWithoutASlashIsComparedWithTheName)
{
    EXPECT_TRUE(leavesOut("*.iso", "disk.iso"));
    EXPECT_TRUE(leavesOut("node_modules", "node_modules", "/home/ann/app/deep"));
    EXPECT_TRUE(leavesOut("film[0-9]?", "film12"));
    EXPECT_TRUE(leavesOut("*", ".hidden"));
    EXPECT_FALSE(leavesOut("*.iso", "disk.iso.part"));
    EXPECT_FALSE(leavesOut("ann", "film"));
    EXPECT_FALSE(leavesOut("*.ISO", "disk.iso"));
}

TEST(ScanFilter, APatternWithASlashIsComparedWithThePathFromTheScannedFolder)
{
    EXPECT_TRUE(leavesOut("ann/film", "film"));
    EXPECT_TRUE(leavesOut("*/film", "film"));
    EXPECT_FALSE(leavesOut("*/film", "film", "/home/ann/deeper")) << "a star stops at a slash";
    EXPECT_FALSE(leavesOut("home/ann/film", "film"));
    EXPECT_TRUE(leavesOut("ann/film", "film", "/ann", Kind::file, "/"));
}

TEST(ScanFilter, APatternThatStartsWithASlashIsComparedWithTheWholePath)
{
    EXPECT_TRUE(leavesOut("/home/ann/film", "film"));
    EXPECT_FALSE(leavesOut("/ann/film", "film"));
}

TEST(ScanFilter, APatternThatEndsInASlashMatchesFoldersAlone)
{
    EXPECT_TRUE(leavesOut("build/", "build", "/home/ann", Kind::folder));
    EXPECT_FALSE(leavesOut("build/", "build"));
    EXPECT_TRUE(leavesOut("ann/build/", "build", "/home/ann", Kind::folder));
}

TEST(ScanFilter, BytesThatAreNotUtf8AreMatchedAsTheyAre)
{
    EXPECT_TRUE(leavesOut("caf\xE9*", "caf\xE9.txt"));
}

TEST(ScanFilter, WithoutPatternsNothingIsLeftOut)
{
    EXPECT_FALSE(ScanFilter().leavesOut("film", Kind::file, "/home", "/home"));
    EXPECT_TRUE(ScanFilter().isUsual());
}

TEST(ScannerWithFilter, WhatIsLeftOutIsNeitherEnteredNorCounted)
{
    TemporaryFolder folder;
    folder.writeFile("tree/film.mov", 1'200'000);
    folder.writeFile("tree/disk.iso", 3'000'000);
    folder.writeFile("tree/app/node_modules/x.bin", 2'000'000);
    folder.writeText("tree/app/node_modules/y/small.iso", "x");
    ScanProgress progress;

    const auto root =
        Scanner::scan(folder / "tree", progress, systemHost().files, {.excluded = {"*.iso", "node_modules"}});

    EXPECT_EQ(root->fileCount, 1);
    EXPECT_EQ(root->size, folder.allocated("tree/film.mov"));
    EXPECT_EQ(progress.counters().files, 1);
    EXPECT_EQ(progress.counters().leftOut, 2) << "a folder is left out as one item";
    EXPECT_TRUE(verify(*root));
}

TEST(ScannerWithFilter, TheScannedFolderItselfIsNeverLeftOut)
{
    TemporaryFolder folder;
    folder.writeFile("tree/film.mov", 1'200'000);
    ScanProgress progress;

    EXPECT_EQ(Scanner::scan(folder / "tree", progress, systemHost().files, {.excluded = {"tree"}})->fileCount, 1);
}

TEST(ScannerWithFilter, ApparentSizesAreTheLengthsOfFiles)
{
    TemporaryFolder folder;
    folder.writeText("tree/short.txt", "12345");
    folder.writeSparse("tree/sparse.bin", 7'000'000);
    ScanProgress progress;

    const auto root =
        Scanner::scan(folder / "tree", progress, systemHost().files, {.sizes = ScanFilter::Sizes::apparent});

    EXPECT_EQ(root->size, 7'000'005);
    EXPECT_EQ(root->smallFilesSize, 5);
    ASSERT_EQ(root->children.size(), 1u);
    EXPECT_EQ(root->children[0]->size, 7'000'000);
}

} // namespace

} // namespace corvane
