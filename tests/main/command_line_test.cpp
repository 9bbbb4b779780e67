#include "main/command_line.h"

#include <vector>

#include <gmock/gmock.h>

namespace corvane {
namespace {

using Request = CommandLine::Request;

CommandLine parse(const std::vector<std::string_view> &arguments)
{
    return CommandLine::parse(arguments);
}

TEST(CommandLine, WithoutArgumentsOnlyTheWindowOpens)
{
    EXPECT_EQ(parse({}), CommandLine());
}

TEST(CommandLine, TakesOneFolderByteForByte)
{
    EXPECT_EQ(parse({"a\xff b"}).folder, "a\xff b");
    EXPECT_EQ(parse({"a"}).request, Request::window);
}

TEST(CommandLine, HelpAndVersionWinOverEverythingElse)
{
    EXPECT_EQ(parse({"--nonsense", "a", "b", "--help"}).request, Request::help);
    EXPECT_EQ(parse({"-h"}).request, Request::help);
    EXPECT_EQ(parse({"a", "--version"}).request, Request::version);
    EXPECT_EQ(parse({"-v"}).request, Request::version);
}

TEST(CommandLine, AfterTheDoubleDashEverythingIsAFolder)
{
    EXPECT_EQ(parse({"--", "--help"}).folder, "--help");
    EXPECT_EQ(parse({"--"}), CommandLine());
}

TEST(CommandLine, UnknownOptionsAndSecondFoldersAreWrong)
{
    EXPECT_EQ(parse({"--fast"}).request, Request::wrong);
    EXPECT_EQ(parse({"--fast"}).error, "unknown option --fast");
    EXPECT_EQ(parse({"---"}).error, "unknown option ---");
    EXPECT_EQ(parse({"a", "b"}).request, Request::wrong);
    EXPECT_EQ(parse({"a", "b"}).error, "expected at most one folder");
    EXPECT_EQ(parse({""}).request, Request::wrong);
    EXPECT_EQ(parse({""}).error, "the path is empty; \".\" is the current folder");
}

TEST(CommandLine, AMistypedOptionIsAnsweredWithTheNearestOne)
{
    EXPECT_EQ(parse({"--hlep"}).error, "unknown option --hlep; did you mean --help?");
    EXPECT_EQ(parse({"--vers"}).error, "unknown option --vers; did you mean --version?");
}

TEST(CommandLine, OptionsOfQtAreSkipped)
{
    EXPECT_EQ(parse({"-platform", "offscreen", "a"}).folder, "a");
    EXPECT_EQ(parse({"a", "--session", "id", "-reverse", "-style=Basic", "-platform"}),
              (CommandLine{.request = Request::window, .folder = "a", .error = {}}));
    EXPECT_EQ(parse({"-platform", "offscreen", "--fast"}).error, "unknown option --fast");
    EXPECT_EQ(parse({"--", "-reverse"}).folder, "-reverse");
    EXPECT_EQ(parse({"-platforms"}).error, "unknown option -platforms");
    EXPECT_EQ(parse({"platform", "a"}).request, Request::wrong);
}

TEST(CommandLine, ASingleDashIsAFolderOfThatName)
{
    EXPECT_EQ(parse({"-"}).folder, "-");
}

} // namespace
} // namespace corvane
