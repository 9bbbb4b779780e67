#include "cli/argument_reader.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/fake_file_system.h"

namespace corvane {

namespace {

CommandLine read(const std::vector<std::string> &arguments)
{
    FakeFileSystem files;
    return readArguments(arguments, files);
}

TEST(ArgumentReader, TakesOptionsAndPathsInAnyOrder)
{
    const CommandLine line = read({"--json", "map", "[a]", "--size", "1x1", "--svg=x", "-"});

    ASSERT_NE(line.command, nullptr);
    EXPECT_EQ(line.command->name, "map");
    EXPECT_TRUE(line.arguments.has("json"));
    EXPECT_EQ(line.arguments.text("size"), "1x1");
    EXPECT_EQ(line.arguments.text("svg"), "x");
    EXPECT_EQ(line.arguments.paths, (std::vector<std::string>{"[a]", "-"}));
}

TEST(ArgumentReader, NothingBehindTwoDashesIsAnOption)
{
    const CommandLine line = read({"remove", "--yes", "--", "--yes", "--", ""});

    EXPECT_FALSE(line.fault.has_value());
    EXPECT_EQ(line.arguments.paths, (std::vector<std::string>{"--yes", "--", ""}));
}

TEST(ArgumentReader, PathsOfAnyCharactersComeAsTheyAre)
{
    for (const char *const argument : {"", "x", ":x", "::", "[a,b]", "++", "%%", "@x", "{}", "scan"})
        EXPECT_EQ(read({"remove", "--", argument}).arguments.paths.at(0), argument);
}

TEST(ArgumentReader, TheLastOfSeveralValuesCountsAndAValueMayBeEmpty)
{
    EXPECT_EQ(read({"large", ".", "--name", "a", "--name=b"}).arguments.text("name"), "b");
    EXPECT_EQ(read({"large", ".", "--name=", "x"}).arguments.text("name"), "");
    EXPECT_EQ(read({"large", ".", "--name=-x=y"}).arguments.text("name"), "-x=y");
}

TEST(ArgumentReader, AnOptionIsNoValue)
{
    EXPECT_EQ(read({"large", ".", "--name", "--json"}).fault, "--name needs a value");
    EXPECT_EQ(read({"large", ".", "--name"}).fault, "--name needs a value");
}

TEST(ArgumentReader, AValueMayBeginWithOneDash)
{
    const CommandLine line = read({"large", ".", "--min", "-1", "--name", "-draft", "--exclude", "-"});
    EXPECT_FALSE(line.fault.has_value());
    EXPECT_EQ(line.arguments.text("min"), "-1");
    EXPECT_EQ(line.arguments.text("name"), "-draft");
    EXPECT_EQ(line.arguments.text("exclude"), "-");
    EXPECT_EQ(line.arguments.paths, std::vector<std::string>{"."});

    EXPECT_EQ(read({"remove", "a", "--units", "-y"}).fault, "--units needs a value");
    EXPECT_EQ(read({"scan", "--depth", "--tpo", "3"}).fault, "unknown option \"--tpo\" (did you mean \"--top\"?)");
    EXPECT_EQ(read({"scan", "--files", "-1"}).fault, "unknown option \"-1\"");
}

TEST(ArgumentReader, AnUnknownOptionComesBeforeOtherFaults)
{
    EXPECT_EQ(read({"map", "--bogus"}).fault, "unknown option \"--bogus\"");
    EXPECT_EQ(read({"snapshots", "a", "--bogus"}).fault, "unknown option \"--bogus\"");
}

TEST(ArgumentReader, HelpTakesPrecedenceOverErrors)
{
    const CommandLine line = read({"map", "--bogus", "--help"});

    EXPECT_EQ(line.wish, CommandLine::Wish::help);
    EXPECT_FALSE(line.fault.has_value());
    EXPECT_EQ(line.command->name, "map");
}

TEST(ArgumentReader, AValueThatCannotBeReadIsNamedWithWhatWouldBeValid)
{
    Arguments arguments;
    arguments.add("min", "many");
    const auto nothing = [](std::string_view) { return std::optional<int>(); };

    EXPECT_EQ(arguments.value("max", nothing, "a number"), std::nullopt);
    try {
        static_cast<void>(arguments.value("min", nothing, "a number"));
        FAIL() << "nothing was thrown";
    } catch (const UsageError &error) {
        EXPECT_STREQ(error.what(), "\"many\" is not a valid --min; use a number");
    }
}

} // namespace

} // namespace corvane
