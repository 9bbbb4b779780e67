#include "platform/linux/swap_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SwapFiles, FilesAreListedAndPartitionsAreNot)
{
    EXPECT_THAT(swapFilesIn("Filename\t\t\t\tType\t\tSize\t\tUsed\t\tPriority\n"
                            "/dev/dm-1                               partition\t8388604\t0\t-2\n"
                            "/swap\\040file                          file\t\t2097148\t512\t-3\n"
                            "/swap/second\\040(deleted)              file\t\t1024\t0\t-4\n"),
                ElementsAre(SwapFile{"/swap file", 2'147'479'552}, SwapFile{"/swap/second (deleted)", 1'048'576}));
}

TEST(SwapFiles, AMalformedListHasNoFiles)
{
    EXPECT_THAT(swapFilesIn(""), IsEmpty());
    EXPECT_THAT(swapFilesIn("Filename Type Size\n\n/a file\n/b file x\n/c file 99999999999999999999\n"), IsEmpty());
}

} // namespace
} // namespace corvane
