// Times how long publishing a finished scan blocks the main thread: bench_publish [ROUNDS]
//
// The store scans a synthetic file system of 1,000,000 files, each large enough for its own node, which is the largest
// result that a scan can produce. Each event that the main thread handles meanwhile is timed; the one in which the
// store becomes ready is the publishing. From the second round on, starting a scan also frees the previous tree.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <fmt/format.h>

#include "core/store/storage_store.h"
#include "made_up_files.h"
#include "support.h"

namespace {

using corvane::StorageStore;
using Clock = std::chrono::steady_clock;

constexpr double limit = 50; // milliseconds

constexpr std::int64_t fileCount = 1'000'000;

/// Times every event.
class TimedApplication final : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const Clock::time_point start = Clock::now();
        const bool result = QCoreApplication::notify(receiver, event);
        const double taken = milliseconds(Clock::now() - start);
        longest = std::max(longest, taken);
        if (isPublishing)
            publishing = taken;
        isPublishing = false;
        return result;
    }

    bool isPublishing = false; ///< set while the event is handled
    double publishing = 0;     ///< milliseconds
    double longest = 0;        ///< of any event
};

void report(std::string_view what, const std::vector<double> &values)
{
    const double worst = std::ranges::max(values);
    fmt::print("  {:<34} median {:>7.2f} ms, worst {:>7.2f} ms\n", what, median(values), worst);
}

} // namespace

int main(int argc, char **argv)
{
    const int rounds = roundsFrom(argc, argv, 5);
    TimedApplication application(argc, argv);
    const corvane::Host &system = corvane::systemHost();
    // 1000 folders at the top with 100 folders each, which contain 10 files each.
    MadeUpFiles files({1'000, 100, 10}, 1'200'000);
    const corvane::Host host{files, system.trash, system.volumes, system.desktop, system.applications};
    StorageStore store(host, corvane::PathGuard::locations());

    std::vector<double> starting;
    std::vector<double> publishing;
    std::vector<double> longest;
    for (int round = 0; round < rounds; ++round) {
        application.longest = 0;
        const auto connection = QObject::connect(&store, &StorageStore::phaseChanged, &application, [&] {
            if (store.phase() == StorageStore::Phase::ready)
                application.isPublishing = true;
        });
        const Clock::time_point start = Clock::now();
        store.scan("/made-up");
        starting.push_back(milliseconds(Clock::now() - start));
        while (store.phase() != StorageStore::Phase::ready || store.breakdownLoading())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::disconnect(connection);
        if (store.root()->fileCount != fileCount || store.allFiles().size() != fileCount)
            return EXIT_FAILURE;
        publishing.push_back(application.publishing);
        longest.push_back(application.longest);
    }
    fmt::print("publish: {} rounds of a scan of 1,000,000 files, all of them nodes\n", rounds);
    report("starting a scan", starting);
    report("publishing the finished scan", publishing);
    report("any event meanwhile", longest);
    const double worst = std::max(std::ranges::max(starting), std::ranges::max(longest));
    fmt::print("  main thread held for {:.2f} ms, {}\n", worst, goalAtMost(limit, "ms", worst));
    return EXIT_SUCCESS;
}
