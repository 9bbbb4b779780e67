#include "core/stoppable_files.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "core/mount_map.h"
#include "platform/failure.h"
#include "platform/file_reader.h"
#include "platform/held_folder.h"
#include "platform/path.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

tl::unexpected<Error> givenUp(const char *operation, const std::string &path)
{
    return failure(operation, path, ECANCELED, "the disk is not responding");
}

/// The result of a call that may fail with an `Error`.
template <typename Call>
auto answerOf(const char *operation, const std::string &path, const Waiting &waiting, Call call)
    -> std::invoke_result_t<Call &>
{
    auto answer = detachedCall(std::move(call), waiting, path);
    if (!answer)
        return givenUp(operation, path);
    return *std::move(answer);
}

} // namespace

/// Constant after construction.
struct StoppableFiles::Surroundings {
    Waiting waiting;
    std::vector<std::string> unsure; // mount points of file systems that may not answer
    std::string sureRoot;            // the root, if it is on a local disk

    [[nodiscard]] bool isUnsure(std::string_view path) const
    {
        return std::ranges::any_of(unsure, [&](const std::string &mount) { return isOrLiesBeneath(path, mount); });
    }
    [[nodiscard]] bool hasUnsureBeneath(std::string_view path) const
    {
        return std::ranges::any_of(unsure, [&](const std::string &mount) { return liesBeneath(mount, path); });
    }
};

/// A folder on a file system that may not answer.
class StoppableFiles::UnsureFolder final : public OpenFolder {
public:
    using Around = std::shared_ptr<const Surroundings>;

    /// Opens a folder by `open`, which owns everything it uses.
    [[nodiscard]] static Expected<std::unique_ptr<OpenFolder>> openedBy(
        std::function<Expected<std::unique_ptr<OpenFolder>>()> open, const std::string &path,
        const Around &surroundings)
    {
        return answerOf("open", path, surroundings->waiting, [open = std::move(open), path, surroundings] {
            const WalkConditions conditions;
            return open().map([&](std::unique_ptr<OpenFolder> folder) -> std::unique_ptr<OpenFolder> {
                return std::make_unique<UnsureFolder>(std::move(folder), path, surroundings);
            });
        });
    }

    /// Queries the folder's facts, so construct it on the companion thread.
    UnsureFolder(std::unique_ptr<OpenFolder> folder, std::string path, Around surroundings)
        : m_folder(std::move(folder)),
          m_path(std::move(path)),
          m_surroundings(std::move(surroundings)),
          m_identity(m_folder->identity()),
          m_modified(m_folder->modified()),
          m_allocated(m_folder->allocated())
    {
    }

    Expected<void> list(const EntrySink &sink) override
    {
        const auto listing = std::make_shared<Gathered>();
        Companion &companion = Companion::ofThisThread();
        const bool isBegun = companion.begin([listing, folder = m_folder] {
            const WalkConditions conditions;
            listing->end(folder->list([&](const DirectoryEntry &entry) { return listing->add(entry); }));
        });
        if (!isBegun) {
            const WalkConditions conditions;
            return m_folder->list(sink);
        }
        for (;;) {
            std::unique_lock lock(listing->lock);
            const bool isReady = m_surroundings->waiting.until(
                lock, listing->changed, [&] { return listing->isFull() || listing->result; }, m_path);
            if (!isReady) {
                listing->isUnwanted = true;
                lock.unlock();
                listing->changed.notify_all();
                companion.leave();
                return givenUp("list", m_path);
            }
            const std::vector<Entry> entries = std::exchange(listing->entries, {});
            const std::optional<Expected<void>> result = listing->result;
            lock.unlock();
            listing->changed.notify_all();
            for (const Entry &entry : entries) {
                if (sink(entry.named()) == Listing::stop) {
                    listing->drop();
                    companion.leave();
                    return givenUp("list", m_path);
                }
            }
            if (result)
                return *result;
        }
    }

    Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
    {
        return openedBy([folder = m_folder, name] { return folder->openChild(name); }, joined(m_path, name),
                        m_surroundings);
    }

    Expected<std::unique_ptr<OpenFolder>> openParent() override
    {
        return openedBy([folder = m_folder] { return folder->openParent(); }, std::string(containingFolder(m_path)),
                        m_surroundings);
    }

    FolderIdentity identity() const override { return m_identity; }
    Time modified() const override { return m_modified; }
    std::int64_t allocated() const override { return m_allocated; }

private:
    struct Entry {
        std::string name;
        DirectoryEntry facts;

        [[nodiscard]] DirectoryEntry named() const
        {
            DirectoryEntry entry = facts;
            entry.name = name;
            return entry;
        }
    };

    /// Entries listed by the companion and not yet taken by its caller. Bounded, since a listing may have no end.
    struct Gathered {
        static constexpr std::size_t most = 4096;

        std::mutex lock;
        std::condition_variable changed;
        // Guarded by the lock.
        std::vector<Entry> entries;
        std::optional<Expected<void>> result;
        bool isUnwanted = false;

        [[nodiscard]] bool isFull() const { return entries.size() >= most; }

        Listing add(const DirectoryEntry &entry)
        {
            std::unique_lock guard(lock);
            entries.push_back({std::string(entry.name), entry});
            if (isFull()) {
                changed.notify_all();
                changed.wait(guard, [this] { return !isFull() || isUnwanted; });
            }
            return isUnwanted ? Listing::stop : Listing::goOn;
        }

        void end(Expected<void> ended)
        {
            {
                const std::scoped_lock guard(lock);
                result = std::move(ended);
            }
            changed.notify_all();
        }

        void drop()
        {
            {
                const std::scoped_lock guard(lock);
                isUnwanted = true;
            }
            changed.notify_all();
        }
    };

    const std::shared_ptr<OpenFolder> m_folder; // also owned by abandoned calls
    const std::string m_path;
    const Around m_surroundings;
    const FolderIdentity m_identity;
    const Time m_modified;
    const std::int64_t m_allocated;
};

/// A local folder above a mount that may not answer.
class StoppableFiles::FolderOnTheWay final : public OpenFolder {
public:
    FolderOnTheWay(std::unique_ptr<OpenFolder> folder, std::string path,
                   std::shared_ptr<const Surroundings> surroundings)
        : m_folder(std::move(folder)), m_path(std::move(path)), m_surroundings(std::move(surroundings))
    {
    }

    Expected<void> list(const EntrySink &sink) override { return m_folder->list(sink); }

    Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override
    {
        const std::string path = joined(m_path, name);
        if (m_surroundings->isUnsure(path))
            return UnsureFolder::openedBy([folder = m_folder, name] { return folder->openChild(name); }, path,
                                          m_surroundings);
        return m_folder->openChild(name).map(
            [&](std::unique_ptr<OpenFolder> child) { return wrapped(std::move(child), path, m_surroundings); });
    }

    Expected<std::unique_ptr<OpenFolder>> openParent() override { return m_folder->openParent(); }

    [[nodiscard]] Wrapping wrapping() const override
    {
        return [path = m_path, surroundings = m_surroundings](std::unique_ptr<OpenFolder> folder) {
            return wrapped(std::move(folder), path, surroundings);
        };
    }

    FolderIdentity identity() const override { return m_folder->identity(); }
    Time modified() const override { return m_folder->modified(); }
    std::int64_t allocated() const override { return m_folder->allocated(); }
    int descriptor() const override { return m_folder->descriptor(); }

    [[nodiscard]] static std::unique_ptr<OpenFolder> wrapped(std::unique_ptr<OpenFolder> folder, std::string path,
                                                             const std::shared_ptr<const Surroundings> &surroundings)
    {
        if (!surroundings->hasUnsureBeneath(path))
            return folder;
        return std::make_unique<FolderOnTheWay>(std::move(folder), std::move(path), surroundings);
    }

private:
    const std::shared_ptr<OpenFolder> m_folder; // also owned by abandoned calls
    const std::string m_path;
    const std::shared_ptr<const Surroundings> m_surroundings;
};

StoppableFiles::StoppableFiles(FileSystem &files, const std::string &root, Waiting waiting) : m_files(files)
{
    const auto surroundings = std::make_shared<Surroundings>();
    surroundings->waiting = std::move(waiting);
    surroundings->unsure = files.unsureMounts();
    m_surroundings = surroundings;
    const Expected<std::string> real = realPath(root); // the root's path may lead through links to any file system
    if (!real)
        return;
    if (surroundings->isUnsure(*real)) {
        surroundings->unsure.push_back(root);
        return;
    }
    surroundings->sureRoot = root;
    // A walk reports paths relative to the root as given.
    const std::vector<std::string> mounts = surroundings->unsure;
    for (const std::string &mount : mounts) {
        if (root != *real && liesBeneath(mount, *real))
            surroundings->unsure.push_back(moved(mount, *real, root));
    }
}

StoppableFiles::~StoppableFiles() = default;

bool StoppableFiles::answers(const std::string &path) const
{
    const std::string &root = m_surroundings->sureRoot;
    return !root.empty() && isOrLiesBeneath(path, root) && !m_surroundings->isUnsure(path);
}

Expected<std::unique_ptr<OpenFolder>> StoppableFiles::openFolder(const std::string &path)
{
    if (!answers(path))
        return UnsureFolder::openedBy([&files = m_files, path] { return files.openFolder(path); }, path,
                                      m_surroundings);
    return m_files.openFolder(path).map([&](std::unique_ptr<OpenFolder> folder) {
        return FolderOnTheWay::wrapped(std::move(folder), path, m_surroundings);
    });
}

Expected<ItemFacts> StoppableFiles::facts(const std::string &path)
{
    const auto ask = [&files = m_files, path] { return files.facts(path); };
    return answers(path) ? ask() : answerOf("examine", path, m_surroundings->waiting, ask);
}

bool StoppableFiles::exists(const std::string &path)
{
    const auto ask = [&files = m_files, path] { return files.exists(path); };
    return answers(path) ? ask() : detachedCall(ask, m_surroundings->waiting, path).value_or(false);
}

bool StoppableFiles::canOpen(const std::string &path)
{
    const auto ask = [&files = m_files, path] { return files.canOpen(path); };
    return answers(path) ? ask() : detachedCall(ask, m_surroundings->waiting, path).value_or(false);
}

Expected<std::string> StoppableFiles::realPath(const std::string &path)
{
    return answerOf("resolve", path, m_surroundings->waiting,
                    [&files = m_files, path] { return files.realPath(path); });
}

std::optional<std::string> StoppableFiles::ownerOf(const std::string &path)
{
    return m_files.ownerOf(path);
}

Expected<std::string> StoppableFiles::readFile(const std::string &path, std::size_t most)
{
    return m_files.readFile(path, most);
}

Expected<std::unique_ptr<FileReader>> StoppableFiles::openFile(const std::string &path)
{
    return m_files.openFile(path);
}

Expected<std::unique_ptr<HeldFolder>> StoppableFiles::holdFolder(const std::string &path)
{
    return m_files.holdFolder(path);
}

Expected<std::vector<std::string>> StoppableFiles::mountPoints()
{
    return m_files.mountPoints();
}

std::string StoppableFiles::homeFolder()
{
    return m_files.homeFolder();
}

SystemKind StoppableFiles::systemKind()
{
    return m_files.systemKind();
}

std::optional<std::string> StoppableFiles::diskName()
{
    return m_files.diskName();
}

std::vector<MountedFolder> StoppableFiles::mounts()
{
    return m_files.mounts();
}

std::vector<std::string> StoppableFiles::unsureMounts()
{
    return m_files.unsureMounts();
}

std::optional<OwnPlace> StoppableFiles::ownPlaceFor(std::string_view macPlace)
{
    return m_files.ownPlaceFor(macPlace);
}

std::vector<std::string> StoppableFiles::userFolders()
{
    return m_files.userFolders();
}

std::vector<std::string> StoppableFiles::sharedDataFolders()
{
    return m_files.sharedDataFolders();
}

std::vector<std::string> StoppableFiles::volumeTrashes()
{
    return m_files.volumeTrashes();
}

} // namespace corvane
