// Removes items while a second process swaps the items on their paths as fast as it can, and counts losses. Run it in
// a temporary home folder: every item is created here.
//
// usage: swapped_removals CASE COUNT FOLDER
//   CASE    WAY-KIND-SWAP: WAY is permanent, trash or within (items already in the Trash); KIND is files or folders;
//           SWAP is exchange (renameat2) or rename (three plain renames) of the items' folder and a link, or item (each
//           item is exchanged with another one beside it)
//   FOLDER  where the items and those that must survive are created; for "within" a folder inside the Trash
//
// Prints one line, "COUNT removals: D done, R times refused, L lost".

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <glib.h>

#include "core/removal.h"

namespace {

namespace fs = std::filesystem;
using namespace corvane;

struct Case {
    std::string way, kind, swap;
};

Case parsed(const std::string &text)
{
    std::istringstream parts(text);
    Case result;
    std::getline(parts, result.way, '-');
    std::getline(parts, result.kind, '-');
    std::getline(parts, result.swap, '-');
    return result;
}

void writeText(const fs::path &path, const std::string &text)
{
    std::ofstream(path) << text;
}

std::string textOf(const fs::path &path)
{
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Creates a file with this text, or a folder that contains one.
void makeItem(const fs::path &path, const std::string &kind, const std::string &text)
{
    if (kind == "folders")
        fs::create_directories(path / "inner");
    writeText(kind == "folders" ? path / "inner/file" : path, text);
}

std::string textOfItem(const fs::path &path, const std::string &kind)
{
    return textOf(kind == "folders" ? path / "inner/file" : path);
}

void exchange(const std::string &a, const std::string &b)
{
    (void)::renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE);
}

void swapByRenames(const std::string &a, const std::string &b)
{
    const std::string aside = a + ".aside";
    (void)std::rename(a.c_str(), aside.c_str());
    (void)std::rename(b.c_str(), a.c_str());
    (void)std::rename(aside.c_str(), b.c_str());
}

/// A process that swaps items until this object is destroyed. Afterwards everything is back in its place.
class Swapper {
public:
    template <typename Swap>
    explicit Swapper(const Swap &swap)
        : m_isOver(new (::mmap(nullptr, sizeof(std::atomic<bool>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                               -1, 0)) std::atomic<bool>(false)),
          m_child(::fork())
    {
        if (m_child != 0)
            return;
        while (!*m_isOver) {
            swap();
            swap(); // swaps back
        }
        ::_exit(0);
    }
    Swapper(const Swapper &) = delete;
    Swapper &operator=(const Swapper &) = delete;
    ~Swapper()
    {
        *m_isOver = true;
        ::waitpid(m_child, nullptr, 0);
        ::munmap(m_isOver, sizeof *m_isOver);
    }

private:
    std::atomic<bool> *const m_isOver;
    const pid_t m_child;
};

std::string nameOf(int number)
{
    return "item" + std::to_string(number);
}

/// The original path in a Trash record, joined to the top of the volume if it is relative.
std::string originalPath(const fs::path &record, const fs::path &top)
{
    std::istringstream lines(textOf(record));
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("Path="))
            continue;
        char *const unescaped = g_uri_unescape_string(line.c_str() + 5, nullptr);
        const fs::path path = unescaped != nullptr ? unescaped : "";
        g_free(unescaped);
        return path.is_absolute() ? path : top / path;
    }
    return {};
}

class Run {
public:
    Run(const Case &which, const fs::path &folder) : m_case(which), m_folder(folder)
    {
        // The path that the Trash would record for an item at this place, with links resolved.
        fs::create_directories(m_folder);
        m_folder = fs::canonical(m_folder);
        m_items = m_folder / "dir";
        m_link = m_folder / "link";
        const bool isAtHome = m_folder.string().starts_with(PathGuard::home() + "/");
        const bool isProtected = isAtHome && m_case.way != "within";
        m_strangers = isProtected ? fs::path(PathGuard::home()) / ".ssh" : m_folder.parent_path() / "strangers";
        if (m_case.way == "within")
            m_strangers =
                isAtHome ? fs::path(PathGuard::home()) / "project" : fs::path(std::getenv("DISK")) / "project";
        if (m_case.swap == "item")
            m_strangers = m_folder / "beside";
        fs::create_directories(m_strangers);
        if (m_case.swap != "item")
            fs::create_directory_symlink(m_strangers, m_link);
        // Unprotected strangers can only be distinguished from the items by the identity at selection.
        m_remembersItems = !isProtected || m_case.swap == "item";
        if (isAtHome) {
            m_trash = fs::path(PathGuard::home()) / "data/Trash";
        } else {
            m_top = std::getenv("DISK");
            m_trash = m_top / (".Trash-" + std::to_string(::getuid()));
        }
    }

    void removeBatch(int count)
    {
        fs::create_directories(m_items);
        std::vector<RemovalStep> steps;
        Selection entries;
        for (int i = 0; i < count; ++i) {
            makeItem(m_items / nameOf(i), m_case.kind, "item");
            makeItem(m_strangers / nameOf(i), m_case.kind, "stranger");
            entries[m_items / nameOf(i)] = 1;
        }
        steps = Removal::plan(entries, m_case.way == "permanent", PathGuard::locations(),
                              systemHost().trash.trashFolders());
        if (m_remembersItems) {
            for (RemovalStep &step : steps)
                step.seen = systemHost().files.facts(step.path)->identity;
        }
        perform(steps);
        for (int i = 0; i < count; ++i)
            judge(nameOf(i));
        for (const fs::path &used : {m_items, m_trash / "info"})
            fs::remove_all(used);
        if (m_case.way != "within")
            fs::remove_all(m_trash / "files");
        for (const auto &left : fs::directory_iterator(m_strangers))
            fs::remove_all(left);
    }

    void report() const
    {
        std::cout << m_removals << " removals: " << m_done << " done, " << m_refused << " times refused, " << m_lost
                  << " lost\n";
    }

private:
    void perform(const std::vector<RemovalStep> &steps)
    {
        m_removals += steps.size();
        // Items that were in the swapped state when they were checked are refused. Retry those, so that most items are
        // eventually removed while being swapped.
        const auto remove = [&](std::vector<RemovalStep> which) {
            constexpr int passes = 100;
            for (int pass = 0; pass < passes && !which.empty(); ++pass) {
                const RemovalOutcome outcome = Removal::perform(which, PathGuard::locations(), systemHost());
                m_done += outcome.removed.size();
                m_refused += outcome.failures.size();
                std::erase_if(which, [&](const RemovalStep &step) {
                    return std::ranges::any_of(outcome.removed,
                                               [&](const SelectedEntry &entry) { return entry.path == step.path; });
                });
            }
        };
        if (m_case.swap == "item") {
            const Swapper swapper([this, count = steps.size()] {
                for (std::size_t i = 0; i < count; ++i)
                    exchange(m_items / nameOf(static_cast<int>(i)), m_strangers / nameOf(static_cast<int>(i)));
            });
            remove(steps);
            return;
        }
        const Swapper swapper([this] {
            if (m_case.swap == "exchange")
                exchange(m_items, m_link);
            else
                swapByRenames(m_items, m_link);
        });
        remove(steps);
    }

    /// Every stranger must be in its place, and every item in its place, in the Trash with a record, or, if requested,
    /// deleted.
    void judge(const std::string &name)
    {
        std::vector<std::string> found;
        for (const fs::path &place : {m_items / name, m_strangers / name}) {
            if (const std::string text = textOfItem(place, m_case.kind); !text.empty())
                found.push_back(text);
        }
        const bool isInPlace = m_case.swap == "item" || textOfItem(m_strangers / name, m_case.kind) == "stranger";
        if (!isInPlace || std::ranges::count(found, "stranger") != 1)
            lose(name, "the stranger is gone");
        const bool isLeft = std::ranges::count(found, "item") == 1;
        const std::string trashed = m_case.way == "trash" ? textOfItem(m_trash / "files" / name, m_case.kind) : "";
        const bool isRecorded =
            originalPath(m_trash / "info" / (name + ".trashinfo"), m_top) == (m_items / name).string();
        if (m_case.way == "trash" && isLeft == (trashed == "item" && isRecorded))
            lose(name, isLeft ? "the item is there twice" : "the item is gone or has no way back");
    }

    void lose(const std::string &name, const char *why)
    {
        ++m_lost;
        std::cerr << name << ": " << why << '\n';
    }

    const Case m_case;
    fs::path m_folder, m_items, m_link, m_strangers, m_trash, m_top;
    bool m_remembersItems = false;
    std::size_t m_removals = 0, m_done = 0, m_refused = 0, m_lost = 0;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4)
        return 2;
    constexpr int batch = 250;
    Run run(parsed(argv[1]), argv[3]);
    for (int left = std::stoi(argv[2]); left > 0; left -= batch)
        run.removeBatch(std::min(left, batch));
    run.report();
}
