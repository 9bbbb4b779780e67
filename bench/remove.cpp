// Times removals as the window and the command line perform them, in one table beside the goals:
// bench_remove ROUNDS FOLDER
//
//   to the Trash
//       100,000 separate files in 100 folders in one request, as after selecting all of a long list; the selection
//       has already been examined
//   detach
//       detaching 20,000 files of one folder, 1 in 5, from the tree of a finished scan and from its lists
//   permanent delete
//       folders of 1,000,000 files, a thousand per folder, and of 5,000 and 100,000 nested levels, alternating with
//       "rm -rf" of the same
//
// FOLDER is created, and removed at the end. The Trash is that of a home folder in it. Figures are medians; every run
// has its own process and files. The big ones run three rounds at most. The Trash comes first; nothing is deleted
// before it.
//
// "bench_remove make COUNT FOLDER" creates such a folder of COUNT files, and removes nothing.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fmt/format.h>

#include "cleanup/dev_junk_rule.h"
#include "core/installed_tree.h"
#include "core/removal.h"
#include "core/scanner.h"
#include "platform/host.h"
#include "platform/path.h"
#include "support.h"

extern char **environ;

namespace {

using namespace corvane;

template <typename Work>
double secondsOf(const Work &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

constexpr std::size_t filesInFolder = 1'000;

std::string nameOfFile(std::size_t number)
{
    return fmt::format("file {}.txt", number);
}

std::string pathOfFile(const std::string &top, std::size_t number)
{
    return fmt::format("{}/{}/{}", top, number / filesInFolder, nameOfFile(number));
}

/// Creates empty files, a thousand per folder.
void makeFiles(std::size_t count, const std::string &top)
{
    const std::size_t folders = (count + filesInFolder - 1) / filesInFolder;
    check(::mkdir(top.c_str(), 0755) == 0, top);
    const auto makeEvery = [&](std::size_t first, std::size_t step) {
        for (std::size_t folder = first; folder < folders; folder += step) {
            const std::string path = fmt::format("{}/{}", top, folder);
            check(::mkdir(path.c_str(), 0755) == 0, path);
            const int parent = ::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
            check(parent >= 0, path);
            for (std::size_t i = folder * filesInFolder; i < std::min(count, (folder + 1) * filesInFolder); ++i)
                check(::mknodat(parent, nameOfFile(i).c_str(), S_IFREG | 0644, 0) == 0, path);
            ::close(parent);
        }
    };
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::exception_ptr> failures(cores); // one per thread
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < cores; ++i) {
        threads.emplace_back([&, i] {
            try {
                makeEvery(i, cores);
            } catch (...) {
                failures[i] = std::current_exception();
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    for (const std::exception_ptr &failure : failures) {
        if (failure)
            std::rethrow_exception(failure);
    }
}

void makeLevels(std::size_t count, const std::string &top)
{
    check(::mkdir(top.c_str(), 0755) == 0, top);
    int folder = ::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (std::size_t i = 0; i < count; ++i) {
        check(::mkdirat(folder, "level", 0755) == 0, top);
        const int inner = ::openat(folder, "level", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        check(inner >= 0, top);
        ::close(folder);
        folder = inner;
    }
    ::close(folder);
}

void eraseForGood(const std::string &path)
{
    const auto failure = [](const Error &error) { return std::runtime_error(error.description()); };
    const auto folder = systemHost().files.holdFolder(std::string(containingFolder(path)));
    if (!folder)
        throw failure(folder.error());
    const std::string name(lastPathComponent(path));
    const auto facts = (*folder)->facts(name);
    if (!facts)
        throw failure(facts.error());
    if (const auto removed = (*folder)->removeItem(name, facts->identity); !removed)
        throw failure(removed.error());
}

void removeWithSystemTool(const std::string &path)
{
    const char *const arguments[] = {"rm", "-rf", path.c_str(), nullptr};
    pid_t child = 0;
    int status = 0;
    const int code = ::posix_spawnp(&child, "rm", nullptr, nullptr, const_cast<char *const *>(arguments), environ);
    if (code != 0 || ::waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("rm -rf failed");
}

/// Runs the work in a child process and returns what it measured.
double inChild(const std::function<double()> &work)
{
    int ends[2];
    check(::pipe(ends) == 0, "pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        double seconds = -1;
        try {
            seconds = work();
        } catch (const std::exception &error) {
            fmt::print(stderr, "bench_remove: {}\n", error.what());
        }
        const bool isTold = ::write(ends[1], &seconds, sizeof seconds) == sizeof seconds;
        ::_exit(isTold ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    ::close(ends[1]);
    double seconds = -1;
    const bool isTold = ::read(ends[0], &seconds, sizeof seconds) == sizeof seconds;
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    if (!isTold || seconds < 0)
        throw std::runtime_error("a run failed");
    return seconds;
}

constexpr std::size_t itemsToTrash = 100'000;
constexpr std::size_t nodesToDetach = 20'000;

/// Seconds per item for one request that moves all of them to the Trash of `home`, which is created.
double secondsPerTrashedItem(const std::string &home)
{
    check(::mkdir(home.c_str(), 0755) == 0, home);
    check(::setenv("HOME", home.c_str(), 1) == 0, home);
    check(::setenv("XDG_DATA_HOME", (home + "/data").c_str(), 1) == 0, home);
    const Host &host = systemHost();
    const std::vector<std::string> trashFolders = host.trash.trashFolders();
    if (std::ranges::find(trashFolders, home + "/data/Trash") == trashFolders.end())
        throw std::runtime_error("the Trash of this system cannot be another one than the user's");

    const std::string items = home + "/items";
    makeFiles(itemsToTrash, items);
    Selection selection;
    for (std::size_t i = 0; i < itemsToTrash; ++i)
        selection.emplace(pathOfFile(items, i), 0);
    const ProtectedLocations &locations = PathGuard::locations();
    const SeenItems seen = Removal::look(selectedEntries(selection), locations, host);
    const double seconds = secondsOf([&] {
        const auto steps = Removal::plan(selection, false, locations, trashFolders, seen);
        const RemovalOutcome outcome = Removal::perform(steps, locations, host);
        if (outcome.removed.size() != itemsToTrash)
            throw std::runtime_error(Removal::logText(outcome));
    });
    return seconds / static_cast<double>(itemsToTrash);
}

double secondsToDetach()
{
    FileSystem &files = systemHost().files;
    const auto root = std::make_shared<FileNode>("/home/user", FileNode::Kind::directory);
    const auto folder = std::make_shared<FileNode>(root->pathForChildren(), "films", FileNode::Kind::directory, root);
    root->children.push_back(folder);
    const FolderPath inside = folder->pathForChildren();
    std::vector<SelectedEntry> gone;
    constexpr std::size_t stays = 5; // one in so many is removed
    for (std::size_t i = 0; i < stays * nodesToDetach; ++i) {
        const auto file = std::make_shared<FileNode>(inside, fmt::format("{}.mp4", i), FileNode::Kind::file, folder);
        file->size = static_cast<std::int64_t>(stays * nodesToDetach - i) + Scanner::smallFileLimit;
        folder->size += file->size;
        folder->fileCount += 1;
        folder->children.push_back(file);
        if (i % stays == 0)
            gone.push_back({file->path(), file->size});
    }
    root->size = folder->size;
    root->fileCount = folder->fileCount;
    InstalledTree tree(root, ScanSummary::make(root, DevJunkRule::match, files), ScanSummary::types(*root), {});
    std::vector<std::shared_ptr<FileNode>> left;
    const double seconds = secondsOf([&] { left = tree.update(gone, {}); });
    if (left.size() != nodesToDetach)
        throw std::runtime_error("not all of the nodes have left the tree");
    return seconds;
}

double medianOf(int rounds, const std::function<double(int)> &run)
{
    std::vector<double> seconds;
    for (int round = 0; round < rounds; ++round)
        seconds.push_back(inChild([&] { return run(round); }));
    return median(seconds);
}

void printRow(std::string_view what, const std::string &figure, const std::string &peer, const std::string &goal)
{
    fmt::print("  {:<34} {:>12} {:>12}   {}\n", what, figure, peer, goal);
    std::fflush(stdout);
}

/// Creates all folders before deleting the first: when creating items, ext4 skips the inodes deleted in the last
/// minutes.
void raceWithSystemTool(int rounds, const std::string &what, const std::string &folder,
                        const std::function<void(const std::string &)> &makeOne)
{
    const auto path = [&](int number) { return fmt::format("{}/removed{}", folder, number); };
    for (int i = 0; i < 2 * rounds; ++i)
        makeOne(path(i));
    std::vector<double> own;
    std::vector<double> peer;
    for (int i = 0; i < 2 * rounds; i += 2) {
        own.push_back(inChild([&] { return secondsOf([&] { eraseForGood(path(i)); }); }));
        peer.push_back(secondsOf([&] { removeWithSystemTool(path(i + 1)); }));
    }
    const double ratio = median(own) / median(peer);
    printRow(what, fmt::format("{:.3f} s", median(own)), fmt::format("{:.3f} s", median(peer)),
             fmt::format("{:.2f} x, {}", ratio, goalAtMost(1.1, "x", ratio)));
}

void run(int rounds, const std::string &folder)
{
    const int roundsOfBig = std::min(rounds, 3);
    check(::mkdir(folder.c_str(), 0700) == 0, folder);
    printRow("", "here", "rm -rf", "");
    const double item = medianOf(
        roundsOfBig, [&](int round) { return secondsPerTrashedItem(fmt::format("{}/home{}", folder, round)); });
    printRow("100,000 items to the Trash", fmt::format("{:.1f} us each", item * 1e6), "-",
             goalAtMost(60, "us", item * 1e6));
    const double detached = medianOf(rounds, [](int) { return secondsToDetach(); });
    printRow("detach 20,000 of one folder", fmt::format("{:.1f} ms", detached * 1e3), "-",
             goalAtMost(100, "ms", detached * 1e3));

    const auto levels = [](std::size_t count) { return [=](const std::string &path) { makeLevels(count, path); }; };
    raceWithSystemTool(rounds, "5,000 levels", folder, levels(5'000));
    raceWithSystemTool(roundsOfBig, "100,000 levels", folder, levels(100'000));
    raceWithSystemTool(roundsOfBig, "1,000,000 files", folder,
                       [](const std::string &path) { makeFiles(1'000'000, path); });
    removeWithSystemTool(folder);
}

} // namespace

int main(int argc, char **argv)
try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto number = [&](std::size_t index) { return positiveNumber(arguments[index]).value_or(0); };
    if (arguments.size() == 3 && arguments[0] == "make" && number(1) > 0)
        makeFiles(static_cast<std::size_t>(number(1)), arguments[2]);
    else if (arguments.size() == 2 && number(0) > 0)
        run(number(0), arguments[1]);
    else
        throw std::invalid_argument("usage: bench_remove ROUNDS FOLDER, or make COUNT FOLDER");
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_remove: {}\n", error.what());
    return EXIT_FAILURE;
}
