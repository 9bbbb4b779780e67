#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include <fcntl.h>

#include "cli/commands/scan_fixture.h"

namespace corvane {
namespace {

using nlohmann::json;

constexpr const char *replacement = "\xEF\xBF\xBD";

TEST_F(ScanCommandTest, JsonHasEveryFieldOfItsShape)
{
    m_folder.writeFile("tree/big.mp4", 2'000'000);
    m_folder.writeFile("tree/sub/small.txt", 5'000);
    m_folder.writeText("tree/app/package.json", "{}");
    m_folder.writeFile("tree/app/node_modules/big.bin", 3'000'000);
    m_folder.setModified("tree/big.mp4", 1'500'000'000);

    const json scan = document({"scan", m_folder / "tree"});

    const std::vector<std::string> expected{"allFiles", "bytes", "cancelled", "denied", "devJunk",
                                            "files",    "root",  "seconds",   "types",  "unreadable"};
    EXPECT_EQ(keys(scan), expected);
    const json &root = scan["root"];
    const std::vector<std::string> expectedOfNode{"children",       "fileCount", "kind", "modified",
                                                  "name",           "path",      "size", "smallFilesCount",
                                                  "smallFilesSize", "unreadable"};
    EXPECT_EQ(keys(root), expectedOfNode);
    EXPECT_EQ(root["name"], "tree");
    EXPECT_EQ(root["path"], m_folder / "tree");
    EXPECT_EQ(root["kind"], "directory");
    EXPECT_EQ(root["unreadable"], false);
    EXPECT_EQ(scan["files"], 4);
    EXPECT_EQ(scan["bytes"], root["size"]);
    EXPECT_EQ(scan["unreadable"], 0);
    EXPECT_EQ(scan["cancelled"], false);
    EXPECT_GE(scan["seconds"].get<double>(), 0);

    ASSERT_EQ(scan["allFiles"].size(), 2u);
    EXPECT_EQ(scan["allFiles"][0]["path"], m_folder / "tree/app/node_modules/big.bin");
    EXPECT_EQ(scan["allFiles"][0]["type"], "code");
    EXPECT_EQ(scan["allFiles"][1], (json{{"path", m_folder / "tree/big.mp4"},
                                         {"size", m_folder.allocated("tree/big.mp4")},
                                         {"modified", 1'500'000'000},
                                         {"type", "video"}}));
    ASSERT_EQ(scan["devJunk"].size(), 1u);
    EXPECT_EQ(scan["devJunk"][0]["path"], m_folder / "tree/app/node_modules");
    EXPECT_EQ(scan["devJunk"][0]["kind"], "node_modules");
    EXPECT_EQ(scan["devJunk"][0]["size"], m_folder.allocated("tree/app/node_modules/big.bin"));
    ASSERT_EQ(scan["types"].size(), 3u);
    EXPECT_EQ(scan["types"][0]["type"], "code");
    EXPECT_EQ(scan["types"][0]["label"], "Code & Data");
    EXPECT_EQ(scan["types"][2]["type"], "small");
}

TEST_F(ScanCommandTest, SizesAddUpFromTheLeavesToTheRoot)
{
    m_folder.writeFile("tree/a/one.iso", 3'000'000);
    m_folder.writeFile("tree/a/b/two.iso", 1'500'000);
    m_folder.writeFile("tree/three.txt", 9'000);

    const json root = document({"scan", m_folder / "tree"})["root"];

    EXPECT_EQ(root["size"], m_folder.allocated("tree/a/one.iso") + m_folder.allocated("tree/a/b/two.iso") +
                                m_folder.allocated("tree/three.txt"));
    EXPECT_EQ(root["fileCount"], 3);
    EXPECT_EQ(root["smallFilesCount"], 1);
    EXPECT_EQ(root["smallFilesSize"], m_folder.allocated("tree/three.txt"));
    const json &folder = root["children"][0];
    EXPECT_EQ(folder["name"], "a");
    EXPECT_EQ(folder["children"][0]["name"], "one.iso");
    EXPECT_EQ(folder["children"][0]["kind"], "file");
    EXPECT_EQ(folder["children"][1]["path"], m_folder / "tree/a/b");
}

TEST_F(ScanCommandTest, WithoutAPathTheHomeFolderIsScanned)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/film.mov", 1'200'000);

    const json scan = document({"scan"});

    EXPECT_EQ(scan["root"]["path"], m_folder / "home");
    EXPECT_EQ(scan["files"], 1);
}

TEST_F(ScanCommandTest, ARelativePathIsTakenFromTheCurrentFolder)
{
    m_folder.makeFolder("tree/sub");
    m_folder.link("elsewhere", m_folder / "tree/sub");

    EXPECT_EQ(document({"scan", "tree"})["root"]["path"], m_folder / "tree");
    EXPECT_EQ(document({"scan", "./tree//sub/"})["root"]["path"], m_folder / "tree/sub");
    EXPECT_EQ(document({"scan", "."})["root"]["path"], m_folder.path());
    EXPECT_EQ(document({"scan", "tree/sub/.."})["root"]["path"], m_folder / "tree");
    // Resolved like the system does: the folder that contains the link's target.
    EXPECT_EQ(document({"scan", "elsewhere/.."})["root"]["path"], m_folder / "tree");
}

TEST_F(ScanCommandTest, AFolderNamedLikeACommandOrAListIsAPath)
{
    for (const char *const name : {"map", "scan", "[a,b]", "{}", "++", "%%", ":x", "~"})
        m_folder.makeFolder(name);

    for (const char *const name : {"map", "scan", "[a,b]", "{}", "++", "%%", ":x", "~"})
        EXPECT_EQ(document({"scan", name})["root"]["path"], m_folder / name);
}

TEST_F(ScanCommandTest, ALinkToAFolderIsScanned)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);
    m_folder.link("link", m_folder / "tree");

    const json scan = document({"scan", "link"});

    EXPECT_EQ(scan["root"]["path"], m_folder / "link");
    EXPECT_EQ(scan["files"], 1);
}

TEST_F(ScanCommandTest, UnknownDatesAreNull)
{
    EXPECT_TRUE(document({"scan", m_folder / "home"})["root"]["modified"].is_null());
}

TEST_F(ScanCommandTest, NamesThatAreNotUtf8CarryTheirBytes)
{
    m_folder.writeFile("tree/caf\xE9/film\xFF.mov", 1'200'000);

    const json scan = document({"scan", m_folder / "tree"});

    const json &folder = scan["root"]["children"][0];
    EXPECT_EQ(folder["name"], std::string("caf") + replacement);
    EXPECT_EQ(folder["nameHex"], "636166e9");
    const json &film = folder["children"][0];
    EXPECT_EQ(film["name"], std::string("film") + replacement + ".mov");
    EXPECT_EQ(film["nameHex"], "66696c6dff2e6d6f76");
    EXPECT_TRUE(folder["pathHex"].get<std::string>().ends_with("2f636166e9")) << folder["pathHex"];
    EXPECT_TRUE(film["pathHex"].get<std::string>().ends_with("2f636166e92f66696c6dff2e6d6f76")) << film["pathHex"];
    const json &file = scan["allFiles"][0];
    EXPECT_EQ(file["path"], m_folder / "tree/caf" + replacement + "/film" + replacement + ".mov");
    const std::string hex = file["pathHex"];
    EXPECT_TRUE(hex.ends_with("2f636166e92f66696c6dff2e6d6f76")) << hex;
    EXPECT_FALSE(scan["root"].contains("nameHex"));
    EXPECT_FALSE(scan["root"].contains("pathHex"));
}

TEST_F(ScanCommandTest, NamesWithQuotesAndLineBreaksStayThemselvesInJson)
{
    const std::string name = "a \"b\"\\\n\x1b[31m\x01 \u00e4 \U0001F389.mov";
    m_folder.writeFile("tree/" + name, 1'200'000);

    EXPECT_EQ(document({"scan", m_folder / "tree"})["root"]["children"][0]["name"], name);
}

TEST_F(ScanCommandTest, ATreeDeeperThanAnyPathIsLongIsWritten)
{
    // Longer than any valid path, so each folder is created from within its parent.
    constexpr int levels = 1'200;
    int folder = open(m_folder.makeFolder("tree").c_str(), O_RDONLY | O_DIRECTORY);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(mkdirat(folder, "folder", 0700), 0);
        const int inner = openat(folder, "folder", O_RDONLY | O_DIRECTORY);
        close(folder);
        folder = inner;
    }
    const int file = openat(folder, "film.mov", O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(write(file, "x", 1), 1);
    close(file);
    close(folder);

    const json scan = document({"scan", m_folder / "tree"});

    EXPECT_EQ(scan["files"], 1);
    int depth = 0;
    for (const json *node = &scan["root"]; !(*node)["children"].empty(); node = &(*node)["children"][0])
        ++depth;
    EXPECT_EQ(depth, levels);
}

TEST_F(ScanCommandTest, TheTableShowsSizesSharesAndTypes)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/films/film.mov", 3'000'000);
    m_folder.writeFile("home/song.mp3", 1'000'000);
    m_folder.writeText("home/note.txt", "x");

    const ProgramResult result = run({"scan"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.out.starts_with("~\n4 MB in 3 files, scanned in ")) << result.out;
    EXPECT_NE(result.out.find("      3 MB   74."), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  films/\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  song.mp3\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  1 small file\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("File types\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  Videos\n"), std::string::npos) << result.out;
}

TEST_F(ScanCommandTest, OneFileIsSingular)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);

    const ProgramResult result = run({"scan", "tree"});

    EXPECT_NE(result.out.find(" in 1 file, "), std::string::npos) << result.out;
}

TEST_F(ScanCommandTest, AnEmptyFolderSaysSo)
{
    const ProgramResult result = run({"scan", "home"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.out.find("\nNothing big here\n"), std::string::npos) << result.out;
}

TEST_F(ScanCommandTest, TheTableHoldsNoControlCharacters)
{
    m_folder.writeFile("tree/evil\x1b]0;owned\x07\x1b[31m\nname\xC2\x9B\x7F.mov", 1'200'000);
    m_folder.writeFile("tree/right\u202Eto left", 1'300'000);

    const ProgramResult result = run({"scan", "tree"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_TRUE(std::ranges::none_of(result.out, [](char c) { return (c >= 0 && c < 0x20 && c != '\n') || c == 0x7F; }))
        << result.out;
    EXPECT_EQ(result.out.find("\xC2\x9B"), std::string::npos);
    EXPECT_EQ(result.out.find("\u202E"), std::string::npos);
    EXPECT_NE(result.out.find("evil␛]0;owned␇␛[31m␊name"), std::string::npos) << result.out;
}

TEST_F(ScanCommandTest, WithoutATerminalThereIsNeitherColourNorProgress)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);

    const ProgramResult result = program({"scan", "tree"}).with("COLORTERM", "truecolor").run();

    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(result.errors, "");
}

TEST_F(ScanCommandTest, WithTooFewOpenFilesItEndsWithOneLineAndNoFigures)
{
    m_folder.writeFile("tree/a/b/c/d/e/film.mov", 1'200'000);
    for (const std::string command : {"scan", "map"}) {
        const ProgramResult result =
            program({command, "tree"}).through({"/bin/sh", "-c", "ulimit -n 6; exec \"$0\" \"$@\""}).run();
        EXPECT_EQ(result.exitStatus, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.errors, "corvane-cli: cannot scan " + m_folder / "tree" +
                                     ": too many files are open at once; close some programs, or raise the limit "
                                     "(ulimit -n)\n");
    }
}

TEST_F(ScanCommandTest, AReaderThatGoesAwayEndsTheOutputQuietly)
{
    // Twice the capacity of a pipe.
    for (int i = 0; i < 300; ++i)
        m_folder.writeText("tree/" + std::string(200, 'n') + std::to_string(i) + "/x", "x");

    const ProgramResult result =
        program({"scan", "tree", "--json"})
            .through({"/bin/sh", "-c", "{ \"$0\" \"$@\"; echo \"status $?\" >&2; } | head -c 10"})
            .run();

    EXPECT_EQ(result.out, R"({"root":{")");
    EXPECT_EQ(result.errors, "status 0\n");
}

TEST_F(ScanCommandTest, AFullDiskIsNamed)
{
    if (access("/dev/full", W_OK) != 0)
        GTEST_SKIP() << "there is no /dev/full on this system";

    const ProgramResult result =
        program({"scan", "home"}).through({"/bin/sh", "-c", "\"$0\" \"$@\" > /dev/full"}).run();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors, "corvane-cli: cannot write the result: No space left on device\n");
}

// The test cannot control when the signal arrives; the assertions must hold at any time.
TEST_F(ScanCommandTest, CtrlCPrintsAPartialResultThatSaysSo)
{
    constexpr int folders = 600;
    for (int i = 0; i < folders; ++i)
        m_folder.writeText("tree/" + std::to_string(i % 50) + "/" + std::to_string(i) + "/file", "x");
    const auto start = std::chrono::steady_clock::now();
    const json whole = document({"scan", "tree"});
    const auto usualTime = std::chrono::steady_clock::now() - start;
    ASSERT_EQ(whole["files"], folders);

    bool wasStopped = false;
    constexpr int attempts = 40;
    for (int attempt = 0; attempt < attempts && !wasStopped; ++attempt) {
        const auto delay = usualTime * (attempts - attempt) / attempts;
        const int signal = attempt % 2 == 0 ? SIGINT : SIGTERM;
        const ProgramResult result = program({"scan", "tree", "--json"})
                                         .meanwhile([delay, signal](pid_t child) {
                                             std::this_thread::sleep_for(delay);
                                             kill(child, signal);
                                         })
                                         .run();
        if (result.signal != 0) {
            EXPECT_EQ(result.signal, signal);
            continue;
        }
        const json scan = parsed(result, result.exitStatus);
        if (scan["cancelled"] == true) {
            wasStopped = true;
            EXPECT_EQ(result.exitStatus, 1);
            EXPECT_EQ(result.errors, "corvane-cli: Scan stopped — showing partial results\n");
            EXPECT_LE(scan["files"].get<int>(), folders);
            EXPECT_LE(scan["bytes"].get<std::int64_t>(), whole["bytes"].get<std::int64_t>());
        } else {
            EXPECT_EQ(result.exitStatus, 0);
            EXPECT_EQ(scan["files"], folders);
        }
    }
    if (!wasStopped)
        GTEST_SKIP() << "no signal came while the scan ran";
}

TEST_F(ScanCommandTest, AFolderThatVanishesMeanwhileIsNoFailure)
{
    for (int i = 0; i < 100; ++i)
        m_folder.writeText("tree/" + std::to_string(i) + "/inner/file", "x");

    const ProgramResult result = program({"scan", "tree", "--json"})
                                     .meanwhile([this](pid_t) {
                                         for (int i = 0; i < 100; i += 2)
                                             std::filesystem::remove_all(m_folder / ("tree/" + std::to_string(i)));
                                     })
                                     .run();

    const json scan = parsed(result);
    EXPECT_GE(scan["files"].get<int>(), 50);
    EXPECT_LE(scan["files"].get<int>(), 100);
}

} // namespace
} // namespace corvane
