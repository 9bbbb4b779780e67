#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli_test.h"
#include "cli/command.h"
#include "cli/terminal_program.h"
#include "cli/terminal_text.h"

namespace corvane {

namespace {

using nlohmann::json;

class ScanOptionsTest : public CliTest {
protected:
    ScanOptionsTest()
    {
        m_folder.writeFile("tree/films/one.mov", 5'000'000);
        m_folder.writeFile("tree/films/old/two.mov", 3'000'000);
        m_folder.writeFile("tree/song.mp3", 2'000'000);
        m_folder.writeText("tree/notes/a.txt", "x");
        m_folder.writeText("tree/notes/b.txt", "x");
        m_folder.writeText("tree/notes/c.txt", "x");
    }

    /// The lines from a heading to the next empty line.
    [[nodiscard]] static std::string block(const std::string &table, const std::string &heading)
    {
        const std::size_t start = table.find(heading + "\n");
        EXPECT_NE(start, std::string::npos) << table;
        return start == std::string::npos ? "" : table.substr(start, table.find("\n\n", start) - start);
    }
};

TEST_F(ScanOptionsTest, SeveralFoldersAreShownOneAfterAnother)
{
    const ProgramResult result = run({"scan", "tree/films", "tree/notes"});

    EXPECT_EQ(result.exitStatus, 0);
    const std::size_t first = result.out.find(m_folder / "tree/films\n8 MB in 2 files");
    const std::size_t second = result.out.find("\n\n" + m_folder / "tree/notes\n");
    EXPECT_EQ(first, 0u) << result.out;
    EXPECT_NE(second, std::string::npos) << result.out;
}

TEST_F(ScanOptionsTest, SeveralFoldersAreAnArrayAndOneIsAnObject)
{
    const json scans = document({"scan", "tree/films", "tree/notes"});
    ASSERT_EQ(scans.size(), 2u);
    EXPECT_EQ(scans[0]["root"]["path"], m_folder / "tree/films");
    EXPECT_EQ(scans[1]["files"], 3);
    EXPECT_TRUE(document({"scan", "tree/films"}).is_object());
}

TEST_F(ScanOptionsTest, OneFolderOfSeveralThatDoesNotExistIsRefusedBeforeAnythingIsScanned)
{
    const ProgramResult result = run({"scan", "tree", "nope"});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.errors.find("nope does not exist"), std::string::npos) << result.errors;
}

TEST_F(ScanOptionsTest, ADepthShowsATreeOfSoManyLevels)
{
    const std::string one = run({"scan", "tree", "--depth", "1"}).out;
    EXPECT_NE(one.find("  100.0%  ████████████████████  tree/\n"), std::string::npos) << one;
    EXPECT_NE(one.find("  ├─ films/\n"), std::string::npos) << one;
    EXPECT_NE(one.find("  └─ notes/\n"), std::string::npos) << one;
    EXPECT_EQ(one.find("one.mov"), std::string::npos) << one;

    const std::string two = run({"scan", "tree", "--depth", "2"}).out;
    EXPECT_NE(two.find("  │  ├─ one.mov\n"), std::string::npos) << two;
    EXPECT_NE(two.find("  │  └─ old/\n"), std::string::npos) << two;
    EXPECT_NE(two.find("     └─ 3 small files\n"), std::string::npos) << two;
    EXPECT_EQ(two.find("two.mov"), std::string::npos) << two;
}

TEST_F(ScanOptionsTest, ADepthAndATopCutTheDocumentAndLeaveItsFigures)
{
    const json scan = document({"scan", "tree", "--depth", "1", "--top", "2"});

    EXPECT_EQ(scan["files"], 6);
    const json &children = scan["root"]["children"];
    ASSERT_EQ(children.size(), 2u);
    EXPECT_EQ(children[0]["name"], "films");
    EXPECT_EQ(children[0]["children"], json::array());
    EXPECT_EQ(children[0]["fileCount"], 2);
    EXPECT_EQ(scan["allFiles"].size(), 2u);
}

TEST_F(ScanOptionsTest, ATopShowsSoManyItemsAndCountsTheRest)
{
    const std::string items = block(run({"scan", "tree", "--top", "1"}).out, "Largest items");

    EXPECT_NE(items.find("  films/\n"), std::string::npos) << items;
    EXPECT_NE(items.find("  2 more items"), std::string::npos) << items;
}

TEST_F(ScanOptionsTest, ItemsAreSortedByWhatIsAskedFor)
{
    const std::string byFiles = block(run({"scan", "tree", "--sort", "files"}).out, "Items with the most files");
    EXPECT_LT(byFiles.find("3 files  notes/"), byFiles.find("2 files  films/")) << byFiles;
    EXPECT_LT(byFiles.find("films/"), byFiles.find("1 file  song.mp3")) << byFiles;

    const std::string byName = block(run({"scan", "tree", "--sort", "name", "--top", "2"}).out, "Items by name");
    EXPECT_LT(byName.find("films/"), byName.find("notes/")) << byName;
    EXPECT_LT(byName.find("notes/"), byName.find("1 more item")) << byName;
    EXPECT_EQ(byName.find("song.mp3"), std::string::npos) << byName;

    m_folder.setModified("tree/song.mp3", 1'000'000'000);
    const std::string byDate = block(run({"scan", "tree", "--sort", "modified"}).out, "Items modified last");
    EXPECT_GT(byDate.find("song.mp3"), byDate.find("notes/")) << byDate;
}

TEST_F(ScanOptionsTest, FilesAreCountedWhereAskedFor)
{
    const std::string table = run({"scan", "tree", "--files"}).out;

    EXPECT_NE(table.find("        2 files  films/\n"), std::string::npos) << table;
    EXPECT_EQ(run({"scan", "tree"}).out.find("files  films/"), std::string::npos);
}

TEST_F(ScanOptionsTest, TheTableNamesTheLargestFilesAndTheBuildFolders)
{
    m_folder.writeText("tree/app/package.json", "{}");
    m_folder.writeFile("tree/app/node_modules/big.bin", 4'000'000);

    const std::string table = run({"scan", "tree"}).out;

    const std::string files = block(table, "Largest files");
    EXPECT_LT(files.find("  films/one.mov\n"), files.find("  app/node_modules/big.bin\n")) << files;
    EXPECT_NE(table.find("\nBuild folders, 4 MB\n      4 MB  app/node_modules/\n"), std::string::npos) << table;
}

TEST_F(ScanOptionsTest, WhatIsExcludedIsNotCountedAndToldInTableAndDocument)
{
    const std::vector<std::string> options{"--exclude", "*.mov", "--exclude=notes/"};
    std::vector<std::string> arguments{"scan", "tree"};
    arguments.insert(arguments.end(), options.begin(), options.end());

    const json scan = document(arguments);
    EXPECT_EQ(scan["files"], 1);
    EXPECT_EQ(scan["bytes"], m_folder.allocated("tree/song.mp3"));
    EXPECT_EQ(scan["filter"],
              (json{{"exclude", {"*.mov", "notes/"}}, {"leftOut", 3}, {"oneFileSystem", false}, {"apparent", false}}));
    const std::string table = run(arguments).out;
    EXPECT_NE(table.find("\nLeft out 3 items: *.mov, notes/\n"), std::string::npos) << table;
    EXPECT_FALSE(document({"scan", "tree"}).contains("filter"));
}

TEST_F(ScanOptionsTest, EveryCommandThatScansLeavesOutWhatIsExcluded)
{
    m_folder.writeFile("tree/copy.mp3", 2'000'000);
    const std::vector<std::string> filter{"--exclude", "films", "--one-file-system"};
    const auto with = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), filter.begin(), filter.end());
        return document(arguments);
    };
    for (const json &document : {with({"map", "tree"}), with({"large", "tree", "--min", "1"}),
                                 with({"old", "tree", "--min", "1"}), with({"duplicates", "tree"})}) {
        EXPECT_EQ(document["filter"]["leftOut"], 1) << document;
        EXPECT_EQ(document["filter"]["oneFileSystem"], true);
        EXPECT_EQ(document.dump().find(".mov"), std::string::npos) << document;
    }
}

TEST_F(ScanOptionsTest, AnEmptyPatternIsRefused)
{
    const ProgramResult result = run({"scan", "tree", "--exclude", ""});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: \"\" is not a valid --exclude; use a pattern such as \"*.iso\"; see "
                             "\"corvane-cli scan --help\"\n");
}

TEST_F(ScanOptionsTest, ApparentSizesAreLengths)
{
    m_folder.writeSparse("sparse/hole.bin", 9'000'000);

    EXPECT_LT(document({"scan", "sparse"})["bytes"].get<std::int64_t>(), 1'000'000);
    const json scan = document({"scan", "sparse", "--apparent"});
    EXPECT_EQ(scan["bytes"], 9'000'000);
    EXPECT_EQ(scan["filter"]["apparent"], true);
    EXPECT_NE(run({"scan", "sparse", "--apparent"}).out.find("\nSizes are the lengths of files"), std::string::npos);
}

TEST_F(ScanOptionsTest, ListsOfFilesAreSortedAndCut)
{
    const std::string table = run({"large", "tree", "--min", "1", "--sort", "name", "--top", "2"}).out;
    EXPECT_LT(table.find("one.mov"), table.find("song.mp3")) << table;
    EXPECT_NE(table.find("\n1 more file\n"), std::string::npos) << table;
    const json list = document({"large", "tree", "--min", "1", "--top", "1"});
    ASSERT_EQ(list["files"].size(), 1u);
    EXPECT_EQ(list["files"][0]["path"], m_folder / "tree/films/one.mov");
}

TEST_F(ScanOptionsTest, AFileThatLiesInTwoFoldersIsListedOnce)
{
    EXPECT_EQ(document({"large", "tree", "tree/films", "--min", "1"})["files"].size(), 3u);
    EXPECT_EQ(document({"large", "tree/films", "tree", "--min", "1"})["files"].size(), 3u);
    m_folder.writeFile("other/one.mov", 5'000'000);
    const json found = document({"duplicates", "tree", "tree", "other"});
    ASSERT_EQ(found["groups"].size(), 1u) << found;
    EXPECT_EQ(found["groups"][0]["files"].size(), 2u);
    EXPECT_EQ(document({"duplicates", "tree", "other", "--top", "1"})["groups"].size(), 1u);
}

TEST_F(ScanOptionsTest, SizesAreWrittenInTheUnitsAskedFor)
{
    EXPECT_NE(run({"scan", "tree", "--units", "binary"}).out.find("MiB in 6 files"), std::string::npos);
    const std::string bytes = run({"scan", "tree", "--units=bytes"}).out;
    EXPECT_NE(bytes.find("10,0"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find(" bytes in 6 files"), std::string::npos) << bytes;
    EXPECT_EQ(document({"scan", "tree", "--units", "binary"})["files"], 6);
}

TEST_F(ScanOptionsTest, AValueOutsideItsRangeIsRefusedWithWhatWouldBeValid)
{
    const auto complaint = [this](std::vector<std::string> arguments) {
        const ProgramResult result = run(std::move(arguments));
        EXPECT_EQ(result.exitStatus, 2);
        EXPECT_EQ(result.out, "");
        return result.errors.substr(0, result.errors.find("; see "));
    };
    EXPECT_EQ(complaint({"scan", "--depth", "0"}),
              "corvane-cli: \"0\" is not a valid --depth; use a number of levels, from 1 to 100");
    EXPECT_EQ(complaint({"scan", "--top", "x"}),
              "corvane-cli: \"x\" is not a valid --top; use a number of lines, from 1 to 1000000000");
    EXPECT_EQ(complaint({"scan", "--sort", "age"}),
              "corvane-cli: \"age\" is not a valid --sort; use size, files, name or modified");
    EXPECT_EQ(complaint({"large", "tree", "--sort", "files"}),
              "corvane-cli: \"files\" is not a valid --sort; use size, name or modified");
    EXPECT_EQ(complaint({"apps", "--units", "KB"}),
              "corvane-cli: \"KB\" is not a valid --units; use decimal, binary or bytes");
    EXPECT_EQ(complaint({"--color", "red", "snapshots"}),
              "corvane-cli: \"red\" is not a valid --color; use auto, always or never");
}

TEST_F(ScanOptionsTest, EveryValueThatMakesNoSenseIsNamedWithWhatTheOptionTakes)
{
    struct Case {
        std::vector<std::string> arguments; // the command with its path, and the option
        std::string valid;
    };
    const std::vector<Case> cases{
        {{"scan", "tree", "--depth"}, "use a number of levels, from 1 to 100"},
        {{"scan", "tree", "--top"}, "use a number of lines, from 1 to 1000000000"},
        {{"large", "tree", "--top"}, "use a number of files, from 1 to 1000000000"},
        {{"old", "tree", "--top"}, "use a number of files, from 1 to 1000000000"},
        {{"duplicates", "tree", "--top"}, "use a number of groups, from 1 to 1000000000"},
        {{"large", "tree", "--min"}, "use a number of bytes without a unit, from 0 to 9223372036854775807"},
        {{"old", "tree", "--min"}, "use a number of bytes without a unit, from 0 to 9223372036854775807"},
        {{"old", "tree", "--months"}, "use a number of months, from 1 to 12000"},
        {{"scan", "tree", "--sort"}, "use size, files, name or modified"},
        {{"large", "tree", "--sort"}, "use size, name or modified"},
        {{"large", "tree", "--type"}, "use one of video, image, audio, archive, diskImage, app, document, code, other"},
        {{"scan", "tree", "--units"}, "use decimal, binary or bytes"},
        {{"scan", "tree", "--color"}, "use auto, always or never"},
    };
    for (const auto &[start, valid] : cases) {
        for (const char *const value : {"", "x", "-1", "-x", "1e99", "99999999999999999999", "10 parsecs", "1.5"}) {
            std::vector<std::string> arguments = start;
            arguments.emplace_back(value);
            const ProgramResult result = run(arguments);
            EXPECT_EQ(result.exitStatus, 2);
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.errors, "corvane-cli: \"" + arguments.back() + "\" is not a valid " + start.back() + "; " +
                                         valid + "; see \"corvane-cli " + start.front() + " --help\"\n");
        }
    }
    for (const char *const option : {"--depth", "--top"}) {
        const ProgramResult result = run({"scan", "tree", option, "0"});
        EXPECT_EQ(result.exitStatus, 2);
        EXPECT_NE(result.errors.find(", from 1 to 100"), std::string::npos) << result.errors;
    }
}

TEST_F(ScanOptionsTest, AnEmptyFileNameForThePictureIsRefused)
{
    const ProgramResult result = run({"map", "tree", "--svg", ""});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: \"\" is not a valid --svg; use the name of a file, or \"-\" for standard "
                             "output; see \"corvane-cli map --help\"\n");
}

TEST_F(ScanOptionsTest, ColorsFollowTheOptionBeforeEverythingElse)
{
    EXPECT_NE(run({"scan", "tree", "--color=always"}).out.find("\x1b[1m"), std::string::npos);
    EXPECT_NE(program({"scan", "tree", "--color", "always"}).with("NO_COLOR", "1").run().out.find("\x1b[1m"),
              std::string::npos);
    EXPECT_EQ(run({"scan", "tree", "--color", "auto"}).out.find('\x1b'), std::string::npos);
    const ProgramResult never = TerminalProgram(program({"scan", "tree", "--color", "never"})).finish();
    EXPECT_EQ(never.out.find("\x1b[1m"), std::string::npos) << never.out;
}

TEST_F(ScanOptionsTest, WithoutProgressNoLineIsWrittenOver)
{
    EXPECT_NE(TerminalProgram(program({"scan", "tree"})).finish().out.find("\r\x1b[K"), std::string::npos);
    EXPECT_EQ(TerminalProgram(program({"scan", "tree", "--no-progress"})).finish().out.find("\r\x1b[K"),
              std::string::npos);
}

TEST_F(ScanOptionsTest, EveryTableFitsItsTerminal)
{
    m_folder.writeFile("home/" + std::string(90, 'n') + "/" + std::string(90, 'm') + ".mov", 3'000'000);
    m_folder.writeFile("home/copy.mov", 3'000'000);
    m_folder.writeFile("home/.cache/thumbnails/" + std::string(90, 'c'), 2'000'000);
    const std::vector<std::vector<std::string>> commands{{"scan", "home"},
                                                         {"scan", "home", "--files"},
                                                         {"scan", "home", "--depth", "3"},
                                                         {"scan", "home", "--depth", "2", "--files"},
                                                         {"map", "home"},
                                                         {"large", "home", "--min", "1"},
                                                         {"old", "home", "--min", "1"},
                                                         {"duplicates", "home"},
                                                         {"cleanup"},
                                                         {"--help"},
                                                         {"scan", "--help"}};
    for (const unsigned short columns : std::to_array<unsigned short>({40, 80, 140})) {
        for (const std::vector<std::string> &command : commands) {
            const ProgramResult result = TerminalProgram(program(command).with("NO_COLOR", "1"), columns).finish();
            std::istringstream lines(result.out.substr(result.out.rfind("\r\x1b[K") + 1));
            for (std::string line; std::getline(lines, line);) {
                // Lines to copy are never truncated.
                const bool isCopied = line.starts_with("Usage: ") || line.starts_with("  corvane-cli ") ||
                                      line.find("sudo ") != std::string::npos;
                if (line.ends_with('\r'))
                    line.pop_back();
                if (!isCopied) {
                    EXPECT_LE(displayWidth(line), columns) << command.front() << ": " << line;
                }
            }
        }
    }
}

TEST_F(ScanOptionsTest, TheHelpOfEveryCommandFitsATerminalOf60ColumnsWithItsExample)
{
    for (const Command &command : allCommands()) {
        const Program help = program({std::string(command.name), "--help"});
        std::istringstream lines(TerminalProgram(help, 60).finish().out);
        for (std::string line; std::getline(lines, line);) {
            if (line.ends_with('\r'))
                line.pop_back();
            EXPECT_LE(displayWidth(line), 60U) << command.name << ": " << line;
        }
    }
}

} // namespace

} // namespace corvane
