#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "cli/cli_test.h"
#include "cli/command.h"
#include "platform/system_kind.h"
#include "support/mac_words.h"

namespace corvane {

namespace {

const std::vector<std::string> commands{"scan",       "map",   "breakdown", "snapshots", "cleanup", "apps",
                                        "duplicates", "large", "old",       "protected", "remove"};

std::string textOf(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The words of letters and dashes after each occurrence of a mark, including the mark: for "--" all long options. An
/// occurrence preceded by a letter or dash does not count.
std::set<std::string> wordsBehind(const std::string &text, const std::string &mark)
{
    std::set<std::string> words;
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
        const char before = at == 0 ? ' ' : text[at - 1];
        std::size_t end = at + mark.size();
        while (end < text.size() && (isLetter(text[end]) || text[end] == '-'))
            ++end;
        if (end > at + mark.size() && !isLetter(before) && before != '-' && text[at + mark.size()] != '-')
            words.insert(text.substr(at, end - at));
    }
    return words;
}

/// The options that a help text lists, with their dashes.
std::set<std::string> optionsIn(const std::string &help)
{
    const std::size_t start = help.find("Options:");
    const std::string list = help.substr(start, help.find("\n\n", start) - start);
    std::set<std::string> options = wordsBehind(list, "--");
    for (const std::string &option : wordsBehind(list, "-")) {
        if (option.size() == 2)
            options.insert(option);
    }
    return options;
}

class CommandLineTest : public CliTest {};

TEST_F(CommandLineTest, OutputToAFullDiskIsAFailureOfEveryCommand)
{
    if (access("/dev/full", W_OK) != 0)
        GTEST_SKIP() << "there is no /dev/full on this system";
    m_folder.writeFile("folder/a.bin", 10);
    for (const std::string &command : commands) {
        for (const std::string option : {"--json", "--no-progress", "--help"}) {
            SCOPED_TRACE(testing::Message() << command << ' ' << option);
            std::vector<std::string> arguments{command, option};
            if (command == "remove")
                arguments.emplace_back("--dry-run");
            if (command != "breakdown" && command != "snapshots" && command != "cleanup" && command != "apps")
                arguments.emplace_back("folder");
            const ProgramResult result =
                program(std::move(arguments)).through({"/bin/sh", "-c", "\"$0\" \"$@\" > /dev/full"}).run();
            EXPECT_EQ(result.exitStatus, 1);
            EXPECT_EQ(result.errors, "corvane-cli: cannot write the result: No space left on device\n");
        }
    }
}

TEST_F(CommandLineTest, HelpNamesEveryCommandAndLeavesNothingOut)
{
    for (const char *const option : {"--help", "-h"}) {
        const ProgramResult result = run({option});
        EXPECT_EQ(result.exitStatus, 0);
        EXPECT_EQ(result.errors, "");
        for (const std::string &command : commands)
            EXPECT_NE(result.out.find("\n  " + command + " "), std::string::npos) << result.out;
        const auto listed =
            static_cast<std::size_t>(std::ranges::count(result.out.substr(result.out.find("Commands:")), '\n'));
        EXPECT_GE(listed, commands.size());
    }
}

TEST_F(CommandLineTest, EveryCommandIsOneThatIsTestedHere)
{
    std::vector<std::string> names;
    for (const Command &command : allCommands())
        names.emplace_back(command.name);
    EXPECT_EQ(names, commands);
}

TEST_F(CommandLineTest, EveryCommandHasHelpWithAnExample)
{
    for (const std::string &command : commands) {
        const ProgramResult result = run({command, "--help"});
        EXPECT_EQ(result.exitStatus, 0);
        EXPECT_NE(result.out.find("Usage: corvane-cli " + command), std::string::npos) << result.out;
        EXPECT_NE(result.out.find("Example:\n  corvane-cli " + command), std::string::npos) << result.out;
        EXPECT_NE(result.out.find("--json"), std::string::npos);
    }
}

TEST_F(CommandLineTest, VersionIsOneLine)
{
    for (const char *const option : {"--version", "-V"}) {
        const ProgramResult result = run({option});
        EXPECT_EQ(result.exitStatus, 0);
        EXPECT_EQ(result.out, "corvane-cli " CORVANE_VERSION "\n");
    }
}

TEST_F(CommandLineTest, WhatIsWrongIsOneLineWithAHint)
{
    struct Case {
        std::vector<std::string> arguments;
        std::string complaint;
    };
    const std::string general = "; see \"corvane-cli --help\"\n";
    const std::string ofScan = "; see \"corvane-cli scan --help\"\n";
    for (const Case &wrong :
         {Case{{}, "no command given" + general},
          Case{{"--json"}, "no command given" + general},
          Case{{"scn"}, "unknown command \"scn\" (did you mean \"scan\"?)" + general},
          Case{{"REMVOE", "x"}, "unknown command \"REMVOE\" (did you mean \"remove\"?)" + general},
          Case{{"hlep"}, "unknown command \"hlep\" (did you mean \"help\"?)" + general},
          Case{{"help", "scn"}, "unknown command \"scn\" (did you mean \"scan\"?)" + general},
          Case{{"help", "."}, "unknown command \".\"" + general},
          Case{{"delete"}, "unknown command \"delete\"" + general},
          Case{{""}, "unknown command \"\"" + general},
          Case{{"--jsn"}, "unknown option \"--jsn\" (did you mean \"--json\"?)" + general},
          Case{{"scan", "-json"}, "unknown option \"-json\" (did you mean \"--json\"?)" + ofScan},
          Case{{"map", "/", "--sizes=1x1"},
               "unknown option \"--sizes\" (did you mean \"--size\"?); see \"corvane-cli map --help\"\n"},
          Case{{"remove", "--permanetly", "x"},
               "unknown option \"--permanetly\" (did you mean \"--permanently\"?); see \"corvane-cli remove "
               "--help\"\n"},
          Case{{"remove", "-dfoo"}, "unknown option \"-dfoo\"; see \"corvane-cli remove --help\"\n"},
          Case{{"breakdown", "/"}, "unexpected argument \"/\"; see \"corvane-cli breakdown --help\"\n"},
          Case{{"breakdown", "--scan"}, "--scan needs a value; see \"corvane-cli breakdown --help\"\n"},
          Case{{"snapshots", "/"}, "unexpected argument \"/\"; see \"corvane-cli snapshots --help\"\n"},
          Case{{"cleanup", "--yes"}, "unknown option \"--yes\"; see \"corvane-cli cleanup --help\"\n"},
          Case{{"--bogus"}, "unknown option \"--bogus\"" + general},
          Case{{"scan", "--bogus"}, "unknown option \"--bogus\"" + ofScan},
          Case{{"scan", "--bogus=\x1b[31m"}, "unknown option \"--bogus\"" + ofScan},
          Case{{"scan", "-x"}, "unknown option \"-x\"" + ofScan},
          Case{{"scan", "--svg", "x"}, "unknown option \"--svg\"" + ofScan},
          Case{{"map", "a", "b\x1b"}, "unexpected argument \"b␛\"; see \"corvane-cli map --help\"\n"},
          Case{{"scan", "--json=yes"}, "--json takes no value" + ofScan},
          Case{{"map"}, "a PATH is needed; see \"corvane-cli map --help\"\n"},
          Case{{"map", "/", "--size"}, "--size needs a value; see \"corvane-cli map --help\"\n"},
          Case{{"protected", "--json"}, "a PATH is needed; see \"corvane-cli protected --help\"\n"},
          Case{{"remove", "--yes"}, "a PATH is needed; see \"corvane-cli remove --help\"\n"}}) {
        const ProgramResult result = run(wrong.arguments);
        EXPECT_EQ(result.exitStatus, 2) << wrong.complaint;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.errors, "corvane-cli: " + wrong.complaint);
    }
}

TEST_F(CommandLineTest, AnItemWhoseNameCountsAsAnOptionIsNamedWithTheWayToWriteIt)
{
    m_folder.writeText("-dfoo", "");
    const ProgramResult result = run({"remove", "--yes", "-dfoo"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: \"-dfoo\" is treated as an option; to name the item, write \"./-dfoo\"; "
                             "see \"corvane-cli remove --help\"\n");
    EXPECT_TRUE(std::filesystem::exists(m_folder / "-dfoo"));
}

TEST_F(CommandLineTest, APathInThePlaceOfACommandIsScanned)
{
    REQUIRE_OWN_HOME();
    m_folder.makeFolder("movies");
    m_folder.makeFolder("scan");
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"."}, m_folder.path()},          {{"./scan"}, m_folder / "scan"},
        {{"scan"}, m_folder / "home"},     {{"scan", "scan"}, m_folder / "scan"},
        {{"movies"}, m_folder / "movies"}, {{m_folder / "movies"}, m_folder / "movies"},
        {{"home/.."}, m_folder.path()},
    };
    for (const auto &[arguments, root] : cases)
        EXPECT_EQ(document(arguments)["root"]["path"], root) << arguments.back();
    EXPECT_EQ(parsed(run({"--json", "."}))["root"]["path"], m_folder.path());
    EXPECT_EQ(parsed(run({"--json", "--", "scan"}))["root"]["path"], m_folder / "scan");
}

TEST_F(CommandLineTest, AMissingPathInThePlaceOfACommandIsNamed)
{
    const ProgramResult result = run({"/nope/a"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.errors, "corvane-cli: /nope/a does not exist; the nearest folder that does is /\n");
}

TEST_F(CommandLineTest, HelpIsACommandTooAndWinsOverAFolderOfThatName)
{
    m_folder.makeFolder("help");
    EXPECT_EQ(run({"help"}).out, run({"--help"}).out);
    EXPECT_EQ(run({"help", "--json"}).out, run({"--help"}).out);
    for (const std::string &command : commands)
        EXPECT_EQ(run({"help", command}).out, run({command, "--help"}).out) << command;
    EXPECT_EQ(run({"help"}).exitStatus, 0);
    EXPECT_EQ(document({"./help"})["root"]["path"], m_folder / "help");
}

TEST_F(CommandLineTest, JsonMayStandBeforeTheCommand)
{
    EXPECT_EQ(parsed(run({"--json", "protected", "/"}))[0]["protected"], true);
}

TEST_F(CommandLineTest, ALaterValueReplacesAnEarlierOne)
{
    EXPECT_EQ(run({"map", "home", "--size", "1x1", "--size", "20x20"}).exitStatus, 0);
}

TEST_F(CommandLineTest, ManyPathsAreTaken)
{
    std::vector<std::string> arguments{"protected", "--json"};
    for (int i = 0; i < 5'000; ++i)
        arguments.push_back("/tmp/" + std::to_string(i));

    EXPECT_EQ(parsed(run(arguments)).size(), 5'000u);
}

TEST_F(CommandLineTest, EveryOptionIsInTheManualAndTheCompletions)
{
    std::set<std::string> options = optionsIn(run({"--help"}).out);
    for (const std::string &command : commands)
        options.merge(optionsIn(run({command, "--help"}).out));
    ASSERT_TRUE(options.contains("--permanently"));
    ASSERT_TRUE(options.contains("-y"));

    const std::string packaging = CORVANE_PACKAGING_FOLDER;
    const std::string bash = textOf(packaging + "/completions/corvane-cli.bash");
    const std::string zsh = textOf(packaging + "/completions/_corvane-cli");
    const std::string fish = textOf(packaging + "/completions/corvane-cli.fish");
    const std::string manual = textOf(packaging + "/man/corvane-cli.1");
    for (const std::string &option : options) {
        const bool isShort = option.size() == 2;
        const std::string name = option.substr(isShort ? 1 : 2);
        const std::string mark = isShort ? "-" : "--";
        EXPECT_TRUE(wordsBehind(bash, mark).contains(option)) << option;
        EXPECT_TRUE(wordsBehind(zsh, mark).contains(option)) << option;
        EXPECT_TRUE(wordsBehind(fish, isShort ? "-s " : "-l ").contains((isShort ? "-s " : "-l ") + name)) << option;
        EXPECT_TRUE(wordsBehind(manual, isShort ? "Fl " : "Fl Fl ").contains((isShort ? "Fl " : "Fl Fl ") + name))
            << option;
    }
    for (const std::string &command : commands) {
        for (const std::string &text : {bash, zsh, fish, manual})
            EXPECT_NE(text.find(command), std::string::npos) << command;
    }
}

TEST_F(CommandLineTest, TheCompletionsNameNoOptionThatDoesNotExist)
{
    std::set<std::string> options = optionsIn(run({"--help"}).out);
    for (const std::string &command : commands)
        options.merge(optionsIn(run({command, "--help"}).out));

    const std::string packaging = CORVANE_PACKAGING_FOLDER;
    for (const char *const name : {"corvane-cli.bash", "_corvane-cli"}) {
        for (const std::string &option : wordsBehind(textOf(packaging + "/completions/" + name), "--"))
            EXPECT_TRUE(options.contains(option)) << name << " " << option;
    }
    std::istringstream fish(textOf(packaging + "/completions/corvane-cli.fish"));
    for (std::string line; std::getline(fish, line);) {
        if (!line.starts_with("complete "))
            continue;
        for (const std::string &option : wordsBehind(line, "-l "))
            EXPECT_TRUE(options.contains("--" + option.substr(3))) << line;
    }
}

TEST_F(CommandLineTest, NothingThatIsReadOnALinuxSystemSpeaksOfAMac)
{
    if (std::filesystem::exists(macSystemFile))
        GTEST_SKIP() << "the tests run on a root that is a Mac's";
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/Films/film.mkv", 2'000'000);
    m_folder.writeFile("home/.npm/_cacache/blob", 2'000'000);
    m_folder.writeFile("home/.gradle/caches", 10); // a file, so listing it fails
    std::vector<std::vector<std::string>> runs{{"--help"},
                                               {"help"},
                                               {"scan"},
                                               {"scan", "missing"},
                                               {"map", "home"},
                                               {"breakdown"},
                                               {"breakdown", "--scan", "home"},
                                               {"snapshots"},
                                               {"cleanup"},
                                               {"apps"},
                                               {"duplicates", "home"},
                                               {"large", "home", "--min", "1"},
                                               {"old", "home"},
                                               {"protected", "home", "/usr"},
                                               {"remove", "--yes", "home"},
                                               {"remove", "--yes", "home/Films"}};
    for (const std::string &command : commands)
        runs.push_back({command, "--help"});
    std::vector<std::string> texts;
    for (const std::vector<std::string> &arguments : runs) {
        const ProgramResult result = run(arguments);
        EXPECT_FALSE(result.out.empty() && result.errors.empty()) << arguments.front();
        texts.insert(texts.end(), {result.out, result.errors});
    }
    const std::string packaging = CORVANE_PACKAGING_FOLDER;
    for (const char *file : {"/completions/corvane-cli.bash", "/completions/_corvane-cli",
                             "/completions/corvane-cli.fish", "/man/corvane-cli.1", "/man/corvane.1",
                             "/linux/app.corvane.Corvane.desktop", "/linux/app.corvane.Corvane.metainfo.xml.in"}) {
        texts.push_back(textOf(packaging + file));
        EXPECT_FALSE(texts.back().empty()) << file;
    }

    // Installed programs on this machine can have any name.
    std::vector<std::string> names;
    const nlohmann::json inventory = document({"apps"});
    for (const nlohmann::json &app : inventory["apps"])
        names.push_back(app["name"]);
    for (const std::string &text : texts) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            const bool isOfAnApp = std::ranges::any_of(
                names, [&](const std::string &name) { return line.find(name) != std::string::npos; });
            if (!isOfAnApp) {
                EXPECT_EQ(macWordIn(line), "") << line;
            }
        }
    }
}

} // namespace

} // namespace corvane
