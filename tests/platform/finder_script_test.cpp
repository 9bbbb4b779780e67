#include "platform/finder_script.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(FinderScript, NamesThePathAsAnAlias)
{
    EXPECT_EQ(finderDeleteScript("/Users/me/old file"),
              R"(tell application "Finder" to delete (POSIX file "/Users/me/old file" as alias))");
}

TEST(FinderScript, QuotationMarkAndBackslashInANameStayInsideTheString)
{
    EXPECT_EQ(finderDeleteScript(R"(/a" as alias) \ end)"),
              R"(tell application "Finder" to delete (POSIX file "/a\" as alias) \\ end" as alias))");
}

TEST(FinderScript, OtherBytesAreKept)
{
    EXPECT_EQ(finderDeleteScript("/\xc3\xa9\n"),
              "tell application \"Finder\" to delete (POSIX file \"/\xc3\xa9\n\" as alias)");
}

} // namespace
} // namespace corvane
