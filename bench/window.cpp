// Measures how the window starts, draws and idles: bench_window ROUNDS PROGRAM FOLDER SANDBOX
//
// Startup, memory and idle load are measured on PROGRAM, the real one, in a separate home folder in SANDBOX; Qt logs
// each drawn frame on standard error. FOLDER holds 1,000,000 files. An empty Qt Quick window, drawn by this program, is
// the lower bound. Pointer and keyboard input is sent as events to the same window inside this program, over a
// synthetic file system; its figure is processor time of all threads, which does not depend on other load on the
// machine. The display server's share is not included.

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QEventLoop>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QSettings>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest/QTest>
#include <fmt/format.h>

#include "made_up_files.h"
#include "main/corvane_app.h"
#include "support.h"

namespace {

using corvane::StorageStore;
using Clock = std::chrono::steady_clock;

double since(Clock::time_point start)
{
    return milliseconds(Clock::now() - start);
}

// Flush immediately, so that an aborted run has printed its results so far.
void report(std::string_view what, std::string_view unit, const std::vector<double> &values, double goal)
{
    const double middle = median(values);
    fmt::print("  {:<52} median {:>7.2f} {}, worst {:>7.2f} ({})\n", what, middle, unit, std::ranges::max(values),
               goalAtMost(goal, unit, middle));
    std::fflush(stdout);
}

// --- The real program

/// A process, and Qt's log on its standard error.
class Started {
public:
    explicit Started(const std::vector<std::string> &command) : m_start(Clock::now())
    {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            std::exit(EXIT_FAILURE);
        m_process = ::fork();
        if (m_process == 0) {
            ::setenv("QT_LOGGING_RULES", "qt.scenegraph.time.renderloop=true", 1);
            ::dup2(ends[1], STDERR_FILENO);
            std::vector<char *> arguments;
            for (const std::string &each : command)
                arguments.push_back(const_cast<char *>(each.c_str()));
            arguments.push_back(nullptr);
            ::execv(arguments[0], arguments.data());
            ::_exit(EXIT_FAILURE);
        }
        ::close(ends[1]);
        m_output = ends[0];
    }
    ~Started()
    {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        ::close(m_output);
    }
    Started(const Started &) = delete;
    Started &operator=(const Started &) = delete;

    /// Milliseconds from the start of the process to the end of its first frame.
    double firstFrame() const
    {
        std::string said;
        std::array<char, 4096> part{};
        while (said.find("rame rendered") == std::string::npos) {
            const ssize_t count = ::read(m_output, part.data(), part.size());
            if (count <= 0) {
                fmt::print(stderr, "bench_window: no frame was drawn:\n{}\n", said);
                std::exit(EXIT_FAILURE);
            }
            said.append(part.data(), static_cast<std::size_t>(count));
        }
        return since(m_start);
    }

    /// Milliseconds of processor time so far.
    [[nodiscard]] double processorTime() const
    {
        std::ifstream file(fmt::format("/proc/{}/stat", m_process));
        std::string text;
        std::getline(file, text);
        std::istringstream fields(text.substr(text.rfind(')') + 2));
        std::string skipped;
        for (int i = 0; i < 11; ++i)
            fields >> skipped;
        double user = 0;
        double system = 0;
        fields >> user >> system;
        return (user + system) * 1000 / static_cast<double>(::sysconf(_SC_CLK_TCK));
    }

    /// Waits until the process has been idle for a second, draining its log meanwhile.
    void rest() const
    {
        ::fcntl(m_output, F_SETFL, O_NONBLOCK);
        std::array<char, 4096> part{};
        for (int quiet = 0; quiet < 4;) {
            const double before = processorTime();
            std::this_thread::sleep_for(std::chrono::milliseconds(250));
            while (::read(m_output, part.data(), part.size()) > 0) {}
            quiet = processorTime() == before ? quiet + 1 : 0;
        }
    }

    /// Resident memory in megabytes.
    [[nodiscard]] double resident() const
    {
        std::ifstream file(fmt::format("/proc/{}/status", m_process));
        std::string word;
        double kibibytes = 0;
        while (file >> word) {
            if (word == "VmRSS:")
                file >> kibibytes;
        }
        return kibibytes * 1024 / 1e6;
    }

private:
    Clock::time_point m_start;
    pid_t m_process = -1;
    int m_output = -1;
};

void measureProgram(int rounds, const std::string &self, const std::string &program, const std::string &folder)
{
    std::vector<double> floor;
    std::vector<double> start;
    std::vector<double> floorMemory;
    for (int i = 0; i <= rounds; ++i) {
        const Started empty({self, "--empty"});
        const double ofEmpty = empty.firstFrame();
        const double ofProgram = Started({program}).firstFrame();
        if (i == 0)
            continue; // warm-up: loads the programs from the disk
        floor.push_back(ofEmpty);
        start.push_back(ofProgram);
    }
    report("first frame of an empty window (the floor)", "ms", floor, 150);
    report("first frame of the program", "ms", start, 150);

    std::vector<double> idleMemory;
    std::vector<double> idleTime;
    std::vector<double> scanMemory;
    for (int i = 0; i < std::min(rounds, 3); ++i) {
        const Started empty({self, "--empty"});
        empty.firstFrame();
        empty.rest();
        floorMemory.push_back(empty.resident());

        const Started idle({program});
        idle.firstFrame();
        idle.rest();
        idleMemory.push_back(idle.resident());
        constexpr int seconds = 4;
        const double before = idle.processorTime();
        std::this_thread::sleep_for(std::chrono::seconds(seconds));
        idleTime.push_back((idle.processorTime() - before) / seconds);

        const Started scanned({program, folder});
        scanned.firstFrame();
        scanned.rest();
        scanMemory.push_back(scanned.resident());
    }
    report("memory of an empty window (the floor)", "MB", floorMemory, 110);
    report("memory, nothing scanned", "MB", idleMemory, 110);
    report("memory after a scan of 1,000,000 files", "MB", scanMemory, 140);
    report("processor time while nothing happens, per second", "ms", idleTime, 0);
}

// --- The window inside this program

/// Milliseconds of processor time of all threads.
double processorTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

void waitFor(const std::function<bool()> &condition, const char *what)
{
    if (QTest::qWaitFor(condition, 60'000))
        return;
    fmt::print(stderr, "bench_window: waited in vain for {}\n", what);
    std::exit(EXIT_FAILURE);
}

class Window {
public:
    explicit Window(corvane::CorvaneApp &program) : m_program(program), m_window(*program.window())
    {
        QObject::connect(&m_window, &QQuickWindow::frameSwapped, &m_window, [this] { ++m_frames; });
    }

    void scan()
    {
        m_program.store().scan("/made-up");
        waitFor([this] { return m_program.store().phase() == StorageStore::Phase::ready; }, "the scan");
        rest();
    }

    void show(StorageStore::SidebarItem screen)
    {
        m_program.store().setSidebar(screen);
        rest();
    }

    QQuickItem &item(const char *name)
    {
        auto *found = m_window.findChild<QQuickItem *>(QLatin1String(name));
        if (found == nullptr)
            std::exit(EXIT_FAILURE);
        return *found;
    }

    /// Waits until no more frames are drawn.
    void rest()
    {
        for (int last = -1; last != m_frames;) {
            last = m_frames;
            QTest::qWait(400);
        }
    }

    /// Performs an action and waits until its result is drawn. Returns milliseconds of processor time and of wall-clock
    /// time.
    std::pair<double, double> frame(
        const std::function<void()> &act, const std::function<bool()> &hasCome = [] { return true; })
    {
        const double start = processorTime();
        const Clock::time_point began = Clock::now();
        act();
        waitFor(hasCome, "what a frame is to show");
        const int before = m_frames;
        waitFor([&] { return m_frames > before; }, "a frame");
        return {processorTime() - start, since(began)};
    }

    [[nodiscard]] QQuickWindow &window() { return m_window; }
    [[nodiscard]] int frames() const { return m_frames; }

private:
    corvane::CorvaneApp &m_program;
    QQuickWindow &m_window;
    int m_frames = 0;
};

// Moves the pointer like a mouse that reports 125 times a second: up and down and across many tiles.
double hover(Window &window)
{
    QQuickItem &map = window.item("map");
    const QPointF origin = map.mapToScene({});
    constexpr int seconds = 3;
    constexpr int perSecond = 125;
    const double start = processorTime();
    const Clock::time_point began = Clock::now();
    for (int step = 0; step < seconds * perSecond; ++step) {
        const double part = static_cast<double>(step) / (seconds * perSecond);
        const double row = part * 12;
        const double across = std::abs(std::fmod(row, 2.0) - 1);
        const QPointF point(4 + across * (map.width() - 8), 4 + part * (map.height() - 8));
        QTest::mouseMove(&window.window(), (origin + point).toPoint());
        const auto due = began + std::chrono::microseconds(1'000'000 / perSecond) * (step + 1);
        // Sleep in an event loop, as the program does between events.
        QEventLoop loop;
        QTimer::singleShot(
            std::max(std::chrono::milliseconds(0), std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now())),
            Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return (processorTime() - start) / since(began) * 100;
}

void measureEvents(int rounds, int argc, char **argv)
{
    const corvane::Host &system = corvane::systemHost();
    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const QGuiApplication application(argc, argv);

    // The maximum number of tiles in a map, with hundreds of files in each: 501,000 rows in the list.
    MadeUpFiles many({60, 50, 167}, 120'000'000);
    const corvane::Host manyHost{many, system.trash, system.volumes, system.desktop, system.applications};
    {
        corvane::CorvaneApp program(corvane::AppInfo::site(), corvane::UpdateConfiguration::ofThisBuild(), manyHost);
        if (!program.openWindow())
            std::exit(EXIT_FAILURE);
        Window window(program);
        window.window().resize(1920, 1080);
        window.scan();

        window.show(StorageStore::SidebarItem::explorer);
        std::vector<double> hovering;
        const int before = window.frames();
        const Clock::time_point began = Clock::now();
        for (int i = 0; i < rounds; ++i)
            hovering.push_back(hover(window));
        const double rate = (window.frames() - before) / since(began) * 1000;
        report(fmt::format("hovering over the map, {:.0f} frames a second", rate), "% of a core", hovering, 10);

        std::vector<double> resizing;
        for (int i = 0; i < 8 * rounds; ++i) {
            const QSize size(1913 + (i % 2) * 7, 1075 + (i % 2) * 5);
            const auto hasSize = [&] { return window.window().contentItem()->size() == QSizeF(size); };
            resizing.push_back(window.frame([&] { window.window().resize(size); }, hasSize).first);
        }
        report("one step of resizing the map to 1920x1080", "ms", resizing, 16);

        window.show(StorageStore::SidebarItem::large);
        const QQuickItem &list = window.item("lists.rows");
        const QPointF middle = list.mapToScene(QPointF(list.width() / 2, list.height() / 2));
        const Clock::time_point opened = Clock::now();
        std::vector<double> scrolling;
        for (int i = 0; i < 60 * rounds; ++i) {
            scrolling.push_back(window
                                    .frame([&] {
                                        QWheelEvent wheel(middle, window.window().mapToGlobal(middle), QPoint(0, -40),
                                                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                                                          Qt::NoScrollPhase, false);
                                        wheel.setTimestamp(static_cast<quint64>(since(opened)));
                                        QCoreApplication::sendEvent(&window.window(), &wheel);
                                    })
                                    .first);
        }
        report("one frame of scrolling 501,000 rows", "ms", scrolling, 4);
    }

    MadeUpFiles full({1, 100'000}, 1'200'000);
    const corvane::Host fullHost{full, system.trash, system.volumes, system.desktop, system.applications};
    corvane::CorvaneApp program(corvane::AppInfo::site(), corvane::UpdateConfiguration::ofThisBuild(), fullHost);
    if (!program.openWindow())
        std::exit(EXIT_FAILURE);
    Window window(program);
    window.window().resize(1920, 1080);
    window.scan();
    window.show(StorageStore::SidebarItem::explorer);
    std::vector<double> opening;
    for (int i = 0; i < rounds; ++i) {
        const auto folder = program.store().root()->children.front();
        opening.push_back(window.frame([&] { program.store().open(folder); }).second);
        window.rest();
        program.store().openParent();
        window.rest();
    }
    report("opening a folder of 100,000 children, first frame", "ms", opening, 100);
}

int showEmptyWindow(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    QQuickWindow window;
    window.resize(1180, 760);
    window.show();
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 2 && std::string_view(argv[1]) == "--empty")
        return showEmptyWindow(argc, argv);
    const std::optional<int> rounds = argc == 5 ? positiveNumber(argv[1]) : std::nullopt;
    if (!rounds) {
        fmt::print(stderr, "bench_window: name the rounds, the program, a folder of 1,000,000 files and a sandbox\n");
        return 2;
    }
    const std::string sandbox = argv[4];
    for (const auto &[variable, folder] : {std::pair{"HOME", "home"},
                                           {"XDG_CONFIG_HOME", "config"},
                                           {"XDG_CACHE_HOME", "cache"},
                                           {"XDG_DATA_HOME", "data"}})
        ::setenv(variable, fmt::format("{}/{}", sandbox, folder).c_str(), 1);
    // Skip the welcome sheet of the first launch, which is not measured.
    QSettings(QString::fromStdString(sandbox + "/config/Corvane/Corvane.conf"), QSettings::NativeFormat)
        .setValue(QStringLiteral("didOnboard"), QStringLiteral("true"));

    measureProgram(*rounds, "/proc/self/exe", argv[2], argv[3]);
    measureEvents(*rounds, argc, argv);
    return EXIT_SUCCESS;
}
