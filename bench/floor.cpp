// The lower bound for any directory walk, on all cores and without using the results: opens and lists each folder and
// stats every entry. Any time a scan takes beyond this is its own. bench_floor [THREADS] FOLDER prints the number of
// files and bytes.

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

#include "support.h"

namespace {

/// An open folder, kept open while folders inside it are queued.
struct Open {
    explicit Open(int number) : descriptor(number) {}
    Open(const Open &) = delete;
    Open &operator=(const Open &) = delete;
    ~Open() { ::close(descriptor); }
    const int descriptor;
};

struct Task {
    std::shared_ptr<Open> parent;
    std::string name;
};

/// The queue of folders to visit, newest first so that few stay open.
class Tasks {
public:
    void add(std::vector<Task> &&tasks)
    {
        const std::scoped_lock lock(m_lock);
        std::ranges::move(tasks, std::back_inserter(m_tasks));
        m_changed.notify_all();
    }

    /// Returns false when everything has been visited.
    bool take(Task &task)
    {
        std::unique_lock lock(m_lock);
        --m_busy;
        if (m_busy == 0 && m_tasks.empty())
            m_changed.notify_all();
        m_changed.wait(lock, [&] { return !m_tasks.empty() || m_busy == 0; });
        if (m_tasks.empty())
            return false;
        ++m_busy;
        task = std::move(m_tasks.back());
        m_tasks.pop_back();
        return true;
    }

    void setThreads(unsigned count) { m_busy = count; }

private:
    std::mutex m_lock;
    std::condition_variable m_changed;
    std::vector<Task> m_tasks; // guarded by m_lock
    unsigned m_busy = 0;       // guarded by m_lock: threads that may still add tasks
};

struct Totals {
    std::int64_t files = 0;
    std::int64_t bytes = 0;
};

void visitAll(Tasks &tasks, Totals &totals)
{
    constexpr std::size_t bufferSize = 128 * 1024;
    const std::unique_ptr<char[]> buffer(new char[bufferSize]);
    Totals own;
    std::vector<Task> found;
    for (Task task; tasks.take(task);) {
        const int base = task.parent ? task.parent->descriptor : AT_FDCWD;
        const int descriptor = ::openat(base, task.name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOATIME);
        if (descriptor < 0)
            continue;
        const auto folder = std::make_shared<Open>(descriptor);
        for (ssize_t length; (length = ::getdents64(descriptor, buffer.get(), bufferSize)) > 0;) {
            for (ssize_t position = 0; position < length;) {
                const auto *entry = reinterpret_cast<const dirent64 *>(buffer.get() + position);
                position += entry->d_reclen;
                const std::string_view name = entry->d_name;
                if (name == "." || name == "..")
                    continue;
                struct stat facts;
                if (::fstatat(descriptor, entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) != 0)
                    continue;
                if (S_ISDIR(facts.st_mode)) {
                    found.push_back({folder, std::string(name)});
                } else if (!S_ISLNK(facts.st_mode)) {
                    ++own.files;
                    own.bytes += facts.st_blocks * 512;
                }
            }
        }
        if (!found.empty()) {
            tasks.add(std::move(found));
            found.clear();
        }
    }
    totals = own;
}

} // namespace

int main(int argc, char **argv)
{
    std::optional<int> given = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    if (argc == 3)
        given = positiveNumber(argv[1]);
    if (argc < 2 || argc > 3 || !given) {
        fmt::print(stderr, "usage: bench_floor [THREADS] FOLDER\n");
        return 2;
    }
    const auto threadCount = static_cast<unsigned>(*given);
    Tasks tasks;
    tasks.setThreads(threadCount);
    std::vector<Task> top;
    top.push_back({nullptr, argv[argc - 1]});
    tasks.add(std::move(top));
    std::vector<Totals> totals(threadCount);
    std::vector<std::thread> threads;
    for (Totals &own : totals)
        threads.emplace_back([&] { visitAll(tasks, own); });
    Totals sum;
    for (unsigned i = 0; i < threadCount; ++i) {
        threads[i].join();
        sum.files += totals[i].files;
        sum.bytes += totals[i].bytes;
    }
    fmt::print("{} files, {} bytes\n", sum.files, sum.bytes);
    return EXIT_SUCCESS;
}
