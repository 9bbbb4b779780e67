#include "cli/scan_watch.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <poll.h>
#ifdef __APPLE__
#include <util.h>
#else
#include <pty.h>
#endif
#include <unistd.h>

#include "cli/commands/commands.h"
#include "cli/console.h"
#include "cli/folder_scan.h"
#include "platform/fake_host.h"

namespace corvane {

namespace {

bool becomesCancelled(const ScanProgress &progress)
{
    for (int i = 0; i < 10'000 && !progress.isCancelled(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return progress.isCancelled();
}

/// Redirects standard error to a pseudo-terminal, 60 columns wide.
class TerminalOnStandardError {
public:
    TerminalOnStandardError() : m_saved(dup(STDERR_FILENO))
    {
        winsize size{};
        size.ws_row = 20;
        size.ws_col = 60;
        int terminal = -1;
        EXPECT_EQ(openpty(&m_reader, &terminal, nullptr, nullptr, &size), 0);
        dup2(terminal, STDERR_FILENO);
        close(terminal);
    }
    ~TerminalOnStandardError()
    {
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
        close(m_reader);
    }
    TerminalOnStandardError(const TerminalOnStandardError &) = delete;
    TerminalOnStandardError &operator=(const TerminalOnStandardError &) = delete;

    /// The output so far, once it ends with this text; after ten seconds, whatever there is.
    std::string writtenUntil(std::string_view end)
    {
        for (int i = 0; i < 1'000 && !m_text.ends_with(end); ++i) {
            pollfd wait{m_reader, POLLIN, 0};
            std::array<char, 4096> buffer{};
            if (poll(&wait, 1, 10) == 1)
                m_text.append(buffer.data(), static_cast<std::size_t>(read(m_reader, buffer.data(), buffer.size())));
        }
        return m_text;
    }

private:
    const int m_saved;
    int m_reader = -1;
    std::string m_text;
};

bool defaultHandles(int signal)
{
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_DFL;
}

/// A folder with one file and one such folder in it, recursively without end. Listing the hundredth raises a signal.
class EndlessFolder final : public OpenFolder {
public:
    explicit EndlessFolder(std::uint64_t depth) : m_depth(depth) {}

    Expected<void> list(const EntrySink &sink) override
    {
        if (m_depth == 100)
            std::raise(SIGINT);
        if (m_depth > 100)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        sink({.name = "file", .type = EntryType::file, .allocated = 1'000'000});
        sink({.name = "folder", .type = EntryType::directory});
        return {};
    }
    Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &) override
    {
        return std::make_unique<EndlessFolder>(m_depth + 1);
    }
    Expected<std::unique_ptr<OpenFolder>> openParent() override { return std::make_unique<EndlessFolder>(m_depth - 1); }
    FolderIdentity identity() const override { return {1, m_depth}; }
    Time modified() const override { return distantPast; }

private:
    const std::uint64_t m_depth;
};

class EndlessFileSystem : public FileSystem {
public:
    Expected<std::unique_ptr<OpenFolder>> openFolder(const std::string &) override
    {
        return std::make_unique<EndlessFolder>(1);
    }
    Expected<ItemFacts> facts(const std::string &) override { return ItemFacts{.type = EntryType::directory}; }
    bool exists(const std::string &) override { return false; }
    bool canOpen(const std::string &) override { return false; }
    Expected<std::string> realPath(const std::string &path) override { return path; }
    Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override
    {
        ++removals;
        return tl::unexpected(Error{"remove", path, std::make_error_code(std::errc::operation_not_permitted), {}});
    }
    Expected<std::vector<std::string>> mountPoints() override { return std::vector<std::string>{"/"}; }
    std::string homeFolder() override { return "/home"; }

    int removals = 0;
};

/// A single file; the fake calls `onRemoval` before it is removed.
class WatchedFile final : public EndlessFileSystem {
public:
    Expected<ItemFacts> facts(const std::string &) override
    {
        return ItemFacts{.allocated = 5, .identity = {{}, 1, 1}};
    }
    Expected<std::unique_ptr<HeldFolder>> holdFolder(const std::string &path) override
    {
        onRemoval();
        return EndlessFileSystem::holdFolder(path);
    }

    std::function<void()> onRemoval;
};

/// Runs "remove --permanently --yes PATH" and returns its exit status.
ExitStatus deletion(const std::string &path, Console &console, const Host &host)
{
    Arguments arguments;
    arguments.paths = {path};
    arguments.add("permanently", {});
    arguments.add("yes", {});
    return removeCommand().run(arguments, console, host);
}

TEST(ScanWatch, InterruptAndTerminateStopTheScan)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        ScanProgress progress;
        const ScanWatch watch(progress, ScanWatch::Display::hidden);
        EXPECT_FALSE(progress.isCancelled());
        std::raise(signal);
        EXPECT_TRUE(becomesCancelled(progress));
    }
}

TEST(ScanWatch, TheSecondSignalEndsTheProgram)
{
    ScanProgress progress;
    const ScanWatch watch(progress, ScanWatch::Display::hidden);
    std::raise(SIGINT);
    EXPECT_TRUE(becomesCancelled(progress));
    EXPECT_TRUE(defaultHandles(SIGINT));
}

TEST(ScanWatch, AfterwardsSignalsDoWhatTheyAlwaysDo)
{
    {
        ScanProgress progress;
        const ScanWatch watch(progress, ScanWatch::Display::hidden);
        EXPECT_FALSE(defaultHandles(SIGINT));
    }
    EXPECT_TRUE(defaultHandles(SIGINT));
    EXPECT_TRUE(defaultHandles(SIGTERM));
}

TEST(ScanWatch, ShowsHowFarTheScanIsAndWipesItAway)
{
    TerminalOnStandardError terminal;
    ScanProgress progress;
    progress.record(1'234, 5'000'000, "/a/folder\x1b[31m/with/a/long/path");
    {
        const ScanWatch watch(progress, ScanWatch::Display::shown);
        const std::string line = terminal.writtenUntil("path");
        EXPECT_TRUE(line.ends_with("\r\x1b[KScanning… 1,234 files · 5 MB  …folder␛[31m/with/a/long/path")) << line;
    }
    EXPECT_TRUE(terminal.writtenUntil("\r\x1b[K").ends_with("\r\x1b[K"));
}

TEST(ScanWatch, HiddenItWritesNothing)
{
    TerminalOnStandardError terminal;
    ScanProgress progress;
    progress.record(1, 5'000'000, "/folder");
    {
        const ScanWatch watch(progress, ScanWatch::Display::hidden);
        std::this_thread::sleep_for(std::chrono::milliseconds(250));
    }
    std::fputs("end", stderr);
    EXPECT_EQ(terminal.writtenUntil("end"), "end");
}

TEST(FolderScan, ACtrlCGivesThePartThatWasScanned)
{
    const Console console;
    EndlessFileSystem files;

    const FolderScan scan = FolderScan::run("/endless", FolderScan::Extent::treeAndSummary, console, files).value();

    EXPECT_TRUE(scan.isCancelled);
    EXPECT_GE(scan.root->fileCount, 100);
    EXPECT_EQ(scan.root->size, scan.root->fileCount * 1'000'000);
    EXPECT_TRUE(verify(*scan.root));
    EXPECT_EQ(static_cast<std::int64_t>(scan.summary->allFiles.size()), scan.root->fileCount);
}

TEST(RemoveCommand, ACtrlCWhileSizesAreMeasuredRemovesNothing)
{
    Console console;
    EndlessFileSystem files;
    FakeHost fakes;
    const Host host{files, fakes.trash, fakes.volumes, fakes.desktop, fakes.applications};

    EXPECT_EQ(deletion("/endless", console, host), ExitStatus::doneWithFailures);

    EXPECT_EQ(files.removals, 0);
}

TEST(RemoveCommand, ATerminalShowsHowFarTheRemovalIsAndTheLineIsWipedAway)
{
    setenv("TERM", "xterm", 1);
    TerminalOnStandardError terminal;
    Console console;
    WatchedFile files;
    std::string shown;
    files.onRemoval = [&] { shown = terminal.writtenUntil("item  /one/file"); };
    FakeHost fakes;
    const Host host{files, fakes.trash, fakes.volumes, fakes.desktop, fakes.applications};

    EXPECT_EQ(deletion("/one/file", console, host), ExitStatus::doneWithFailures);

    EXPECT_TRUE(shown.ends_with("\r\x1b[KRemoving… 1 of 1 item  /one/file")) << shown;
    EXPECT_NE(terminal.writtenUntil("permitted\r\n").rfind("\r\x1b[Kcorvane-cli: file: "), std::string::npos);
}

TEST(RemoveCommand, WithoutProgressTheTerminalGetsNoLine)
{
    setenv("TERM", "xterm", 1);
    TerminalOnStandardError terminal;
    Console console;
    EXPECT_EQ(console.progressDisplay(), Watch::Display::shown);
    console.hideProgress();
    EXPECT_EQ(console.progressDisplay(), Watch::Display::hidden);
}

TEST(FolderScan, AScanThatIsLeftAloneIsWhole)
{
    const Console console;
    FakeFileSystem files;
    files.addFile("/tree/film.mov", 2'000'000);

    const FolderScan scan = FolderScan::run("/tree", FolderScan::Extent::tree, console, files).value();

    EXPECT_FALSE(scan.isCancelled);
    EXPECT_EQ(scan.unreadableReason, "");
    EXPECT_EQ(scan.root->size, 2'000'000);
    EXPECT_FALSE(scan.summary.has_value());
}

TEST(FolderScan, AFolderThatCannotBeListedTellsWhy)
{
    const Console console;
    FakeFileSystem files;
    files.addFile("/tree/film.mov", 2'000'000);
    files.failOpening("/tree");

    const FolderScan scan = FolderScan::run("/tree", FolderScan::Extent::tree, console, files).value();

    EXPECT_EQ(scan.unreadableReason, "Permission denied");
}

} // namespace

} // namespace corvane
