// Uninstalls one application through the store, as the window does, and prints the result, so that a test can do that
// inside a shaped root.
//
//   uninstall_probe BUNDLE INSTANCES quit|ignore
//
// Runs INSTANCES processes from the bundle, which quit on request or ignore the request. The exact leftovers are
// removed with the application, as if the user changed nothing.

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/path_guard.h"
#include "core/store/storage_store.h"
#include "platform/host.h"
#include "support/patience.h"

namespace {

using namespace corvane;

void insist(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "uninstall_probe: %s\n", what);
    std::exit(EXIT_FAILURE);
}

template <typename Condition>
void waitFor(const Condition &condition, const char *what)
{
    insist(QTest::qWaitFor(condition, patience), what);
}

/// A running program, killed at the end if it still runs. Not a QProcess: once one has been started, ThreadSanitizer
/// takes the locks of the calling thread for none.
class Instance {
public:
    explicit Instance(std::vector<std::string> command)
    {
        std::vector<char *> arguments;
        std::ranges::transform(command, std::back_inserter(arguments), [](std::string &word) { return word.data(); });
        arguments.push_back(nullptr);
        insist(posix_spawn(&m_process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0,
               "cannot start an instance");
    }
    ~Instance()
    {
        if (hasEnded())
            return;
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    Instance(const Instance &) = delete;
    Instance &operator=(const Instance &) = delete;

    [[nodiscard]] bool hasEnded()
    {
        m_hasEnded = m_hasEnded || waitpid(m_process, nullptr, WNOHANG) == m_process;
        return m_hasEnded;
    }

private:
    pid_t m_process = 0;
    bool m_hasEnded = false;
};

std::vector<std::unique_ptr<Instance>> startInstances(const QString &bundle, int count, bool ignoresRequests)
{
    const QString program = bundle + QStringLiteral("/Contents/MacOS/sleep");
    insist(count == 0 || QFile::copy(QStringLiteral("/bin/sleep"), program), "cannot put a program into the bundle");
    std::vector<std::unique_ptr<Instance>> instances;
    for (int i = 0; i < count; ++i) {
        // A signal that a shell ignores is still ignored after exec.
        const std::string ignore = ignoresRequests ? "trap '' TERM; " : "";
        instances.push_back(std::make_unique<Instance>(std::vector<std::string>{
            "/bin/sh", "-c", ignore + "exec \"$0\" 1000", QFile::encodeName(program).toStdString()}));
    }
    return instances;
}

const InstalledApp &application(const StorageStore &store, const std::string &path)
{
    const auto found = std::ranges::find(store.apps(), path, &InstalledApp::path);
    insist(found != store.apps().end(), "there is no such application");
    return *found;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication program(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    insist(arguments.size() == 4, "name a bundle, a number of instances, and what they do");
    const std::string bundle = QFile::encodeName(arguments[1]).toStdString();
    const auto count = static_cast<std::size_t>(arguments[2].toUInt());
    const bool ignoresRequests = arguments[3] == QStringLiteral("ignore");
    auto instances = startInstances(arguments[1], arguments[2].toInt(), ignoresRequests);

    StorageStore store(systemHost(), PathGuard::locations());
    store.refreshApps();
    waitFor([&] { return store.appsLoaded(); }, "the inventory does not come");
    const InstalledApp app = application(store, bundle);
    const auto running = [&] { return systemHost().applications.running(marksOf(app)).size(); };
    waitFor([&] { return running() == count; }, "the instances do not run");

    std::vector<Leftover> chosen;
    std::ranges::copy_if(app.leftovers, std::back_inserter(chosen),
                         [](const Leftover &leftover) { return leftover.match == Leftover::Match::exact; });
    store.uninstall(app, chosen);
    const bool waits = !store.isRemoving();
    waitFor([&] { return !store.isUninstalling(bundle); }, "the uninstall does not end");
    const auto ended = [&] {
        return std::ranges::count_if(instances, [](const auto &instance) { return instance->hasEnded(); });
    };
    if (!ignoresRequests)
        waitFor([&] { return ended() == std::ssize(instances); }, "an instance does not quit");
    const auto endedByThemselves = static_cast<int>(ended());
    instances.clear();
    waitFor([&] { return !store.appsLoading(); }, "the inventory is not loaded again");

    QJsonArray leftovers;
    for (const Leftover &leftover : chosen)
        leftovers.append(QString::fromStdString(leftover.path));
    const QJsonObject report{{QStringLiteral("leftovers"), leftovers},
                             {QStringLiteral("waits"), waits},
                             {QStringLiteral("ended"), endedByThemselves},
                             {QStringLiteral("toast"), QString::fromStdString(store.toast().value_or(""))},
                             {QStringLiteral("isListed"),
                              std::ranges::find(store.apps(), bundle, &InstalledApp::path) != store.apps().end()}};
    std::puts(QJsonDocument(report).toJson(QJsonDocument::Compact).constData());
    return EXIT_SUCCESS;
}
